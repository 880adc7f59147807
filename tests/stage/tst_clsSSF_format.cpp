// Part 3.2: the `.ssf` file format, Load and Save of clsSSF: the edge cases of the Part, its
// example and its table of round trips. Every file is written in a QTemporaryDir from the
// text visible here; writer output is checked as exact bytes. Failures: tst_clsSSF_failures.

#include "SsfTestSupport.h"

#include <QtTest>

using namespace SsfTest;

class tst_clsSSF_format : public QObject {
    Q_OBJECT

    Files m_files;

    // A dialog sound with the data row's `file` saves the row's `stored` attribute.
    void checkStoredDialogFile();

private slots:
    void initTestCase() { QVERIFY(m_files.isValid()); }

    // --- Part 3.2, Edge cases worth testing ---
    void emptyWorldAloneLoadsAndARootWithoutWorldFails();
    void rootOfAnotherNameLoadsAndSavesAsScene();
    void newSsfSavesFiveEmptyAttributesAndNoChildrenAndLoadsAgain();
    void tripleSplitsAtTheFirstTwoCommas_data();
    void tripleSplitsAtTheFirstTwoCommas();
    void positionFieldWithACommaSpreadsOverTheNextFields();
    void otherElementsAndAttributesAreSkippedAndGoneAfterSave();
    void childrenInOrderCameraSoundPuppetLoadAndSaveGrouped();
    void oddIdValuesComeBackUnchanged();
    void rbtWithSingleBackslashesLoadsUnchangedAndSaveDoublesThem();
    void worldKeepsSingleBackslashesBesideDoubledRbtAndFile();
    void typeOtherThanSoundAndDialogIsTreatedAsDialog();
    void dialogSoundWithoutExtensionIsCutAtTheLastDotOfThePath_data();
    void dialogSoundWithoutExtensionIsCutAtTheLastDotOfThePath();
    void onlyDigitsDirectlyInFrontOfTheLastDotAreTakenOff_data();
    void onlyDigitsDirectlyInFrontOfTheLastDotAreTakenOff();

    // --- the example and the table "Round trips of File" of Part 3.2 ---
    void exampleFileLoadsAndSavesBackToTheSameBytes();
    void roundTripsOfFile_data();
    void roundTripsOfFile();

    // --- texts as typed (design 5) and Save over a file ---
    void cameraAndSoundNamesWithABackslashRoundTrip();
    void specialCharactersInTextsRoundTrip();
    void saveOverwritesAnExistingFileAndAddsNoExtension();
};

void tst_clsSSF_format::emptyWorldAloneLoadsAndARootWithoutWorldFails()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(R"(<scene world=""/>)")));
    QCOMPARE(dump(ssf), QStringList{"scene|||||"});

    clsSSF noWorld;
    QVERIFY(!noWorld.Load(m_files.with(R"(<scene maincamera="" nickname="" server="" port=""/>)")));
}

void tst_clsSSF_format::rootOfAnotherNameLoadsAndSavesAsScene()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(R"(<stage world="w" port="80"><camera id="0" name="c" position="1,2,3" orientation="4,5,6"/></stage>)")));
    QCOMPARE(dump(ssf), (QStringList{"scene|w||||80", "camera|0|c|1|2|3|4|5|6"}));
    QCOMPARE(m_files.saved(ssf),
             QByteArray(R"(<scene world="w" maincamera="" nickname="" server="" port="80">)"
                        R"(<camera id="0" name="c" position="1,2,3" orientation="4,5,6"/></scene>)"));
}

void tst_clsSSF_format::newSsfSavesFiveEmptyAttributesAndNoChildrenAndLoadsAgain()
{
    const clsSSF ssf;
    const QByteArray bytes = m_files.saved(ssf);
    QCOMPARE(bytes, QByteArray(R"(<scene world="" maincamera="" nickname="" server="" port=""/>)"));

    clsSSF again;
    QVERIFY(again.Load(m_files.with(bytes)));
    QCOMPARE(dump(again), dump(ssf));
}

