// The test support of the window tests: the scripted dialogs answer in order, record what
// was shown, and fail the running test when a dialog finds no answer of its kind.

#include "foundation/controls/CommonDialog.h"
#include "tests/support/ScriptedDialogService.h"

#include <QtTest>

class tst_ScriptedDialogService : public QObject {
    Q_OBJECT

private slots:
    void answersInOrderAndRecordsWhatWasShown();
    void aDialogWithNoAnswerLeftFailsTheTest();
    void anAnswerOfTheWrongKindFailsTheTest();
};

void tst_ScriptedDialogService::answersInOrderAndRecordsWhatWasShown()
{
    ScriptedDialogService service;
    CommonDialog dialog(service);
    service.answerFile(QStringLiteral("/a/b.tsl"));
    service.answerCancel();
    service.answerInput(QStringLiteral("typed"));
    service.answerCancel();

    dialog.Filter = QStringLiteral("F|*.f");
    dialog.DefaultExt = QStringLiteral(".f");
    QVERIFY(dialog.ShowSave());
    QCOMPARE(dialog.FileName, QStringLiteral("/a/b.tsl"));
    QVERIFY(!dialog.ShowOpen());
    QCOMPARE(dialog.FileName, QStringLiteral("/a/b.tsl"));
    QCOMPARE(service.InputBox(QStringLiteral("Name"), QStringLiteral("def")),
             QStringLiteral("typed"));
    QCOMPARE(service.InputBox(QStringLiteral("Name"), QStringLiteral("def")), QString());
    service.MsgBox(QStringLiteral("one"));
    service.MsgBox(QStringLiteral("two"));

    QCOMPARE(service.pendingAnswers(), 0);
    QCOMPARE(service.messages(), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
    const QList<ScriptedDialogService::Shown>& shown = service.shown();
    QCOMPARE(shown.size(), 4);
    QCOMPARE(shown[0].kind, ScriptedDialogService::Kind::Save);
    QCOMPARE(shown[0].FileName, QString()); // the preset, as shown
    QCOMPARE(shown[0].Filter, QStringLiteral("F|*.f"));
    QCOMPARE(shown[0].DefaultExt, QStringLiteral(".f"));
    QCOMPARE(shown[1].kind, ScriptedDialogService::Kind::Open);
    QCOMPARE(shown[1].FileName, QStringLiteral("/a/b.tsl"));
    QCOMPARE(shown[2].kind, ScriptedDialogService::Kind::Input);
    QCOMPARE(shown[2].prompt, QStringLiteral("Name"));
    QCOMPARE(shown[2].defaultText, QStringLiteral("def"));

    service.reset();
    QVERIFY(service.shown().isEmpty());
    QVERIFY(service.messages().isEmpty());
}

void tst_ScriptedDialogService::aDialogWithNoAnswerLeftFailsTheTest()
{
    ScriptedDialogService service;
    CommonDialog dialog(service);
    dialog.FileName = QStringLiteral("kept.tsl");
    QTest::ignoreMessage(QtWarningMsg,
                         "ScriptedDialogService: ShowOpen shown with no answer scripted");
    QEXPECT_FAIL("", "a dialog with no answer scripted fails the test", Continue);
    const bool ok = dialog.ShowOpen();
    // And it reads as a cancel.
    QVERIFY(!ok);
    QCOMPARE(dialog.FileName, QStringLiteral("kept.tsl"));
}

void tst_ScriptedDialogService::anAnswerOfTheWrongKindFailsTheTest()
{
    ScriptedDialogService service;
    CommonDialog dialog(service);
    service.answerInput(QStringLiteral("typed"));
    QEXPECT_FAIL("", "a typed input does not answer a file dialog", Continue);
    QVERIFY(!dialog.ShowOpen());
    QCOMPARE(service.pendingAnswers(), 0);
}

QTEST_MAIN(tst_ScriptedDialogService)
#include "tst_ScriptedDialogService.moc"
