// Part 4.2 with design.md 7 and Part 1.1: a scripted session of the show listing window, bad
// files and failed saves, the base directory, and the commands without a document.

#include "tests/show/TslWindowFixture.h"
#include "tests/support/EntityBomb.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace tslwindow;

class tst_frmMainTSL_files : public QObject, private Fixture {
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    // A session from New to a failed open.
    void aScriptedSession();

    // Bad input and failed saves (Part 4.2 Failure handling, design.md 7).
    void aBadFileGivesTheOpenMessageAndTheWindowKeepsWhatItHad_data();
    void aBadFileGivesTheOpenMessageAndTheWindowKeepsWhatItHad();
    void aSaveThatCannotBeWrittenGivesTheSaveMessageAndChangesNothing_data();
    void aSaveThatCannotBeWrittenGivesTheSaveMessageAndChangesNothing();

    // Design.md 7, Part 1.1, Part 1.4.
    void commandsThatNeedADocumentDoNothingWithoutOne();
    void strCurrentDirIsSetOnlyByOpenAndCommand3AndOnlyWhileEmpty();
    void aSecondFileDialogInAnotherDirectoryDoesNotMoveStrCurrentDir();
    void openTSLLoadsWithoutShowingTheWindow();
    void theEntriesOfOtherManagersAreInertUntilTheSuiteExists();
    void menExitEndsTheRunAtOnceWithoutPromptOrSave();
};

// --- a scripted session ---

