// The stage scene window driven as a user would: an authoring session from New to a saved
// and reopened scene, bad files, the fixed-pitch rows and camera Ids that are no numbers.

#include "foundation/controls/ComboBox.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/SuiteLinks.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "stage/frmMainSSF.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/WindowDriver.h"

#include <QDir>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString Caption = u"Stage Scene File Manager"_s;

// Records what the window asks of the suite.
struct RecordingLinks : SuiteLinks {
    QStringList calls;
    void ShowRBTManager() override { calls << u"RBT manager"_s; }
    void ShowSSFManager() override { calls << u"SSF manager"_s; }
    void ShowTSLManager() override { calls << u"TSL manager"_s; }
    void EditRBT(const std::optional<QString>& f) override
    {
        calls << u"edit "_s + f.value_or(u"-"_s);
    }
    void EditSSF(const std::optional<QString>& f) override
    {
        calls << u"edit ssf "_s + f.value_or(u"-"_s);
    }
};

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "<unreadable>";
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

} // namespace

class tst_frmMainSSF : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<ScriptedDialogService> dialogs;
    std::unique_ptr<RecordingLinks> links;
    std::unique_ptr<frmMainSSF> window;
    std::unique_ptr<WindowDriver> ui;

    QString path(const QString& name) const { return dir->filePath(name); }
    QStringList rows(const QString& list) const
    {
        QStringList texts;
        for (int i = 0; i < ui->listBox(list)->ListCount(); ++i)
            texts << ui->listBox(list)->List(i);
        return texts;
    }
    void open(const QString& file)
    {
        dialogs->answerFile(file);
        ui->trigger(u"menOpenSSF"_s);
    }
    void save(const QString& file)
    {
        dialogs->answerFile(file);
        ui->trigger(u"menSaveSSF"_s);
    }
    void showPage(int index) { ui->find<QTabWidget>(u"SSTab1"_s)->setCurrentIndex(index); }
    void choose(const QString& button, const QString& file)
    {
        dialogs->answerFile(file);
        ui->click(button);
    }

private slots:
    void init()
    {
        mdlGeneral::strCurrentDir.clear();
        dir = std::make_unique<QTemporaryDir>();
        dialogs = std::make_unique<ScriptedDialogService>();
        links = std::make_unique<RecordingLinks>();
        window = std::make_unique<frmMainSSF>(*dialogs, links.get());
        ui = std::make_unique<WindowDriver>(window.get());
    }
    void cleanup()
    {
        QCOMPARE(dialogs->pendingAnswers(), 0);
        ui.reset();
        window.reset();
        mdlGeneral::strCurrentDir.clear();
    }

    void anAuthoringSession();
    void aBadFileShowsTheOpenMessageAndKeepsTheShownScene_data();
    void aBadFileShowsTheOpenMessageAndKeepsTheShownScene();
    void rowsLineUpInFixedColumns_data();
    void rowsLineUpInFixedColumns();
    void aCameraIdThatIsNoNumberIsListedAndStoredAsText();
};

