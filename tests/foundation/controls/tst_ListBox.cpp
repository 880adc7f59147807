// Part 1.3: `ListBox`, and rows 2, 3 and 6 of design.md section 3.

#include "foundation/controls/ListBox.h"

#include <QFontInfo>
#include <QSignalSpy>
#include <QtTest>

namespace {

// A list of three rows in a shown window, for clicks and keys as a user gives them.
struct ShownList {
    ShownList()
    {
        list = new ListBox(QStringLiteral("lstScenes"), &window);
        list->resize(300, 200);
        for (const char* row : {"zero", "one", "two"})
            list->AddItem(QString::fromLatin1(row));
        window.resize(320, 220);
        window.show();
    }
    void clickRow(int row)
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    }
    QWidget window;
    ListBox* list;
};

} // namespace

class tst_ListBox : public QObject {
    Q_OBJECT

private slots:
    void removeItemOfTheSelectedRowLeavesListIndexMinusOneAndRaisesNoClick();
    void addItemAppendsAndSelectsNothingWritingListIndexRaisesClickListWriteKeepsTheSelection();
    void keyDownGivesVisualBasicKeyCodes();
    void keyDownGivesVisualBasicKeyCodes_table_data();
    void keyDownGivesVisualBasicKeyCodes_table();

    void aUserClickOnARowRaisesClickWithThatListIndex();
    void arrowKeysSelectAndRaiseClick();
    void removingAnotherRowKeepsTheSelectedRow();
    void clearLeavesListIndexMinusOneAndRaisesNoClick();
    void writingListIndexMinusOneSelectsNothingAndRaisesClick();
    void anIndexOutOfRangeIsNoError();
    void focusAloneSelectsNothing();
    void fixedPitchListsAskForCourierNew9WithAFixedPitchFallback();
};

void tst_ListBox::removeItemOfTheSelectedRowLeavesListIndexMinusOneAndRaisesNoClick()
{
    ShownList shown;
    ListBox& list = *shown.list;
    shown.clickRow(1);
    QCOMPARE(list.ListIndex(), 1);

    QSignalSpy click(&list, &ListBox::Click);
    list.RemoveItem(1);
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(click.count(), 0);
    QCOMPARE(list.ListCount(), 2);
    QCOMPARE(list.List(1), QStringLiteral("two"));
    QVERIFY(list.selectedItems().isEmpty());

    // The same for the last row, whose neighbour lies above it.
    list.setListIndex(1);
    click.clear();
    list.RemoveItem(1);
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(click.count(), 0);

    // And nothing is selected behind the scenes: the next click on row 0 is a Click.
    shown.clickRow(0);
    QCOMPARE(list.ListIndex(), 0);
    QCOMPARE(click.count(), 1);
}

void tst_ListBox::addItemAppendsAndSelectsNothingWritingListIndexRaisesClickListWriteKeepsTheSelection()
{
    ListBox list(QStringLiteral("lstScenes"));
    QSignalSpy click(&list, &ListBox::Click);
    list.AddItem(QStringLiteral("a"));
    list.AddItem(QStringLiteral("b"));
    QCOMPARE(list.ListCount(), 2);
    QCOMPARE(list.List(0), QStringLiteral("a"));
    QCOMPARE(list.List(1), QStringLiteral("b"));
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(click.count(), 0);

    int indexSeenInClick = -2;
    connect(&list, &ListBox::Click, &list, [&] { indexSeenInClick = list.ListIndex(); });
    list.setListIndex(1);
    QCOMPARE(click.count(), 1);
    QCOMPARE(indexSeenInClick, 1); // raised within the write, with the new index

    // A write of the index already selected raises Click as well.
    list.setListIndex(1);
    QCOMPARE(click.count(), 2);

    list.setList(1, QStringLiteral("B"));
    QCOMPARE(list.List(1), QStringLiteral("B"));
    QCOMPARE(list.ListIndex(), 1);
    QCOMPARE(click.count(), 2);

    list.AddItem(QStringLiteral("c"));
    QCOMPARE(list.ListIndex(), 1);
    QCOMPARE(click.count(), 2);
}

void tst_ListBox::keyDownGivesVisualBasicKeyCodes()
{
    ShownList shown;
    QSignalSpy keyDown(shown.list, &ListBox::KeyDown);
    QTest::keyClick(shown.list, Qt::Key_Delete);
    QTest::keyClick(shown.list, Qt::Key_F2);
    QCOMPARE(keyDown.count(), 2);
    QCOMPARE(keyDown.at(0).at(0).toInt(), 46);
    QCOMPARE(keyDown.at(1).at(0).toInt(), 113);
}

void tst_ListBox::keyDownGivesVisualBasicKeyCodes_table_data()
{
    QTest::addColumn<int>("qtKey");
    QTest::addColumn<int>("vbKey");
    QTest::newRow("Delete") << int(Qt::Key_Delete) << 46;
    QTest::newRow("F2") << int(Qt::Key_F2) << 113;
    QTest::newRow("F1") << int(Qt::Key_F1) << 112;
    QTest::newRow("Return") << int(Qt::Key_Return) << 13;
    QTest::newRow("Insert") << int(Qt::Key_Insert) << 45;
    QTest::newRow("Up") << int(Qt::Key_Up) << 38;
    QTest::newRow("A") << int(Qt::Key_A) << 65;
    QTest::newRow("Z") << int(Qt::Key_Z) << 90;
    QTest::newRow("0") << int(Qt::Key_0) << 48;
}