void tst_frmMainTSL_files::aScriptedSession()
{
    Session& s = *m_session;
    ListBox* list = s.list();

    // New.
    s.ui.trigger(u"menNewTSL"_s);
    QCOMPARE(s.caption(), DesignedCaption + u" - <no name>"_s);
    QVERIFY(s.frame(u"Frame4"_s)->Enabled());
    QVERIFY(s.frame(u"Frame1"_s)->Enabled());
    QVERIFY(!s.frame(u"Frame2"_s)->Enabled());
    QCOMPARE(s.rows(), QStringList());
    s.ui.type(u"txtTitle"_s, u"Opening"_s);
    QCOMPARE(s.doc()->Title, u"Opening"_s);

    // "Add scene...".
    s.ui.click(u"Command1"_s);
    QCOMPARE(s.rows(), QStringList{Blank33});
    QCOMPARE(list->ListIndex(), 0);
    QVERIFY(s.frame(u"Frame2"_s)->Enabled());

    // A name typed key by key: the row follows each key.
    QStringList rowAtEachKey;
    const auto watch = connect(s.box(u"txtName"_s), &TextBox::Change, this,
                               [&] { rowAtEachKey << list->List(0); });
    s.ui.type(u"txtName"_s, u"Act one"_s);
    disconnect(watch);
    QStringList expected;
    for (const QString& prefix : {u"A"_s, u"Ac"_s, u"Act"_s, u"Act "_s, u"Act o"_s, u"Act on"_s,
                                  u"Act one"_s})
        expected << prefix.leftJustified(33);
    QCOMPARE(rowAtEachKey, expected);
    QCOMPARE(s.doc()->Scenes(0)->Name, u"Act one"_s);

    // The scene's file: strCurrentDir is set once, and a second choice elsewhere does not
    // move it.
    s.dialogs.answerFile(path(u"act1.ssf"_s));
    s.ui.click(u"Command3"_s);
    QCOMPARE(s.box(u"txtSSF"_s)->Text(), u"..\\rez\\act1.ssf"_s);
    QCOMPARE(s.doc()->Scenes(0)->SSF, u"..\\rez\\act1.ssf"_s);
    QCOMPARE(list->List(0), u"Act one"_s.leftJustified(33) + u"..\\rez\\act1.ssf"_s);
    const QString base = dirOf(u"act1.ssf"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);
    QTemporaryDir elsewhere;
    s.dialogs.answerFile(elsewhere.filePath(u"act2.ssf"_s));
    s.ui.click(u"Command3"_s);
    QCOMPARE(s.doc()->Scenes(0)->SSF, u"..\\rez\\act2.ssf"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);
    s.dialogs.answerFile(path(u"act1.ssf"_s));
    s.ui.click(u"Command3"_s);

    // The world.
    s.dialogs.answerFile(u"C:\\Shows\\Rez\\Park.dat"_s);
    s.ui.click(u"Command5"_s);
    QCOMPARE(s.doc()->MainWorld, u"..\\rez\\worlds\\Park"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);

    // A second scene, gone again by the Delete key.
    s.addScene(u"Finale"_s);
    QCOMPARE(s.rows().size(), 2);
    QCOMPARE(list->ListIndex(), 1);
    s.ui.pressKey(u"lstScenes"_s, Qt::Key_Delete);
    QCOMPARE(s.doc()->NumScenes(), 1);
    QCOMPARE(s.rows(), QStringList{u"Act one"_s.leftJustified(33) + u"..\\rez\\act1.ssf"_s});
    QCOMPARE(list->ListIndex(), -1);

    // Save: the file on disk, byte for byte.
    s.save(path(u"show.tsl"_s));
    QCOMPARE(readFile(path(u"show.tsl"_s)),
             QByteArray(R"(<play title="Opening" mainworld="..\rez\worlds\Park">)"
                        R"(<scene id="0" name="Act one" ssf="..\\rez\\act1.ssf"/></play>)"));
    QCOMPARE(s.caption(), DesignedCaption + u" - show.tsl"_s);
    QCOMPARE(s.window.CurrentFile(), u"show.tsl"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);

    // Open it again after a New.
    s.ui.trigger(u"menNewTSL"_s);
    QCOMPARE(s.rows(), QStringList());
    s.open(path(u"show.tsl"_s));
    QCOMPARE(s.rows(), QStringList{u"Act one"_s.leftJustified(33) + u"..\\rez\\act1.ssf"_s});
    QCOMPARE(s.caption(), DesignedCaption + u" - show.tsl"_s);
    QCOMPARE(s.box(u"txtTitle"_s)->Text(), u"Opening"_s);
    QCOMPARE(s.box(u"txtWorld"_s)->Text(), u"..\\rez\\worlds\\Park"_s);
    QCOMPARE(list->ListIndex(), -1);

    // Cancel in each dialog changes nothing.
    const clsTSL* doc = s.doc();
    const QStringList rows = s.rows();
    for (const QString& command : {u"menOpenTSL"_s, u"menSaveTSL"_s}) {
        s.dialogs.answerCancel();
        s.ui.trigger(command);
    }
    s.ui.pickRow(u"lstScenes"_s, 0);
    for (const QString& button : {u"Command3"_s, u"Command5"_s}) {
        s.dialogs.answerCancel();
        s.ui.click(button);
    }
    QCOMPARE(s.doc(), doc);
    QCOMPARE(s.rows(), rows);
    QCOMPARE(s.doc()->Scenes(0)->SSF, u"..\\rez\\act1.ssf"_s);
    QCOMPARE(s.doc()->MainWorld, u"..\\rez\\worlds\\Park"_s);
    QCOMPARE(s.caption(), DesignedCaption + u" - show.tsl"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, base);
    QVERIFY(s.dialogs.messages().isEmpty());

    // A failed open: the message, and the document, rows and caption as they were.
    writeFile(path(u"broken.tsl"_s), "<play title=\"x\"><scene");
    s.open(path(u"broken.tsl"_s));
    QCOMPARE(s.dialogs.messages(),
             QStringList{u"Cannot open the TSL file "_s + base + u"broken.tsl"_s});
    QCOMPARE(s.doc(), doc);
    QCOMPARE(s.doc()->Title, u"Opening"_s);
    QCOMPARE(s.rows(), rows);
    QCOMPARE(list->ListIndex(), 0);
    QCOMPARE(s.caption(), DesignedCaption + u" - show.tsl"_s);
    QCOMPARE(s.window.CurrentFile(), u"show.tsl"_s);
    // Editing goes on in the document the window kept.
    s.ui.type(u"txtName"_s, u"!"_s);
    QCOMPARE(s.doc()->Scenes(0)->Name, u"Act one!"_s);
}

