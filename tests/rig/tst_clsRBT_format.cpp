// Part 2.2: the `.rbt` file format, Load and Save of clsRBT: the edge cases of the Part, the
// example file, and the base-relative paths of Part 1.1 (design 4). The failures and the
// limits of design 5 are in tst_clsRBT_format_failures.cpp. Files are written into a
// QTemporaryDir with their text in the test (RbtTestSupport.h).

#include "RbtTestSupport.h"

#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace RbtTest;

class tst_clsRBT_format : public QObject, private DirFixture {
    Q_OBJECT

private slots:
    void init() { QVERIFY(enterFreshDir()); }
    void cleanup() { leaveDir(); }

    // Part 2.2, Edge cases worth testing
    void documentWithoutRecordsIsWrittenAsRootAloneAndReadsBackEmpty();
    void vectorFieldsAreWrittenJoinedByCommasAndReadBack();
    void vectorWithFourPartsKeepsTheRestInZAndSavesAgain();
    void vectorOfTwoCommasReadsAsThreeEmptyTexts();
    void vectorWithOneCommaFailsTheLoad();
    void vectorKeepsItsBlanks();
    void absentAndEmptyTextureBothGiveEmptyTexture_data();
    void absentAndEmptyTextureBothGiveEmptyTexture();
    void typeOfAnyValueOrNoneLoadsTheSame_data();
    void typeOfAnyValueOrNoneLoadsTheSame();
    void rootWithAnotherNameLoadsAndSaveWritesRbt();
    void childWithAnotherTagIsDroppedAndNotSavedAgain();
    void commentBetweenJointsFailsButWhiteSpaceDoesNot();
    void animationsInFrontOfJointsLoadAndSaveWritesJointsFirst();
    void currentDirIsPutInFrontOfWhateverModelHolds_data();
    void currentDirIsPutInFrontOfWhateverModelHolds();

    // The example file and the paths of Part 1.1
    void exampleFileLoadsAndSavesBackToTheSameBytes();
    void modelInSubDirectoryIsStoredRelativeInLowerCase();
    void loadJoinsStoredPathsToNativePaths();
    void storedTextIsStableAcrossLoadAndSave_data();
    void storedTextIsStableAcrossLoadAndSave();
    void fileWithSingleBackslashesLoadsTheSame();
    void savePathsAreRelativeToCurrentDirOfTheSave();
    void onlyTheThreePathsAreDoubled();
    void attributeTextsRoundTripExactly();
    void emptyElementInBothFormsLoads();
    void tagsAndAttributeNamesAreComparedWithCase();

    // Save
    void saveReplacesExistingFileWhole();
    void saveChangesNoFieldOrRecord();
};

// --- Part 2.2, Edge cases worth testing ---

void tst_clsRBT_format::documentWithoutRecordsIsWrittenAsRootAloneAndReadsBackEmpty() {
    clsRBT rbt;
    rbt.Name = u"Empty"_s;
    rbt.Model = base() + u"empty.ltb"_s;
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Empty" type="model" model="empty.ltb" texture="" icon=""/>)"));

    clsRBT back;
    QVERIFY(back.Load(path(u"out.rbt"_s)));
    QCOMPARE(back.NumJoints(), qint16(0));
    QCOMPARE(back.NumAnimations(), qint16(0));
    QCOMPARE(back.Name, u"Empty"_s);
}

void tst_clsRBT_format::vectorFieldsAreWrittenJoinedByCommasAndReadBack() {
    clsRBT rbt;
    rbt.Name = u"Hero"_s;
    rbt.Model = base() + u"hero.ltb"_s;
    auto joint = std::make_shared<clsJoint>();
    joint->VectorX = u"1.0"_s;
    joint->VectorY = u"0.0"_s;
    joint->VectorZ = u"0.0"_s;
    rbt.AddJoint(joint);
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon="">)"
                        R"(<joint id="0" node="" min="" max="" vector="1.0,0.0,0.0" action="" desc=""/></rbt>)"));

    clsRBT back;
    QVERIFY(back.Load(path(u"out.rbt"_s)));
    QCOMPARE(back.Joints(0)->VectorX, u"1.0"_s);
    QCOMPARE(back.Joints(0)->VectorY, u"0.0"_s);
    QCOMPARE(back.Joints(0)->VectorZ, u"0.0"_s);
}

