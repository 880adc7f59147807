// The rig binding's file: what a load reads and the next save writes, byte for byte.

#include "rig/clsRBT.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_clsRBT : public QObject {
    Q_OBJECT

private slots:
    void loadThenSave_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("saved"); // empty: Load must fail
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
        QTest::newRow("without name") << R"(<rbt model="h.ltb"/>)"_ba << QByteArray();
        QTest::newRow("without model") << R"(<rbt name="H"/>)"_ba << QByteArray();
        for (qsizetype missing = 0; missing < attributes.size(); ++missing) {
            QList<QByteArray> some = attributes;
            some.removeAt(missing);
            QTest::addRow("joint without %s", attributes[missing].split('=').first().constData())
                << rbt("<joint " + some.join(' ') + "/>") << QByteArray();
        }
        QTest::newRow("vector with one comma")
            << rbt(R"(<joint id="0" node="" min="" max="" vector="1,2" action="" desc=""/>)")
            << QByteArray();
        QTest::newRow("animation without id") << rbt(R"(<animation name="Run"/>)") << QByteArray();
        QTest::newRow("animation without name") << rbt(R"(<animation id="1"/>)") << QByteArray();
        QTest::newRow("32767 joints and an animation")
            << rbt(joint.repeated(32767) + animation) << rbt(joint.repeated(32767) + animation);
        QTest::newRow("32768 animations") << rbt(animation.repeated(32768)) << QByteArray();
    }

    void loadThenSave()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, saved);
        QCOMPARE(TestFiles(TestFiles::AsCurrentDir).loadThenSave<clsRBT>(file), saved);
    }
};

QTEST_APPLESS_MAIN(tst_clsRBT)
#include "tst_clsRBT.moc"
