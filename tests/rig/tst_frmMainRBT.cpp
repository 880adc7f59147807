// SPDX-License-Identifier: GPL-3.0-or-later
// The rig binding manager driven as a user would: a session, and failures that keep its document.

#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/TestFiles.h"
#include "tests/support/WindowDriver.h"

#include <QAbstractButton>
#include <QDialog>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// The next frmNewRBT is answered by `user`, who works its controls and presses Enter.
void answerNewBinding(const std::function<void(WindowDriver&)>& user)
{
    QTimer::singleShot(0, [user] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog && dialog->objectName() == u"frmNewRBT"_s);
        WindowDriver ui(dialog);
        user(ui);
        if (dialog->isVisible()) // never leave the modal loop waiting
            dialog->reject();
    });
}

} // namespace

class tst_frmMainRBT : public QObject {
    Q_OBJECT

    QString path(const QString& name) const { return m_files.path({}) + u'/' + name; }
    QStringList rows(const char* list) const { return m_ui->rows(QString::fromLatin1(list)); }

    TestFiles m_files;
    std::unique_ptr<ScriptedDialogService> m_dialogs;
    std::unique_ptr<frmMainRBT> m_window;
    std::unique_ptr<WindowDriver> m_ui;

private slots:
    void init()
    {
        QFile::copy(TROUPE_FIXTURES_DIR "/models/skinnedthing.lta"_L1, path(u"thing.lta"_s));
        m_dialogs = std::make_unique<ScriptedDialogService>();
        m_window = std::make_unique<frmMainRBT>(*m_dialogs);
        m_ui = std::make_unique<WindowDriver>(m_window.get());
    }
    void cleanup() { mdlGeneral::strCurrentDir.clear(); }