void tst_clsSSF_format::tripleSplitsAtTheFirstTwoCommas_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<bool>("loads");
    QTest::addColumn<QStringList>("lines"); // the model after a successful load

    const char* const rest = R"( scale="1.0,1.0,1.0" orientation="0.0,0.0,0.0"/>)";
    auto puppet = [&](const char* position) {
        return QByteArray(R"(<puppet id="0" rbt="" position=")") + position + '"' + rest;
    };
    QTest::newRow("1,2 fails") << puppet("1,2") << false << QStringList{};
    QTest::newRow("1 fails") << puppet("1") << false << QStringList{};
    QTest::newRow("empty fails") << puppet("") << false << QStringList{};
    QTest::newRow("1,2,3,4 keeps 3,4 in Z")
        << puppet("1,2,3,4") << true
        << QStringList{"puppet|0||1|2|3,4|1.0|1.0|1.0|0.0|0.0|0.0"};
    QTest::newRow(",, gives three empty texts")
        << puppet(",,") << true << QStringList{"puppet|0|||||1.0|1.0|1.0|0.0|0.0|0.0"};
    QTest::newRow("blanks and letters stay")
        << puppet(" a , 1 ,1e3") << true
        << QStringList{"puppet|0|| a | 1 |1e3|1.0|1.0|1.0|0.0|0.0|0.0"};
    QTest::newRow("camera orientation 1,2 fails")
        << QByteArray(R"(<camera id="0" name="" position="0,0,0" orientation="1,2"/>)") << false
        << QStringList{};
    QTest::newRow("puppet scale 1;2;3 fails")
        << QByteArray(R"(<puppet id="0" rbt="" position=",," scale="1;2;3" orientation=",,"/>)")
        << false << QStringList{};
}

void tst_clsSSF_format::tripleSplitsAtTheFirstTwoCommas()
{
    QFETCH(QByteArray, element);
    QFETCH(bool, loads);
    QFETCH(QStringList, lines);

    clsSSF ssf;
    QCOMPARE(ssf.Load(m_files.with("<scene world=\"\">" + element + "</scene>")), loads);
    if (loads)
        QCOMPARE(dump(ssf), QStringList{"scene|||||"} + lines);
    else
        QCOMPARE(ssf.NumPuppets() + ssf.NumCameras(), 0); // the record in progress is lost
}

void tst_clsSSF_format::positionFieldWithACommaSpreadsOverTheNextFields()
{
    clsSSF ssf;
    auto p = std::make_shared<clsPuppet>();
    p->PositionX = QStringLiteral("1,5");
    p->PositionY = QStringLiteral("2");
    p->PositionZ = QStringLiteral("3");
    ssf.AddPuppet(p);
    const QByteArray bytes = m_files.saved(ssf);
    QVERIFY2(bytes.contains(R"(position="1,5,2,3")"), bytes.constData());

    clsSSF again;
    QVERIFY(again.Load(m_files.with(bytes)));
    QCOMPARE(again.Puppets(0)->PositionX, QStringLiteral("1"));
    QCOMPARE(again.Puppets(0)->PositionY, QStringLiteral("5"));
    QCOMPARE(again.Puppets(0)->PositionZ, QStringLiteral("2,3"));
}

void tst_clsSSF_format::otherElementsAndAttributesAreSkippedAndGoneAfterSave()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(
        R"(<scene world="w" version="2">)"
        R"(<Puppet id="9" rbt="" position=",," scale=",," orientation=",,"/>)"
        R"(<light id="1"><puppet id="8" rbt="" position=",," scale=",," orientation=",,"/><!-- inside --></light>)"
        R"(<puppet id="0" rbt="a" position="1,2,3" scale="4,5,6" orientation="7,8,9" colour="red"/>)"
        R"(<SOUND id="7" name="" type="sound" file=""/>)"
        R"(<sound id="0" name="n" type="sound" file="f" volume="11"/>)"
        R"(<Camera id="6" name="" position=",," orientation=",,"/>)"
        R"(</scene>)")));
    QCOMPARE(dump(ssf), (QStringList{"scene|w||||", "puppet|0|a|1|2|3|4|5|6|7|8|9",
                                     "sound|0|f|n|sound"}));
    QCOMPARE(m_files.saved(ssf),
             QByteArray(R"(<scene world="w" maincamera="" nickname="" server="" port="">)"
                        R"(<puppet id="0" rbt="a" position="1,2,3" scale="4,5,6" orientation="7,8,9"/>)"
                        R"(<sound id="0" name="n" type="sound" file="f"/></scene>)"));
}