void tst_frmMainSSF::anAuthoringSession()
{
    ui->trigger(u"menNewSSF"_s);
    QCOMPARE(window->windowTitle(), Caption + u" - <no name>"_s);
    choose(u"Command5"_s, path(u"Castle.dat"_s));
    ui->type(u"txtNickname"_s, uR"(Ann & "Bo" <3> Zo)"_s);
    // A letter beyond ASCII, as a keyboard layout sends it: a key event with its text.
    QTest::sendKeyEvent(QTest::Click, ui->textBox(u"txtNickname"_s), Qt::Key_unknown, u"ë"_s, {});
    ui->type(u"txtServer"_s, uR"(host\stage)"_s);
    ui->type(u"txtPort"_s, u"80a"_s);

    // Two puppets: the first with its file and a position typed key by key.
    const QString newPuppetRow =
        QString(30, u' ') + u"(0.0,0.0,0.0)   (1.0,1.0,1.0)   (0.0,0.0,0.0)"_s;
    ui->click(u"Command1"_s);
    QCOMPARE(rows(u"lstPuppets"_s), QStringList{newPuppetRow});
    choose(u"Command3"_s, path(u"Bear.rbt"_s));
    QCOMPARE(mdlGeneral::strCurrentDir, dir->path() + u'/');
    QStringList rowAtEachKey;
    const auto watch = connect(ui->textBox(u"txtPosX"_s), &TextBox::Change, this,
                               [&] { rowAtEachKey << rows(u"lstPuppets"_s).first().mid(30, 16); });
    ui->clearText(u"txtPosX"_s);
    ui->type(u"txtPosX"_s, u"-1"_s);
    disconnect(watch);
    QCOMPARE(rowAtEachKey,
             (QStringList{u"(,0.0,0.0)      "_s, u"(-,0.0,0.0)     "_s, u"(-1,0.0,0.0)    "_s}));
    QCOMPARE(rows(u"lstPuppets"_s).first().left(30), u"..\\rez\\Bear.rbt"_s.leftJustified(30));
    ui->click(u"Command1"_s);
    ui->type(u"txtScaleZ"_s, u"2"_s);
    ui->type(u"txtOrienY"_s, u"x"_s); // a number box takes any text
    QCOMPARE(rows(u"lstPuppets"_s)[1],
             QString(30, u' ') + u"(0.0,0.0,0.0)   (1.0,1.0,1.02)  (0.0,0.0x,0.0)"_s);
    ui->trigger(u"menEditRBT"_s);
    ui->pickRow(u"lstPuppets"_s, 0);
    QCOMPARE(ui->textBox(u"txtPosX"_s)->Text(), u"-1"_s);
    ui->trigger(u"menEditRBT"_s);
    QCOMPARE(links->calls, (QStringList{u"edit "_s, u"edit Bear.rbt"_s}));

    // A third puppet, gone by the Delete key.
    ui->click(u"Command1"_s);
    ui->pressKey(u"lstPuppets"_s, Qt::Key_Delete);
    QCOMPARE(rows(u"lstPuppets"_s).size(), 2);
    QCOMPARE(ui->listBox(u"lstPuppets"_s)->ListIndex(), -1);

    // A sound and a dialog line; a file picked elsewhere is stored under the prefix.
    showPage(1);
    ui->click(u"Command4"_s);
    ui->type(u"txtNameSound"_s, u"Door's creak"_s);
    choose(u"Command2"_s, u"/elsewhere/door.wav"_s);
    ui->click(u"Command4"_s);
    ui->type(u"txtNameSound"_s, u"hello"_s);
    choose(u"Command2"_s, u"/elsewhere/hello07.wav"_s);
    ui->click(u"chkDialog"_s);
    QCOMPARE(rows(u"lstSounds"_s),
             (QStringList{u"Door's creak"_s.leftJustified(27) +
                              u"..\\rez\\sounds\\door.wav"_s.leftJustified(38) + u"sound"_s,
                          u"hello"_s.leftJustified(27) +
                              u"..\\rez\\sounds\\hello07.wav"_s.leftJustified(38) + u"dialog"_s}));
    QCOMPARE(mdlGeneral::strCurrentDir, dir->path() + u'/');

    // Two cameras; the main camera picked from the list that fills as it drops down.
    showPage(2);
    ui->click(u"Command6"_s);
    ui->type(u"txtCamera"_s, u"front"_s);
    ui->click(u"Command6"_s);
    ui->type(u"txtCamera"_s, u"back"_s);
    ui->type(u"txtPosYCam"_s, u"1"_s);
    QCOMPARE(rows(u"lstCameras"_s)[1],
             u"back"_s.leftJustified(42) + u"(0.0,0.01,0.0)      (0.0,0.0,0.0)"_s);
    ui->pickComboRow(u"txtMainCamera"_s, 1);
    QCOMPARE(ui->comboBox(u"txtMainCamera"_s)->currentText(), u"back"_s);

    // Save, byte for byte; a save into a missing directory changes nothing.
    save(path(u"scene.ssf"_s));
    const QByteArray golden =
        R"(<scene world="..\rez\worlds\Castle" maincamera="1" nickname="Ann &amp; &quot;Bo&quot; &lt;3&gt; Zoë" server="host\stage" port="80a">)"
        R"(<puppet id="0" rbt="..\\rez\\Bear.rbt" position="-1,0.0,0.0" scale="1.0,1.0,1.0" orientation="0.0,0.0,0.0"/>)"
        R"(<puppet id="1" rbt="" position="0.0,0.0,0.0" scale="1.0,1.0,1.02" orientation="0.0,0.0x,0.0"/>)"
        R"(<sound id="0" name="Door's creak" type="sound" file="..\\rez\\sounds\\door.wav"/>)"
        R"(<sound id="1" name="hello" type="dialog" file="..\\rez\\sounds\\hello"/>)"
        R"(<camera id="0" name="front" position="0.0,0.0,0.0" orientation="0.0,0.0,0.0"/>)"
        R"(<camera id="1" name="back" position="0.0,0.01,0.0" orientation="0.0,0.0,0.0"/></scene>)";
    QCOMPARE(readFile(path(u"scene.ssf"_s)), golden);
    QCOMPARE(window->windowTitle(), Caption + u" - scene.ssf"_s);
    save(path(u"missing/other.ssf"_s));
    QCOMPARE(dialogs->messages(), QStringList{u"Cannot save SSF file"_s});
    QCOMPARE(window->windowTitle(), Caption + u" - scene.ssf"_s);
    QCOMPARE(window->CurrentFile(), u"scene.ssf"_s);

    // Open it again after a New: the same rows, the dialog line's file by its stem.
    const QStringList puppets = rows(u"lstPuppets"_s), cameras = rows(u"lstCameras"_s);
    ui->trigger(u"menNewSSF"_s);
    QCOMPARE(rows(u"lstPuppets"_s), QStringList());
    open(path(u"scene.ssf"_s));
    QCOMPARE(rows(u"lstPuppets"_s), puppets);
    QCOMPARE(rows(u"lstCameras"_s), cameras);
    QCOMPARE(rows(u"lstSounds"_s)[1].mid(27, 38).trimmed(), u"..\\rez\\sounds\\hello.wav"_s);
    QCOMPARE(ui->comboBox(u"txtMainCamera"_s)->currentText(), u"back"_s);
    QCOMPARE(ui->textBox(u"txtNickname"_s)->Text(), uR"(Ann & "Bo" <3> Zoë)"_s);
    QCOMPARE(window->Document()->MainCamera, u"1"_s);
}