    void authoringSession()
    {
        ScriptedDialogService& dialogs = *m_dialogs;
        WindowDriver& ui = *m_ui;

        // The frame's close button refuses the dialog; Enter is OK, which checks the name first.
        answerNewBinding([](WindowDriver& dialog) { dialog.window()->close(); });
        ui.trigger(u"menNewRBT"_s);
        QVERIFY(!m_window->Document());
        dialogs.answerFile(path(u"thing.lta"_s));
        answerNewBinding([](WindowDriver& dialog) {
            dialog.pressKey(u"txtRBTName"_s, Qt::Key_Return);
            dialog.type(u"txtRBTName"_s, u"Thing"_s);
            dialog.pressKey(u"txtRBTName"_s, Qt::Key_Return);
            dialog.click(u"Command1"_s);
            // The focus has moved on from "...", so Enter goes on to OK.
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
        ui.trigger(u"menNewRBT"_s);
        QCOMPARE(dialogs.messages(), QStringList({u"Please enter the name of the RBT"_s,
                                                  u"Please select the model for the RBT file"_s}));
        QCOMPARE(rows("lstNodes"), QStringList({u"joint1"_s, u"joint2"_s, u"joint3"_s}));
        QCOMPARE(rows("lstAnims"), QStringList({u"base_anim"_s}));

        // Joints: settings typed key by key, the name given in the input box.
        ui.pickRow(u"lstNodes"_s, 1);
        ui.click(u"Command1"_s); // no action chosen yet: nothing, not even a name asked for
        ui.click(u"chkRotate"_s);
        ui.clearText(u"txtMin"_s);
        ui.type(u"txtMin"_s, u"-45"_s);
        ui.clearText(u"txtMax"_s);
        ui.type(u"txtMax"_s, u"45.5"_s);
        ui.click(u"chkY"_s);
        dialogs.answerInput(u"Nod"_s);
        ui.click(u"Command1"_s);
        QCOMPARE(dialogs.lastShown().defaultText, u"rotate joint2"_s);
        ui.pickRow(u"lstNodes"_s, 0);
        ui.click(u"chkTranslate"_s);
        dialogs.answerCancel();
        ui.click(u"Command1"_s);
        QCOMPARE(rows("lstJoints"), QStringList({u"Nod (joint2)"_s, u"No Name (joint1)"_s}));

        // The selected joint is shown and edited; its limit takes no more than six characters.
        ui.pickRow(u"lstJoints"_s, 0);
        QCOMPARE(ui.listBox(u"lstNodes"_s)->ListIndex(), -1);
        ui.type(u"txtMax"_s, u"123"_s); // the third digit is one too many
        ui.click(u"chkX"_s);
        dialogs.answerInput(u"Nod head"_s);
        ui.pressKey(u"lstJoints"_s, Qt::Key_F2);
        ui.pickRow(u"lstNodes"_s, 2);
        ui.click(u"chkZ"_s); // a setting for the next joint only
        dialogs.answerInput(u"Tail"_s);
        ui.click(u"Command1"_s);
        ui.pickRow(u"lstJoints"_s, 1);
        QVERIFY(ui.find<QAbstractButton>(u"chkTranslate"_s)->isChecked());
        ui.pressKey(u"lstJoints"_s, Qt::Key_Delete);
        QCOMPARE(rows("lstJoints"), QStringList({u"Nod head (joint2)"_s, u"Tail (joint3)"_s}));
        QCOMPARE(ui.listBox(u"lstJoints"_s)->ListIndex(), 0);
        QVERIFY(ui.find<QAbstractButton>(u"chkRotate"_s)->isChecked());

        // Animations: enabled twice under names of the author's, renamed, one deleted.
        ui.pickRow(u"lstAnims"_s, 0);
        dialogs.answerInput(u"Idle"_s);
        ui.click(u"Command2"_s);
        dialogs.answerInput(u"Wave"_s);
        ui.click(u"Command2"_s);
        ui.pickRow(u"lstAnimations"_s, 0);
        dialogs.answerInput(u"Rest"_s);
        ui.trigger(u"menRenameAnimation"_s);
        ui.pickRow(u"lstAnimations"_s, 1);
        ui.trigger(u"menDeleteAnimation"_s);

        // A texture chosen, a bitmap dialog cancelled; the save sets the base directory.
        ui.chooseFile(dialogs, u"Command3"_s, path(u"Art/Skin.DTX"_s));
        ui.chooseFile(dialogs, u"Command4"_s, {});
        ui.chooseFile(dialogs, u"menSaveRBT"_s, path(u"thing.rbt"_s));
        QCOMPARE(mdlGeneral::strCurrentDir, path(QString()));
        QCOMPARE(
            TestFiles::read(path(u"thing.rbt"_s)),
            R"(<rbt name="Thing" type="model" model="thing.ltb" texture="art\\skin.dtx" icon="">)"
            R"(<joint id="0" node="joint2" min="-45" max="45.512" vector="1.0,1.0,0.0" action="rotate" desc="Nod head"/>)"
            R"(<joint id="1" node="joint3" min="-45" max="45.512" vector="1.0,1.0,1.0" action="rotate" desc="Tail"/>)"
            R"(<animation id="0" name="Rest"/></rbt>)"_ba);

        // Opened again, the animation matched by its Id.
        ui.chooseFile(dialogs, u"menOpenRBT"_s, path(u"thing.rbt"_s));
        QCOMPARE(rows("lstJoints"), QStringList({u"Nod head (joint2)"_s, u"Tail (joint3)"_s}));
        QCOMPARE(rows("lstAnimations"), QStringList({u"Rest (base_anim)"_s}));
        QCOMPARE(rows("lstNodes").size(), 3);
        QCOMPARE(ui.textBox(u"txtTexture"_s)->Text(), path(u"art/skin.dtx"_s));
        QCOMPARE(dialogs.messages().size(), 2);
    }

    void failuresKeepTheShownDocument_data()
    {
        QTest::addColumn<QString>("command"); // New, Open or Save
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("bytes"); // written as `file`, unless empty
        QTest::addColumn<QString>("message");  // %1: the base directory

        // A model that scans but lists nothing makes the new document all the same.
        const QString noLists =
            u". Try opening the .lta file in ModelEdit and save it from there."_s;
        const QString changed = u"Cannot open the RBT file %1%2\n%3\nPlease check that the model "
                                "file has not changed"_s;
        const QByteArray bad =
            R"(<rbt name="A" model="thing.ltb"><animation id="%" name="W"/></rbt>)";

        QTest::newRow("model missing")
            << u"New"_s << u"gone.lta"_s << QByteArray() << u"Cannot open the model %1gone.lta"_s;
        QTest::newRow("model without lists") << u"New"_s << u"bare.lta"_s << "(lt-model-0 )"_ba
                                             << u"Cannot open the model %1bare.lta"_s + noLists;
        QTest::newRow("cut off") << u"Open"_s << u"cut.rbt"_s << bad.left(50)
                                 << u"Cannot open the RBT file %1cut.rbt"_s;
        QTest::newRow("Id the model lacks")
            << u"Open"_s << u"lacks.rbt"_s << QByteArray(bad).replace('%', "1")
            << changed.arg(u"%1"_s, u"lacks.rbt"_s, u"The model has no animation with the Id 1."_s);
        QTest::newRow("Id no number")
            << u"Open"_s << u"nan.rbt"_s << QByteArray(bad).replace('%', "one")
            << changed.arg(u"%1"_s, u"nan.rbt"_s, u"The animation Id \"one\" is not a number."_s);
        QTest::newRow("save into a missing directory")
            << u"Save"_s << u"none/a.rbt"_s << QByteArray()
            << u"Cannot save RBT file\n%1none/a.rbt: its folder does not exist"_s;
    }

    void failuresKeepTheShownDocument()
    {
        QFETCH(QString, command);
        QFETCH(QString, file);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        const bool made = message.endsWith(u"from there."_s);
        mdlGeneral::strCurrentDir = path(QString());
        m_files.write(u"shown.rbt"_s,
                      R"(<rbt name="Shown" model="thing.ltb"><joint id="0" node="joint1" )"
                      R"(min="0" max="1" vector="0,1,0" action="rotate" desc="J"/>)"
                      R"(<animation id="0" name="Idle"/></rbt>)"_ba);
        QVERIFY(m_window->OpenRBT(u"shown.rbt"_s));
        const clsRBT* shown = m_window->Document();
        if (!bytes.isEmpty())
            m_files.write(file, bytes);

        if (command == u"New") {
            answerNewBinding([&](WindowDriver& ui) {
                ui.textBox(u"txtRBTName"_s)->setText(u"New one"_s);
                ui.textBox(u"txtModel"_s)->setText(path(file));
                ui.pressKey(u"txtModel"_s, Qt::Key_Return);
            });
            m_ui->trigger(u"menNewRBT"_s);
        } else if (command == u"Open") {
            QVERIFY(!m_window->OpenRBT(file));
        } else {
            m_ui->chooseFile(*m_dialogs, u"menSaveRBT"_s, path(file));
        }
        QCOMPARE(m_dialogs->messages(), QStringList(message.replace(u"%1"_s, path(QString()))));
        QCOMPARE(m_window->Document() != shown, made);
        QCOMPARE(rows("lstNodes").size(), made ? 0 : 3);
        QCOMPARE(rows("lstAnimations"), made ? QStringList() : QStringList(u"Idle (base_anim)"_s));
    }

    // A node name read from a model may hold a character no file can carry: the save writes
    // nothing and its message names the joint and the field.
    void aSaveThatCannotCarryANodeNameSaysWhere()
    {
        m_files.write(u"odd.lta"_s, "(on-load-cmds (anim-bindings (anim-binding (name \"idle\")))"
                                    " (set-node-flags (\"hi\x01ps\" 0)))");
        answerNewBinding([this](WindowDriver& ui) {
            ui.textBox(u"txtRBTName"_s)->setText(u"Odd"_s);
            ui.textBox(u"txtModel"_s)->setText(path(u"odd.lta"_s));
            ui.pressKey(u"txtModel"_s, Qt::Key_Return);
        });
        m_ui->trigger(u"menNewRBT"_s);
        m_ui->pickRow(u"lstNodes"_s, 0);
        m_ui->click(u"chkRotate"_s);
        m_dialogs->answerInput(u"Hips"_s);
        m_ui->click(u"Command1"_s);
        m_ui->chooseFile(*m_dialogs, u"menSaveRBT"_s, path(u"odd.rbt"_s));
        QCOMPARE(m_dialogs->messages(),
                 QStringList(u"Cannot save RBT file\njoint 0: its \"node\" holds the character "
                             "U+0001, which a file cannot carry"_s));
        QVERIFY(!QFile::exists(path(u"odd.rbt"_s)));
    }

    void showingAJointMakesAnyActionButRotateTranslate()
    {
        // Also right after a "translate" joint, when Translate is already on.
        mdlGeneral::strCurrentDir = path(QString());
        m_files.write(
            u"hand.rbt"_s,
            R"(<rbt name="Hand" model="thing.ltb">)"
            R"(<joint id="0" node="joint1" min="" max="" vector=",," action="translate" desc="A"/>)"
            R"(<joint id="1" node="joint2" min="" max="" vector=",," action="spin" desc="B"/>)"
            R"(</rbt>)"_ba);
        QVERIFY(m_window->OpenRBT(u"hand.rbt"_s));
        m_ui->pickRow(u"lstJoints"_s, 0);
        m_ui->pickRow(u"lstJoints"_s, 1);
        QCOMPARE(m_window->Document()->Joints(1)->Action, u"translate"_s);
    }

    void addCommandsStopWhereTheFileIsFull()
    {
        // 32767 joints and one animation: the file's root holds all the children it can.
        mdlGeneral::strCurrentDir = path(QString());
        m_files.write(
            u"full.rbt"_s,
            R"(<rbt name="Full" model="thing.ltb">)" +
                R"(<joint id="0" node="joint1" min="" max="" vector=",," action="" desc=""/>)"_ba
                    .repeated(32767) +
                R"(<animation id="0" name="A"/></rbt>)");
        QVERIFY(m_window->OpenRBT(u"full.rbt"_s));
        const clsRBT& document = *m_window->Document();
        m_ui->pickRow(u"lstNodes"_s, 0);
        m_ui->click(u"chkRotate"_s);
        m_ui->click(u"Command1"_s);
        m_ui->pickRow(u"lstAnims"_s, 0);
        m_ui->click(u"Command2"_s); // no name is asked for: nothing comes
        QCOMPARE(document.NumAnimations(), 1);
        // With the animation gone, the joint list is still full; an animation may come again.
        m_ui->pickRow(u"lstAnimations"_s, 0);
        m_ui->trigger(u"menDeleteAnimation"_s);
        m_ui->pickRow(u"lstNodes"_s, 0);
        m_ui->click(u"Command1"_s);
        QCOMPARE(document.NumJoints(), 32767);
        m_dialogs->answerInput(u"B"_s);
        m_ui->click(u"Command2"_s);
        QCOMPARE(rows("lstAnimations"), QStringList(u"B (base_anim)"_s));
    }
};

QTEST_MAIN(tst_frmMainRBT)
#include "tst_frmMainRBT.moc"
