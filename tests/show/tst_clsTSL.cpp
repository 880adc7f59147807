// Part 4.1: the show listing document and its `.tsl` file format: the document operations,
// the edge cases of the Part, the example file, and Load and Save as they should go. Bad
// input, the limits of design 5 and saves that cannot write are in tst_clsTSL_failures.cpp.

#include "TslTestSupport.h"

#include <QtTest>

#include <memory>

using namespace TslTest;

class tst_clsTSL : public QObject, private DirFixture {
    Q_OBJECT

private slots:
    void init() { QVERIFY(makeFreshDir()); }
    void cleanup() { dropDir(); }

    // --- Data model and Interfaces ---

    void newListingIsEmpty() {
        const clsTSL tsl;
        QCOMPARE(tsl.Title, QString());
        QCOMPARE(tsl.MainWorld, QString());
        QCOMPARE(tsl.NumScenes(), qint16(0));
        QCOMPARE(tsl.Scenes(0), nullptr);
    }

    void addSceneNumbersItAndKeepsTheVeryObject() {
        clsTSL tsl;
        const auto first = makeScene("One", "..\\rez\\one.ssf");
        const auto second = makeScene("Two", "..\\rez\\two.ssf");
        second->Id = "99"; // AddScene overwrites whatever Id it had
        tsl.AddScene(first);
        tsl.AddScene(second);
        QCOMPARE(tsl.NumScenes(), qint16(2));
        QCOMPARE(first->Id, QString("0"));
        QCOMPARE(second->Id, QString("1"));
        QCOMPARE(tsl.Scenes(0), first);
        QCOMPARE(tsl.Scenes(1), second);
        // A field written through the returned record changes the document.
        tsl.Scenes(1)->Name = "Changed";
        QCOMPARE(second->Name, QString("Changed"));
        QVERIFY(savedText(tsl).contains(R"(name="Changed")"));
    }

    void addSceneOfNullDoesNothing() {
        clsTSL tsl;
        tsl.AddScene(nullptr);
        QCOMPARE(tsl.NumScenes(), qint16(0));
        QCOMPARE(savedText(tsl), QByteArray(R"(<play title="" mainworld=""/>)"));
    }

    void indexOutOfRangeReadsAndDeletesNothing_data() {
        QTest::addColumn<qint16>("index");
        QTest::newRow("minus one") << qint16(-1);
        QTest::newRow("count") << qint16(3);
        QTest::newRow("largest") << qint16(32767);
        QTest::newRow("smallest") << qint16(-32768);
    }
    void indexOutOfRangeReadsAndDeletesNothing() {
        QFETCH(qint16, index);
        clsTSL tsl;
        tsl.AddScene(makeScene("a", "a.ssf"));
        tsl.AddScene(makeScene("b", "b.ssf"));
        tsl.AddScene(makeScene("c", "c.ssf"));
        QCOMPARE(tsl.Scenes(index), nullptr);
        tsl.DeleteScene(index);
        QCOMPARE(tsl.NumScenes(), qint16(3));
        QCOMPARE(ids(tsl), QStringList({"0", "1", "2"}));
        QCOMPARE(tsl.Scenes(2)->Name, QString("c"));
    }

    void deleteSceneKeepsIdsInFrontAndRenumbersThoseBehind() {
        clsTSL tsl;
        QVERIFY(loadText(tsl, R"(<play title="" mainworld="">)"
                              R"(<scene id="a" name="A" ssf=""/><scene id="b" name="B" ssf=""/>)"
                              R"(<scene id="c" name="C" ssf=""/><scene id="d" name="D" ssf=""/>)"
                              R"(</play>)"));
        const auto d = tsl.Scenes(3);
        tsl.DeleteScene(1);
        QCOMPARE(ids(tsl), QStringList({"a", "1", "2"}));
        QCOMPARE(tsl.Scenes(1)->Name, QString("C"));
        QCOMPARE(tsl.Scenes(2), d);
        tsl.DeleteScene(2); // the last: nothing behind it to renumber
        QCOMPARE(ids(tsl), QStringList({"a", "1"}));
    }

    // --- Part 4.1, Edge cases worth testing ---