void tst_frmMainSSF::aBadFileShowsTheOpenMessageAndKeepsTheShownScene_data()
{
    QTest::addColumn<QByteArray>("bytes"); // null: no file of that name
    const QByteArray puppet =
        R"(<puppet id="0" rbt="" position="0,0,0" scale="1,1,1" orientation="0,0,0"/>)";
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("directory") << QByteArray("dir");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("binary") << QByteArray("\x00\xff\xfe<\x01scene", 10);
    QTest::newRow("cut off") << QByteArray(R"(<scene world="w"><puppet id="0")");
    QTest::newRow("no world") << QByteArray(R"(<scene maincamera=""/>)");
    QTest::newRow("puppet without scale") << QByteArray(
        R"(<scene world=""><puppet id="0" rbt="" position="0,0,0" orientation="0,0,0"/></scene>)");
    QTest::newRow("triple with one comma") << QByteArray(
        R"(<scene world=""><camera id="0" name="" position="0,0" orientation="0,0,0"/></scene>)");
    QTest::newRow("comment among children")
        << R"(<scene world="">)" + puppet + "<!-- x --></scene>";
    QTest::newRow("32769 children")
        << R"(<scene world="">)" + QByteArray("<x/>").repeated(32769) + "</scene>";
}

void tst_frmMainSSF::aBadFileShowsTheOpenMessageAndKeepsTheShownScene()
{
    QFETCH(QByteArray, bytes);
    writeFile(
        path(u"good.ssf"_s),
        R"(<scene world="w"><camera id="0" name="c" position="1,2,3" orientation="4,5,6"/></scene>)");
    open(path(u"good.ssf"_s));
    const clsSSF* shown = window->Document();
    const QStringList cameras = rows(u"lstCameras"_s);
    if (bytes == "dir")
        QVERIFY(QDir(dir->path()).mkdir(u"bad.ssf"_s));
    else if (!bytes.isNull())
        writeFile(path(u"bad.ssf"_s), bytes);

    open(path(u"bad.ssf"_s));
    QCOMPARE(dialogs->messages(), QStringList{u"Cannot open the SSF file "_s + path(u"bad.ssf"_s)});
    QCOMPARE(window->Document(), shown);
    QCOMPARE(rows(u"lstCameras"_s), cameras);
    QCOMPARE(window->windowTitle(), Caption + u" - good.ssf"_s);
    QCOMPARE(window->CurrentFile(), u"good.ssf"_s);
    showPage(2);
    ui->click(u"Command6"_s); // editing goes on in the shown scene
    QCOMPARE(window->Document()->NumCameras(), 2);
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
    const QByteArray path29 = "..\\\\rez\\\\" + QByteArray(22, 'p'),
                     path40 = path29 + QByteArray(11, 'q');
    const QString shown29 = u"..\\rez\\"_s + QString(22, u'p');
    QTest::newRow("new puppet") << puppet("", "0.0,0.0,0.0") << u"lstPuppets"_s
                                << QString(30, u' ') + u"(0.0,0.0,0.0)   "_s + rest;
    QTest::newRow("puppet path of 29") << puppet(path29, "0,0,0") << u"lstPuppets"_s
                                       << shown29 + u" (0,0,0)"_s.leftJustified(17) + rest;
    QTest::newRow("puppet path of 40 cut") << puppet(path40, "0,0,0") << u"lstPuppets"_s
                                           << shown29 + u" (0,0,0)"_s.leftJustified(17) + rest;
    QTest::newRow("position fills its column") << puppet("", "1234,5678,9012") << u"lstPuppets"_s
                                               << QString(30, u' ') + u"(1234,5678,9012)"_s + rest;
    QTest::newRow("position too long: no blanks")
        << puppet("", "12345678,1,123456789") << u"lstPuppets"_s
        << QString(30, u' ') + u"(12345678,1,123456789)(1.0,1.0,1.0)(0.0,0.0,0.0)"_s;

    const auto sound = [](const QByteArray& name, const QByteArray& file, const QByteArray& type) {
        return R"(<sound id="0" name=")" + name + R"(" type=")" + type + R"(" file=")" + file +
               R"("/>)";
    };
    QTest::newRow("new sound") << sound("", "", "sound") << u"lstSounds"_s
                               << QString(65, u' ') + u"sound"_s;
    QTest::newRow("sound name of 30 cut")
        << sound(QByteArray(26, 'n') + "cut!", "", "sound") << u"lstSounds"_s
        << QString(26, u'n') + QString(39, u' ') + u"sound"_s;
    QTest::newRow("file of 38 fills its column (a music file gains .wav)")
        << sound("a", QByteArray(34, 'f'), "music") << u"lstSounds"_s
        << u"a"_s.leftJustified(27) + QString(34, u'f') + u".wav"_s + u"music"_s;
    QTest::newRow("file too long: no blanks")
        << sound("a", QByteArray(50, 'f'), "sound") << u"lstSounds"_s
        << u"a"_s.leftJustified(27) + QString(50, u'f') + u"sound"_s;

    const auto camera = [](const QByteArray& name, const QByteArray& position) {
        return R"(<camera id="0" name=")" + name + R"(" position=")" + position +
               R"(" orientation="0.0,0.0,0.0"/>)";
    };
    QTest::newRow("new camera") << camera("", "0.0,0.0,0.0") << u"lstCameras"_s
                                << QString(42, u' ') + u"(0.0,0.0,0.0)       (0.0,0.0,0.0)"_s;
    QTest::newRow("camera name of 50 cut")
        << camera(QByteArray(41, 'c') + "123456789", "0,0,0") << u"lstCameras"_s
        << QString(41, u'c') + u" (0,0,0)"_s.leftJustified(21) + u"(0.0,0.0,0.0)"_s;
    QTest::newRow("camera position fills its column")
        << camera("", "123456,12345,12345") << u"lstCameras"_s
        << QString(42, u' ') + u"(123456,12345,12345)(0.0,0.0,0.0)"_s;
}