void tst_clsSSF_format::childrenInOrderCameraSoundPuppetLoadAndSaveGrouped()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(
        R"(<scene world="w" maincamera="c1" nickname="" server="" port="">)"
        R"(<camera id="c0" name="one" position="1,1,1" orientation="0,0,0"/>)"
        R"(<sound id="s0" name="a" type="sound" file="a.wav"/>)"
        R"(<puppet id="p0" rbt="x" position="0,0,0" scale="1,1,1" orientation="0,0,0"/>)"
        R"(<camera id="c1" name="two" position="2,2,2" orientation="0,0,0"/>)"
        R"(<puppet id="p1" rbt="y" position="0,0,0" scale="1,1,1" orientation="0,0,0"/>)"
        R"(<sound id="s1" name="b" type="sound" file="b.wav"/>)"
        R"(</scene>)")));
    QCOMPARE(dump(ssf), (QStringList{"scene|w|c1|||",
                                     "puppet|p0|x|0|0|0|1|1|1|0|0|0",
                                     "puppet|p1|y|0|0|0|1|1|1|0|0|0",
                                     "sound|s0|a.wav|a|sound", "sound|s1|b.wav|b|sound",
                                     "camera|c0|one|1|1|1|0|0|0", "camera|c1|two|2|2|2|0|0|0"}));
    QCOMPARE(m_files.saved(ssf),
             QByteArray(R"(<scene world="w" maincamera="c1" nickname="" server="" port="">)"
                        R"(<puppet id="p0" rbt="x" position="0,0,0" scale="1,1,1" orientation="0,0,0"/>)"
                        R"(<puppet id="p1" rbt="y" position="0,0,0" scale="1,1,1" orientation="0,0,0"/>)"
                        R"(<sound id="s0" name="a" type="sound" file="a.wav"/>)"
                        R"(<sound id="s1" name="b" type="sound" file="b.wav"/>)"
                        R"(<camera id="c0" name="one" position="1,1,1" orientation="0,0,0"/>)"
                        R"(<camera id="c1" name="two" position="2,2,2" orientation="0,0,0"/>)"
                        R"(</scene>)"));
}

void tst_clsSSF_format::oddIdValuesComeBackUnchanged()
{
    // Written as Save writes, so Load and Save give the very bytes back.
    const QByteArray file(
        R"(<scene world="" maincamera="-1" nickname="" server="" port="">)"
        R"(<puppet id="" rbt="" position=",," scale=",," orientation=",,"/>)"
        R"(<puppet id="007" rbt="" position=",," scale=",," orientation=",,"/>)"
        R"(<puppet id="007" rbt="" position=",," scale=",," orientation=",,"/>)"
        R"(<sound id="-1" name="" type="sound" file=""/>)"
        R"(<sound id="1.5" name="" type="sound" file=""/>)"
        R"(<camera id="x y" name="" position=",," orientation=",,"/>)"
        R"(<camera id="99999999999" name="" position=",," orientation=",,"/>)"
        R"(</scene>)");
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(file)));
    QCOMPARE(ssf.Puppets(1)->Id, QStringLiteral("007"));
    QCOMPARE(ssf.Sounds(1)->Id, QStringLiteral("1.5"));
    QCOMPARE(ssf.Cameras(0)->Id, QStringLiteral("x y"));
    QCOMPARE(m_files.saved(ssf), file);
}

