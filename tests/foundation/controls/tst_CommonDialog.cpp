// Part 1.3: `CommonDialog`: its properties, its filter in Qt's form, and the way through the
// window's DialogService (here the scripted one of tests/support).

#include "foundation/controls/CommonDialog.h"
#include "tests/support/ScriptedDialogService.h"

#include <QtTest>

class tst_CommonDialog : public QObject {
    Q_OBJECT

private slots:
    void filterBecomesQtsFilter_data();
    void filterBecomesQtsFilter();
    void defaultExtBecomesQtsDefaultSuffix();
    void okGivesTheFileNameAndTrue();
    void aCancelLeavesFileNameAsItWasAndGivesFalse();
    void propertiesStayBetweenCalls();
};

void tst_CommonDialog::filterBecomesQtsFilter_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("qtFilter");
    QTest::newRow("tsl") << QStringLiteral("Troupe Show Listing Files (*.tsl)|*.tsl")
                         << QStringLiteral("Troupe Show Listing Files (*.tsl)");
    QTest::newRow("rbt") << QStringLiteral("Rig Binding Tool Files (*.rbt)|*.rbt")
                         << QStringLiteral("Rig Binding Tool Files (*.rbt)");
    QTest::newRow("dat") << QStringLiteral("LithTech world dat file (*.dat)|*.dat")
                         << QStringLiteral("LithTech world dat file (*.dat)");
    QTest::newRow("no pattern shown") << QStringLiteral("Pictures|*.bmp;*.dtx")
                                      << QStringLiteral("Pictures (*.bmp *.dtx)");
    QTest::newRow("two pairs") << QStringLiteral("A (*.a)|*.a|All (*.*)|*.*")
                               << QStringLiteral("A (*.a);;All (*.*)");
    QTest::newRow("empty") << QString() << QString();
}

void tst_CommonDialog::filterBecomesQtsFilter()
{
    QFETCH(QString, filter);
    QFETCH(QString, qtFilter);
    QCOMPARE(CommonDialog::QtFilter(filter), qtFilter);
}

void tst_CommonDialog::defaultExtBecomesQtsDefaultSuffix()
{
    QCOMPARE(CommonDialog::QtDefaultSuffix(QStringLiteral(".tsl")), QStringLiteral("tsl"));
    QCOMPARE(CommonDialog::QtDefaultSuffix(QStringLiteral("rbt")), QStringLiteral("rbt"));
    QCOMPARE(CommonDialog::QtDefaultSuffix(QString()), QString());
}

void tst_CommonDialog::okGivesTheFileNameAndTrue()
{
    ScriptedDialogService service;
    CommonDialog dialog(service);
    dialog.Filter = QStringLiteral("Troupe Show Listing Files (*.tsl)|*.tsl");
    service.answerFile(QStringLiteral("/shows/a.tsl"));
    QVERIFY(dialog.ShowOpen());
    QCOMPARE(dialog.FileName, QStringLiteral("/shows/a.tsl"));
    QCOMPARE(service.shown().size(), 1);
    QCOMPARE(service.lastShown().kind, ScriptedDialogService::Kind::Open);
    QCOMPARE(service.lastShown().Filter, dialog.Filter);
}

void tst_CommonDialog::aCancelLeavesFileNameAsItWasAndGivesFalse()
{
    ScriptedDialogService service;
    CommonDialog dialog(service);
    dialog.FileName = QStringLiteral("show.tsl");
    dialog.DefaultExt = QStringLiteral(".tsl");
    service.answerCancel();
    QVERIFY(!dialog.ShowSave());
    QCOMPARE(dialog.FileName, QStringLiteral("show.tsl"));
    QCOMPARE(service.lastShown().kind, ScriptedDialogService::Kind::Save);
    QCOMPARE(service.lastShown().FileName, QStringLiteral("show.tsl"));
    QCOMPARE(service.lastShown().DefaultExt, QStringLiteral(".tsl"));
}

void tst_CommonDialog::propertiesStayBetweenCalls()
{
    ScriptedDialogService service;
    CommonDialog dialog(service);
    dialog.Filter = QStringLiteral("Stage Scene Files (*.ssf)|*.ssf");
    service.answerFile(QStringLiteral("/a/b.ssf"));
    service.answerCancel();
    QVERIFY(dialog.ShowOpen());
    QVERIFY(!dialog.ShowOpen());
    QCOMPARE(service.shown().at(1).Filter, QStringLiteral("Stage Scene Files (*.ssf)|*.ssf"));
    QCOMPARE(service.shown().at(1).FileName, QStringLiteral("/a/b.ssf"));
    QCOMPARE(service.pendingAnswers(), 0);
}

QTEST_MAIN(tst_CommonDialog)
#include "tst_CommonDialog.moc"