// --- bad input and failed saves ---

void tst_frmMainTSL_files::aBadFileGivesTheOpenMessageAndTheWindowKeepsWhatItHad_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes"); // null: no file is written
    QTest::addColumn<bool>("directory");

    QByteArray binary;
    for (int i = 0; i < 256; ++i)
        binary += char(255 - i);
    QTest::newRow("missing file") << u"missing.tsl"_s << QByteArray() << false;
    QTest::newRow("a directory") << u"folder.tsl"_s << QByteArray() << true;
    QTest::newRow("empty file") << u"empty.tsl"_s << QByteArray("") << false;
    QTest::newRow("binary file") << u"binary.tsl"_s << binary << false;
    QTest::newRow("XML cut off half way")
        << u"cut.tsl"_s
        << QByteArray(TwoScenes).left(QByteArray(TwoScenes).size() / 2) << false;
    QTest::newRow("a comment among the scenes")
        << u"comment.tsl"_s
        << QByteArray(R"(<play title="C" mainworld=""><scene id="0" name="A" ssf="a"/>)"
                      R"(<!-- the second act --><scene id="1" name="B" ssf="b"/></play>)")
        << false;
    QTest::newRow("a scene without ssf")
        << u"nossf.tsl"_s
        << QByteArray(R"(<play title="C" mainworld=""><scene id="0" name="A"/></play>)")
        << false;
    QTest::newRow("a root without title")
        << u"notitle.tsl"_s << QByteArray(R"(<play mainworld=""/>)") << false;
    QTest::newRow("text among the scenes")
        << u"text.tsl"_s
        << QByteArray(R"(<play title="T" mainworld=""><scene id="0" name="A" ssf="a"/>)"
                      R"(Act two<scene id="1" name="B" ssf="b"/></play>)")
        << false;

    // Design 5: a 16-bit count of child nodes; 40000 scenes are more than it can hold.
    QByteArray many = R"(<play title="Many" mainworld="">)";
    for (int i = 0; i < 40000; ++i)
        many += R"(<scene id=")" + QByteArray::number(i) + R"(" name="n" ssf="s"/>)";
    many += "</play>";
    QTest::newRow("a file of 40000 scenes") << u"many.tsl"_s << many << false;

    // Design 5: entities past Qt's expansion limit make the file not well-formed.
    const QByteArray bomb = EntityBombPrologue("play") + R"(<play title="&l9;" mainworld=""/>)";
    QTest::newRow("a billion-laughs entity bomb") << u"bomb.tsl"_s << bomb << false;
}

void tst_frmMainTSL_files::aBadFileGivesTheOpenMessageAndTheWindowKeepsWhatItHad()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, directory);
    if (directory)
        QVERIFY(QDir(m_dir->path()).mkdir(name));
    else if (!bytes.isNull())
        writeFile(path(name), bytes);

    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.pickRow(u"lstScenes"_s, 1);
    const clsTSL* doc = s.doc();
    const QStringList rows = s.rows();

    s.open(path(name));
    QCOMPARE(s.dialogs.messages(),
             QStringList{u"Cannot open the TSL file "_s + dirOf(name) + name});
    QCOMPARE(s.doc(), doc);
    QCOMPARE(s.doc()->Title, u"Two"_s);
    QCOMPARE(s.doc()->NumScenes(), 2);
    QCOMPARE(s.rows(), rows);
    QCOMPARE(s.list()->ListIndex(), 1);
    QCOMPARE(s.box(u"txtTitle"_s)->Text(), u"Two"_s);
    QCOMPARE(s.box(u"txtName"_s)->Text(), u"B"_s);
    QCOMPARE(s.caption(), DesignedCaption + u" - two.tsl"_s);
    QCOMPARE(s.window.CurrentFile(), u"two.tsl"_s);
}

