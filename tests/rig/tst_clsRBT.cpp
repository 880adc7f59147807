// Part 2.1: the rig binding document and its two record lists.

#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A joint as the window would make it, before AddJoint numbers it.
std::shared_ptr<clsJoint> makeJoint(const QString& node) {
    auto joint = std::make_shared<clsJoint>();
    joint->Node = node;
    return joint;
}

std::shared_ptr<clsAnimation> makeAnimation(const QString& id, const QString& name) {
    auto animation = std::make_shared<clsAnimation>();
    animation->Id = id;
    animation->Name = name;
    return animation;
}

} // namespace

class tst_clsRBT : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void freshRbtHasNoRecordsAndFourEmptyTextFields();
    void freshRecordsHaveEveryFieldEmpty();
    void threeAddJointsGiveIdsZeroOneTwoAndDeleteRenumbers();
    void deleteJointOfTheLastRecordChangesNoOtherRecord();
    void afterLoadOfIdsFiveAndNineAddJointGivesTwoAndDeleteRenumbers();
    void twoJointsOnOneNodeAndTwoAnimationsWithOneIdAreLegal();
    void addAnimationKeepsItsIdAndDeleteInFrontKeepsIt();
    void editThroughJointsShowsInNextJointsAndNextSave();
    void addKeepsTheVeryObjectInAddingOrder();
    void indexOutOfRangeReadsNoRecordAndDeletesNothing_data();
    void indexOutOfRangeReadsNoRecordAndDeletesNothing();
    void addAtMaxRecordsDoesNothing();
    void addOfNoRecordDoesNothing();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_clsRBT::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    mdlGeneral::strCurrentDir = m_dir->path() + u'/';
}

void tst_clsRBT::cleanup() {
    // strCurrentDir is process-wide: no test may leave it to the next.
    mdlGeneral::strCurrentDir.clear();
    m_dir.reset();
}

void tst_clsRBT::freshRbtHasNoRecordsAndFourEmptyTextFields() {
    const clsRBT rbt;
    QCOMPARE(rbt.NumJoints(), qint16(0));
    QCOMPARE(rbt.NumAnimations(), qint16(0));
    QVERIFY(rbt.Name.isEmpty());
    QVERIFY(rbt.Model.isEmpty());
    QVERIFY(rbt.Texture.isEmpty());
    QVERIFY(rbt.Icon.isEmpty());
    QCOMPARE(rbt.Joints(0), nullptr);
    QCOMPARE(rbt.Animations(0), nullptr);
}

void tst_clsRBT::freshRecordsHaveEveryFieldEmpty() {
    // Part 2.1: no default limit or vector lives in the record classes.
    const clsJoint joint;
    for (const QString* field : {&joint.Id, &joint.Node, &joint.Min, &joint.Max, &joint.VectorX,
                                 &joint.VectorY, &joint.VectorZ, &joint.Action,
                                 &joint.Description})
        QVERIFY(field->isEmpty());
    const clsAnimation animation;
    QVERIFY(animation.Id.isEmpty());
    QVERIFY(animation.Name.isEmpty());
    QVERIFY(animation.Anim.isEmpty());
}

void tst_clsRBT::threeAddJointsGiveIdsZeroOneTwoAndDeleteRenumbers() {
    clsRBT rbt;
    rbt.AddJoint(makeJoint(u"Head"_s));
    rbt.AddJoint(makeJoint(u"Neck"_s));
    rbt.AddJoint(makeJoint(u"Arm"_s));
    QCOMPARE(rbt.NumJoints(), qint16(3));
    QCOMPARE(rbt.Joints(0)->Id, u"0"_s);
    QCOMPARE(rbt.Joints(1)->Id, u"1"_s);
    QCOMPARE(rbt.Joints(2)->Id, u"2"_s);

    rbt.DeleteJoint(0);
    QCOMPARE(rbt.NumJoints(), qint16(2));
    QCOMPARE(rbt.Joints(0)->Node, u"Neck"_s);
    QCOMPARE(rbt.Joints(0)->Id, u"0"_s);
    QCOMPARE(rbt.Joints(1)->Node, u"Arm"_s);
    QCOMPARE(rbt.Joints(1)->Id, u"1"_s);

    rbt.AddJoint(makeJoint(u"Leg"_s));
    QCOMPARE(rbt.Joints(2)->Id, u"2"_s);
}

