// Part 4.1: the failures of the show listing: bad input (False, never a crash or a hang), the
// limits of design 5, and saves that cannot write.

#include "TslTestSupport.h"
#include "tests/support/EntityBomb.h"

#include "foundation/Limits.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QtTest>

#include <memory>

using namespace TslTest;

namespace {

// A listing of `count` scene elements, and `others` elements of another name behind them.
QByteArray manyScenes(int count, int others = 0) {
    QByteArray text = R"(<play title="Many" mainworld="">)";
    text.reserve(text.size() + (count + others) * 48);
    for (int i = 0; i < count; ++i)
        text += R"(<scene id=")" + QByteArray::number(i) + R"(" name="n" ssf="s.ssf"/>)";
    for (int i = 0; i < others; ++i)
        text += "<other/>";
    return text + "</play>";
}

} // namespace

class tst_clsTSL_failures : public QObject, private DirFixture {
    Q_OBJECT

private slots:
    void init() { QVERIFY(makeFreshDir()); }
    void cleanup() { dropDir(); }

    // --- bad input: False, never a crash or a hang ---

    void badInputFailsTheLoad_data() {
        QTest::addColumn<int>("kind"); // 0 file with the bytes, 1 no file, 2 a directory
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("missing file") << 1 << QByteArray();
        QTest::newRow("directory") << 2 << QByteArray();
        QTest::newRow("empty file") << 0 << QByteArray();
        QByteArray binary;
        for (int i = 0; i < 4096; ++i)
            binary += char((i * 7919 + i / 256) & 0xff);
        QTest::newRow("binary file") << 0 << binary;
        const QByteArray example(ExampleFile);
        QTest::newRow("cut off half way") << 0 << example.left(example.size() / 2);
        QTest::newRow("cut off before the end tag") << 0 << example.chopped(7);
        QTest::newRow("comment among scenes")
            << 0 << QByteArray(R"(<play title="T" mainworld="w"><!--x--></play>)");
        QTest::newRow("text among scenes")
            << 0 << QByteArray(R"(<play title="T" mainworld="w">text</play>)");
        QTest::newRow("CDATA among scenes")
            << 0 << QByteArray(R"(<play title="T" mainworld="w"><![CDATA[x]]></play>)");
        QTest::newRow("processing instruction among scenes")
            << 0 << QByteArray(R"(<play title="T" mainworld="w"><?pi x?></play>)");
        QTest::newRow("scene without ssf")
            << 0 << QByteArray(R"(<play title="T" mainworld="w"><scene id="0" name="A"/></play>)");
        QTest::newRow("40000 scenes") << 0 << manyScenes(40000);
        QTest::newRow("billion laughs")
            << 0
            << EntityBombPrologue("play") +
                   R"(<play title="&l9;" mainworld=""><scene id="0" name="&l9;" ssf="a"/></play>)";
        QTest::newRow("two roots")
            << 0 << QByteArray(R"(<play title="T" mainworld="w"/><play title="U"/>)");
        QTest::newRow("undeclared entity")
            << 0 << QByteArray(R"(<play title="&nothing;" mainworld="w"/>)");
    }
    void badInputFailsTheLoad() {
        QFETCH(int, kind);
        QFETCH(QByteArray, bytes);
        const QString file = path("bad.tsl");
        if (kind == 0)
            writeFile(file, bytes);
        else if (kind == 2)
            QVERIFY(QDir(m_dir->path()).mkdir("bad.tsl"));
        clsTSL tsl;
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(tsl.Load(file), false);
        QVERIFY2(timer.elapsed() < 30000, "the load took longer than 30 s");
        // The object stays usable after the failure.
        tsl.AddScene(makeScene("after", "after.ssf"));
        QCOMPARE(tsl.Scenes(tsl.NumScenes() - 1)->Name, QString("after"));
        QVERIFY(tsl.Save(path("after.tsl")));
    }

    // --- limits: design 5 ---

    void addSceneAtTheLimitDoesNothing() {
        clsTSL tsl;
        for (qsizetype i = 0; i < Limits::MaxRecords; ++i)
            tsl.AddScene(std::make_shared<clsScene>());
        QCOMPARE(tsl.NumScenes(), qint16(32767));
        QCOMPARE(tsl.Scenes(32766)->Id, QString("32766"));
        const auto extra = makeScene("Extra", "x.ssf");
        tsl.AddScene(extra);
        QCOMPARE(tsl.NumScenes(), qint16(32767));
        QCOMPARE(extra->Id, QString()); // untouched: it never reached the list
        QVERIFY(tsl.Scenes(32766) != extra);
    }

    void loadOfTheLargestListPassesAndOneMoreFails_data() {
        QTest::addColumn<int>("scenes");
        QTest::addColumn<int>("others");
        QTest::addColumn<bool>("loads");
        QTest::addColumn<int>("count"); // scenes in the list afterwards
        QTest::newRow("32767 scenes") << 32767 << 0 << true << 32767;
        QTest::newRow("32768 scenes") << 32768 << 0 << false << 32767;
        QTest::newRow("32767 scenes and one other: 32768 children") << 32767 << 1 << true << 32767;
        QTest::newRow("3 scenes and 32765 others: 32768 children") << 3 << 32765 << true << 3;
        QTest::newRow("3 scenes and 32766 others: 32769 children") << 3 << 32766 << false << 0;
    }
    void loadOfTheLargestListPassesAndOneMoreFails() {
        QFETCH(int, scenes);
        QFETCH(int, others);
        QFETCH(bool, loads);
        QFETCH(int, count);
        clsTSL tsl;
        QCOMPARE(loadText(tsl, manyScenes(scenes, others)), loads);
        QCOMPARE(tsl.Title, QString("Many")); // read before the children in every case
        QCOMPARE(int(tsl.NumScenes()), count);
        if (count > 0)
            QCOMPARE(tsl.Scenes(qint16(count - 1))->Id, QString::number(count - 1));
    }

    // --- Save that cannot write ---

    void saveThatCannotWriteFailsAndLeavesTheFileBesideUnchanged_data() {
        QTest::addColumn<QString>("target"); // relative to the temporary directory
        QTest::addColumn<bool>("targetIsDirectory");
        QTest::newRow("parent missing") << "missing/show.tsl" << false;
        QTest::newRow("parents missing") << "missing/deeper/show.tsl" << false;
        QTest::newRow("path is a directory") << "folder.tsl" << true;
    }
    void saveThatCannotWriteFailsAndLeavesTheFileBesideUnchanged() {
        QFETCH(QString, target);
        QFETCH(bool, targetIsDirectory);
        const QDir dir(m_dir->path());
        const QByteArray before = QByteArray(ExampleFile) + "\n<!-- the old file -->\n";
        writeFile(path("show.tsl"), before);
        if (targetIsDirectory)
            QVERIFY(dir.mkdir(target));
        const QStringList entriesBefore =
            dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);

        clsTSL tsl;
        tsl.Title = "New";
        tsl.AddScene(makeScene("A", "a.ssf"));
        QCOMPARE(tsl.Save(path(target)), false);

        QCOMPARE(readFile(path("show.tsl")), before);
        QCOMPARE(dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 entriesBefore);
        if (targetIsDirectory) {
            QVERIFY(QFileInfo(path(target)).isDir());
            QVERIFY(
                QDir(path(target)).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        }
    }
};

QTEST_APPLESS_MAIN(tst_clsTSL_failures)
#include "tst_clsTSL_failures.moc"
