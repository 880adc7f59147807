// Part 3.2: the failures of `.ssf` Load and Save: bad input, the limits of 32768 child nodes
// and 32767 records, loads that stop half way, and saves that cannot write. Every file is
// written in a QTemporaryDir from the text visible here.

#include "SsfTestSupport.h"
#include "tests/support/EntityBomb.h"

#include <QtTest>

#include <QStringEncoder>

using namespace SsfTest;

namespace {
enum class Target { File, Missing, Directory };
} // namespace

Q_DECLARE_METATYPE(Target)

class tst_clsSSF_failures : public QObject {
    Q_OBJECT

    Files m_files;

private slots:
    void initTestCase() { QVERIFY(m_files.isValid()); }

    // --- the limits of Part 3.2 and design 5 ---
    void rootWithMoreThan32768ChildNodesFails_data();
    void rootWithMoreThan32768ChildNodesFails();
    void listPast32767RecordsFails_data();
    void listPast32767RecordsFails();

    // --- bad input and partial loads ---
    void badInputGivesFalseOrTrueAsThePartSays_data();
    void badInputGivesFalseOrTrueAsThePartSays();
    void utf16FileWithByteOrderMarkLoads();
    void failedLoadKeepsWhatWasReadSoFar_data();
    void failedLoadKeepsWhatWasReadSoFar();

    // --- Save that cannot write (Part 3.2, design 5) ---
    void saveIntoAMissingDirectoryFailsAndLeavesTheModelUnchanged();
    void saveThroughAnUnwritablePathLeavesTheExistingFileUnchanged_data();
    void saveThroughAnUnwritablePathLeavesTheExistingFileUnchanged();
};

void tst_clsSSF_failures::rootWithMoreThan32768ChildNodesFails_data()
{
    QTest::addColumn<QByteArray>("children");
    QTest::addColumn<bool>("loads");

    QTest::newRow("32768 other elements") << repeated("<x/>", 32768) << true;
    QTest::newRow("32769 other elements") << repeated("<x/>", 32769) << false;
    QTest::newRow("a puppet and 32768 others") << Puppet + repeated("<x/>", 32768) << false;
    QTest::newRow("10923 of each kind") // 32769 records in all, none of its list full
        << repeated(Puppet, 10923) + repeated(Sound, 10923) + repeated(Camera, 10923) << false;
}

void tst_clsSSF_failures::rootWithMoreThan32768ChildNodesFails()
{
    QFETCH(QByteArray, children);
    QFETCH(bool, loads);

    clsSSF ssf;
    QCOMPARE(ssf.Load(m_files.with("<scene world=\"w\" port=\"1\">" + children + "</scene>")), loads);
    // The root's attributes are read before the children are counted.
    QCOMPARE(ssf.World, QStringLiteral("w"));
    QCOMPARE(ssf.Port, QStringLiteral("1"));
    if (!loads)
        QCOMPARE(ssf.NumPuppets() + ssf.NumSounds() + ssf.NumCameras(), 0);
}

void tst_clsSSF_failures::listPast32767RecordsFails_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::newRow("puppets") << QByteArray(Puppet);
    QTest::newRow("sounds") << QByteArray(Sound);
    QTest::newRow("cameras") << QByteArray(Camera);
}

void tst_clsSSF_failures::listPast32767RecordsFails()
{
    QFETCH(QByteArray, element);
    const auto count = [](const clsSSF& ssf) {
        return ssf.NumPuppets() + ssf.NumSounds() + ssf.NumCameras();
    };

    clsSSF full;
    QVERIFY(full.Load(m_files.with("<scene world=\"\">" + element.repeated(32767) + "</scene>")));
    QCOMPARE(count(full), 32767);

    clsSSF past;
    QVERIFY(!past.Load(m_files.with("<scene world=\"\">" + element.repeated(32768) + "</scene>")));
    QCOMPARE(count(past), 32767); // the records before the failing one stay
}

