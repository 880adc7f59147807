// Part 4.2: the show listing window as designed and its "Edge cases worth testing", driven
// offscreen through its controls and the scripted dialogs (tests/support).

#include "tests/show/TslWindowFixture.h"

#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;
using namespace tslwindow;

class tst_frmMainTSL : public QObject, private Fixture {
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    // The window as designed.
    void theWindowComesUpWithItsCaptionControlsAndFramesDisabled();
    void theMenusStandInMenuBarOrderWithTheirCaptions();

    // Edge cases worth testing, Part 4.2.
    void aNameOf32CharactersGivesSsfInColumn34AndOneOf40ShowsItsFirst32();
    void aSceneWithEmptyNameAndSsfIsARowOf33Spaces();
    void deleteWithNoRowSelectedByKeyOrMenuDoesNothing();
    void afterADeleteNoRowIsSelectedAndTheDetailKeepsTheDeletedScene();
    void afterNewOrAnOpenTheDetailKeepsTheLastSelectedScene();
    void command3WithNoRowSelectedFillsTxtSsfButReachesNoRecord();
    void pickingAWorldGivesRezWorldsAndTheNameLessItsLastFourCharacters_data();
    void pickingAWorldGivesRezWorldsAndTheNameLessItsLastFourCharacters();
    void typingInTxtWorldGoesIntoMainWorldAsTyped();
    void addingASceneSelectsItAndItsRowIs33Spaces();
    void cancelInTheOpenDialogChangesNothing();
    void cancelInTheSaveDialogChangesNothingAndWritesNothing();
    void aNewDocumentsFirstSaveHasAnEmptyFileNamePreset();
    void aSaveUnderANewNameChangesCaptionAndCurrentFileAndKeepsStrCurrentDir();
    void aNameTypedIntoTheOpenDialogThatDoesNotExistEndsInTheMessageOfOpenTSL();
    void aNameInTheSaveDialogThatExistsIsOverwrittenWithoutAQuestion();
};

// --- the window as designed ---

