// SPDX-License-Identifier: GPL-3.0-or-later
// The show listing's file: what a read takes and the next write gives, byte for byte,
// and why a read fails.

#include "show/clsTSL.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_clsTSL : public QObject {
    Q_OBJECT

private slots:
    void readThenWrite_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("saved"); // or "fails: " and why the read failed
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
        QTest::newRow("without title") << R"(<play mainworld=""/>)"_ba
                                       << R"(fails: line 1: <play> has no "title")"_ba;
        QTest::newRow("scene without id")
            << play(R"(<scene name="x" ssf=""/>)") << R"(fails: line 1: <scene> has no "id")"_ba;
        QTest::newRow("scene without name")
            << play(R"(<scene id="0" ssf=""/>)") << R"(fails: line 1: <scene> has no "name")"_ba;
        QTest::newRow("scene without ssf")
            << play(R"(<scene id="0" name="x"/>)") << R"(fails: line 1: <scene> has no "ssf")"_ba;
        QTest::newRow("comment among scenes")
            << play(scene + "<!-- c -->") << R"(fails: line 1: a comment among the records)"_ba;
        QTest::newRow("32768 children")
            << play("<x/>"_ba.repeated(32768)) << R"(<play title="t" mainworld=""/>)"_ba;
        QTest::newRow("32769 children")
            << play("<x/>"_ba.repeated(32769)) << R"(fails: line 1: more than 32768 records)"_ba;
        QTest::newRow("32767 scenes") << play(scene.repeated(32767)) << play(scene.repeated(32767));
        QTest::newRow("32768 scenes") << play(scene.repeated(32768))
                                      << R"(fails: line 1: more than 32767 <scene> records)"_ba;
    }

    void readThenWrite()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, saved);
        QCOMPARE(TestFiles::readThenWrite<clsTSL>(file), saved);
    }
};

QTEST_APPLESS_MAIN(tst_clsTSL)
#include "tst_clsTSL.moc"