void tst_frmMainSSF::rowsLineUpInFixedColumns()
{
    QFETCH(QByteArray, child);
    QFETCH(QString, list);
    QFETCH(QString, row);
    writeFile(path(u"row.ssf"_s), R"(<scene world="">)" + child + "</scene>");
    open(path(u"row.ssf"_s));
    QCOMPARE(rows(list), QStringList{row});
    // Selecting the row writes every field back: the row stays as it was.
    ui->listBox(list)->setListIndex(0);
    QCOMPARE(rows(list), QStringList{row});
}

void tst_frmMainSSF::aCameraIdThatIsNoNumberIsListedAndStoredAsText()
{
    writeFile(path(u"ids.ssf"_s),
              R"(<scene world="" maincamera="a">)"
              R"(<camera id="007" name="seven" position=",," orientation=",,"/>)"
              R"(<camera id="a" name="letter" position=",," orientation=",,"/></scene>)");
    open(path(u"ids.ssf"_s));
    ComboBox* mainCamera = ui->comboBox(u"txtMainCamera"_s);
    QCOMPARE(mainCamera->ListCount(), 1);
    QCOMPARE(mainCamera->currentText(), u"letter"_s);
    QCOMPARE(window->Document()->MainCamera, u"a"_s);
    ui->pickComboRow(u"txtMainCamera"_s, 0);
    QCOMPARE(mainCamera->ListCount(), 2);
    QCOMPARE(window->Document()->MainCamera, u"7"_s); // a number Id is taken as its integer
    ui->pickComboRow(u"txtMainCamera"_s, 1);
    QCOMPARE(window->Document()->MainCamera, u"a"_s);
}

QTEST_MAIN(tst_frmMainSSF)
#include "tst_frmMainSSF.moc"