void tst_clsSSF_format::rbtWithSingleBackslashesLoadsUnchangedAndSaveDoublesThem()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(
        R"(<scene world=""><puppet id="0" rbt="..\rez\bear.rbt" position=",," scale=",," orientation=",,"/>)"
        R"(<puppet id="1" rbt="a\\\b" position=",," scale=",," orientation=",,"/></scene>)")));
    QCOMPARE(ssf.Puppets(0)->RBT, QStringLiteral(R"(..\rez\bear.rbt)"));
    // Left to right without overlap: a pair becomes one, the lone one behind it stays.
    QCOMPARE(ssf.Puppets(1)->RBT, QStringLiteral(R"(a\\b)"));
    QCOMPARE(m_files.saved(ssf),
             QByteArray(R"(<scene world="" maincamera="" nickname="" server="" port="">)"
                        R"(<puppet id="0" rbt="..\\rez\\bear.rbt" position=",," scale=",," orientation=",,"/>)"
                        R"(<puppet id="1" rbt="a\\\\b" position=",," scale=",," orientation=",,"/></scene>)"));
}

void tst_clsSSF_format::worldKeepsSingleBackslashesBesideDoubledRbtAndFile()
{
    clsSSF ssf;
    ssf.World = QStringLiteral(R"(..\rez\worlds\park)");
    auto p = std::make_shared<clsPuppet>();
    p->RBT = QStringLiteral(R"(..\rez\bear.rbt)");
    ssf.AddPuppet(p);
    auto s = std::make_shared<clsSound>();
    s->File = QStringLiteral(R"(..\rez\sounds\door.wav)");
    s->Name = QStringLiteral("door");
    ssf.AddSound(s);
    QCOMPARE(m_files.saved(ssf),
             QByteArray(R"(<scene world="..\rez\worlds\park" maincamera="" nickname="" server="" port="">)"
                        R"(<puppet id="0" rbt="..\\rez\\bear.rbt" position="0.0,0.0,0.0" scale="1.0,1.0,1.0" orientation="0.0,0.0,0.0"/>)"
                        R"(<sound id="0" name="door" type="sound" file="..\\rez\\sounds\\door.wav"/></scene>)"));

    // The reader does not undo doubled backslashes in `world` either.
    clsSSF doubled;
    QVERIFY(doubled.Load(m_files.with(R"(<scene world="..\\rez\\worlds\\park"/>)")));
    QCOMPARE(doubled.World, QStringLiteral(R"(..\\rez\\worlds\\park)"));
}

void tst_clsSSF_format::typeOtherThanSoundAndDialogIsTreatedAsDialog()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(
        R"(<scene world=""><sound id="0" name="m" type="music" file="..\\rez\\sounds\\theme"/>)"
        R"(<sound id="1" name="c" type="Sound" file="..\\rez\\sounds\\bell"/></scene>)")));
    QCOMPARE(dump(ssf), (QStringList{"scene|||||", R"(sound|0|..\rez\sounds\theme.wav|m|music)",
                                     R"(sound|1|..\rez\sounds\bell.wav|c|Sound)"}));

    ssf.Sounds(0)->File = QStringLiteral(R"(..\rez\sounds\theme02.mp3)");
    QCOMPARE(m_files.saved(ssf),
             QByteArray(R"(<scene world="" maincamera="" nickname="" server="" port="">)"
                        R"(<sound id="0" name="m" type="music" file="..\\rez\\sounds\\theme"/>)"
                        R"(<sound id="1" name="c" type="Sound" file="..\\rez\\sounds\\bell"/></scene>)"));
}

void tst_clsSSF_format::dialogSoundWithoutExtensionIsCutAtTheLastDotOfThePath_data()
{
    QTest::addColumn<QString>("file");      // File in memory
    QTest::addColumn<QByteArray>("stored"); // the `file` attribute

    QTest::newRow("a dot of the leading ..") << QStringLiteral(R"(..\rez\sounds\hello)") << QByteArray(".");
    QTest::newRow("the dot of a directory")
        << QStringLiteral(R"(..\rez\sounds.v2\hello)") << QByteArray(R"(..\\rez\\sounds)");
    QTest::newRow("no dot at all") << QStringLiteral("hello") << QByteArray();
}

