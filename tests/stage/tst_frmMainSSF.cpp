// SPDX-License-Identifier: GPL-3.0-or-later
// The stage scene window driven as a user would: a session, bad files, the fixed-pitch rows.

#include "foundation/mdlGeneral.h"
#include "plan/PlanCanvas.h"
#include "stage/frmMainSSF.h"
#include "tests/support/RecordingLinks.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/TestFiles.h"
#include "tests/support/WindowDriver.h"

#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_frmMainSSF : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFiles> files;
    std::unique_ptr<ScriptedDialogService> dialogs;
    std::unique_ptr<RecordingLinks> links;
    std::unique_ptr<frmMainSSF> window;
    std::unique_ptr<WindowDriver> ui;

    QString path(const QString& name) const { return files->path(name); }
    void choose(const QString& control, const QString& file)
    {
        ui->chooseFile(*dialogs, control, file);
    }
    void showPage(int index) { ui->find<QTabWidget>(u"SSTab1"_s)->setCurrentIndex(index); }

private slots:
    void init()
    {
        files = std::make_unique<TestFiles>();
        dialogs = std::make_unique<ScriptedDialogService>();
        links = std::make_unique<RecordingLinks>();
        window = std::make_unique<frmMainSSF>(*dialogs, links.get());
        ui = std::make_unique<WindowDriver>(window.get());
    }
    void cleanup()
    {
        QCOMPARE(dialogs->pendingAnswers(), 0);
        mdlGeneral::strCurrentDir.clear();
    }

    void anAuthoringSession();
    void thePlanFollowsTheSceneAndPicksItsRows();
    void aBadFileShowsTheOpenMessageAndKeepsTheShownScene();
    void rowsLineUpInFixedColumns_data();
    void rowsLineUpInFixedColumns();
};