void tst_clsRBT_format::vectorWithFourPartsKeepsTheRestInZAndSavesAgain() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, rbtWith(jointWithVector("1,2,3,4"))));
    QCOMPARE(rbt.Joints(0)->VectorX, u"1"_s);
    QCOMPARE(rbt.Joints(0)->VectorY, u"2"_s);
    QCOMPARE(rbt.Joints(0)->VectorZ, u"3,4"_s);
    QVERIFY(saved(rbt).contains(R"( vector="1,2,3,4" )"));
}

void tst_clsRBT_format::vectorOfTwoCommasReadsAsThreeEmptyTexts() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, rbtWith(jointWithVector(",,"))));
    QCOMPARE(rbt.NumJoints(), qint16(1));
    QCOMPARE(rbt.Joints(0)->VectorX, QString());
    QCOMPARE(rbt.Joints(0)->VectorY, QString());
    QCOMPARE(rbt.Joints(0)->VectorZ, QString());
}

void tst_clsRBT_format::vectorWithOneCommaFailsTheLoad() {
    clsRBT rbt;
    QVERIFY(!loadText(rbt, rbtWith(jointWithVector("1,2"))));
    QCOMPARE(rbt.NumJoints(), qint16(0));
}

void tst_clsRBT_format::vectorKeepsItsBlanks() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, rbtWith(jointWithVector("1.0, 0.0, 0.0"))));
    QCOMPARE(rbt.Joints(0)->VectorX, u"1.0"_s);
    QCOMPARE(rbt.Joints(0)->VectorY, u" 0.0"_s);
    QCOMPARE(rbt.Joints(0)->VectorZ, u" 0.0"_s);
}

void tst_clsRBT_format::absentAndEmptyTextureBothGiveEmptyTexture_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("absent") << QByteArray(R"(<rbt name="Hero" model="hero.ltb"/>)");
    QTest::newRow("empty")
        << QByteArray(R"(<rbt name="Hero" model="hero.ltb" texture="" icon=""/>)");
}

void tst_clsRBT_format::absentAndEmptyTextureBothGiveEmptyTexture() {
    QFETCH(QByteArray, text);
    clsRBT rbt;
    QVERIFY(loadText(rbt, text));
    QCOMPARE(rbt.Texture, QString());
    QCOMPARE(rbt.Icon, QString());
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon=""/>)"));
}

void tst_clsRBT_format::typeOfAnyValueOrNoneLoadsTheSame_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("model") << QByteArray(R"( type="model")");
    QTest::newRow("other value") << QByteArray(R"( type="world")");
    QTest::newRow("empty") << QByteArray(R"( type="")");
    QTest::newRow("none") << QByteArray();
}

void tst_clsRBT_format::typeOfAnyValueOrNoneLoadsTheSame() {
    QFETCH(QByteArray, type);
    clsRBT rbt;
    QVERIFY(loadText(rbt, R"(<rbt name="Hero")" + type +
                              R"( model="models\\hero.ltb"><animation id="3" name="Wave"/></rbt>)"));
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="models\\hero.ltb" texture="" icon="">)"
                        R"(<animation id="3" name="Wave"/></rbt>)"));
}

void tst_clsRBT_format::rootWithAnotherNameLoadsAndSaveWritesRbt() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, R"(<binding name="Hero" model="hero.ltb"><animation id="1" name="Run"/></binding>)"));
    QCOMPARE(rbt.Name, u"Hero"_s);
    QCOMPARE(rbt.NumAnimations(), qint16(1));
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon="">)"
                        R"(<animation id="1" name="Run"/></rbt>)"));
}

void tst_clsRBT_format::childWithAnotherTagIsDroppedAndNotSavedAgain() {
    clsRBT rbt;
    // The other element holds a comment and a joint of its own: all of it is skipped.
    QVERIFY(loadText(rbt, rbtWith(R"(<animation id="0" name="Idle"/>)"
                                  R"(<sound file="x.wav"><!-- inner -->)" +
                                  jointWithVector("1,0,0") + R"(</sound>)"
                                  R"(<animation id="1" name="Walk"/>)")));
    QCOMPARE(rbt.NumJoints(), qint16(0));
    QCOMPARE(rbt.NumAnimations(), qint16(2));
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon="">)"
                        R"(<animation id="0" name="Idle"/><animation id="1" name="Walk"/></rbt>)"));
}

