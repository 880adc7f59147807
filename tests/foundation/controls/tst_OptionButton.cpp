// Part 1.3: `OptionButton`, and row 5 of design.md section 3.

#include "foundation/controls/Frame.h"
#include "foundation/controls/OptionButton.h"

#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

namespace {

struct TwoFrames {
    TwoFrames()
    {
        auto* layout = new QVBoxLayout(&window);
        first = new Frame(QStringLiteral("Frame1"), QStringLiteral("Type"), &window);
        second = new Frame(QStringLiteral("Frame2"), QStringLiteral("Other"), &window);
        layout->addWidget(first);
        layout->addWidget(second);
        auto* firstLayout = new QVBoxLayout(first);
        a = new OptionButton(QStringLiteral("chkSound"), QStringLiteral("Sound"), first);
        b = new OptionButton(QStringLiteral("chkDialog"), QStringLiteral("Dialog"), first);
        firstLayout->addWidget(a);
        firstLayout->addWidget(b);
        auto* secondLayout = new QVBoxLayout(second);
        c = new OptionButton(QStringLiteral("chkOther"), QStringLiteral("Other"), second);
        secondLayout->addWidget(c);
        window.show();
    }
    QWidget window;
    Frame* first;
    Frame* second;
    OptionButton* a;
    OptionButton* b;
    OptionButton* c;
};

} // namespace

class tst_OptionButton : public QObject {
    Q_OBJECT

private slots:
    void optionButtonsInOneFrameExcludeEachOtherNoneOnAtTheStartSettingValueRaisesClick();
    void buttonsInAnotherFrameAreNotExcluded();
    void aUserClickTurnsOneOnAndRaisesClick();
    void valueFalseTurnsTheButtonOff();
};

void tst_OptionButton::optionButtonsInOneFrameExcludeEachOtherNoneOnAtTheStartSettingValueRaisesClick()
{
    TwoFrames frames;
    QVERIFY(!frames.a->Value());
    QVERIFY(!frames.b->Value());
    QSignalSpy clickA(frames.a, &OptionButton::Click);
    QSignalSpy clickB(frames.b, &OptionButton::Click);
    bool valueSeenInClick = false;
    connect(frames.a, &OptionButton::Click, frames.a,
            [&] { valueSeenInClick = frames.a->Value(); });

    frames.a->setValue(true);
    QCOMPARE(clickA.count(), 1);
    QVERIFY(valueSeenInClick);
    QVERIFY(frames.a->Value());

    frames.b->setValue(true);
    QVERIFY(frames.b->Value());
    QVERIFY(!frames.a->Value());
    QCOMPARE(clickB.count(), 1);
    QCOMPARE(clickA.count(), 1); // going off is no Click

    // Already on: nothing becomes on, nothing is raised.
    frames.b->setValue(true);
    QCOMPARE(clickB.count(), 1);
}

void tst_OptionButton::buttonsInAnotherFrameAreNotExcluded()
{
    TwoFrames frames;
    frames.a->setValue(true);
    frames.c->setValue(true);
    QVERIFY(frames.a->Value());
    QVERIFY(frames.c->Value());
}

void tst_OptionButton::aUserClickTurnsOneOnAndRaisesClick()
{
    TwoFrames frames;
    QVERIFY(QTest::qWaitForWindowExposed(&frames.window));
    frames.a->setValue(true);
    QSignalSpy clickB(frames.b, &OptionButton::Click);
    QTest::mouseClick(frames.b, Qt::LeftButton, {}, QPoint(8, frames.b->height() / 2));
    QVERIFY(frames.b->Value());
    QVERIFY(!frames.a->Value());
    QCOMPARE(clickB.count(), 1);
}

void tst_OptionButton::valueFalseTurnsTheButtonOff()
{
    TwoFrames frames;
    frames.a->setValue(true);
    frames.a->setValue(false);
    QVERIFY(!frames.a->Value());
    QVERIFY(!frames.b->Value());
    // The set still excludes afterwards.
    frames.b->setValue(true);
    frames.a->setValue(true);
    QVERIFY(!frames.b->Value());
}

QTEST_MAIN(tst_OptionButton)
#include "tst_OptionButton.moc"