void tst_ListBox::keyDownGivesVisualBasicKeyCodes_table()
{
    QFETCH(int, qtKey);
    QFETCH(int, vbKey);
    QCOMPARE(ListBox::VbKeyCode(qtKey), vbKey);
}

void tst_ListBox::aUserClickOnARowRaisesClickWithThatListIndex()
{
    ShownList shown;
    int indexSeenInClick = -2;
    QSignalSpy click(shown.list, &ListBox::Click);
    connect(shown.list, &ListBox::Click, shown.list,
            [&] { indexSeenInClick = shown.list->ListIndex(); });
    shown.clickRow(2);
    QCOMPARE(click.count(), 1);
    QCOMPARE(indexSeenInClick, 2);
    // A click on the row already selected changes nothing and raises nothing.
    shown.clickRow(2);
    QCOMPARE(click.count(), 1);
    shown.clickRow(0);
    QCOMPARE(click.count(), 2);
    QCOMPARE(indexSeenInClick, 0);
}

void tst_ListBox::arrowKeysSelectAndRaiseClick()
{
    ShownList shown;
    shown.list->setListIndex(0);
    QSignalSpy click(shown.list, &ListBox::Click);
    QTest::keyClick(shown.list, Qt::Key_Down);
    QCOMPARE(shown.list->ListIndex(), 1);
    QCOMPARE(click.count(), 1);
}

void tst_ListBox::removingAnotherRowKeepsTheSelectedRow()
{
    ShownList shown;
    shown.list->setListIndex(2);
    QSignalSpy click(shown.list, &ListBox::Click);
    shown.list->RemoveItem(0);
    QCOMPARE(shown.list->ListIndex(), 1);
    QCOMPARE(shown.list->List(1), QStringLiteral("two"));
    QCOMPARE(click.count(), 0);
}

void tst_ListBox::clearLeavesListIndexMinusOneAndRaisesNoClick()
{
    ShownList shown;
    shown.list->setListIndex(1);
    QSignalSpy click(shown.list, &ListBox::Click);
    shown.list->Clear();
    QCOMPARE(shown.list->ListCount(), 0);
    QCOMPARE(shown.list->ListIndex(), -1);
    QCOMPARE(click.count(), 0);
    shown.list->AddItem(QStringLiteral("again"));
    QCOMPARE(shown.list->ListIndex(), -1);
}

void tst_ListBox::writingListIndexMinusOneSelectsNothingAndRaisesClick()
{
    ShownList shown;
    shown.list->setListIndex(1);
    QSignalSpy click(shown.list, &ListBox::Click);
    shown.list->setListIndex(-1);
    QCOMPARE(shown.list->ListIndex(), -1);
    QCOMPARE(click.count(), 1);
}

void tst_ListBox::anIndexOutOfRangeIsNoError()
{
    ShownList shown;
    shown.list->setListIndex(1);
    QSignalSpy click(shown.list, &ListBox::Click);
    shown.list->setListIndex(3);
    shown.list->RemoveItem(3);
    shown.list->RemoveItem(-1);
    shown.list->setList(7, QStringLiteral("x"));
    QCOMPARE(shown.list->List(7), QString());
    QCOMPARE(shown.list->ListIndex(), 1);
    QCOMPARE(shown.list->ListCount(), 3);
    QCOMPARE(click.count(), 0);
}

void tst_ListBox::focusAloneSelectsNothing()
{
    ShownList shown;
    QVERIFY(QTest::qWaitForWindowActive(&shown.window));
    QSignalSpy click(shown.list, &ListBox::Click);
    shown.list->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(shown.list->hasFocus());
    QCOMPARE(shown.list->ListIndex(), -1);
    QCOMPARE(click.count(), 0);
}

void tst_ListBox::fixedPitchListsAskForCourierNew9WithAFixedPitchFallback()
{
    const QFont font = ListBox::FixedPitchFont();
    QCOMPARE(font.family(), QStringLiteral("Courier New"));
    QCOMPARE(font.pointSize(), 9);
    QCOMPARE(font.styleHint(), QFont::TypeWriter);

    ListBox list(QStringLiteral("lstScenes"));
    list.setFixedPitch();
    // Whatever face the machine gives, its columns line up: every printable ASCII character
    // has the advance of a blank. (Fontconfig may not flag a monospace face as fixed pitch,
    // e.g. Noto Sans Mono, so the flag of QFontInfo is not what is checked.)
    const QFontMetricsF metrics(list.font());
    const QString family = QFontInfo(list.font()).family();
    const qreal blank = metrics.horizontalAdvance(u' ');
    for (char16_t c = 0x21; c < 0x7f; ++c)
        QVERIFY2(metrics.horizontalAdvance(QChar(c)) == blank,
                 qPrintable(QStringLiteral("'%1' in %2").arg(QChar(c)).arg(family)));
}

QTEST_MAIN(tst_ListBox)
#include "tst_ListBox.moc"
