// Part 2.2: the failures of `.rbt` Load and Save: the rows of the failure table, loads that
// stop half way, the limits of design 5 (32768 child nodes, 32767 records), and saves that
// cannot write. Files are written into a QTemporaryDir with their text in the test
// (RbtTestSupport.h).

#include "RbtTestSupport.h"

#include "foundation/Limits.h"

#include <QFileInfo>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace RbtTest;

class tst_clsRBT_format_failures : public QObject, private DirFixture {
    Q_OBJECT

private slots:
    void init() { QVERIFY(enterFreshDir()); }
    void cleanup() { leaveDir(); }

    // Load failures: the failure table, and loads that stop half way
    void loadFailure_data();
    void loadFailure();
    void failedLoadLeavesTheObjectAsFarAsItGot();

    // The limits of design 5
    void rootWithMoreThanMaxChildNodesFails_data();
    void rootWithMoreThanMaxChildNodesFails();
    void listThatWouldPassMaxRecordsFails_data();
    void listThatWouldPassMaxRecordsFails();

    // Saves that cannot write
    void saveIntoMissingDirectoryFailsAndMakesNoDirectory();
    void saveOntoExistingDirectoryFailsAndLeavesItUnchanged();
    void failedSaveLeavesExistingFileUnchanged();
};

// --- Load failures ---

void tst_clsRBT_format_failures::loadFailure_data() {
    // target: "file" loads `text` from a file, "missing" a path with no file, "directory" a
    // directory's path.
    QTest::addColumn<QString>("target");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("not XML") << u"file"_s << QByteArray("name=Hero model=hero.ltb");
    QTest::newRow("not well-formed") << u"file"_s << QByteArray(R"(<rbt name="Hero" model="hero.ltb">)");
    QTest::newRow("empty file") << u"file"_s << QByteArray();
    QTest::newRow("missing file") << u"missing"_s << QByteArray();
    QTest::newRow("a directory") << u"directory"_s << QByteArray();
    QTest::newRow("root without name") << u"file"_s << QByteArray(R"(<rbt model="hero.ltb"/>)");
    QTest::newRow("root without model") << u"file"_s << QByteArray(R"(<rbt name="Hero"/>)");
    QTest::newRow("comment among children")
        << u"file"_s << rbtWith(R"(<animation id="0" name="Idle"/><!-- c -->)");
    QTest::newRow("text among children") << u"file"_s << rbtWith(R"(<animation id="0" name="Idle"/>x)");
    QTest::newRow("CDATA among children") << u"file"_s << rbtWith("<![CDATA[ ]]>");
    QTest::newRow("processing instruction among children") << u"file"_s << rbtWith("<?pi data?>");

    const QList<QByteArray> attributes = {R"(id="0")",   R"(node="Head")",
                                          R"(min="-90.0")", R"(max="90.0")",
                                          R"(vector="0.0,1.0,0.0")", R"(action="rotate")",
                                          R"(desc="Nod")"};
    for (qsizetype missing = 0; missing < attributes.size(); ++missing) {
        QByteArray joint = "<joint";
        for (qsizetype k = 0; k < attributes.size(); ++k) {
            if (k != missing)
                joint += ' ' + attributes[k];
        }
        joint += "/>";
        const QByteArray name = attributes[missing].left(attributes[missing].indexOf('='));
        QTest::addRow("joint without %s", name.constData()) << u"file"_s << rbtWith(joint);
    }
    QTest::newRow("joint with ID for id")
        << u"file"_s
        << rbtWith(R"(<joint ID="0" node="Head" min="-90.0" max="90.0" vector="0.0,1.0,0.0" action="rotate" desc="Nod"/>)");
    QTest::newRow("animation without id") << u"file"_s << rbtWith(R"(<animation name="Wave"/>)");
    QTest::newRow("animation without name") << u"file"_s << rbtWith(R"(<animation id="3"/>)");
    QTest::newRow("vector with one comma") << u"file"_s << rbtWith(jointWithVector("1,2"));
    QTest::newRow("vector without comma") << u"file"_s << rbtWith(jointWithVector("1 2 3"));
    QTest::newRow("empty vector") << u"file"_s << rbtWith(jointWithVector(""));
}

void tst_clsRBT_format_failures::loadFailure() {
    QFETCH(QString, target);
    QFETCH(QByteArray, text);
    QString file = path(u"case.rbt"_s);
    if (target == u"file")
        write(u"case.rbt"_s, text);
    else if (target == u"directory")
        QVERIFY(QDir(m_dir->path()).mkdir(u"case.rbt"_s));
    QCOMPARE(clsRBT().Load(file), false);
}