void tst_frmMainTSL::theWindowComesUpWithItsCaptionControlsAndFramesDisabled()
{
    Session& s = *m_session;
    QCOMPARE(s.window.objectName(), u"frmMainTSL"_s);
    QCOMPARE(s.caption(), DesignedCaption);
    QVERIFY(s.doc() == nullptr);
    QCOMPARE(s.window.CurrentFile(), QString());

    const QList<std::pair<QString, QString>> frames = {
        {u"Frame4"_s, u"General information"_s}, {u"Frame1"_s, u"Scenes"_s}, {u"Frame2"_s, {}}};
    for (const auto& [name, caption] : frames) {
        QCOMPARE(s.frame(name)->title(), caption);
        QVERIFY2(!s.frame(name)->Enabled(), qPrintable(name));
    }
    const QList<std::pair<QString, QString>> labels = {
        {u"Label7"_s, u"Title"_s},  {u"Label3"_s, u"Main world"_s}, {u"Label1"_s, u"Name"_s},
        {u"Label9"_s, u"SSF File"_s}, {u"Label2"_s, u"Name:"_s},      {u"Label6"_s, u"SSF File:"_s}};
    for (const auto& [name, caption] : labels)
        QCOMPARE(s.ui.find<QLabel>(name)->text(), caption);
    const QList<std::pair<QString, QString>> buttons = {
        {u"Command5"_s, u"..."_s}, {u"Command1"_s, u"Add scene..."_s}, {u"Command3"_s, u"..."_s}};
    for (const auto& [name, caption] : buttons)
        QCOMPARE(s.ui.find<CommandButton>(name)->text(), caption);

    // Where each control lies.
    QVERIFY(s.frame(u"Frame4"_s)->isAncestorOf(s.box(u"txtWorld"_s)));
    QVERIFY(s.frame(u"Frame4"_s)->isAncestorOf(s.ui.find<CommandButton>(u"Command5"_s)));
    QVERIFY(s.frame(u"Frame1"_s)->isAncestorOf(s.list()));
    QVERIFY(s.frame(u"Frame1"_s)->isAncestorOf(s.frame(u"Frame2"_s)));
    QVERIFY(s.frame(u"Frame2"_s)->isAncestorOf(s.box(u"txtSSF"_s)));
    QVERIFY(s.frame(u"Frame2"_s)->isAncestorOf(s.ui.find<CommandButton>(u"Command3"_s)));

    for (const QString& name : {u"txtTitle"_s, u"txtWorld"_s, u"txtName"_s, u"txtSSF"_s}) {
        QCOMPARE(s.box(name)->Text(), QString());
        QCOMPARE(s.box(name)->MaxLength(), 0);
    }
    QVERIFY(s.box(u"txtSSF"_s)->Locked());
    QVERIFY(!s.box(u"txtName"_s)->Locked());

    QCOMPARE(s.list()->font().family(), u"Courier New"_s);
    QCOMPARE(s.list()->font().pointSize(), 9);
    const QFontMetricsF metrics(s.list()->font());
    QCOMPARE(metrics.horizontalAdvance(u"iiiiiiiiii"_s), metrics.horizontalAdvance(u"WWWWWWWWWW"_s));
    QVERIFY(!s.list()->isSortingEnabled());
    QCOMPARE(s.list()->selectionMode(), QAbstractItemView::SingleSelection);

    // The heads stand over the columns of the rows: "SSF File" over column 34.
    const QLabel* ssfHead = s.ui.find<QLabel>(u"Label9"_s);
    const int headX = ssfHead->mapTo(&s.window, QPoint(ssfHead->contentsRect().left(), 0)).x();
    const int listTextX = s.list()->viewport()->mapTo(&s.window, QPoint(0, 0)).x();
    const int column34 = QFontMetrics(s.list()->font()).horizontalAdvance(Blank33);
    QVERIFY2(qAbs(headX - (listTextX + column34)) <= 4,
             qPrintable(u"head at %1, column 34 at %2"_s.arg(headX).arg(listTextX + column34)));
}

void tst_frmMainTSL::theMenusStandInMenuBarOrderWithTheirCaptions()
{
    Session& s = *m_session;
    const QList<QAction*> bar = s.window.menuBar()->actions();
    QCOMPARE(bar.size(), 3);
    const QStringList menuNames = {u"menFile"_s, u"menScene"_s, u"menTools"_s};
    const QStringList menuCaptions = {u"File"_s, u"Scene"_s, u"Tools"_s};
    const QList<QList<std::pair<QString, QString>>> entries = {
        {{u"menNewTSL"_s, u"&New Troupe Show Listing"_s},
         {u"menOpenTSL"_s, u"&Open Troupe Show Listing"_s},
         {u"menSaveTSL"_s, u"&Save Troupe Show Listing"_s},
         {u"menSep04"_s, {}},
         {u"menExit"_s, u"&Exit"_s}},
        {{u"menDeleteScene"_s, u"&Delete"_s},
         {u"menSep02"_s, {}},
         {u"menEditSSF"_s, u"&Edit SSF File"_s}},
        {{u"menSFFEditor"_s, u"SSF Manager"_s}, {u"menRBTEditor"_s, u"RBT Manager"_s}}};
    for (int m = 0; m < 3; ++m) {
        QCOMPARE(bar[m]->text(), menuCaptions[m]);
        QMenu* menu = bar[m]->menu();
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), menuNames[m]);
        const QList<QAction*> actions = menu->actions();
        QCOMPARE(actions.size(), entries[m].size());
        for (int e = 0; e < actions.size(); ++e) {
            const auto& [name, caption] = entries[m][e];
            QCOMPARE(actions[e]->objectName(), name);
            QCOMPARE(actions[e]->isSeparator(), caption.isEmpty());
            if (!caption.isEmpty())
                QCOMPARE(actions[e]->text(), caption);
            // No entry is ever disabled, and none has a shortcut key.
            QVERIFY(actions[e]->isEnabled());
            QVERIFY(actions[e]->shortcut().isEmpty());
        }
    }
}

