// Part 1.3: `CommandButton` and its event `Click`.

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/TextBox.h"

#include <QDialog>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

class tst_CommandButton : public QObject {
    Q_OBJECT

private slots:
    void aMouseClickRaisesClick();
    void enterInATextBoxPressesNoButton();
};

void tst_CommandButton::aMouseClickRaisesClick()
{
    QWidget window;
    auto* button = new CommandButton(QStringLiteral("Command1"), QStringLiteral("Add scene..."),
                                     &window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(button->text(), QStringLiteral("Add scene..."));
    QCOMPARE(button->objectName(), QStringLiteral("Command1"));
    QSignalSpy click(button, &CommandButton::Click);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(click.count(), 1);
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(click.count(), 1);
}

void tst_CommandButton::enterInATextBoxPressesNoButton()
{
    // In a QDialog Qt makes a push button the default one; the original's are not.
    QDialog dialog;
    auto* box = new TextBox(QStringLiteral("txtRBTName"), &dialog);
    auto* button = new CommandButton(QStringLiteral("Command1"), QStringLiteral("OK"), &dialog);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(box);
    layout->addWidget(button);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QSignalSpy click(button, &CommandButton::Click);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(click.count(), 0);
}

QTEST_MAIN(tst_CommandButton)
#include "tst_CommandButton.moc"