void tst_clsRBT_format_failures::failedLoadLeavesTheObjectAsFarAsItGot() {
    const QChar sep = QDir::separator();
    // A failure behind the records: the fields and the records read so far remain.
    clsRBT rbt;
    QVERIFY(!loadText(rbt, R"(<rbt name="Hero" model="models\\hero.ltb" texture="skin.dtx">)"
                           R"(<joint id="4" node="Head" min="-9" max="9" vector="0,1,0" action="rotate" desc="Nod"/>)"
                           R"(<animation id="3" name="Wave"/>)"
                           R"(<joint id="5" node="Arm" min="-9" max="9" vector="1,0,0" action="rotate"/>)"
                           R"(<animation id="4" name="Bow"/></rbt>)"));
    QCOMPARE(rbt.Name, u"Hero"_s);
    QCOMPARE(rbt.Model, base() + u"models"_s + sep + u"hero.ltb"_s);
    QCOMPARE(rbt.Texture, base() + u"skin.dtx"_s);
    QCOMPARE(rbt.NumJoints(), qint16(1));
    QCOMPARE(rbt.Joints(0)->Id, u"4"_s);
    QCOMPARE(rbt.NumAnimations(), qint16(1));
    QCOMPARE(rbt.Animations(0)->Name, u"Wave"_s);

    // A failure at `model`: `name` is read, the rest is as it was, lists included.
    clsRBT early;
    early.Model = u"before"_s;
    early.AddJoint(std::make_shared<clsJoint>());
    QVERIFY(!loadText(early, R"(<rbt name="Early" texture="skin.dtx"/>)"));
    QCOMPARE(early.Name, u"Early"_s);
    QCOMPARE(early.Model, u"before"_s);
    QCOMPARE(early.Texture, QString());
    QCOMPARE(early.NumJoints(), qint16(1));

    // A failure among the children: the lists were already replaced by empty ones (step 7).
    clsRBT late;
    late.AddJoint(std::make_shared<clsJoint>());
    QVERIFY(!loadText(late, rbtWith("<!-- c -->")));
    QCOMPARE(late.Model, base() + u"hero.ltb"_s);
    QCOMPARE(late.NumJoints(), qint16(0));
}

// --- The limits of design 5 ---

void tst_clsRBT_format_failures::rootWithMoreThanMaxChildNodesFails_data() {
    QTest::addColumn<qsizetype>("children");
    QTest::addColumn<bool>("loads");
    QTest::newRow("at the limit") << Limits::MaxChildNodes << true;
    QTest::newRow("one more") << Limits::MaxChildNodes + 1 << false;
}

void tst_clsRBT_format_failures::rootWithMoreThanMaxChildNodesFails() {
    QFETCH(qsizetype, children);
    QFETCH(bool, loads);
    // Elements of another tag: the count is the only thing that can fail this load.
    clsRBT rbt;
    QCOMPARE(loadText(rbt, rbtWith(QByteArray("<x/>").repeated(children))), loads);
    QCOMPARE(rbt.Name, u"Hero"_s);
}

void tst_clsRBT_format_failures::listThatWouldPassMaxRecordsFails_data() {
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<qsizetype>("records");
    QTest::addColumn<bool>("loads");
    const QByteArray joint = jointWithVector("0,1,0");
    const QByteArray animation = R"(<animation id="0" name="Idle"/>)";
    QTest::newRow("joints at the limit") << joint << Limits::MaxRecords << true;
    QTest::newRow("one joint more") << joint << Limits::MaxRecords + 1 << false;
    QTest::newRow("animations at the limit") << animation << Limits::MaxRecords << true;
    QTest::newRow("one animation more") << animation << Limits::MaxRecords + 1 << false;
}

void tst_clsRBT_format_failures::listThatWouldPassMaxRecordsFails() {
    QFETCH(QByteArray, record);
    QFETCH(qsizetype, records);
    QFETCH(bool, loads);
    clsRBT rbt;
    QCOMPARE(loadText(rbt, rbtWith(record.repeated(records))), loads);
    QCOMPARE(qsizetype(rbt.NumJoints()) + qsizetype(rbt.NumAnimations()), Limits::MaxRecords);
}

// --- Saves that cannot write ---

void tst_clsRBT_format_failures::saveIntoMissingDirectoryFailsAndMakesNoDirectory() {
    clsRBT rbt;
    rbt.Name = u"Hero"_s;
    QVERIFY(!rbt.Save(path(u"missing/sub/hero.rbt"_s)));
    // Overview: the system makes no directory.
    QVERIFY(!QFileInfo::exists(path(u"missing"_s)));
}

void tst_clsRBT_format_failures::saveOntoExistingDirectoryFailsAndLeavesItUnchanged() {
    QVERIFY(QDir(m_dir->path()).mkdir(u"taken.rbt"_s));
    const QString inner = write(u"taken.rbt/keep.txt"_s, "kept");
    clsRBT rbt;
    rbt.Name = u"Hero"_s;
    QVERIFY(!rbt.Save(path(u"taken.rbt"_s)));
    QVERIFY(QFileInfo(path(u"taken.rbt"_s)).isDir());
    QCOMPARE(read(inner), QByteArray("kept"));
}

void tst_clsRBT_format_failures::failedSaveLeavesExistingFileUnchanged() {
    // The tests run as root, whom no permission bit stops. A file whose name is as long as a
    // name may be (255) leaves no room for the temporary name that an atomic save writes
    // beside it, so the save fails; the old text must survive (design 5).
    const QString name = QString(251, u'h') + u".rbt"_s;
    QCOMPARE(name.size(), 255);
    const QString existing = write(name, exampleFile);
    clsRBT rbt;
    rbt.Name = u"Other"_s;
    QVERIFY(!rbt.Save(existing));
    QCOMPARE(read(existing), QByteArray(exampleFile));
}

QTEST_APPLESS_MAIN(tst_clsRBT_format_failures)
#include "tst_clsRBT_format_failures.moc"