// --- Edge cases worth testing ---

void tst_frmMainTSL::aNameOf32CharactersGivesSsfInColumn34AndOneOf40ShowsItsFirst32()
{
    Session& s = *m_session;
    s.ui.trigger(u"menNewTSL"_s);
    const QString name32 = u"Thirty-two characters long name!"_s;
    QCOMPARE(name32.size(), 32);
    s.addScene(name32);
    s.dialogs.answerFile(path(u"act1.ssf"_s));
    s.ui.click(u"Command3"_s);
    QCOMPARE(s.rows(), QStringList{name32 + u" ..\\rez\\act1.ssf"_s});
    QCOMPARE(s.rows()[0].indexOf(u"..\\rez"_s), 33); // column 34, counted from 1

    const QString name40 = u"Forty characters long, the end cut off!!"_s;
    QCOMPARE(name40.size(), 40);
    s.ui.clearText(u"txtName"_s);
    s.ui.type(u"txtName"_s, name40);
    QCOMPARE(s.rows(), QStringList{name40.left(32) + u" ..\\rez\\act1.ssf"_s});
    QCOMPARE(s.doc()->Scenes(0)->Name, name40);
    QCOMPARE(s.box(u"txtName"_s)->Text(), name40);
}

void tst_frmMainTSL::aSceneWithEmptyNameAndSsfIsARowOf33Spaces()
{
    Session& s = *m_session;
    writeFile(path(u"empty.tsl"_s),
              R"(<play title="" mainworld=""><scene id="0" name="" ssf=""/></play>)");
    s.open(path(u"empty.tsl"_s));
    QCOMPARE(s.rows(), QStringList{Blank33});
}

void tst_frmMainTSL::deleteWithNoRowSelectedByKeyOrMenuDoesNothing()
{
    Session& s = *m_session;
    // Without a document, too.
    s.ui.trigger(u"menDeleteScene"_s);
    s.ui.pressKey(u"lstScenes"_s, Qt::Key_Delete);
    QVERIFY(s.doc() == nullptr);

    s.open(path(u"two.tsl"_s));
    const QStringList rows = s.rows();
    QCOMPARE(s.list()->ListIndex(), -1);
    s.ui.pressKey(u"lstScenes"_s, Qt::Key_Delete);
    s.ui.trigger(u"menDeleteScene"_s);
    QCOMPARE(s.doc()->NumScenes(), 2);
    QCOMPARE(s.rows(), rows);
    QVERIFY(s.dialogs.messages().isEmpty());
}

void tst_frmMainTSL::afterADeleteNoRowIsSelectedAndTheDetailKeepsTheDeletedScene()
{
    Session& s = *m_session;
    s.ui.trigger(u"menNewTSL"_s);
    s.addScene(u"A"_s);
    s.addScene(u"B"_s);
    s.ui.pickRow(u"lstScenes"_s, 0);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"A"_s);

    s.ui.pressKey(u"lstScenes"_s, Qt::Key_Delete);
    QCOMPARE(s.list()->ListIndex(), -1);
    QCOMPARE(s.doc()->NumScenes(), 1);
    QCOMPARE(s.doc()->Scenes(0)->Name, u"B"_s);
    QCOMPARE(s.doc()->Scenes(0)->Id, u"0"_s);
    QCOMPARE(s.rows(), QStringList{u"B"_s.leftJustified(33)});
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"A"_s);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), QString());
    QVERIFY(s.frame(u"Frame2"_s)->Enabled());

    // Typing there changes no record and no row.
    s.ui.type(u"txtName"_s, u"x"_s);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"Ax"_s);
    QCOMPARE(s.doc()->Scenes(0)->Name, u"B"_s);
    QCOMPARE(s.rows(), QStringList{u"B"_s.leftJustified(33)});

    // Command3 still fills txtSSF and still sets an empty strCurrentDir.
    QCOMPARE(mdlGeneral::strCurrentDir, QString());
    s.dialogs.answerFile(path(u"act9.ssf"_s));
    s.ui.click(u"Command3"_s);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), u"..\\rez\\act9.ssf"_s);
    QCOMPARE(s.doc()->Scenes(0)->SSF, QString());
    QCOMPARE(mdlGeneral::strCurrentDir, dirOf(u"act9.ssf"_s));

    // The menu entry deletes the same way.
    s.ui.pickRow(u"lstScenes"_s, 0);
    s.ui.trigger(u"menDeleteScene"_s);
    QCOMPARE(s.doc()->NumScenes(), 0);
    QCOMPARE(s.list()->ListCount(), 0);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"B"_s);
}