void tst_clsRBT_format::commentBetweenJointsFailsButWhiteSpaceDoesNot() {
    const QByteArray joint = jointWithVector("0,1,0");
    clsRBT withComment;
    QVERIFY(!loadText(withComment, rbtWith(joint + "<!-- between -->" + joint)));
    QCOMPARE(withComment.NumJoints(), qint16(1));

    clsRBT withWhiteSpace;
    QVERIFY(loadText(withWhiteSpace, rbtWith("\n  " + joint + "\n\t  \r\n " + joint + "\n")));
    QCOMPARE(withWhiteSpace.NumJoints(), qint16(2));
}

void tst_clsRBT_format::animationsInFrontOfJointsLoadAndSaveWritesJointsFirst() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, rbtWith(R"(<animation id="4" name="Sit"/>)"
                                  R"(<joint id="1" node="Arm" min="0" max="1" vector="1,0,0" action="translate" desc="Lift"/>)"
                                  R"(<animation id="2" name="Run"/>)"
                                  R"(<joint id="0" node="Head" min="-9" max="9" vector="0,1,0" action="rotate" desc="Nod"/>)")));
    // Each list keeps file order; joint ids are not renumbered.
    QCOMPARE(rbt.Joints(0)->Id, u"1"_s);
    QCOMPARE(rbt.Joints(1)->Id, u"0"_s);
    QCOMPARE(rbt.Animations(0)->Id, u"4"_s);
    QCOMPARE(rbt.Animations(1)->Id, u"2"_s);
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon="">)"
                        R"(<joint id="1" node="Arm" min="0" max="1" vector="1,0,0" action="translate" desc="Lift"/>)"
                        R"(<joint id="0" node="Head" min="-9" max="9" vector="0,1,0" action="rotate" desc="Nod"/>)"
                        R"(<animation id="4" name="Sit"/><animation id="2" name="Run"/></rbt>)"));
}

void tst_clsRBT_format::currentDirIsPutInFrontOfWhateverModelHolds_data() {
    const QChar sep = QDir::separator();
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<QString>("joined");
    QTest::newRow("windows absolute")
        << QByteArray(R"(c:\\game\\hero.ltb)") << u"c:"_s + sep + u"game"_s + sep + u"hero.ltb"_s;
    QTest::newRow("linux absolute")
        << QByteArray("/srv/rez/hero.ltb") << u"/srv/rez/hero.ltb"_s;
    QTest::newRow("empty") << QByteArray() << QString();
}

void tst_clsRBT_format::currentDirIsPutInFrontOfWhateverModelHolds() {
    QFETCH(QByteArray, model);
    QFETCH(QString, joined);
    clsRBT rbt;
    QVERIFY(loadText(rbt, R"(<rbt name="Hero" model=")" + model + R"("/>)"));
    QCOMPARE(rbt.Model, base() + joined);
}

// --- The example file and the paths of Part 1.1 ---

void tst_clsRBT_format::exampleFileLoadsAndSavesBackToTheSameBytes() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, exampleFile));
    QCOMPARE(rbt.Name, u"Hero"_s);
    QCOMPARE(rbt.Model, base() + u"models"_s + QDir::separator() + u"hero.ltb"_s);
    QCOMPARE(rbt.Texture, QString());
    QCOMPARE(rbt.Icon, QString());
    QCOMPARE(rbt.NumJoints(), qint16(1));
    const auto joint = rbt.Joints(0);
    QCOMPARE(joint->Id, u"0"_s);
    QCOMPARE(joint->Node, u"Head"_s);
    QCOMPARE(joint->Min, u"-90.0"_s);
    QCOMPARE(joint->Max, u"90.0"_s);
    QCOMPARE(joint->VectorX, u"0.0"_s);
    QCOMPARE(joint->VectorY, u"1.0"_s);
    QCOMPARE(joint->VectorZ, u"0.0"_s);
    QCOMPARE(joint->Action, u"rotate"_s);
    QCOMPARE(joint->Description, u"Nod"_s);
    QCOMPARE(rbt.NumAnimations(), qint16(1));
    QCOMPARE(rbt.Animations(0)->Id, u"3"_s);
    QCOMPARE(rbt.Animations(0)->Name, u"Wave"_s);
    QCOMPARE(rbt.Animations(0)->Anim, QString());

    QCOMPARE(saved(rbt), QByteArray(exampleFile));
}

void tst_clsRBT_format::modelInSubDirectoryIsStoredRelativeInLowerCase() {
    clsRBT rbt;
    rbt.Name = u"Hero"_s;
    rbt.Model = m_dir->path() + u"/Models/Hero.ltb"_s;
    rbt.Texture = m_dir->path() + u"/Skins/Hero.DTX"_s;
    rbt.Icon = m_dir->path() + u"/Hero.bmp"_s;
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="models\\hero.ltb" texture="skins\\hero.dtx" icon="hero.bmp"/>)"));
}

