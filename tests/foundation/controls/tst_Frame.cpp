// Part 1.3: `Frame`: writing `Enabled` False disables all it contains.

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/TextBox.h"

#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

class tst_Frame : public QObject {
    Q_OBJECT

private slots:
    void enabledFalseDisablesAllItContains();
    void aFrameWithoutCaptionHasNoTitle();
};

void tst_Frame::enabledFalseDisablesAllItContains()
{
    QWidget window;
    auto* outer = new Frame(QStringLiteral("Frame1"), QStringLiteral("Scenes"), &window);
    auto* inner = new Frame(QStringLiteral("Frame2"), QString(), outer);
    auto* box = new TextBox(QStringLiteral("txtName"), inner);
    auto* button = new CommandButton(QStringLiteral("Command3"), QStringLiteral("..."), inner);
    auto* layout = new QVBoxLayout(inner);
    layout->addWidget(box);
    layout->addWidget(button);
    (new QVBoxLayout(outer))->addWidget(inner);
    (new QVBoxLayout(&window))->addWidget(outer);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QSignalSpy click(button, &CommandButton::Click);
    outer->setEnabled(false);
    QVERIFY(!outer->Enabled());
    QVERIFY(!box->isEnabled());
    QVERIFY(!button->isEnabled());
    QTest::keyClicks(box, QStringLiteral("typed"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(box->Text(), QString());
    QCOMPARE(click.count(), 0);

    outer->setEnabled(true);
    QVERIFY(box->isEnabled());
    QTest::keyClicks(box, QStringLiteral("typed"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(box->Text(), QStringLiteral("typed"));
    QCOMPARE(click.count(), 1);
}

void tst_Frame::aFrameWithoutCaptionHasNoTitle()
{
    const Frame frame(QStringLiteral("Frame2"), QString());
    QCOMPARE(frame.title(), QString());
    QCOMPARE(frame.objectName(), QStringLiteral("Frame2"));
}

QTEST_MAIN(tst_Frame)
#include "tst_Frame.moc"