void tst_frmMainTSL::afterNewOrAnOpenTheDetailKeepsTheLastSelectedScene()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.pickRow(u"lstScenes"_s, 1);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"B"_s);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), u"..\\rez\\b.ssf"_s);

    s.ui.trigger(u"menNewTSL"_s);
    QCOMPARE(s.list()->ListCount(), 0);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"B"_s);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), u"..\\rez\\b.ssf"_s);
    QVERIFY(s.frame(u"Frame2"_s)->Enabled());

    s.open(path(u"two.tsl"_s));
    QCOMPARE(s.list()->ListIndex(), -1);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"B"_s);
    s.ui.type(u"txtName"_s, u"!"_s); // reaches no record
    QCOMPARE(s.doc()->Scenes(1)->Name, u"B"_s);
    s.ui.pickRow(u"lstScenes"_s, 0);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"A"_s);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), u"..\\rez\\a.ssf"_s);
}

void tst_frmMainTSL::command3WithNoRowSelectedFillsTxtSsfButReachesNoRecord()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.pickRow(u"lstScenes"_s, 0); // enables Frame2
    s.open(path(u"two.tsl"_s));      // and nothing is selected now
    const QStringList rows = s.rows();
    s.dialogs.answerFile(path(u"other.ssf"_s));
    s.ui.click(u"Command3"_s);
    QCOMPARE(s.dialogs.lastShown().Filter, SsfFilter);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), u"..\\rez\\other.ssf"_s);
    QCOMPARE(s.doc()->Scenes(0)->SSF, u"..\\rez\\a.ssf"_s);
    QCOMPARE(s.doc()->Scenes(1)->SSF, u"..\\rez\\b.ssf"_s);
    QCOMPARE(s.rows(), rows);
}

void tst_frmMainTSL::pickingAWorldGivesRezWorldsAndTheNameLessItsLastFourCharacters_data()
{
    QTest::addColumn<QString>("picked");
    QTest::addColumn<QString>("world");
    QTest::newRow("Windows path") << u"C:\\Shows\\Rez\\Park.dat"_s << u"..\\rez\\worlds\\Park"_s;
    QTest::newRow("native path") << u"/shows/Rez/Harbour Night.DAT"_s
                                 << u"..\\rez\\worlds\\Harbour Night"_s;
    QTest::newRow("no three-letter extension") << u"C:\\Shows\\Rez\\Park.d"_s
                                               << u"..\\rez\\worlds\\Pa"_s;
    QTest::newRow("no extension") << u"/shows/Forest"_s << u"..\\rez\\worlds\\Fo"_s;
}

void tst_frmMainTSL::pickingAWorldGivesRezWorldsAndTheNameLessItsLastFourCharacters()
{
    QFETCH(QString, picked);
    QFETCH(QString, world);
    Session& s = *m_session;
    s.ui.trigger(u"menNewTSL"_s);
    s.dialogs.answerFile(picked);
    s.ui.click(u"Command5"_s);
    QCOMPARE(s.dialogs.lastShown().Filter, DatFilter);
    QCOMPARE(s.dialogs.lastShown().FileName, QString());
    QCOMPARE(s.box(u"txtWorld"_s)->Text(), world);
    QCOMPARE(s.doc()->MainWorld, world);
    QCOMPARE(mdlGeneral::strCurrentDir, QString()); // not touched
}