void tst_clsRBT_format::loadJoinsStoredPathsToNativePaths() {
    const QChar sep = QDir::separator();
    clsRBT rbt;
    QVERIFY(loadText(rbt, R"(<rbt name="Hero" model="models\\hero.ltb" texture="skins\\hero.dtx" icon="..\\art\\hero.bmp"/>)"));
    QCOMPARE(rbt.Model, base() + u"models"_s + sep + u"hero.ltb"_s);
    QCOMPARE(rbt.Texture, base() + u"skins"_s + sep + u"hero.dtx"_s);
    // Part 1.1: no "..\" is collapsed.
    QCOMPARE(rbt.Icon, base() + u".."_s + sep + u"art"_s + sep + u"hero.bmp"_s);
}

void tst_clsRBT_format::storedTextIsStableAcrossLoadAndSave_data() {
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("same directory") << QByteArray("hero.ltb");
    QTest::newRow("sub-directory") << QByteArray(R"(models\\hero.ltb)");
    QTest::newRow("two levels down") << QByteArray(R"(rez\\models\\hero.ltb)");
    QTest::newRow("sibling") << QByteArray(R"(..\\art\\hero.ltb)");
    QTest::newRow("two levels up") << QByteArray(R"(..\\..\\x\\y.ltb)");
}

void tst_clsRBT_format::storedTextIsStableAcrossLoadAndSave() {
    QFETCH(QByteArray, stored);
    const QByteArray text = R"(<rbt name="Hero" type="model" model=")" + stored + R"(" texture=")" +
                            stored + R"(" icon=")" + stored + R"("/>)";
    clsRBT rbt;
    QVERIFY(loadText(rbt, text));
    QCOMPARE(saved(rbt), text);
}

void tst_clsRBT_format::fileWithSingleBackslashesLoadsTheSame() {
    clsRBT doubled;
    QVERIFY(loadText(doubled, R"(<rbt name="Hero" model="models\\hero.ltb" texture="a\\b.dtx" icon="c\\d.bmp"/>)"));
    clsRBT single;
    QVERIFY(loadText(single, R"(<rbt name="Hero" model="models\hero.ltb" texture="a\b.dtx" icon="c\d.bmp"/>)"));
    QCOMPARE(single.Model, doubled.Model);
    QCOMPARE(single.Texture, doubled.Texture);
    QCOMPARE(single.Icon, doubled.Icon);
    // The next save writes them doubled.
    QCOMPARE(saved(single),
             QByteArray(R"(<rbt name="Hero" type="model" model="models\\hero.ltb" texture="a\\b.dtx" icon="c\\d.bmp"/>)"));
}

void tst_clsRBT_format::savePathsAreRelativeToCurrentDirOfTheSave() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, R"(<rbt name="Hero" model="models\\hero.ltb"/>)"));
    // Part 2.2 step 2: strCurrentDir of this moment is the base.
    mdlGeneral::strCurrentDir = base() + u"models"_s + QDir::separator();
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon=""/>)"));
}

void tst_clsRBT_format::onlyTheThreePathsAreDoubled() {
    clsRBT rbt;
    rbt.Name = uR"(Hero\One)"_s;
    rbt.Model = base() + uR"(a\b.ltb)"_s;
    auto joint = std::make_shared<clsJoint>();
    joint->Node = uR"(Bip01\Head)"_s;
    joint->Description = uR"(Nod\Shake)"_s;
    rbt.AddJoint(joint);
    auto animation = std::make_shared<clsAnimation>();
    animation->Id = u"0"_s;
    animation->Name = uR"(Wave\Bow)"_s;
    rbt.AddAnimation(animation);
    QCOMPARE(saved(rbt),
             QByteArray(R"(<rbt name="Hero\One" type="model" model="a\\b.ltb" texture="" icon="">)"
                        R"(<joint id="0" node="Bip01\Head" min="" max="" vector=",," action="" desc="Nod\Shake"/>)"
                        R"(<animation id="0" name="Wave\Bow"/></rbt>)"));

    clsRBT back;
    QVERIFY(back.Load(path(u"out.rbt"_s)));
    QCOMPARE(back.Name, rbt.Name);
    QCOMPARE(back.Joints(0)->Node, joint->Node);
    QCOMPARE(back.Joints(0)->Description, joint->Description);
    QCOMPARE(back.Animations(0)->Name, animation->Name);
}