void tst_frmMainSSF::anAuthoringSession()
{
    ui->trigger(u"menNewSSF"_s);
    choose(u"Command5"_s, path(u"Castle.dat"_s));
    ui->type(u"txtNickname"_s, uR"(Ann & "Bo" <3> Zo)"_s);
    // A letter beyond ASCII, as a keyboard layout sends it: a key event with its text.
    QTest::sendKeyEvent(QTest::Click, ui->textBox(u"txtNickname"_s), Qt::Key_unknown, u"ë"_s, {});
    ui->type(u"txtServer"_s, uR"(host\stage)"_s);
    ui->type(u"txtPort"_s, u"80a"_s);

    // Two puppets: the first with its file and a position typed key by key.
    ui->click(u"Command1"_s);
    QCOMPARE(ui->rows(u"lstPuppets"_s),
             QStringList{QString(30, u' ') + u"(0.0,0.0,0.0)   (1.0,1.0,1.0)   (0.0,0.0,0.0)"_s});
    choose(u"Command3"_s, path(u"Bear.rbt"_s));
    ui->clearText(u"txtPosX"_s);
    ui->type(u"txtPosX"_s, u"-1"_s); // the row follows each key
    QCOMPARE(ui->rows(u"lstPuppets"_s).first().left(46),
             u"..\\rez\\Bear.rbt"_s.leftJustified(30) + u"(-1,0.0,0.0)    "_s);
    ui->click(u"Command1"_s);
    ui->type(u"txtScaleZ"_s, u"2"_s);
    ui->type(u"txtOrienY"_s, u"x"_s); // a number box takes any text
    ui->trigger(u"menEditRBT"_s);
    ui->pickRow(u"lstPuppets"_s, 0);
    QCOMPARE(ui->textBox(u"txtPosX"_s)->Text(), u"-1"_s);
    ui->trigger(u"menEditRBT"_s);
    QCOMPARE(links->calls, (QStringList{u"rbt "_s, u"rbt Bear.rbt"_s}));

    // A third puppet, gone by the Delete key.
    ui->click(u"Command1"_s);
    ui->pressKey(u"lstPuppets"_s, Qt::Key_Delete);

    // A sound and a dialog line; a file picked elsewhere is stored under the prefix.
    showPage(1);
    ui->click(u"Command4"_s);
    ui->type(u"txtNameSound"_s, u"Door's creak"_s);
    choose(u"Command2"_s, u"/elsewhere/door.wav"_s);
    ui->click(u"Command4"_s);
    ui->type(u"txtNameSound"_s, u"hello"_s);
    choose(u"Command2"_s, u"/elsewhere/hello07.wav"_s);
    ui->click(u"chkDialog"_s);
    QCOMPARE(ui->rows(u"lstSounds"_s)[1], u"hello"_s.leftJustified(27) +
                                              u"..\\rez\\sounds\\hello07.wav"_s.leftJustified(38) +
                                              u"dialog"_s);
    QCOMPARE(mdlGeneral::strCurrentDir, path({}) + u'/');

    // Two cameras; the main camera picked from the list that fills as it drops down.
    showPage(2);
    ui->click(u"Command6"_s);
    ui->type(u"txtCamera"_s, u"front"_s);
    ui->click(u"Command6"_s);
    ui->type(u"txtCamera"_s, u"back"_s);
    ui->type(u"txtPosYCam"_s, u"1"_s);
    ui->pickComboRow(u"txtMainCamera"_s, 1);

    // Save, byte for byte; a save into a missing directory changes nothing.
    choose(u"menSaveSSF"_s, path(u"scene.ssf"_s));
    QCOMPARE(
        TestFiles::read(path(u"scene.ssf"_s)),
        R"(<scene world="..\rez\worlds\Castle" maincamera="1" nickname="Ann &amp; &quot;Bo&quot; &lt;3&gt; Zoë" server="host\stage" port="80a">)"
        R"(<puppet id="0" rbt="..\\rez\\Bear.rbt" position="-1,0.0,0.0" scale="1.0,1.0,1.0" orientation="0.0,0.0,0.0"/>)"
        R"(<puppet id="1" rbt="" position="0.0,0.0,0.0" scale="1.0,1.0,1.02" orientation="0.0,0.0x,0.0"/>)"
        R"(<sound id="0" name="Door's creak" type="sound" file="..\\rez\\sounds\\door.wav"/>)"
        R"(<sound id="1" name="hello" type="dialog" file="..\\rez\\sounds\\hello"/>)"
        R"(<camera id="0" name="front" position="0.0,0.0,0.0" orientation="0.0,0.0,0.0"/>)"
        R"(<camera id="1" name="back" position="0.0,0.01,0.0" orientation="0.0,0.0,0.0"/></scene>)"_ba);
    choose(u"menSaveSSF"_s, path(u"missing/other.ssf"_s));
    QCOMPARE(dialogs->messages(),
             QStringList{u"Cannot save SSF file\n"_s + path(u"missing/other.ssf"_s) +
                         u": its folder does not exist"_s});
    QCOMPARE(window->DocumentPath(), path(u"scene.ssf"_s));

    // Open it again after a New: the same rows, the dialog line's file by its stem. The
    // boxes of the last puppet shown belong to no record until a row is picked.
    const QStringList puppets = ui->rows(u"lstPuppets"_s), cameras = ui->rows(u"lstCameras"_s);
    showPage(0);
    ui->pickRow(u"lstPuppets"_s, 1);
    QVERIFY(!ui->showsOrphaned(u"txtPosX"_s));
    ui->trigger(u"menNewSSF"_s);
    QCOMPARE(ui->rows(u"lstPuppets"_s), QStringList());
    choose(u"menOpenSSF"_s, path(u"scene.ssf"_s));
    QVERIFY(ui->showsOrphaned(u"txtPosX"_s));
    ui->pickRow(u"lstPuppets"_s, 0);
    QVERIFY(!ui->showsOrphaned(u"txtPosX"_s));
    QCOMPARE(ui->rows(u"lstPuppets"_s), puppets);
    QCOMPARE(ui->rows(u"lstCameras"_s), cameras);
    QCOMPARE(ui->rows(u"lstSounds"_s)[1].mid(27, 38).trimmed(), u"..\\rez\\sounds\\hello.wav"_s);
    QCOMPARE(ui->comboBox(u"txtMainCamera"_s)->currentText(), u"back"_s);
    QCOMPARE(ui->textBox(u"txtNickname"_s)->Text(), uR"(Ann & "Bo" <3> Zoë)"_s);
}

// The stage plan beside the window: a position typed moves its mark, a delete takes it away,
// and a click on a mark selects the record's row on its page.
void tst_frmMainSSF::thePlanFollowsTheSceneAndPicksItsRows()
{
    ui->trigger(u"menNewSSF"_s);
    for (int i = 0; i < 2; ++i)
        ui->click(u"Command1"_s); // two puppets at the origin
    ui->trigger(u"menStagePlan"_s);
    QWidget* plan = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
        plan = top->objectName() == u"frmStagePlan"_s ? top : plan;
    QVERIFY(plan && plan->isVisible());
    auto* canvas = plan->findChild<PlanCanvas*>(u"picPlan"_s);
    const auto markOf = [canvas](int puppet) {
        for (const PlanMark& mark : canvas->Plan().Marks())
            if (mark.record.kind == PlanRecord::Puppet && mark.record.index == puppet)
                return std::optional(mark.position);
        return std::optional<QPointF>();
    };
    QCOMPARE(markOf(1), std::optional(QPointF(0, 0)));

    ui->clearText(u"txtPosX"_s); // the second puppet, the one selected
    ui->type(u"txtPosX"_s, u"40"_s);
    ui->clearText(u"txtPosZ"_s);
    ui->type(u"txtPosZ"_s, u"-7.5"_s);
    QCOMPARE(markOf(1), std::optional(QPointF(40, -7.5)));

    // A click on the mark of the first puppet selects its row and shows it.
    ui->pickRow(u"lstPuppets"_s, 1);
    const QPoint at = canvas->View().ToScreen(*markOf(0)).toPoint();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, at);
    QCOMPARE(ui->listBox(u"lstPuppets"_s)->ListIndex(), 0);
    QCOMPARE(ui->textBox(u"txtPosX"_s)->Text(), u"0.0"_s);

    ui->pressKey(u"lstPuppets"_s, Qt::Key_Delete);
    QCOMPARE(canvas->Plan().Marks().size(), 1);

    // Closed, it shows the edits made meanwhile when it comes back.
    plan->close();
    ui->click(u"Command1"_s);
    ui->trigger(u"menStagePlan"_s);
    QCOMPARE(canvas->Plan().Marks().size(), 2);
}

