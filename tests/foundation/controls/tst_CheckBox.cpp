// Part 1.3: `CheckBox`: a change of `Value`, by the user or by code, raises `Click`.

#include "foundation/controls/CheckBox.h"

#include <QSignalSpy>
#include <QtTest>

class tst_CheckBox : public QObject {
    Q_OBJECT

private slots:
    void aChangeOfValueFromCodeRaisesClick();
    void writingTheSameValueRaisesNothing();
    void aUserClickTogglesValueAndRaisesClick();
};

void tst_CheckBox::aChangeOfValueFromCodeRaisesClick()
{
    CheckBox box(QStringLiteral("chkLoop"), QStringLiteral("Loop"));
    QCOMPARE(box.Value(), 0);
    int valueSeenInClick = -1;
    QSignalSpy click(&box, &CheckBox::Click);
    connect(&box, &CheckBox::Click, &box, [&] { valueSeenInClick = box.Value(); });
    box.setValue(1);
    QCOMPARE(click.count(), 1);
    QCOMPARE(valueSeenInClick, 1);
    box.setValue(0);
    QCOMPARE(click.count(), 2);
    QCOMPARE(valueSeenInClick, 0);
}

void tst_CheckBox::writingTheSameValueRaisesNothing()
{
    CheckBox box(QStringLiteral("chkLoop"), QStringLiteral("Loop"));
    QSignalSpy click(&box, &CheckBox::Click);
    box.setValue(0);
    QCOMPARE(click.count(), 0);
    box.setValue(1);
    box.setValue(1);
    QCOMPARE(click.count(), 1);
}

void tst_CheckBox::aUserClickTogglesValueAndRaisesClick()
{
    QWidget window;
    auto* box = new CheckBox(QStringLiteral("chkLoop"), QStringLiteral("Loop"), &window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy click(box, &CheckBox::Click);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QCOMPARE(box->Value(), 1);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QCOMPARE(box->Value(), 0);
    QCOMPARE(click.count(), 2);
}

QTEST_MAIN(tst_CheckBox)
#include "tst_CheckBox.moc"