void tst_frmMainTSL_files::aSaveThatCannotBeWrittenGivesTheSaveMessageAndChangesNothing_data()
{
    QTest::addColumn<QString>("target"); // relative to the test's directory
    QTest::newRow("missing parent directory") << u"no such folder/show.tsl"_s;
    QTest::newRow("a path that is a directory") << u"folder.tsl"_s;
}

void tst_frmMainTSL_files::aSaveThatCannotBeWrittenGivesTheSaveMessageAndChangesNothing()
{
    QFETCH(QString, target);
    QVERIFY(QDir(m_dir->path()).mkdir(u"folder.tsl"_s));
    writeFile(path(u"folder.tsl/inside.txt"_s), "inside");

    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.type(u"txtTitle"_s, u" edited"_s);
    s.save(path(target));
    QCOMPARE(s.dialogs.messages(), QStringList{u"Cannot save TSL file"_s});
    QCOMPARE(s.caption(), DesignedCaption + u" - two.tsl"_s);
    QCOMPARE(s.window.CurrentFile(), u"two.tsl"_s);
    QCOMPARE(s.doc()->Title, u"Two edited"_s);
    // Nothing on disk changed: the open file, the directory and what it holds.
    QCOMPARE(readFile(path(u"two.tsl"_s)), QByteArray(TwoScenes));
    QVERIFY(QFileInfo(path(u"folder.tsl"_s)).isDir());
    QCOMPARE(readFile(path(u"folder.tsl/inside.txt"_s)), QByteArray("inside"));
    QVERIFY(!QFileInfo::exists(path(u"no such folder"_s)));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             (QStringList{u"folder.tsl"_s, u"two.tsl"_s}));
}

// --- design.md 7, Part 1.1, Part 1.4 ---

void tst_frmMainTSL_files::commandsThatNeedADocumentDoNothingWithoutOne()
{
    Session& s = *m_session;
    // No dialog is scripted: a dialog shown here would fail the test.
    s.ui.trigger(u"menSaveTSL"_s);
    s.ui.trigger(u"menDeleteScene"_s);
    s.ui.click(u"Command1"_s); // in a disabled frame
    s.ui.click(u"Command5"_s);
    s.ui.type(u"txtTitle"_s, u"typed"_s);
    QVERIFY(s.doc() == nullptr);
    QCOMPARE(s.dialogs.shown().size(), 0);
    QCOMPARE(s.box(u"txtTitle"_s)->Text(), QString());
    QCOMPARE(s.list()->ListCount(), 0);
    QCOMPARE(s.caption(), DesignedCaption);
}

void tst_frmMainTSL_files::strCurrentDirIsSetOnlyByOpenAndCommand3AndOnlyWhileEmpty()
{
    QTemporaryDir second;
    writeFile(second.filePath(u"two.tsl"_s), TwoScenes);
    // Command5 and save do not set it.
    {
        Session s;
        s.ui.trigger(u"menNewTSL"_s);
        s.dialogs.answerFile(path(u"Park.dat"_s));
        s.ui.click(u"Command5"_s);
        s.save(path(u"saved.tsl"_s));
        QCOMPARE(mdlGeneral::strCurrentDir, QString());
        // Command3 does.
        s.ui.click(u"Command1"_s);
        s.dialogs.answerFile(path(u"a.ssf"_s));
        s.ui.click(u"Command3"_s);
        QCOMPARE(mdlGeneral::strCurrentDir, dirOf(u"a.ssf"_s));
        // And an open in another directory does not move it.
        s.open(second.filePath(u"two.tsl"_s));
        QCOMPARE(mdlGeneral::strCurrentDir, dirOf(u"a.ssf"_s));
        QVERIFY(s.dialogs.messages().isEmpty());
    }
    // menOpenTSL sets it while empty.
    mdlGeneral::strCurrentDir.clear();
    {
        Session s;
        s.open(second.filePath(u"two.tsl"_s));
        QCOMPARE(mdlGeneral::strCurrentDir, mdlGeneral::GetDirectory(second.filePath(u"two.tsl"_s)));
        QVERIFY(mdlGeneral::strCurrentDir.endsWith(QDir::separator()));
    }
}