void tst_clsSSF_format::dialogSoundWithoutExtensionIsCutAtTheLastDotOfThePath()
{
    checkStoredDialogFile();
}

void tst_clsSSF_format::checkStoredDialogFile()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, stored);

    clsSSF ssf;
    auto s = std::make_shared<clsSound>();
    s->TypeSound = QStringLiteral("dialog");
    s->File = file;
    ssf.AddSound(s);
    QCOMPARE(m_files.saved(ssf),
             R"(<scene world="" maincamera="" nickname="" server="" port="">)"
             R"(<sound id="0" name="" type="dialog" file=")" + stored + R"("/></scene>)");
    QCOMPARE(s->File, file); // Save changes nothing in the model
}

void tst_clsSSF_format::onlyDigitsDirectlyInFrontOfTheLastDotAreTakenOff_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("stored");

    QTest::newRow("a1b2.wav") << QStringLiteral(R"(..\rez\sounds\a1b2.wav)")
                              << QByteArray(R"(..\\rez\\sounds\\a1b)");
    QTest::newRow("take.2.wav") << QStringLiteral(R"(..\rez\sounds\take.2.wav)")
                                << QByteArray(R"(..\\rez\\sounds\\take.)");
    QTest::newRow("line0042.wav") << QStringLiteral(R"(..\rez\sounds\line0042.wav)")
                                  << QByteArray(R"(..\\rez\\sounds\\line)");
    QTest::newRow("only digits without a directory") << QStringLiteral("12.wav") << QByteArray();
}

void tst_clsSSF_format::onlyDigitsDirectlyInFrontOfTheLastDotAreTakenOff()
{
    checkStoredDialogFile();
}

void tst_clsSSF_format::exampleFileLoadsAndSavesBackToTheSameBytes()
{
    clsSSF ssf;
    QVERIFY(ssf.Load(m_files.with(ExampleFile)));
    QCOMPARE(dump(ssf),
             (QStringList{R"(scene|..\rez\worlds\theatre|0|||)",
                          R"(puppet|0|..\rez\bear.rbt|0.0|0.0|0.0|1.0|1.0|1.0|0.0|90.0|0.0)",
                          R"(sound|0|..\rez\sounds\hello.wav|hello|dialog)",
                          R"(sound|1|..\rez\sounds\door.wav|door|sound)",
                          R"(camera|0|front|0.0|10.0|-5.0|0.0|0.0|0.0)"}));
    QCOMPARE(m_files.saved(ssf), QByteArray(ExampleFile));
}

void tst_clsSSF_format::roundTripsOfFile_data()
{
    QTest::addColumn<QString>("typeSound");
    QTest::addColumn<QString>("inMemory");
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QString>("afterLoad");

    QTest::newRow("sound door.wav") << "sound" << R"(..\rez\sounds\door.wav)"
                                    << QByteArray(R"(..\\rez\\sounds\\door.wav)")
                                    << R"(..\rez\sounds\door.wav)";
    QTest::newRow("sound take01.wav") << "sound" << R"(..\rez\sounds\take01.wav)"
                                      << QByteArray(R"(..\\rez\\sounds\\take01.wav)")
                                      << R"(..\rez\sounds\take01.wav)";
    QTest::newRow("dialog hello.wav") << "dialog" << R"(..\rez\sounds\hello.wav)"
                                      << QByteArray(R"(..\\rez\\sounds\\hello)")
                                      << R"(..\rez\sounds\hello.wav)";
    QTest::newRow("dialog hello07.wav") << "dialog" << R"(..\rez\sounds\hello07.wav)"
                                        << QByteArray(R"(..\\rez\\sounds\\hello)")
                                        << R"(..\rez\sounds\hello.wav)";
    QTest::newRow("dialog 12.wav") << "dialog" << R"(..\rez\sounds\12.wav)"
                                   << QByteArray(R"(..\\rez\\sounds\\)") << R"(..\rez\sounds\.wav)";
    QTest::newRow("dialog empty") << "dialog" << "" << QByteArray() << ".wav";
}