void tst_frmMainTSL::typingInTxtWorldGoesIntoMainWorldAsTyped()
{
    Session& s = *m_session;
    s.ui.trigger(u"menNewTSL"_s);
    s.ui.type(u"txtWorld"_s, u"worlds/Harbour.dat"_s);
    QCOMPARE(s.doc()->MainWorld, u"worlds/Harbour.dat"_s);
    s.ui.type(u"txtTitle"_s, u"Night"_s);
    QCOMPARE(s.doc()->Title, u"Night"_s);
}

void tst_frmMainTSL::addingASceneSelectsItAndItsRowIs33Spaces()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.pickRow(u"lstScenes"_s, 0); // the detail shows "A"
    s.ui.click(u"Command1"_s);
    QCOMPARE(s.list()->ListIndex(), 2);
    QCOMPARE(s.list()->ListCount(), 3);
    QCOMPARE(s.list()->List(2), Blank33);
    QCOMPARE(s.doc()->NumScenes(), 3);
    QCOMPARE(s.doc()->Scenes(2)->Id, u"2"_s);
    QCOMPARE(s.doc()->Scenes(2)->Name, QString());
    // The new, empty scene is shown.
    QCOMPARE(s.box(u"txtName"_s)->Text(), QString());
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), QString());
    QCOMPARE(s.doc()->Scenes(0)->Name, u"A"_s);

    // On a new document, Frame2 is enabled by the add.
    Session fresh;
    fresh.ui.trigger(u"menNewTSL"_s);
    QVERIFY(!fresh.frame(u"Frame2"_s)->Enabled());
    fresh.ui.click(u"Command1"_s);
    QVERIFY(fresh.frame(u"Frame2"_s)->Enabled());
    QCOMPARE(fresh.rows(), QStringList{Blank33});
    QCOMPARE(fresh.list()->ListIndex(), 0);
}

void tst_frmMainTSL::cancelInTheOpenDialogChangesNothing()
{
    Session& s = *m_session;
    s.ui.trigger(u"menNewTSL"_s);
    s.addScene(u"Kept"_s);
    const clsTSL* doc = s.doc();
    const QStringList rows = s.rows();
    s.dialogs.answerCancel();
    s.ui.trigger(u"menOpenTSL"_s);
    QCOMPARE(s.dialogs.lastShown().kind, ScriptedDialogService::Kind::Open);
    QCOMPARE(s.dialogs.lastShown().Filter, TslFilter);
    QCOMPARE(s.dialogs.lastShown().FileName, QString());
    QCOMPARE(mdlGeneral::strCurrentDir, QString());
    QCOMPARE(s.doc(), doc);
    QCOMPARE(s.rows(), rows);
    QCOMPARE(s.list()->ListIndex(), 0);
    QCOMPARE(s.caption(), DesignedCaption + u" - <no name>"_s);
    QVERIFY(s.dialogs.messages().isEmpty());
}

void tst_frmMainTSL::cancelInTheSaveDialogChangesNothingAndWritesNothing()
{
    Session& s = *m_session;
    // A document with a name.
    s.open(path(u"two.tsl"_s));
    s.ui.type(u"txtTitle"_s, u" changed"_s);
    s.dialogs.answerCancel();
    s.ui.trigger(u"menSaveTSL"_s);
    QCOMPARE(s.dialogs.lastShown().kind, ScriptedDialogService::Kind::Save);
    QCOMPARE(s.dialogs.lastShown().FileName, u"two.tsl"_s);
    QCOMPARE(readFile(path(u"two.tsl"_s)), QByteArray(TwoScenes));
    QCOMPARE(s.caption(), DesignedCaption + u" - two.tsl"_s);
    QCOMPARE(s.window.CurrentFile(), u"two.tsl"_s);
    QCOMPARE(s.doc()->Title, u"Two changed"_s);

    // And one without.
    s.ui.trigger(u"menNewTSL"_s);
    const QStringList before = QDir(m_dir->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    s.dialogs.answerCancel();
    s.ui.trigger(u"menSaveTSL"_s);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), before);
    QCOMPARE(s.caption(), DesignedCaption + u" - <no name>"_s);
    QVERIFY(s.dialogs.messages().isEmpty());
    // The default extension is set for the save dialog alone.
    QCOMPARE(s.dialogs.lastShown().DefaultExt, u".tsl"_s);
    s.dialogs.answerCancel();
    s.ui.trigger(u"menOpenTSL"_s);
    QCOMPARE(s.dialogs.lastShown().DefaultExt, QString());
}