void tst_frmMainTSL_files::aSecondFileDialogInAnotherDirectoryDoesNotMoveStrCurrentDir()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    const QString base = dirOf(u"two.tsl"_s);
    // Another directory holds a file of the same name and one of a name the base lacks.
    QTemporaryDir other;
    writeFile(other.filePath(u"two.tsl"_s),
              R"(<play title="Other" mainworld=""><scene id="0" name="X" ssf="x"/></play>)");
    writeFile(other.filePath(u"only.tsl"_s), R"(<play title="Only" mainworld=""/>)");
    s.open(other.filePath(u"two.tsl"_s));
    // Part 1.1: strCurrentDir stays; the next open looks in the first directory.
    QCOMPARE(mdlGeneral::strCurrentDir, base);
    QCOMPARE(s.doc()->Title, u"Two"_s); // the base directory's file
    QCOMPARE(s.doc()->NumScenes(), 2);
    s.open(other.filePath(u"only.tsl"_s));
    QCOMPARE(s.dialogs.messages(), QStringList{u"Cannot open the TSL file "_s + base + u"only.tsl"_s});
    QCOMPARE(s.doc()->Title, u"Two"_s);
}

void tst_frmMainTSL_files::openTSLLoadsWithoutShowingTheWindow()
{
    ScriptedDialogService dialogs;
    frmMainTSL window(dialogs);
    mdlGeneral::strCurrentDir = dirOf(u"two.tsl"_s);
    window.OpenTSL(u"two.tsl"_s);
    QVERIFY(!window.isVisible());
    QVERIFY(window.Document());
    QCOMPARE(window.Document()->NumScenes(), 2);
    QCOMPARE(window.windowTitle(), DesignedCaption + u" - two.tsl"_s);
    QCOMPARE(window.CurrentFile(), u"two.tsl"_s);
    QVERIFY(dialogs.messages().isEmpty());
    QVERIFY(dialogs.shown().isEmpty());
}

void tst_frmMainTSL_files::theEntriesOfOtherManagersAreInertUntilTheSuiteExists()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.pickRow(u"lstScenes"_s, 0);
    const clsTSL* doc = s.doc();
    for (const QString& entry : {u"menEditSSF"_s, u"menSFFEditor"_s, u"menRBTEditor"_s})
        s.ui.trigger(entry);
    QCOMPARE(s.doc(), doc);
    QCOMPARE(s.doc()->NumScenes(), 2);
    QCOMPARE(s.dialogs.shown().size(), 1); // the open
    QVERIFY(s.dialogs.messages().isEmpty());
    QVERIFY(s.window.isVisible());
}

void tst_frmMainTSL_files::menExitEndsTheRunAtOnceWithoutPromptOrSave()
{
    Session& s = *m_session;
    s.open(path(u"two.tsl"_s));
    s.ui.type(u"txtTitle"_s, u" unsaved"_s);
    // The application's event loop runs as in `troupe`; menExit must end it, with code 0,
    // before the guard ends it with 1.
    QTimer::singleShot(0, &s.window, [&] { s.ui.trigger(u"menExit"_s); });
    QTimer guard;
    guard.setSingleShot(true);
    connect(&guard, &QTimer::timeout, this, [] { QCoreApplication::exit(1); });
    guard.start(5000);
    QCOMPARE(QCoreApplication::exec(), 0);
    QCOMPARE(s.dialogs.shown().size(), 1); // the open alone: no save dialog
    QVERIFY(s.dialogs.messages().isEmpty());
    QCOMPARE(readFile(path(u"two.tsl"_s)), QByteArray(TwoScenes));
}

QTEST_MAIN(tst_frmMainTSL_files)
#include "tst_frmMainTSL_files.moc"