void tst_clsSSF_format::roundTripsOfFile()
{
    QFETCH(QString, typeSound);
    QFETCH(QString, inMemory);
    QFETCH(QByteArray, attribute);
    QFETCH(QString, afterLoad);

    clsSSF ssf;
    auto s = std::make_shared<clsSound>();
    s->Name = QStringLiteral("s");
    s->TypeSound = typeSound;
    s->File = inMemory;
    ssf.AddSound(s);

    const QByteArray bytes = m_files.saved(ssf);
    QCOMPARE(bytes, R"(<scene world="" maincamera="" nickname="" server="" port="">)"
                    R"(<sound id="0" name="s" type=")" + typeSound.toUtf8() + R"(" file=")"
                        + attribute + R"("/></scene>)");
    QCOMPARE(s->File, inMemory);

    clsSSF again;
    QVERIFY(again.Load(m_files.with(bytes)));
    QCOMPARE(again.NumSounds(), qint16(1));
    QCOMPARE(again.Sounds(0)->File, afterLoad);
}

void tst_clsSSF_format::cameraAndSoundNamesWithABackslashRoundTrip()
{
    clsSSF ssf;
    auto c = std::make_shared<clsCamera>();
    c->Name = QStringLiteral(R"(left\right)");
    ssf.AddCamera(c);
    auto s = std::make_shared<clsSound>();
    s->Name = QStringLiteral(R"(a\\b)");
    ssf.AddSound(s);

    // Design 5: both names are written unchanged, so each load gives them back as they were.
    const QByteArray bytes = m_files.saved(ssf);
    QCOMPARE(bytes, QByteArray(R"(<scene world="" maincamera="" nickname="" server="" port="">)"
                               R"(<sound id="0" name="a\\b" type="sound" file=""/>)"
                               R"(<camera id="0" name="left\right" position="0.0,0.0,0.0" orientation="0.0,0.0,0.0"/></scene>)"));
    clsSSF again;
    QVERIFY(again.Load(m_files.with(bytes)));
    QCOMPARE(dump(again), dump(ssf));
    QCOMPARE(m_files.saved(again), bytes);
}

void tst_clsSSF_format::specialCharactersInTextsRoundTrip()
{
    clsSSF ssf;
    ssf.World = QStringLiteral(R"(..\rez\worlds\"a" & <b>)");
    ssf.Nickname = QStringLiteral("tab\there, line\nthere, 'quoted' \u00e9\u4e16");
    ssf.Server = QStringLiteral("  blanks  ");
    auto p = std::make_shared<clsPuppet>();
    p->RBT = QStringLiteral(R"(..\rez\a&b.rbt)");
    p->ScaleX = QStringLiteral("<1>");
    ssf.AddPuppet(p);

    clsSSF again;
    QVERIFY(again.Load(m_files.with(m_files.saved(ssf))));
    QCOMPARE(dump(again), dump(ssf));
}

void tst_clsSSF_format::saveOverwritesAnExistingFileAndAddsNoExtension()
{
    const QString path = m_files.with(QByteArray(ExampleFile) + "old and longer than the new text");
    clsSSF ssf;
    ssf.World = QStringLiteral("w");
    QVERIFY(ssf.Save(path));
    QCOMPARE(readBytes(path),
             QByteArray(R"(<scene world="w" maincamera="" nickname="" server="" port=""/>)"));

    const QString bare = m_files.filePath(QStringLiteral("scene"));
    QVERIFY(ssf.Save(bare));
    QVERIFY(QFileInfo(bare).isFile());
    QVERIFY(!QFileInfo::exists(bare + QStringLiteral(".ssf")));
}

QTEST_APPLESS_MAIN(tst_clsSSF_format)
#include "tst_clsSSF_format.moc"
