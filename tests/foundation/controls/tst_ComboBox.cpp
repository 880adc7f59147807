// Part 1.3: pick-only `ComboBox`, and row 4 of design.md section 3.

#include "foundation/controls/ComboBox.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QtTest>

namespace {

struct ShownCombo {
    ShownCombo()
    {
        combo = new ComboBox(QStringLiteral("txtMainCamera"), &window);
        combo->resize(200, 30);
        window.resize(240, 200);
        window.show();
    }
    // The user opens the list, moves to `row` and takes it with Enter.
    void pick(int row)
    {
        combo->showPopup();
        QAbstractItemView* view = combo->view();
        QVERIFY(QTest::qWaitForWindowExposed(view->window()));
        view->setCurrentIndex(view->model()->index(row, 0));
        QTest::keyClick(view, Qt::Key_Return);
    }
    QWidget window;
    ComboBox* combo;
};

} // namespace

class tst_ComboBox : public QObject {
    Q_OBJECT

private slots:
    void pickOnlyComboBoxListIndexIsMinusOneUntilSomethingIsPickedOrWritten();
    void clickOnlyOnAUserPickOrAListIndexWrite();
    void dropDownComesJustBeforeTheListOpens();
    void itemDataHoldsOneIntegerARow();
    void clearLeavesListIndexMinusOneAndRaisesNoClick();
    void noTyping();
};

void tst_ComboBox::pickOnlyComboBoxListIndexIsMinusOneUntilSomethingIsPickedOrWritten()
{
    ShownCombo shown;
    ComboBox& combo = *shown.combo;
    QSignalSpy click(&combo, &ComboBox::Click);
    combo.AddItem(QStringLiteral("Main"));
    QCOMPARE(combo.ListIndex(), -1); // raw QComboBox would select row 0 here
    combo.AddItem(QStringLiteral("Side"));
    QCOMPARE(combo.ListIndex(), -1);
    QCOMPARE(combo.ListCount(), 2);
    QCOMPARE(click.count(), 0);

    shown.pick(1);
    QCOMPARE(combo.ListIndex(), 1);
    QCOMPARE(click.count(), 1);

    combo.setListIndex(0);
    QCOMPARE(combo.ListIndex(), 0);
    QCOMPARE(click.count(), 2);

    // A row added behind a selection leaves the selection alone.
    combo.AddItem(QStringLiteral("Third"));
    QCOMPARE(combo.ListIndex(), 0);
    QCOMPARE(click.count(), 2);
}

void tst_ComboBox::clickOnlyOnAUserPickOrAListIndexWrite()
{
    ShownCombo shown;
    ComboBox& combo = *shown.combo;
    int indexSeenInClick = -2;
    QSignalSpy click(&combo, &ComboBox::Click);
    connect(&combo, &ComboBox::Click, &combo, [&] { indexSeenInClick = combo.ListIndex(); });
    combo.AddItem(QStringLiteral("a"));
    combo.AddItem(QStringLiteral("b"));
    combo.setCurrentIndex(1); // a change by Qt's own call is no pick of the user's
    QCOMPARE(click.count(), 0);

    combo.setListIndex(0);
    QCOMPARE(click.count(), 1);
    QCOMPARE(indexSeenInClick, 0);

    shown.pick(1);
    QCOMPARE(click.count(), 2);
    QCOMPARE(indexSeenInClick, 1);

    combo.setListIndex(-1);
    QCOMPARE(combo.ListIndex(), -1);
    QCOMPARE(click.count(), 3);

    combo.setListIndex(5); // out of range: nothing
    QCOMPARE(click.count(), 3);
    QCOMPARE(combo.ListIndex(), -1);
}

void tst_ComboBox::dropDownComesJustBeforeTheListOpens()
{
    ShownCombo shown;
    ComboBox& combo = *shown.combo;
    combo.AddItem(QStringLiteral("old"));
    combo.setListIndex(0);
    bool popupVisibleInDropDown = true;
    // The handler refills the list, as FillMainCameraList does.
    connect(&combo, &ComboBox::DropDown, &combo, [&] {
        popupVisibleInDropDown = combo.view()->isVisible();
        combo.Clear();
        combo.AddItem(QStringLiteral("Main"));
        combo.setItemData(0, 7);
        combo.AddItem(QStringLiteral("Side"));
        combo.setItemData(1, 9);
    });
    QSignalSpy dropDown(&combo, &ComboBox::DropDown);
    shown.pick(1);
    QCOMPARE(dropDown.count(), 1);
    QVERIFY(!popupVisibleInDropDown);
    QCOMPARE(combo.ListIndex(), 1);
    QCOMPARE(combo.itemText(1), QStringLiteral("Side"));
    QCOMPARE(combo.ItemData(combo.ListIndex()), 9);
}

void tst_ComboBox::itemDataHoldsOneIntegerARow()
{
    ComboBox combo(QStringLiteral("txtMainCamera"));
    combo.AddItem(QStringLiteral("a"));
    combo.AddItem(QStringLiteral("b"));
    QCOMPARE(combo.ItemData(0), 0);
    combo.setItemData(0, -5);
    combo.setItemData(1, 2147483647);
    QCOMPARE(combo.ItemData(0), -5);
    QCOMPARE(combo.ItemData(1), 2147483647);
    QCOMPARE(combo.ItemData(2), 0);
}

void tst_ComboBox::clearLeavesListIndexMinusOneAndRaisesNoClick()
{
    ComboBox combo(QStringLiteral("txtMainCamera"));
    combo.AddItem(QStringLiteral("a"));
    combo.setListIndex(0);
    QSignalSpy click(&combo, &ComboBox::Click);
    combo.Clear();
    QCOMPARE(combo.ListIndex(), -1);
    QCOMPARE(combo.ListCount(), 0);
    QCOMPARE(click.count(), 0);
    combo.AddItem(QStringLiteral("b"));
    QCOMPARE(combo.ListIndex(), -1);
}

void tst_ComboBox::noTyping()
{
    ShownCombo shown;
    shown.combo->AddItem(QStringLiteral("Main"));
    QVERIFY(!shown.combo->isEditable());
    QVERIFY(shown.combo->lineEdit() == nullptr);
}

QTEST_MAIN(tst_ComboBox)
#include "tst_ComboBox.moc"