void tst_clsRBT::deleteJointOfTheLastRecordChangesNoOtherRecord() {
    clsRBT rbt;
    for (const QString& node : {u"A"_s, u"B"_s, u"C"_s})
        rbt.AddJoint(makeJoint(node));
    // Ids that only a renumbering would touch.
    rbt.Joints(0)->Id = u"10"_s;
    rbt.Joints(1)->Id = u"11"_s;

    rbt.DeleteJoint(2);
    QCOMPARE(rbt.NumJoints(), qint16(2));
    QCOMPARE(rbt.Joints(0)->Id, u"10"_s);
    QCOMPARE(rbt.Joints(1)->Id, u"11"_s);
    QCOMPARE(rbt.Joints(1)->Node, u"B"_s);
}

void tst_clsRBT::afterLoadOfIdsFiveAndNineAddJointGivesTwoAndDeleteRenumbers() {
    const QString path = m_dir->filePath(u"ids.rbt"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"(<rbt name="Hero" model="hero.ltb">)"
               R"(<joint id="5" node="Head" min="-90.0" max="90.0" vector="0.0,1.0,0.0" action="rotate" desc="Nod"/>)"
               R"(<joint id="9" node="Arm" min="-45.0" max="45.0" vector="1.0,0.0,0.0" action="rotate" desc="Wave"/>)"
               R"(</rbt>)");
    file.close();

    clsRBT rbt;
    QVERIFY(rbt.Load(path));
    // Part 2.2: a joint from a file keeps the id text of the file.
    QCOMPARE(rbt.Joints(0)->Id, u"5"_s);
    QCOMPARE(rbt.Joints(1)->Id, u"9"_s);

    rbt.AddJoint(makeJoint(u"Leg"_s));
    QCOMPARE(rbt.Joints(2)->Id, u"2"_s);
    QCOMPARE(rbt.Joints(0)->Id, u"5"_s);

    rbt.DeleteJoint(0);
    QCOMPARE(rbt.NumJoints(), qint16(2));
    QCOMPARE(rbt.Joints(0)->Node, u"Arm"_s);
    QCOMPARE(rbt.Joints(0)->Id, u"0"_s);
    QCOMPARE(rbt.Joints(1)->Node, u"Leg"_s);
    QCOMPARE(rbt.Joints(1)->Id, u"1"_s);
}

void tst_clsRBT::twoJointsOnOneNodeAndTwoAnimationsWithOneIdAreLegal() {
    clsRBT rbt;
    rbt.AddJoint(makeJoint(u"Head"_s));
    rbt.AddJoint(makeJoint(u"Head"_s));
    rbt.AddAnimation(makeAnimation(u"3"_s, u"Wave"_s));
    rbt.AddAnimation(makeAnimation(u"3"_s, u"Wave again"_s));
    QCOMPARE(rbt.NumJoints(), qint16(2));
    QCOMPARE(rbt.Joints(0)->Node, rbt.Joints(1)->Node);
    QCOMPARE(rbt.NumAnimations(), qint16(2));
    QCOMPARE(rbt.Animations(0)->Id, u"3"_s);
    QCOMPARE(rbt.Animations(1)->Id, u"3"_s);
    QCOMPARE(rbt.Animations(1)->Name, u"Wave again"_s);
}

void tst_clsRBT::addAnimationKeepsItsIdAndDeleteInFrontKeepsIt() {
    clsRBT rbt;
    rbt.AddAnimation(makeAnimation(u"7"_s, u"Bow"_s));
    QCOMPARE(rbt.Animations(0)->Id, u"7"_s);

    rbt.AddAnimation(makeAnimation(u"2"_s, u"Run"_s));
    rbt.DeleteAnimation(0);
    QCOMPARE(rbt.NumAnimations(), qint16(1));
    QCOMPARE(rbt.Animations(0)->Id, u"2"_s);
    QCOMPARE(rbt.Animations(0)->Name, u"Run"_s);

    // The same with the record behind the one deleted.
    clsRBT other;
    other.AddAnimation(makeAnimation(u"4"_s, u"Sit"_s));
    other.AddAnimation(makeAnimation(u"7"_s, u"Bow"_s));
    other.DeleteAnimation(0);
    QCOMPARE(other.Animations(0)->Id, u"7"_s);
}

