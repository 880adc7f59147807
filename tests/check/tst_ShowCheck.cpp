// SPDX-License-Identifier: GPL-3.0-or-later
// The show check over a small theatre: each planted fault gives its one finding, the check
// reads only, and a document in a window is checked as it stands.

#include "check/ShowCheck.h"
#include "stage/clsSSF.h"
#include "tests/check/Theatre.h"

#include <QtTest>

// A finding as the tables write it: "act1.ssf|puppet 0|error|message", the file under rez/.
static QStringList Written(const ShowCheck& check, const QString& baseDir)
{
    QStringList findings;
    for (const Finding& f : check.Findings())
        findings << QDir(baseDir).relativeFilePath(f.file) + u'|' + f.record + u'|' +
                        f.severityName() + u'|' + f.message;
    return findings;
}

class tst_ShowCheck : public QObject {
    Q_OBJECT

private slots:
    void findsThePlantedFault_data();
    void findsThePlantedFault()
    {
        QFETCH(QList<Edit>, edits);
        QFETCH(QString, expected); // "file|record|severity|part of the message", or none
        const Theatre theatre(edits);
        const QStringList before = theatre.Snapshot();
        ShowCheck check;
        QVERIFY(check.CheckFile(theatre.path(u"show.tsl"_s)));
        QCOMPARE(theatre.Snapshot(), before);

        const QStringList found = Written(check, theatre.path({}));
        QVERIFY2(found.size() == (expected.isEmpty() ? 0 : 1), qPrintable(found.join(u'\n')));
        if (expected.isEmpty()) {
            QCOMPARE(check.FilesChecked(), 4); // the listing, two scenes, one rig binding
            return;
        }
        QCOMPARE(found[0].section(u'|', 0, 2), expected.section(u'|', 0, 2));
        QVERIFY2(found[0].section(u'|', 3).contains(expected.section(u'|', 3)),
                 qPrintable(found[0]));
    }

    void checksTheDocumentAsItStandsInTheWindow()
    {
        const Theatre theatre;
        clsSSF ssf;
        QVERIFY(ssf.Load(theatre.path(u"act1.ssf"_s)));
        ssf.Port = u"none"_s;
        ssf.Puppets(0)->RBT = u"..\\rez\\ghost.rbt"_s;
        // Saved, the line keeps its stem "hello", whose take hello01.wav is there.
        ssf.Sounds(1)->File = u"..\\rez\\sounds\\Hello07.wav"_s;
        ShowCheck check;
        check.CheckDocument(ssf, u"act1.ssf (not saved)"_s, theatre.path({}));
        QStringList found = Written(check, theatre.path({}));
        for (QString& finding : found)
            finding = finding.section(u'|', 0, 2);
        QCOMPARE(found, QStringList({u"act1.ssf (not saved)||warning"_s,
                                     u"act1.ssf (not saved)|puppet 0|error"_s}));
        QCOMPARE(check.FilesChecked(), 1);
    }
};