void tst_clsSSF_failures::badInputGivesFalseOrTrueAsThePartSays_data()
{
    QTest::addColumn<Target>("target");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("loads");

    const QByteArray example(ExampleFile);
    const QByteArray lols = EntityBombPrologue("scene");
    QByteArray binary;
    for (int i = 0; i < 4096; ++i)
        binary += char((i * 167 + 13) % 256);
    QStringEncoder utf16(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    const QByteArray utf16File = utf16(QString::fromUtf8(example));

    QTest::newRow("missing file") << Target::Missing << QByteArray() << false;
    QTest::newRow("directory") << Target::Directory << QByteArray() << false;
    QTest::newRow("empty file") << Target::File << QByteArray() << false;
    QTest::newRow("binary file") << Target::File << binary << false;
    QTest::newRow("cut off half way") << Target::File << example.left(example.size() / 2) << false;
    QTest::newRow("cut off before the end tag") << Target::File << example.chopped(3) << false;
    QTest::newRow("two roots") << Target::File << QByteArray(R"(<scene world=""/><scene world=""/>)") << false;
    QTest::newRow("root without world") << Target::File << QByteArray(R"(<scene maincamera="0"/>)") << false;
    QTest::newRow("puppet missing scale")
        << Target::File
        << QByteArray(R"(<scene world=""><puppet id="0" rbt="" position=",," orientation=",,"/></scene>)")
        << false;
    QTest::newRow("sound missing type")
        << Target::File << QByteArray(R"(<scene world=""><sound id="0" name="" file=""/></scene>)")
        << false;
    QTest::newRow("camera missing name")
        << Target::File
        << QByteArray(R"(<scene world=""><camera id="0" position=",," orientation=",,"/></scene>)")
        << false;
    QTest::newRow("triple with one comma")
        << Target::File
        << QByteArray(R"(<scene world=""><camera id="0" name="" position="1,2" orientation=",,"/></scene>)")
        << false;
    QTest::newRow("comment among the children")
        << Target::File << "<scene world=\"\">" + QByteArray(Puppet) + "<!-- a -->" + Sound + "</scene>"
        << false;
    QTest::newRow("processing instruction among the children")
        << Target::File << QByteArray(R"(<scene world=""><?pi data?></scene>)") << false;
    QTest::newRow("text among the children")
        << Target::File << QByteArray(R"(<scene world="">text</scene>)") << false;
    QTest::newRow("CDATA among the children")
        << Target::File << QByteArray(R"(<scene world=""><![CDATA[ ]]></scene>)") << false;
    QTest::newRow("white space among the children")
        << Target::File << "<scene world=\"\">\n  " + QByteArray(Puppet) + "\r\n\t" + Camera + "\n</scene>\n"
        << true;
    QTest::newRow("comments and declaration outside the root")
        << Target::File << "<?xml version=\"1.0\"?>\n<!-- before -->" + example + "<!-- after -->"
        << true;
    QTest::newRow("entity bomb in an attribute")
        << Target::File << lols + R"(<scene world="&l9;"/>)" << false;
    QTest::newRow("entity bomb in the content")
        << Target::File << lols + R"(<scene world="">&l9;</scene>)" << false;
    QTest::newRow("declared entity within the limit")
        << Target::File
        << QByteArray("<!DOCTYPE scene [<!ENTITY w \"park\">]><scene world=\"&w;\"/>") << true;
    QTest::newRow("undeclared entity")
        << Target::File << QByteArray(R"(<scene world="&nothing;"/>)") << false;
    QTest::newRow("UTF-16 with a byte-order mark") << Target::File << utf16File << true;
}

void tst_clsSSF_failures::badInputGivesFalseOrTrueAsThePartSays()
{
    QFETCH(Target, target);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, loads);

    QString path;
    switch (target) {
    case Target::File: path = m_files.with(bytes); break;
    case Target::Missing: path = m_files.filePath(QStringLiteral("missing.ssf")); break;
    case Target::Directory:
        path = m_files.filePath(QStringLiteral("directory.ssf"));
        QVERIFY(QDir().mkpath(path));
        break;
    }
    clsSSF ssf;
    QCOMPARE(ssf.Load(path), loads);
}

void tst_clsSSF_failures::utf16FileWithByteOrderMarkLoads()
{
    QStringEncoder utf16(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    const QByteArray bytes = utf16(QString::fromUtf8(ExampleFile).replace("front", "fr\u00f6nt"));
    QVERIFY(bytes.startsWith("\xfe\xff"));

    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(bytes)));
    QCOMPARE(ssf.World, QStringLiteral(R"(..\rez\worlds\theatre)"));
    QCOMPARE(ssf.Cameras(0)->Name, QStringLiteral("fr\u00f6nt"));
    // Written back as UTF-8 without a byte-order mark.
    QCOMPARE(m_files.saved(ssf), QByteArray(ExampleFile).replace("front", "fr\xc3\xb6nt"));
}