void tst_clsRBT::editThroughJointsShowsInNextJointsAndNextSave() {
    clsRBT rbt;
    rbt.Name = u"Hero"_s;
    rbt.Model = mdlGeneral::strCurrentDir + u"hero.ltb"_s;
    auto joint = makeJoint(u"Head"_s);
    joint->Min = u"-90.0"_s;
    joint->Max = u"90.0"_s;
    joint->VectorX = u"0.0"_s;
    joint->VectorY = u"1.0"_s;
    joint->VectorZ = u"0.0"_s;
    joint->Action = u"rotate"_s;
    joint->Description = u"Nod"_s;
    rbt.AddJoint(joint);

    rbt.Joints(0)->Description = u"Shake"_s;
    rbt.Joints(0)->Action = u"translate"_s;
    QCOMPARE(rbt.Joints(0)->Description, u"Shake"_s);
    QCOMPARE(rbt.Joints(0)->Action, u"translate"_s);

    const QString path = m_dir->filePath(u"edit.rbt"_s);
    QVERIFY(rbt.Save(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray(R"(<rbt name="Hero" type="model" model="hero.ltb" texture="" icon="">)"
                        R"(<joint id="0" node="Head" min="-90.0" max="90.0" vector="0.0,1.0,0.0" action="translate" desc="Shake"/>)"
                        R"(</rbt>)"));
}

void tst_clsRBT::addKeepsTheVeryObjectInAddingOrder() {
    clsRBT rbt;
    auto first = makeJoint(u"A"_s);
    auto second = makeJoint(u"B"_s);
    rbt.AddJoint(first);
    rbt.AddJoint(second);
    // AddJoint numbers the very object the caller holds.
    QCOMPARE(second->Id, u"1"_s);
    QCOMPARE(rbt.Joints(0), first);
    QCOMPARE(rbt.Joints(1), second);

    auto animation = makeAnimation(u"5"_s, u"Jump"_s);
    rbt.AddAnimation(animation);
    QCOMPARE(rbt.Animations(0), animation);
    animation->Anim = u"jump_01"_s;
    QCOMPARE(rbt.Animations(0)->Anim, u"jump_01"_s);
}

void tst_clsRBT::indexOutOfRangeReadsNoRecordAndDeletesNothing_data() {
    QTest::addColumn<qint16>("index");
    QTest::newRow("minus one") << qint16(-1);
    QTest::newRow("the count") << qint16(2);
    QTest::newRow("16-bit minimum") << qint16(-32768);
    QTest::newRow("16-bit maximum") << qint16(32767);
}

void tst_clsRBT::indexOutOfRangeReadsNoRecordAndDeletesNothing() {
    // Design 7: no caller passes such an index; if one does, nothing happens.
    QFETCH(qint16, index);
    clsRBT rbt;
    rbt.AddJoint(makeJoint(u"A"_s));
    rbt.AddJoint(makeJoint(u"B"_s));
    rbt.AddAnimation(makeAnimation(u"0"_s, u"Idle"_s));
    rbt.AddAnimation(makeAnimation(u"1"_s, u"Walk"_s));

    QCOMPARE(rbt.Joints(index), nullptr);
    QCOMPARE(rbt.Animations(index), nullptr);
    rbt.DeleteJoint(index);
    rbt.DeleteAnimation(index);
    QCOMPARE(rbt.NumJoints(), qint16(2));
    QCOMPARE(rbt.NumAnimations(), qint16(2));
    QCOMPARE(rbt.Joints(1)->Id, u"1"_s);
    QCOMPARE(rbt.Animations(1)->Name, u"Walk"_s);
}

void tst_clsRBT::addAtMaxRecordsDoesNothing() {
    // Design 5: a list holds at most 32767 records; an add at the limit does nothing.
    clsRBT rbt;
    for (qsizetype i = 0; i < Limits::MaxRecords; ++i) {
        rbt.AddJoint(std::make_shared<clsJoint>());
        rbt.AddAnimation(std::make_shared<clsAnimation>());
    }
    QCOMPARE(rbt.NumJoints(), qint16(32767));
    QCOMPARE(rbt.NumAnimations(), qint16(32767));
    QCOMPARE(rbt.Joints(32766)->Id, u"32766"_s);

    auto extraJoint = makeJoint(u"Extra"_s);
    rbt.AddJoint(extraJoint);
    rbt.AddAnimation(makeAnimation(u"9"_s, u"Extra"_s));
    QCOMPARE(rbt.NumJoints(), qint16(32767));
    QCOMPARE(rbt.NumAnimations(), qint16(32767));
    // The refused joint was not numbered either.
    QVERIFY(extraJoint->Id.isEmpty());

    // After a delete there is room again.
    rbt.DeleteJoint(0);
    rbt.AddJoint(extraJoint);
    QCOMPARE(rbt.NumJoints(), qint16(32767));
    QCOMPARE(rbt.Joints(32766), extraJoint);
    QCOMPARE(extraJoint->Id, u"32766"_s);
}

void tst_clsRBT::addOfNoRecordDoesNothing() {
    clsRBT rbt;
    rbt.AddJoint(nullptr);
    rbt.AddAnimation(nullptr);
    QCOMPARE(rbt.NumJoints(), qint16(0));
    QCOMPARE(rbt.NumAnimations(), qint16(0));
}

QTEST_APPLESS_MAIN(tst_clsRBT)
#include "tst_clsRBT.moc"