void tst_ShowCheck::findsThePlantedFault_data()
{
    QTest::addColumn<QList<Edit>>("edits");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QList<Edit>& edits, const char16_t* expected) {
        QTest::newRow(name) << edits << QString::fromUtf16(expected);
    };
    // clang-format off
    row("clean show", {}, u"");
    row("names in another case", {Replace(u"show.tsl"_s, R"(..\\rez\\act2.ssf)", R"(..\\REZ\\Act2.SSF)")}, u"");
    row("a take without digits", {Remove(u"sounds/hello01.wav"_s), Write(u"sounds/HELLO.wav"_s, {})}, u"");

    row("no title", {Replace(u"show.tsl"_s, "Night", "")}, u"show.tsl||warning|the show has no title");
    row("main world missing", {Remove(u"worlds/town.dat"_s)}, u"show.tsl||warning|worlds/town.dat); fine if the game brings it");
    row("scene Ids not 0 to n-1", {Replace(u"show.tsl"_s, R"(id="1")", R"(id="5")")}, u"show.tsl|scene 5|warning|should be 1");
    row("two scenes on one file", {Replace(u"show.tsl"_s, "act2", "act1")}, u"show.tsl|scene 1|warning|scene 0 plays the stage scene");
    row("scene missing", {Remove(u"act2.ssf"_s)}, u"show.tsl|scene 1|error|..\\rez\\act2.ssf is missing (looked for ");
    row("scene only where the managers look", {Replace(u"show.tsl"_s, R"(rez\\act2)", R"(stage\\act2)")}, u"show.tsl|scene 1|error|missing where the run-time looks");
    row("scene does not load", {Replace(u"act2.ssf"_s, "<camera", "<!-- x --><camera")}, u"act2.ssf||error|does not load: line 1: a comment among the records");
    row("scene is a FIFO", {Fifo(u"act2.ssf"_s)}, u"act2.ssf||error|does not load: it is a FIFO");

    row("main camera unknown", {Replace(u"act1.ssf"_s, R"(maincamera="0")", R"(maincamera="7")")}, u"act1.ssf||error|main camera 7 is no camera");
    row("no main camera", {Replace(u"act1.ssf"_s, R"(maincamera="0")", R"(maincamera="")")}, u"act1.ssf||warning|no main camera");
    row("two cameras, one Id", {Replace(u"act1.ssf"_s, R"(id="1" name="Close")", R"(id="0" name="Close")")}, u"act1.ssf|camera 0|warning|Id too");
    row("position no number", {Replace(u"act1.ssf"_s, "1.0,0.0,2.0", "1.0,up,2.0")}, u"act1.ssf|puppet 0|error|the Y of its position, \"up\", is no number");
    row("scale of 0", {Replace(u"act1.ssf"_s, R"(scale="1.0,1.0,1.0")", R"(scale="1.0,0,1.0")")}, u"act1.ssf|puppet 0|warning|scale is 0");
    row("orientation no number", {Replace(u"act1.ssf"_s, "5.0,0.0,0.0", "5.0,0.0,")}, u"act1.ssf|camera 1|error|the Z of its orientation");
    row("sound missing", {Remove(u"sounds/door.wav"_s)}, u"act1.ssf|sound 0|error|..\\rez\\sounds\\door.wav is missing");
    row("dialog without a take", {Remove(u"sounds/hello01.wav"_s)}, u"act1.ssf|sound 1|error|..\\rez\\sounds\\hello has no take");
    row("other type", {Replace(u"act1.ssf"_s, "dialog", "music")}, u"act1.ssf|sound 1|error|\"music\" is neither");
    row("world missing", {Replace(u"act1.ssf"_s, R"(worlds\park)", R"(worlds\nowhere)")}, u"act1.ssf||warning|worlds/nowhere.dat");
    row("port out of range", {Replace(u"act1.ssf"_s, "27888", "70000")}, u"act1.ssf||warning|port \"70000\"");
    row("rig binding missing", {Replace(u"act1.ssf"_s, "hero.rbt", "ghost.rbt")}, u"act1.ssf|puppet 0|error|..\\rez\\ghost.rbt is missing");
    row("two rig bindings of one name", {Write(u"props/hero.rbt"_s, Theatre::Rbt), Replace(u"act1.ssf"_s, R"(rez\\hero)", R"(rez\\props\\hero)")}, u"act1.ssf|puppet 0|warning|is two files");
    row("rig binding outside the base folder", {Write(u"props/prop.rbt"_s, Theatre::Rbt), Replace(u"act1.ssf"_s, R"(rez\\hero)", R"(rez\\props\\prop)")}, u"act1.ssf|puppet 0|warning|managers cannot open");

    // Both scenes reach the rig binding and its model: each is checked once.
    row("rig binding does not load", {Replace(u"hero.rbt"_s, R"(vector="0.0,1.0,0.0")", "")}, u"hero.rbt||error|<joint> has no \"vector\"");
    row("text model missing", {Remove(u"models/Hero.lta"_s)}, u"hero.rbt||error|models/hero.lta is missing");
    row("text model a FIFO", {Fifo(u"models/Hero.lta"_s)}, u"hero.rbt||error|it is a FIFO");
    row("compiled model missing", {Remove(u"models/Hero.ltb"_s)}, u"hero.rbt||warning|models/hero.ltb is missing beside");
    row("node not in the model", {Replace(u"hero.rbt"_s, R"(node="Arm")", R"(node="Tail")")}, u"hero.rbt|joint 1|error|\"Tail\" is not in the model");
    row("limit no number", {Replace(u"hero.rbt"_s, "-45.0", "low")}, u"hero.rbt|joint 0|error|lower limit \"low\"");
    row("min above max", {Replace(u"hero.rbt"_s, "-45.0", "60")}, u"hero.rbt|joint 0|warning|60 is above its upper limit 45.0");
    row("no vector component on", {Replace(u"hero.rbt"_s, "1.0,0.0,0.0", "0,0.0,x")}, u"hero.rbt|joint 1|warning|no component on");
    row("two joints on one node", {Replace(u"hero.rbt"_s, R"(node="Arm")", R"(node="Hip")")}, u"hero.rbt|joint 1|warning|joint 0 is on the node \"Hip\" too");
    row("animation past the model's", {Replace(u"hero.rbt"_s, R"(<animation id="1")", R"(<animation id="2")")}, u"hero.rbt|animation 2|error|its animations are 0 to 1");
    row("two animations of one name", {Replace(u"hero.rbt"_s, "Run", "Walk")}, u"hero.rbt|animation 1|warning|animation 0 is named \"Walk\" too");
    row("texture missing", {Replace(u"hero.rbt"_s, R"(texture="")", R"(texture="skin.dtx")")}, u"hero.rbt||error|the texture");
    row("bitmap missing", {Replace(u"hero.rbt"_s, R"(icon="")", R"(icon="face.bmp")")}, u"hero.rbt||error|the bitmap");
    // clang-format on
}

QTEST_GUILESS_MAIN(tst_ShowCheck)
#include "tst_ShowCheck.moc"
