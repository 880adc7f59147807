// SPDX-License-Identifier: GPL-3.0-or-later
// The rig binding's file: what a read takes and the next write gives, byte for byte,
// and why a read fails.

#include "rig/clsRBT.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_clsRBT : public QObject {
    Q_OBJECT

private slots:
    void readThenWrite_data();
    void readThenWrite()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, saved);
        QCOMPARE(TestFiles::readThenWrite<clsRBT>(file, u"/base/"_s), saved);
    }
};

void tst_clsRBT::readThenWrite_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("saved"); // or "fails: " and why the read failed
    const QByteArray example =
        R"(<rbt name="Hero" type="model" model="models\\hero.ltb" texture="" icon="">)"
        R"(<joint id="0" node="Head" min="-90.0" max="90.0" vector="0.0,1.0,0.0" action="rotate" desc="Nod"/>)"
        R"(<animation id="3" name="Wave"/></rbt>)"_ba;
    QTest::newRow("example") << example << example;
    const auto rbt = [](const QByteArray& children) {
        return R"(<rbt name="H" type="model" model="h.ltb" texture="" icon="">)" + children +
               "</rbt>";
    };
    const QList<QByteArray> attributes = {
        R"(id="4")"_ba,           R"(node="Bip01\Head")"_ba, R"(min="-9")"_ba, R"(max="9")"_ba,
        R"(vector="1,2,3,4")"_ba, R"(action="rotate")"_ba,   R"(desc="")"_ba};
    const QByteArray joint = "<joint " + attributes.join(' ') + "/>";
    const QByteArray animation = R"(<animation id="7" name="Run"/>)"_ba;

    QTest::newRow("joint ids, extra commas, backslashes of other texts kept")
        << rbt(joint) << rbt(joint);
    QTest::newRow("root of another name, no type, texture and icon absent")
        << R"(<binding model="h.ltb" name="H"/>)"_ba
        << R"(<rbt name="H" type="model" model="h.ltb" texture="" icon=""/>)"_ba;
    QTest::newRow("single backslashes and upper case in paths")
        << R"(<rbt name="H" type="world" model="Models\Hero.LTB" texture="A\b.dtx" icon="c\\d.bmp"/>)"_ba
        << R"(<rbt name="H" type="model" model="models\\hero.ltb" texture="a\\b.dtx" icon="c\\d.bmp"/>)"_ba;
    QTest::newRow("animations first, other elements passed over with what they hold")
        << rbt(animation + "\n<Joint/><x>" + joint + "<!-- c --></x>\n" + joint)
        << rbt(joint + animation);
    QTest::newRow("without name") << R"(<rbt model="h.ltb"/>)"_ba
                                  << R"(fails: line 1: <rbt> has no "name")"_ba;
    QTest::newRow("without model") << R"(<rbt name="H"/>)"_ba
                                   << R"(fails: line 1: <rbt> has no "model")"_ba;
    for (qsizetype missing = 0; missing < attributes.size(); ++missing) {
        QList<QByteArray> some = attributes;
        some.removeAt(missing);
        const QByteArray name = attributes[missing].split('=').first();
        QTest::addRow("joint without %s", name.constData())
            << rbt("<joint " + some.join(' ') + "/>")
            << R"(fails: line 1: <joint> has no ")" + name + '"';
    }
    QTest::newRow("vector with one comma")
        << rbt("\n\n"
               R"(<joint id="0" node="" min="" max="" vector="1,2" action="" desc=""/>)")
        << R"(fails: line 3: the "vector" of <joint> is not three values split by commas)"_ba;
    QTest::newRow("animation without id")
        << rbt(R"(<animation name="Run"/>)") << R"(fails: line 1: <animation> has no "id")"_ba;
    QTest::newRow("animation without name")
        << rbt(R"(<animation id="1"/>)") << R"(fails: line 1: <animation> has no "name")"_ba;
    QTest::newRow("32767 joints and an animation")
        << rbt(joint.repeated(32767) + animation) << rbt(joint.repeated(32767) + animation);
    QTest::newRow("32768 animations") << rbt(animation.repeated(32768))
                                      << R"(fails: line 1: more than 32767 <animation> records)"_ba;
}

QTEST_APPLESS_MAIN(tst_clsRBT)
#include "tst_clsRBT.moc"
