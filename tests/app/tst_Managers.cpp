// SPDX-License-Identifier: GPL-3.0-or-later
// What the three managers do alike, driven on each: a save lands where the caption says, a
// save never replaces another file without a question, the caption shows the file's name as
// it is.

#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/TestFiles.h"
#include "tests/support/WindowDriver.h"

#include <QDir>
#include <QWindow>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A manager, a file of its kind, and a chooser of the window that picks a file elsewhere and
// changes the document.
struct Kind {
    std::function<std::unique_ptr<ManagerFrame>(DialogService&)> make;
    QString abbreviation; // "TSL": menOpenTSL, menSaveTSL
    QString file;         // the document's file name
    QByteArray bytes;     // what it holds at the start
    QString chooser;      // "..." that picks `picked` in the other folder
    QString picked;
    QByteArray changed; // what the file holds after the pick and a save
};

const QByteArray Model =
    R"((on-load-cmds (anim-bindings (anim-binding (name "idle"))) (set-node-flags ("hips" 0))))";

Kind KindOf(const QString& name)
{
    if (name == u"RBT")
        return {[](DialogService& d) { return std::make_unique<frmMainRBT>(d); },
                u"RBT"_s,
                u"hero.rbt"_s,
                R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon=""/>)"_ba,
                u"Command3"_s,
                u"skin.dtx"_s,
                R"(<rbt name="Hero" type="model" model="hero.ltb" texture="..\\b\\skin.dtx" icon=""/>)"_ba};
    if (name == u"SSF")
        return {[](DialogService& d) { return std::make_unique<frmMainSSF>(d); },
                u"SSF"_s,
                u"act1.ssf"_s,
                R"(<scene world="" maincamera="" nickname="" server="" port=""/>)"_ba,
                u"Command5"_s,
                u"park.dat"_s,
                R"(<scene world="..\rez\worlds\park" maincamera="" nickname="" server="" port=""/>)"_ba};
    return {[](DialogService& d) { return std::make_unique<frmMainTSL>(d); },
            u"TSL"_s,
            u"show.tsl"_s,
            R"(<play title="Show" mainworld=""/>)"_ba,
            u"Command5"_s,
            u"park.dat"_s,
            R"(<play title="Show" mainworld="..\rez\worlds\park"/>)"_ba};
}

} // namespace

class tst_Managers : public QObject {
    Q_OBJECT

private slots:
    void init() { mdlGeneral::strCurrentDir.clear(); }
    void cleanup() { mdlGeneral::strCurrentDir.clear(); }

    void saveLandsWhereTheCaptionSays_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"RBT", "SSF", "TSL"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    // Open in A, pick a file in B, save with what the dialog proposes: the file in A holds
    // the change, nothing new stands in B, the caption is as it was. After a failed save
    // elsewhere the dialog proposes the document's own file again.
    void saveLandsWhereTheCaptionSays()
    {
        QFETCH(QString, kind);
        const Kind k = KindOf(kind);
        TestFiles files;
        QVERIFY(QDir(files.path({})).mkpath(u"a"_s) && QDir(files.path({})).mkpath(u"b"_s));
        const QString a = QDir::toNativeSeparators(files.path(u"a/"_s)),
                      b = QDir::toNativeSeparators(files.path(u"b/"_s));
        files.write(u"a/"_s + k.file, k.bytes);
        files.write(u"a/hero.lta"_s, Model);
        files.write(u"b/"_s + k.picked, "picked");
        ScriptedDialogService dialogs;
        const std::unique_ptr<ManagerFrame> window = k.make(dialogs);
        WindowDriver ui(window.get());

        ui.chooseFile(dialogs, u"menOpen"_s + k.abbreviation, a + k.file);
        const QString caption = window->windowTitle();
        ui.chooseFile(dialogs, k.chooser, b + k.picked);
        QCOMPARE(dialogs.lastShown().Folder, a); // before this pick, the folder of the last
        ui.chooseFile(dialogs, u"menSave"_s + k.abbreviation, a + u"gone/"_s + k.file);
        dialogs.answerProposal();
        ui.trigger(u"menSave"_s + k.abbreviation);

        QCOMPARE(dialogs.lastShown().Folder + dialogs.lastShown().FileName, a + k.file);
        QCOMPARE(TestFiles::read(a + k.file), k.changed);
        QCOMPARE(QDir(b).entryList(QDir::Files), QStringList(k.picked));
        QCOMPARE(window->windowTitle(), caption);
        QCOMPARE(window->DocumentPath(), a + k.file);
        QCOMPARE(dialogs.messages(), QStringList(u"Cannot save %1 file\n%2gone/%3: its folder does "
                                                 "not exist"_s.arg(kind, a, k.file)));
        QCOMPARE(dialogs.pendingAnswers(), 0);
    }

    void saveAsksBeforeReplacingAnotherFile_data() { saveLandsWhereTheCaptionSays_data(); }

    // A new document saved as a file that exists: No brings the dialog back and writes
    // nothing, Yes replaces it. Its own file is then written over without a question.
    void saveAsksBeforeReplacingAnotherFile()
    {
        QFETCH(QString, kind);
        const Kind k = KindOf(kind);
        TestFiles files(TestFiles::AsCurrentDir);
        const QString victim = files.write(u"victim."_s + k.abbreviation.toLower(), "keep me");
        files.write(k.file, k.bytes);
        files.write(u"hero.lta"_s, Model);
        ScriptedDialogService dialogs;
        const std::unique_ptr<ManagerFrame> window = k.make(dialogs);
        WindowDriver ui(window.get());
        ui.chooseFile(dialogs, u"menOpen"_s + k.abbreviation, files.path(k.file));

        const QString save = u"menSave"_s + k.abbreviation;
        for (const bool yes : {false, true}) {
            dialogs.answerFile(victim);
            dialogs.answerQuestion(yes);
            if (!yes)
                dialogs.answerCancel(); // the dialog again
            ui.trigger(save);
            QCOMPARE(dialogs.lastShown().kind, yes ? ScriptedDialogService::Kind::Question
                                                   : ScriptedDialogService::Kind::Save);
            QCOMPARE(TestFiles::read(victim) == "keep me", !yes);
        }
        QCOMPARE(dialogs.shown()[2].prompt, QFileInfo(victim).fileName() +
                                                u" already exists.\nDo you want to replace it?"_s);
        dialogs.answerProposal();
        ui.trigger(save);
        QCOMPARE(dialogs.lastShown().kind, ScriptedDialogService::Kind::Save);
        QCOMPARE(dialogs.pendingAnswers(), 0);
    }

    // Qt reads "[*]" in a title as its modified mark; the caption shows the name as it is.
    void captionShowsTheFileNameAsItIs()
    {
        TestFiles files(TestFiles::AsCurrentDir);
        files.write(u"act[*]1.ssf"_s, KindOf(u"SSF"_s).bytes);
        ScriptedDialogService dialogs;
        frmMainSSF window(dialogs);
        WindowDriver ui(&window);
        QVERIFY(window.OpenSSF(u"act[*]1.ssf"_s));
        QCOMPARE(window.windowHandle()->title(), u"Stage Scene File Manager - act[*]1.ssf"_s);
    }
};

QTEST_MAIN(tst_Managers)
#include "tst_Managers.moc"
