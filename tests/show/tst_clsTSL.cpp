// The show listing's file: what a load reads and the next save writes, byte for byte.

#include "show/clsTSL.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_clsTSL : public QObject {
    Q_OBJECT

private slots:
    void loadThenSave_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("saved"); // empty: Load must fail
        const QByteArray example =
            R"(<play title="Opening" mainworld="..\rez\worlds\park"><scene id="0" name="Act one" ssf="..\\rez\\act1.ssf"/></play>)"_ba;
        QTest::newRow("example") << example << example;
        const QByteArray scene = R"(<scene id="0" name="x" ssf="a.ssf"/>)"_ba;
        const auto play = [](const QByteArray& children) {
            return R"(<play title="t" mainworld="">)" + children + "</play>";
        };
        QTest::newRow("single backslashes are doubled, mainworld's stay")
            << R"(<show mainworld="a\\b" title="T"><scene ssf="..\rez\a.ssf" name="n" id="5"/></show>)"_ba
            << R"(<play title="T" mainworld="a\\b"><scene id="5" name="n" ssf="..\\rez\\a.ssf"/></play>)"_ba;
        QTest::newRow("no scenes, no mainworld") << R"(<play title=""/>)"_ba
                                                 << R"(<play title="" mainworld=""/>)"_ba;
        QTest::newRow("other elements passed over, white space is no child")
            << play("\n <Scene/> <x><!-- inside --></x>\n" + scene) << play(scene);
        QTest::newRow("without title") << R"(<play mainworld=""/>)"_ba << QByteArray();
        QTest::newRow("scene without id") << play(R"(<scene name="x" ssf=""/>)") << QByteArray();
        QTest::newRow("scene without name") << play(R"(<scene id="0" ssf=""/>)") << QByteArray();
        QTest::newRow("scene without ssf") << play(R"(<scene id="0" name="x"/>)") << QByteArray();
        QTest::newRow("comment among scenes") << play(scene + "<!-- c -->") << QByteArray();
        QTest::newRow("32768 children")
            << play("<x/>"_ba.repeated(32768)) << R"(<play title="t" mainworld=""/>)"_ba;
        QTest::newRow("32769 children") << play("<x/>"_ba.repeated(32769)) << QByteArray();
        QTest::newRow("32767 scenes") << play(scene.repeated(32767)) << play(scene.repeated(32767));
        QTest::newRow("32768 scenes") << play(scene.repeated(32768)) << QByteArray();
    }

    void loadThenSave()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, saved);
        QCOMPARE(TestFiles().loadThenSave<clsTSL>(file), saved);
    }
};

QTEST_APPLESS_MAIN(tst_clsTSL)
#include "tst_clsTSL.moc"
