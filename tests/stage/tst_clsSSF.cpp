// SPDX-License-Identifier: GPL-3.0-or-later
// The stage scene's file: what a read takes and the next write gives, byte for byte,
// and why a read fails.

#include "stage/clsSSF.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_clsSSF : public QObject {
    Q_OBJECT

private slots:
    void readThenWrite_data();
    void readThenWrite()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, saved);
        QCOMPARE(TestFiles::readThenWrite<clsSSF>(file), saved);
    }
};

void tst_clsSSF::readThenWrite_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("saved"); // or "fails: " and why the read failed
    const QByteArray example =
        R"(<scene world="..\rez\worlds\theatre" maincamera="0" nickname="" server="" port="">)"
        R"(<puppet id="0" rbt="..\\rez\\bear.rbt" position="0.0,0.0,0.0" scale="1.0,1.0,1.0" orientation="0.0,90.0,0.0"/>)"
        R"(<sound id="0" name="hello" type="dialog" file="..\\rez\\sounds\\hello"/>)"
        R"(<sound id="1" name="door" type="sound" file="..\\rez\\sounds\\door.wav"/>)"
        R"(<camera id="0" name="front" position="0.0,10.0,-5.0" orientation="0.0,0.0,0.0"/></scene>)"_ba;
    QTest::newRow("example") << example << example;
    const auto scene = [](const QByteArray& children) {
        return R"(<scene world="w" maincamera="" nickname="" server="" port="">)" + children +
               "</scene>";
    };
    const auto puppet = [](const QByteArray& position) {
        return R"(<puppet id="0" rbt="" position=")" + position +
               R"(" scale="1,1,1" orientation=",,"/>)";
    };
    const auto sound = [](const QByteArray& type, const QByteArray& file) {
        return R"(<sound id="0" name="n" type=")" + type + R"(" file=")" + file + R"("/>)";
    };
    const QByteArray camera =
        R"(<camera id="x" name="a\b" position="1,2,3" orientation="4,5,6"/>)"_ba;

    QTest::newRow("empty world alone, root of another name")
        << R"(<stage world=""/>)"_ba
        << R"(<scene world="" maincamera="" nickname="" server="" port=""/>)"_ba;
    QTest::newRow("rbt with single backslashes is doubled")
        << scene(
               R"(<puppet id="7" rbt="..\rez\a.rbt" position="1,2,3" scale="1,1,1" orientation=",,"/>)")
        << scene(
               R"(<puppet id="7" rbt="..\\rez\\a.rbt" position="1,2,3" scale="1,1,1" orientation=",,"/>)");
    QTest::newRow("triple keeps further commas and blanks")
        << scene(puppet("1, 2,3,4")) << scene(puppet("1, 2,3,4"));
    QTest::newRow("triple with one comma")
        << scene(puppet("1,2"))
        << R"(fails: line 1: the "position" of <puppet> is not three values split by commas)"_ba;
    QTest::newRow("kinds in any order are written grouped, others passed over")
        << scene(camera + sound("sound", "d.wav") + "<Puppet/><x a=\"1\"/>" + puppet(",,"))
        << scene(puppet(",,") + sound("sound", "d.wav") + camera);
    QTest::newRow("dialog line loses the digits in front of its extension")
        << scene(sound("dialog", "..\\\\rez2\\\\sounds\\\\hello07"))
        << scene(sound("dialog", "..\\\\rez2\\\\sounds\\\\hello"));
    QTest::newRow("a dot in the name stays")
        << scene(sound("other", "take.2")) << scene(sound("other", "take."));
    QTest::newRow("digits alone leave the directory")
        << scene(sound("dialog", "d\\\\12")) << scene(sound("dialog", "d\\\\"));
    QTest::newRow("without world") << R"(<scene maincamera="0"/>)"_ba
                                   << R"(fails: line 1: <scene> has no "world")"_ba;
    QTest::newRow("puppet without scale")
        << scene(R"(<puppet id="0" rbt="" position=",," orientation=",,"/>)")
        << R"(fails: line 1: <puppet> has no "scale")"_ba;
    QTest::newRow("sound without file") << scene(R"(<sound id="0" name="n" type="sound"/>)")
                                        << R"(fails: line 1: <sound> has no "file")"_ba;
    QTest::newRow("camera without orientation")
        << scene(R"(<camera id="0" name="" position=",,"/>)")
        << R"(fails: line 1: <camera> has no "orientation")"_ba;
    QTest::newRow("32767 cameras")
        << scene(camera.repeated(32767)) << scene(camera.repeated(32767));
    QTest::newRow("32768 cameras")
        << scene(camera.repeated(32768)) << R"(fails: line 1: more than 32767 <camera> records)"_ba;
}

QTEST_APPLESS_MAIN(tst_clsSSF)
#include "tst_clsSSF.moc"