void tst_frmMainTSL::aNewDocumentsFirstSaveHasAnEmptyFileNamePreset()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s)); // a name before
    s.ui.trigger(u"menNewTSL"_s);
    QCOMPARE(s.window.CurrentFile(), QString());
    s.save(path(u"first.tsl"_s));
    const ScriptedDialogService::Shown& shown = s.dialogs.lastShown();
    QCOMPARE(shown.kind, ScriptedDialogService::Kind::Save);
    QCOMPARE(shown.FileName, QString());
    QCOMPARE(shown.Filter, TslFilter);
    QCOMPARE(shown.DefaultExt, u".tsl"_s);
    QCOMPARE(readFile(path(u"first.tsl"_s)), QByteArray(R"(<play title="" mainworld=""/>)"));
    // The next save starts from the name.
    s.dialogs.answerCancel();
    s.ui.trigger(u"menSaveTSL"_s);
    QCOMPARE(s.dialogs.lastShown().FileName, u"first.tsl"_s);
}

void tst_frmMainTSL::aSaveUnderANewNameChangesCaptionAndCurrentFileAndKeepsStrCurrentDir()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    const QString base = dirOf(u"two.tsl"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);
    QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(u"renamed.tsl"_s);
    s.save(target);
    QCOMPARE(s.caption(), DesignedCaption + u" - renamed.tsl"_s);
    QCOMPARE(s.window.CurrentFile(), u"renamed.tsl"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);
    QCOMPARE(readFile(target), QByteArray(TwoScenes));
    QVERIFY(s.dialogs.messages().isEmpty());

    // A save leaves an empty strCurrentDir empty, too.
    Session fresh;
    mdlGeneral::strCurrentDir.clear();
    fresh.ui.trigger(u"menNewTSL"_s);
    fresh.save(elsewhere.filePath(u"new.tsl"_s));
    QCOMPARE(fresh.caption(), DesignedCaption + u" - new.tsl"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, QString());
}

void tst_frmMainTSL::aNameTypedIntoTheOpenDialogThatDoesNotExistEndsInTheMessageOfOpenTSL()
{
    Session& s = *m_session;
    s.open(path(u"nothere.tsl"_s));
    QCOMPARE(s.dialogs.messages(),
             QStringList{u"Cannot open the TSL file "_s + dirOf(u"x"_s) + u"nothere.tsl"_s});
    QVERIFY(s.doc() == nullptr);
    QCOMPARE(s.caption(), DesignedCaption);
    QVERIFY(!s.frame(u"Frame1"_s)->Enabled());
    // The base directory was set all the same: the dialog gave a file name.
    QCOMPARE(mdlGeneral::strCurrentDir, dirOf(u"x"_s));
}

void tst_frmMainTSL::aNameInTheSaveDialogThatExistsIsOverwrittenWithoutAQuestion()
{
    Session& s = *m_session;
    writeFile(path(u"old.tsl"_s), "old text");
    s.open(path(u"two.tsl"_s));
    s.save(path(u"old.tsl"_s));
    QCOMPARE(readFile(path(u"old.tsl"_s)), QByteArray(TwoScenes));
    QCOMPARE(s.dialogs.shown().size(), 2); // the open and the save dialog, no question
    QVERIFY(s.dialogs.messages().isEmpty());
    QCOMPARE(s.caption(), DesignedCaption + u" - old.tsl"_s);
}

QTEST_MAIN(tst_frmMainTSL)
#include "tst_frmMainTSL.moc"