void tst_clsRBT_format::attributeTextsRoundTripExactly() {
    // Part 2.2: the attributes hold exactly the texts of the fields.
    const QString odd = u"a & b < c > \"d\" 'e' \u00e9\u4e2d  \t\n"_s;
    clsRBT rbt;
    rbt.Name = odd;
    rbt.Model = base() + u"hero.ltb"_s;
    auto joint = std::make_shared<clsJoint>();
    for (QString* field : {&joint->Node, &joint->Min, &joint->Max, &joint->Action,
                           &joint->Description})
        *field = odd;
    joint->VectorX = u" 1e3"_s;
    joint->VectorY = u"-0"_s;
    joint->VectorZ = u"x,y"_s;
    rbt.AddJoint(joint);
    auto animation = std::make_shared<clsAnimation>();
    animation->Id = u"007"_s;
    animation->Name = odd;
    rbt.AddAnimation(animation);

    clsRBT back;
    QVERIFY(back.Load(write(u"odd.rbt"_s, saved(rbt))));
    QCOMPARE(back.Name, odd);
    const auto j = back.Joints(0);
    QCOMPARE(j->Node, odd);
    QCOMPARE(j->Min, odd);
    QCOMPARE(j->Max, odd);
    QCOMPARE(j->Action, odd);
    QCOMPARE(j->Description, odd);
    QCOMPARE(j->VectorX, u" 1e3"_s);
    QCOMPARE(j->VectorY, u"-0"_s);
    QCOMPARE(j->VectorZ, u"x,y"_s);
    QCOMPARE(back.Animations(0)->Id, u"007"_s);
    QCOMPARE(back.Animations(0)->Name, odd);
}

void tst_clsRBT_format::emptyElementInBothFormsLoads() {
    // Part 2.2, Left to the implementer: the reader takes both forms of an empty element.
    clsRBT rbt;
    QVERIFY(loadText(rbt, R"(<rbt name="Hero" model="hero.ltb">)"
                          R"(<joint id="0" node="A" min="0" max="1" vector="1,0,0" action="rotate" desc="x"></joint>)"
                          R"(<animation id="2" name="Run"></animation></rbt>)"));
    QCOMPARE(rbt.NumJoints(), qint16(1));
    QCOMPARE(rbt.NumAnimations(), qint16(1));
}

void tst_clsRBT_format::tagsAndAttributeNamesAreComparedWithCase() {
    clsRBT tags;
    // A `Joint` is another tag, skipped, not a joint.
    QVERIFY(loadText(tags, rbtWith(R"(<Joint id="0" node="A" min="0" max="1" vector="1,0,0" action="rotate" desc="x"/>)"
                                   R"(<ANIMATION id="1" name="Run"/>)")));
    QCOMPARE(tags.NumJoints(), qint16(0));
    QCOMPARE(tags.NumAnimations(), qint16(0));

    // A `Name` on the root is not `name`.
    clsRBT root;
    QVERIFY(!loadText(root, R"(<rbt Name="Hero" model="hero.ltb"/>)"));
}

// --- Save ---

void tst_clsRBT_format::saveReplacesExistingFileWhole() {
    const QString existing = write(u"out.rbt"_s, exampleFile);
    clsRBT rbt;
    rbt.Name = u"New"_s;
    rbt.Model = base() + u"new.ltb"_s;
    QVERIFY(rbt.Save(existing));
    QCOMPARE(read(existing),
             QByteArray(R"(<rbt name="New" type="model" model="new.ltb" texture="" icon=""/>)"));
}

void tst_clsRBT_format::saveChangesNoFieldOrRecord() {
    clsRBT rbt;
    QVERIFY(loadText(rbt, exampleFile));
    const QString model = rbt.Model;
    const auto joint = rbt.Joints(0);
    QVERIFY(rbt.Save(path(u"again.rbt"_s)));
    QCOMPARE(rbt.Name, u"Hero"_s);
    QCOMPARE(rbt.Model, model);
    QCOMPARE(rbt.Texture, QString());
    QCOMPARE(rbt.Joints(0), joint);
    QCOMPARE(joint->Id, u"0"_s);
    QCOMPARE(rbt.NumAnimations(), qint16(1));
    QCOMPARE(rbt.Animations(0)->Anim, QString());
}

QTEST_APPLESS_MAIN(tst_clsRBT_format)
#include "tst_clsRBT_format.moc"