    void listingWithNoScenesSavesAndLoads() {
        clsTSL tsl;
        tsl.Title = "Empty show";
        tsl.MainWorld = "..\\rez\\worlds\\park";
        const QByteArray saved = savedText(tsl);
        QCOMPARE(saved, QByteArray(R"(<play title="Empty show" mainworld="..\rez\worlds\park"/>)"));

        clsTSL loaded;
        QVERIFY(loaded.Load(path("out.tsl")));
        QCOMPARE(loaded.Title, QString("Empty show"));
        QCOMPARE(loaded.MainWorld, QString("..\\rez\\worlds\\park"));
        QCOMPARE(loaded.NumScenes(), qint16(0));
        QCOMPARE(savedText(loaded, "again.tsl"), saved);
    }

    void emptyTitleLoadsAndFileWithoutTitleDoesNotLoad_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("loads");
        QTest::newRow("title empty") << QByteArray(R"(<play title="" mainworld="w"/>)") << true;
        QTest::newRow("title missing") << QByteArray(R"(<play mainworld="w"/>)") << false;
        QTest::newRow("title of other case") << QByteArray(R"(<play Title="T"/>)") << false;
    }
    void emptyTitleLoadsAndFileWithoutTitleDoesNotLoad() {
        QFETCH(QByteArray, text);
        QFETCH(bool, loads);
        clsTSL tsl;
        tsl.Title = "before";
        QCOMPARE(loadText(tsl, text), loads);
        QCOMPARE(tsl.Title, loads ? QString() : QString("before"));
    }

    void fileWithoutMainworldLoadsEmptyAndNextSaveWritesItEmpty() {
        clsTSL tsl;
        tsl.MainWorld = "stale";
        QVERIFY(
            loadText(tsl, R"(<play title="No world"><scene id="0" name="A" ssf="a.ssf"/></play>)"));
        QCOMPARE(tsl.MainWorld, QString());
        QCOMPARE(tsl.NumScenes(), qint16(1));
        QCOMPARE(savedText(tsl), QByteArray(R"(<play title="No world" mainworld="">)"
                                            R"(<scene id="0" name="A" ssf="a.ssf"/></play>)"));
    }

    void sceneWithoutIdNameOrSsfFailsTheLoad_data() {
        QTest::addColumn<QByteArray>("scene");
        QTest::addColumn<bool>("complete");
        QTest::newRow("without id") << QByteArray(R"(<scene name="B" ssf="b.ssf"/>)") << false;
        QTest::newRow("without name") << QByteArray(R"(<scene id="1" ssf="b.ssf"/>)") << false;
        QTest::newRow("without ssf") << QByteArray(R"(<scene id="1" name="B"/>)") << false;
        QTest::newRow("names of other case")
            << QByteArray(R"(<scene ID="1" Name="B" SSF="b.ssf"/>)") << false;
        QTest::newRow("all present, empty")
            << QByteArray(R"(<scene id="" name="" ssf=""/>)") << true;
    }
    void sceneWithoutIdNameOrSsfFailsTheLoad() {
        QFETCH(QByteArray, scene);
        QFETCH(bool, complete);
        clsTSL tsl;
        const bool loaded = loadText(tsl, R"(<play title="T" mainworld="w">)"
                                          R"(<scene id="0" name="A" ssf="a.ssf"/>)" +
                                              scene + "</play>");
        QCOMPARE(loaded, complete);
        QCOMPARE(tsl.NumScenes(), complete ? qint16(2) : qint16(1));
    }

    void commentAmongChildrenFailsOtherElementIsPassedOverAndGoneAfterSave() {
        clsTSL withComment;
        QVERIFY(!loadText(withComment, R"(<play title="T" mainworld="w">)"
                                       R"(<scene id="0" name="A" ssf="a.ssf"/><!-- note -->)"
                                       R"(<scene id="1" name="B" ssf="b.ssf"/></play>)"));

        clsTSL withOther;
        QVERIFY(loadText(withOther, R"(<play title="T" mainworld="w">)"
                                    R"(<scene id="0" name="A" ssf="a.ssf"/>)"
                                    R"(<act id="9" name="X" ssf="x.ssf"><scene id="7"/></act>)"
                                    R"(<Scene id="8" name="Y" ssf="y.ssf"/>)"
                                    R"(<scene id="1" name="B" ssf="b.ssf"/></play>)"));
        QCOMPARE(withOther.NumScenes(), qint16(2));
        QCOMPARE(ids(withOther), QStringList({"0", "1"}));
        QCOMPARE(withOther.Scenes(1)->Name, QString("B"));
        QCOMPARE(savedText(withOther),
                 QByteArray(R"(<play title="T" mainworld="w">)"
                            R"(<scene id="0" name="A" ssf="a.ssf"/>)"
                            R"(<scene id="1" name="B" ssf="b.ssf"/></play>)"));
    }

    void rootOfAnotherNameLoadsAndNextSaveWritesPlay() {
        clsTSL tsl;
        QVERIFY(loadText(tsl, R"(<show title="Other root" mainworld="w">)"
                              R"(<scene id="0" name="A" ssf="a.ssf"/></show>)"));
        QCOMPARE(tsl.Title, QString("Other root"));
        QCOMPARE(tsl.NumScenes(), qint16(1));
        QCOMPARE(savedText(tsl), QByteArray(R"(<play title="Other root" mainworld="w">)"
                                            R"(<scene id="0" name="A" ssf="a.ssf"/></play>)"));
    }

    void ssfWithSingleBackslashesLoadsTheSameAndIsWrittenDoubled_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("inMemory");
        QTest::addColumn<QByteArray>("written");
        QTest::newRow("doubled") << QByteArray(R"(..\\rez\\act1.ssf)") << R"(..\rez\act1.ssf)"
                                 << QByteArray(R"(..\\rez\\act1.ssf)");
        QTest::newRow("single") << QByteArray(R"(..\rez\act1.ssf)") << R"(..\rez\act1.ssf)"
                                << QByteArray(R"(..\\rez\\act1.ssf)");
        QTest::newRow("mixed") << QByteArray(R"(..\\rez\act1.ssf)") << R"(..\rez\act1.ssf)"
                               << QByteArray(R"(..\\rez\\act1.ssf)");
        // Left to right without overlap: three become two, and two is written as four.
        QTest::newRow("three") << QByteArray(R"(a\\\b)") << R"(a\\b)" << QByteArray(R"(a\\\\b)");
        QTest::newRow("forward slashes kept")
            << QByteArray("../rez/a.ssf") << "../rez/a.ssf" << QByteArray("../rez/a.ssf");
    }
    void ssfWithSingleBackslashesLoadsTheSameAndIsWrittenDoubled() {
        QFETCH(QByteArray, stored);
        QFETCH(QString, inMemory);
        QFETCH(QByteArray, written);
        clsTSL tsl;
        QVERIFY(loadText(tsl, R"(<play title="T" mainworld="w"><scene id="0" name="A" ssf=")" +
                                  stored + R"("/></play>)"));
        QCOMPARE(tsl.Scenes(0)->SSF, inMemory);
        QCOMPARE(savedText(tsl), R"(<play title="T" mainworld="w"><scene id="0" name="A" ssf=")" +
                                     written + R"("/></play>)");
    }

    void mainworldIsNotTouched_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("single") << QByteArray(R"(..\rez\worlds\park)");
        QTest::newRow("doubled") << QByteArray(R"(..\\rez\\worlds\\park)");
        QTest::newRow("mixed") << QByteArray(R"(..\rez\\worlds\\\park)");
        QTest::newRow("forward") << QByteArray("../rez/worlds/Park");
        QTest::newRow("empty") << QByteArray("");
    }
    void mainworldIsNotTouched() {
        QFETCH(QByteArray, stored);
        clsTSL tsl;
        QVERIFY(loadText(tsl, R"(<play title="T" mainworld=")" + stored + R"("/>)"));
        QCOMPARE(tsl.MainWorld, QString::fromUtf8(stored));
        QCOMPARE(savedText(tsl), R"(<play title="T" mainworld=")" + stored + R"("/>)");
    }

    void deletingRenumbersAndAddSceneCountsWithIdsFromFile() {
        // Ids "0", "1", "2": deleting index 0 leaves "0", "1".
        clsTSL added;
        const auto a = makeScene("a", "a.ssf");
        const auto b = makeScene("b", "b.ssf");
        const auto c = makeScene("c", "c.ssf");
        added.AddScene(a);
        added.AddScene(b);
        added.AddScene(c);
        QCOMPARE(ids(added), QStringList({"0", "1", "2"}));
        added.DeleteScene(0);
        QCOMPARE(ids(added), QStringList({"0", "1"}));
        QCOMPARE(added.Scenes(0), b);
        QCOMPARE(added.Scenes(1), c);

        // Ids "5", "6" from a file: AddScene gives "2"; deleting index 0 gives "0", "1".
        clsTSL fromFile;
        QVERIFY(loadText(fromFile, R"(<play title="T" mainworld="w">)"
                                   R"(<scene id="5" name="Five" ssf="5.ssf"/>)"
                                   R"(<scene id="6" name="Six" ssf="6.ssf"/></play>)"));
        QCOMPARE(ids(fromFile), QStringList({"5", "6"}));
        const auto added2 = makeScene("New", "new.ssf");
        fromFile.AddScene(added2);
        QCOMPARE(added2->Id, QString("2"));
        QCOMPARE(ids(fromFile), QStringList({"5", "6", "2"}));
        fromFile.DeleteScene(0);
        QCOMPARE(ids(fromFile), QStringList({"0", "1"}));
        QCOMPARE(fromFile.Scenes(0)->Name, QString("Six"));
        QCOMPARE(fromFile.Scenes(1), added2);
    }

    // --- the example file of Part 4.1 ---

    void exampleFileLoadsAndSavesBackTheSameBytes() {
        clsTSL tsl;
        QVERIFY(loadText(tsl, ExampleFile));
        QCOMPARE(tsl.Title, QString("Opening"));
        QCOMPARE(tsl.MainWorld, QString(R"(..\rez\worlds\park)"));
        QCOMPARE(tsl.NumScenes(), qint16(1));
        QCOMPARE(tsl.Scenes(0)->Id, QString("0"));
        QCOMPARE(tsl.Scenes(0)->Name, QString("Act one"));
        QCOMPARE(tsl.Scenes(0)->SSF, QString(R"(..\rez\act1.ssf)"));
        QCOMPARE(savedText(tsl), QByteArray(ExampleFile));
    }

    void exampleFileIsWhatSaveWritesForTheSameFields() {
        clsTSL tsl;
        tsl.Title = "Opening";
        tsl.MainWorld = R"(..\rez\worlds\park)";
        tsl.AddScene(makeScene("Act one", R"(..\rez\act1.ssf)"));
        QCOMPARE(savedText(tsl), QByteArray(ExampleFile));
    }

    // --- Load: further rules of Part 4.1 ---

    void loadIsNotAtomic() {
        clsTSL tsl;
        QVERIFY(!loadText(tsl, R"(<play title="Half" mainworld="w">)"
                               R"(<scene id="0" name="A" ssf="a\\b.ssf"/>)"
                               R"(<scene id="1" name="B" ssf="b.ssf"/>)"
                               R"(<scene id="2" name="C"/>)"
                               R"(<scene id="3" name="D" ssf="d.ssf"/></play>)"));
        QCOMPARE(tsl.Title, QString("Half"));
        QCOMPARE(tsl.MainWorld, QString("w"));
        QCOMPARE(ids(tsl), QStringList({"0", "1"}));
        QCOMPARE(tsl.Scenes(0)->SSF, QString(R"(a\b.ssf)"));
    }

    void loadReplacesTheSceneList() {
        clsTSL tsl;
        const auto old = makeScene("old", "old.ssf");
        tsl.AddScene(old);
        tsl.AddScene(makeScene("old2", "old2.ssf"));
        QVERIFY(loadText(tsl, ExampleFile));
        QCOMPARE(tsl.NumScenes(), qint16(1));
        QVERIFY(tsl.Scenes(0) != old);
        QCOMPARE(old->Name, QString("old")); // a record handed out before is not touched
        QCOMPARE(tsl.Scenes(0)->Name, QString("Act one"));
    }

    void idsFromTheFileStayAsTheyAre() {
        clsTSL tsl;
        QVERIFY(loadText(tsl, R"(<play title="T" mainworld="w">)"
                              R"(<scene id="7" name="A" ssf="a"/><scene id="7" name="B" ssf="b"/>)"
                              R"(<scene id="" name="C" ssf="c"/><scene id=" x " name="D" ssf="d"/>)"
                              R"(</play>)"));
        QCOMPARE(ids(tsl), QStringList({"7", "7", "", " x "}));
        QCOMPARE(tsl.Scenes(2)->Name, QString("C"));
        QVERIFY(savedText(tsl).contains(R"(<scene id=" x " name="D" ssf="d"/>)"));
    }

    void whiteSpaceBetweenElementsIsNoChild() {
        clsTSL tsl;
        QVERIFY(loadText(tsl, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                              "<play title=\"T\" mainworld=\"w\">\r\n"
                              "\t<scene id=\"0\" name=\"A\" ssf=\"a.ssf\"/>\n"
                              "  <scene id=\"1\" name=\"B\" ssf=\"b.ssf\">  </scene>\n"
                              "</play>\n"));
        QCOMPARE(ids(tsl), QStringList({"0", "1"}));
        QCOMPARE(savedText(tsl), QByteArray(R"(<play title="T" mainworld="w">)"
                                            R"(<scene id="0" name="A" ssf="a.ssf"/>)"
                                            R"(<scene id="1" name="B" ssf="b.ssf"/></play>)"));
    }

    void loadFindsTheFileInAnotherCase() {
        writeFile(path("Opening.TSL"), ExampleFile);
        clsTSL tsl;
        QVERIFY(tsl.Load(path("opening.tsl")));
        QCOMPARE(tsl.Title, QString("Opening"));
    }

    // --- Save ---

    void saveDoesNotChangeTheObject() {
        clsTSL tsl;
        tsl.Title = "T";
        tsl.MainWorld = R"(..\rez\worlds\w)";
        const auto scene = makeScene("A", R"(..\rez\a.ssf)");
        tsl.AddScene(scene);
        QVERIFY(tsl.Save(path("one.tsl")));
        QCOMPARE(tsl.MainWorld, QString(R"(..\rez\worlds\w)"));
        QCOMPARE(scene->SSF, QString(R"(..\rez\a.ssf)"));
        QCOMPARE(tsl.Scenes(0), scene);
        QVERIFY(tsl.Save(path("two.tsl")));
        QCOMPARE(readFile(path("two.tsl")), readFile(path("one.tsl")));
    }

    void textFieldsWithSpecialCharactersRoundTrip() {
        clsTSL tsl;
        tsl.Title = QString::fromUtf8("A & B <\"quoted\"> 'x' \u00e9\u00e9n \u2603");
        tsl.MainWorld = R"(..\rez\worlds\a&b)";
        tsl.AddScene(makeScene("line\nbreak\ttab  two  blanks", R"(..\rez\<a>.ssf)"));
        tsl.AddScene(makeScene("", ""));
        QVERIFY(tsl.Save(path("special.tsl")));
        clsTSL loaded;
        QVERIFY(loaded.Load(path("special.tsl")));
        QCOMPARE(loaded.Title, tsl.Title);
        QCOMPARE(loaded.MainWorld, tsl.MainWorld);
        QCOMPARE(ids(loaded), QStringList({"0", "1"}));
        QCOMPARE(loaded.Scenes(0)->Name, tsl.Scenes(0)->Name);
        QCOMPARE(loaded.Scenes(0)->SSF, tsl.Scenes(0)->SSF);
        QCOMPARE(loaded.Scenes(1)->Name, QString());
        QCOMPARE(loaded.Scenes(1)->SSF, QString());
    }

    void saveReplacesAnExistingFile() {
        writeFile(path("show.tsl"), QByteArray(10000, 'x'));
        clsTSL tsl;
        tsl.Title = "Opening";
        tsl.MainWorld = R"(..\rez\worlds\park)";
        tsl.AddScene(makeScene("Act one", R"(..\rez\act1.ssf)"));
        QVERIFY(tsl.Save(path("show.tsl")));
        QCOMPARE(readFile(path("show.tsl")), QByteArray(ExampleFile));
    }
};

QTEST_APPLESS_MAIN(tst_clsTSL)
#include "tst_clsTSL.moc"