void tst_clsSSF_failures::failedLoadKeepsWhatWasReadSoFar_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("root without world")
        << QByteArray(R"(<scene maincamera="1" nickname="n"><camera id="0" name="" position=",," orientation=",,"/></scene>)")
        << QStringList{"scene|||||"};
    QTest::newRow("too many child nodes")
        << R"(<scene world="w" maincamera="1" nickname="n" server="s" port="p">)" + QByteArray(Camera)
               + repeated("<x/>", 32768) + "</scene>"
        << QStringList{"scene|w|1|n|s|p"};
    QTest::newRow("the second puppet lacks scale")
        << QByteArray(R"(<scene world="w" port="80">)"
                      R"(<sound id="5" name="a" type="dialog" file="a"/>)"
                      R"(<puppet id="0" rbt="..\\p.rbt" position="1,2,3" scale="4,5,6" orientation="7,8,9"/>)"
                      R"(<camera id="2" name="c" position=",," orientation=",,"/>)"
                      R"(<puppet id="1" rbt="q" position="1,1,1" orientation="0,0,0"/>)"
                      R"(<sound id="6" name="b" type="sound" file="b"/></scene>)")
        << QStringList{"scene|w||||80", R"(puppet|0|..\p.rbt|1|2|3|4|5|6|7|8|9)",
                       "sound|5|a.wav|a|dialog", "camera|2|c||||||"};
    QTest::newRow("a sound's last attribute is missing")
        << QByteArray(R"(<scene world="w"><sound id="0" name="a" type="sound" file="a"/>)"
                      R"(<sound id="1" name="b" type="sound"/></scene>)")
        << QStringList{"scene|w||||", "sound|0|a|a|sound"};
    QTest::newRow("a camera's last triple has one comma")
        << QByteArray(R"(<scene world="w"><camera id="0" name="a" position="1,2,3" orientation="4,5,6"/>)"
                      R"(<camera id="1" name="b" position="1,2,3" orientation="4,5"/></scene>)")
        << QStringList{"scene|w||||", "camera|0|a|1|2|3|4|5|6"};
    QTest::newRow("a comment behind a camera")
        << QByteArray(R"(<scene world="w" server="s"><camera id="0" name="a" position="1,2,3" orientation="4,5,6"/>)"
                      R"(<!-- here --><camera id="1" name="b" position="1,2,3" orientation="4,5,6"/></scene>)")
        << QStringList{"scene|w|||s|", "camera|0|a|1|2|3|4|5|6"};
}

void tst_clsSSF_failures::failedLoadKeepsWhatWasReadSoFar()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, lines);

    clsSSF ssf;
    QVERIFY(!ssf.Load(m_files.with(file)));
    QCOMPARE(dump(ssf), lines);
}

void tst_clsSSF_failures::saveIntoAMissingDirectoryFailsAndLeavesTheModelUnchanged()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(ExampleFile)));
    const QStringList before = dump(ssf);
    const auto sound = ssf.Sounds(0); // a dialog sound: File keeps its ".wav"

    const QString path = m_files.filePath(QStringLiteral("no such directory/scene.ssf"));
    QVERIFY(!ssf.Save(path));
    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(!QFileInfo::exists(m_files.filePath(QStringLiteral("no such directory"))));
    QCOMPARE(dump(ssf), before);
    QCOMPARE(ssf.Sounds(0), sound);
}

void tst_clsSSF_failures::saveThroughAnUnwritablePathLeavesTheExistingFileUnchanged_data()
{
    QTest::addColumn<QString>("existing"); // relative to a fresh directory
    QTest::addColumn<QString>("target");

    QTest::newRow("the path is a directory holding the file")
        << QStringLiteral("scene.ssf/scene.ssf") << QStringLiteral("scene.ssf");
    QTest::newRow("the file taken as a parent directory")
        << QStringLiteral("scene.ssf") << QStringLiteral("scene.ssf/scene.ssf");
    QTest::newRow("the file behind a missing parent directory")
        << QStringLiteral("scene.ssf") << QStringLiteral("missing/../scene.ssf");
}

void tst_clsSSF_failures::saveThroughAnUnwritablePathLeavesTheExistingFileUnchanged()
{
    QFETCH(QString, existing);
    QFETCH(QString, target);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString existingPath = dir.filePath(existing);
    QVERIFY(QDir().mkpath(QFileInfo(existingPath).path()));
    {
        QFile file(existingPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ExampleFile);
    }
    const QStringList entriesBefore = QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden);

    clsSSF ssf;
    ssf.World = QStringLiteral("new");
    QVERIFY(!ssf.Save(dir.path() + u'/' + target));
    QCOMPARE(readBytes(existingPath), QByteArray(ExampleFile));
    // No temporary file is left behind either.
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden), entriesBefore);
    QCOMPARE(dump(ssf), QStringList{"scene|new||||"});
}

QTEST_APPLESS_MAIN(tst_clsSSF_failures)
#include "tst_clsSSF_failures.moc"