// A missing file, and one that fails at its first puppet.
void tst_frmMainSSF::aBadFileShowsTheOpenMessageAndKeepsTheShownScene()
{
    // The main camera of the shown scene has an Id that is no number, stored as text.
    choose(
        u"menOpenSSF"_s,
        files->write(u"good.ssf"_s,
                     R"(<scene world="" maincamera="a">)"
                     R"(<camera id="007" name="seven" position=",," orientation=",,"/>)"
                     R"(<camera id="a" name="letter" position=",," orientation=",,"/></scene>)"));
    const clsSSF* shown = window->Document();
    const QStringList cameras = ui->rows(u"lstCameras"_s);
    files->write(u"bad.ssf"_s, R"(<scene world=""><puppet id="0" rbt="" position="0,0,0" )"
                               R"(orientation="0,0,0"/></scene>)");
    for (const QString& bad : {path(u"missing.ssf"_s), path(u"bad.ssf"_s)}) {
        choose(u"menOpenSSF"_s, bad);
        QCOMPARE(dialogs->messages().last(), u"Cannot open the SSF file "_s + bad);
        QCOMPARE(window->Document(), shown);
        QCOMPARE(ui->rows(u"lstCameras"_s), cameras);
        QCOMPARE(mdlGeneral::GetFileName(window->DocumentPath()), u"good.ssf"_s);
    }
    QCOMPARE(ui->comboBox(u"txtMainCamera"_s)->currentText(), u"letter"_s);
    ui->pickComboRow(u"txtMainCamera"_s, 0);          // editing goes on in the shown scene
    QCOMPARE(window->Document()->MainCamera, u"7"_s); // a number Id is taken as its integer
}

void tst_frmMainSSF::rowsLineUpInFixedColumns_data()
{
    QTest::addColumn<QByteArray>("child");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("row");
    const auto puppet = [](const QByteArray& rbt, const QByteArray& position) {
        return R"(<puppet id="0" rbt=")" + rbt + R"(" position=")" + position +
               R"(" scale="1.0,1.0,1.0" orientation="0.0,0.0,0.0"/>)";
    };
    const QString rest = u"(1.0,1.0,1.0)   (0.0,0.0,0.0)"_s;
    QTest::newRow("puppet path of 40 cut")
        << puppet("..\\\\rez\\\\" + QByteArray(33, 'p'), "0,0,0") << u"lstPuppets"_s
        << u"..\\rez\\"_s + QString(22, u'p') + u" (0,0,0)"_s.leftJustified(17) + rest;
    QTest::newRow("position too long: no blanks")
        << puppet("", "12345678,1,123456789") << u"lstPuppets"_s
        << QString(30, u' ') + u"(12345678,1,123456789)(1.0,1.0,1.0)(0.0,0.0,0.0)"_s;

    const auto sound = [](const QByteArray& name, const QByteArray& file, const QByteArray& type) {
        return R"(<sound id="0" name=")" + name + R"(" type=")" + type + R"(" file=")" + file +
               R"("/>)";
    };
    QTest::newRow("sound name of 30 cut")
        << sound(QByteArray(26, 'n') + "cut!", "", "sound") << u"lstSounds"_s
        << QString(26, u'n') + QString(39, u' ') + u"sound"_s;
    QTest::newRow("file of 38 fills its column (a music file gains .wav)")
        << sound("a", QByteArray(34, 'f'), "music") << u"lstSounds"_s
        << u"a"_s.leftJustified(27) + QString(34, u'f') + u".wav"_s + u"music"_s;

    QTest::newRow("camera name of 50 cut")
        << R"(<camera id="0" name=")" + QByteArray(41, 'c') +
               R"(123456789" position="0,0,0" orientation="0.0,0.0,0.0"/>)"
        << u"lstCameras"_s
        << QString(41, u'c') + u" (0,0,0)"_s.leftJustified(21) + u"(0.0,0.0,0.0)"_s;
}

void tst_frmMainSSF::rowsLineUpInFixedColumns()
{
    QFETCH(QByteArray, child);
    QFETCH(QString, list);
    QFETCH(QString, row);
    choose(u"menOpenSSF"_s, files->write(u"row.ssf"_s, R"(<scene world="">)" + child + "</scene>"));
    QCOMPARE(ui->rows(list), QStringList{row});
    // Selecting the row writes every field back: the row stays as it was.
    ui->listBox(list)->setListIndex(0);
    QCOMPARE(ui->rows(list), QStringList{row});
}

QTEST_MAIN(tst_frmMainSSF)
#include "tst_frmMainSSF.moc"
