// SPDX-License-Identifier: GPL-3.0-or-later
// The stage plan's geometry: which records become marks, where, facing where, and which are
// listed as not placed; the grid's step.

#include "plan/PlanView.h"
#include "plan/StagePlan.h"
#include "stage/clsSSF.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A scene from rows "file|x|y|z|heading" for puppets and "id|name|x|y|z|heading" for cameras.
clsSSF Scene(const QStringList& puppets, const QStringList& cameras, const QString& main)
{
    clsSSF scene;
    scene.MainCamera = main;
    for (const QString& row : puppets) {
        const QStringList f = row.split(u'|');
        auto puppet = std::make_shared<clsPuppet>();
        puppet->RBT = f[0];
        puppet->PositionX = f[1];
        puppet->PositionY = f[2];
        puppet->PositionZ = f[3];
        puppet->OrientationY = f[4];
        scene.AddPuppet(puppet);
    }
    for (const QString& row : cameras) {
        const QStringList f = row.split(u'|');
        auto camera = std::make_shared<clsCamera>();
        scene.AddCamera(camera);
        camera->Id = f[0]; // after AddCamera, which numbers it
        camera->Name = f[1];
        camera->PositionX = f[2];
        camera->PositionY = f[3];
        camera->PositionZ = f[4];
        camera->OrientationY = f[5];
    }
    return scene;
}

// "camera 1 Wide at 0,-200 facing 10, y 60, main"
QString Describe(const PlanMark& mark)
{
    QString text = (mark.record.kind == PlanRecord::Puppet ? u"puppet "_s : u"camera "_s) +
                   QString::number(mark.record.index) + u' ' + mark.name + u" at "_s +
                   QString::number(mark.position.x()) + u',' + QString::number(mark.position.y()) +
                   u" facing "_s + QString::number(mark.heading);
    if (!mark.height.isEmpty())
        text += u", y "_s + mark.height;
    return mark.main ? text + u", main"_s : text;
}

} // namespace

class tst_StagePlan : public QObject {
    Q_OBJECT

private slots:
    void marksAndRecordsNotPlaced_data();
    void marksAndRecordsNotPlaced();
    void gridStepIsOneTwoOrFiveTimesAPowerOfTen_data();
    void gridStepIsOneTwoOrFiveTimesAPowerOfTen();
};

void tst_StagePlan::marksAndRecordsNotPlaced_data()
{
    QTest::addColumn<QStringList>("puppets");
    QTest::addColumn<QStringList>("cameras");
    QTest::addColumn<QString>("mainCamera");
    QTest::addColumn<QStringList>("marks");
    QTest::addColumn<QStringList>("notPlaced");
    QTest::addColumn<QRectF>("bounds"); // its top is the least Z

    QTest::newRow("no record") << QStringList() << QStringList() << u"0"_s << QStringList()
                               << QStringList() << QRectF();
    QTest::newRow("one puppet, named by its file")
        << QStringList{uR"(..\rez\dancer.rbt|-40.0|0.0|25.0|90.0)"_s} << QStringList() << u""_s
        << QStringList{u"puppet 0 dancer.rbt at -40,25 facing 90"_s} << QStringList()
        << QRectF(-40, 25, 0, 0);
    QTest::newRow("headings read with blanks, signs and exponents")
        << QStringList{u"a| 1 |0|2| 45 "_s, u"b|+1|0|2|-30"_s, u"c|1|0|2|1e2"_s, u"d|1|0|2|370"_s}
        << QStringList() << u""_s
        << QStringList{u"puppet 0 a at 1,2 facing 45"_s, u"puppet 1 b at 1,2 facing -30"_s,
                       u"puppet 2 c at 1,2 facing 100"_s, u"puppet 3 d at 1,2 facing 370"_s}
        << QStringList() << QRectF(1, 2, 0, 0);
    QTest::newRow("height shown unless it reads 0, as typed")
        << QStringList{u"a|1|0|1|0"_s, u"b|1|-0.0|1|0"_s, u"c|1| 20 |1|0"_s, u"d|1|high|1|0"_s,
                       u"e|1||1|0"_s}
        << QStringList() << u""_s
        << QStringList{u"puppet 0 a at 1,1 facing 0"_s, u"puppet 1 b at 1,1 facing 0"_s,
                       u"puppet 2 c at 1,1 facing 0, y 20"_s,
                       u"puppet 3 d at 1,1 facing 0, y high"_s, u"puppet 4 e at 1,1 facing 0"_s}
        << QStringList() << QRectF(1, 1, 0, 0);
    QTest::newRow("numbers that do not read are listed, never placed")
        << QStringList{uR"(..\rez\bear.rbt|4o|0|0|0)"_s, u"|1|0||1,5"_s, u"x|inf|0|nan|0"_s,
                       u"y|1e39|0|0|0"_s, u"z|3.4e38|0|-5|0"_s}
        << QStringList{u"0||0|0|0|x"_s} << u"0"_s
        << QStringList{u"puppet 4 z at 3.4e+38,-5 facing 0"_s}
        << QStringList{u"bear.rbt (puppet 0): no number in X \"4o\""_s,
                       u"puppet 1: no number in Z \"\", heading \"1,5\""_s,
                       u"x (puppet 2): no number in X \"inf\", Z \"nan\""_s,
                       u"y (puppet 3): no number in X \"1e39\""_s,
                       u"camera 0: no number in heading \"x\""_s}
        << QRectF(3.4e38, -5, 0, 0);
    QTest::newRow("the main camera is the first with its Id")
        << QStringList() << QStringList{u"1|A|0|0|0|0"_s, u"1|B|10|0|0|180"_s, u"2|C|0|5|10|0"_s}
        << u"1"_s
        << QStringList{u"camera 0 A at 0,0 facing 0, main"_s, u"camera 1 B at 10,0 facing 180"_s,
                       u"camera 2 C at 0,10 facing 0, y 5"_s}
        << QStringList() << QRectF(0, 0, 10, 10);
    QTest::newRow("an empty main camera names none, not an empty Id")
        << QStringList() << QStringList{u"|A|0|0|0|0"_s} << u""_s
        << QStringList{u"camera 0 A at 0,0 facing 0"_s} << QStringList() << QRectF(0, 0, 0, 0);
    QTest::newRow("far apart, the bounds hold both")
        << QStringList{u"|-1e6|0|0|0"_s} << QStringList{u"7||2e9|0|-3e7|0"_s} << u"7"_s
        << QStringList{u"puppet 0 puppet 0 at -1e+06,0 facing 0"_s,
                       u"camera 0 camera 0 at 2e+09,-3e+07 facing 0, main"_s}
        << QStringList() << QRectF(QPointF(-1e6, -3e7), QPointF(2e9, 0));
}

void tst_StagePlan::marksAndRecordsNotPlaced()
{
    QFETCH(QStringList, puppets);
    QFETCH(QStringList, cameras);
    QFETCH(QString, mainCamera);
    const StagePlan plan(Scene(puppets, cameras, mainCamera));
    QStringList marks;
    for (const PlanMark& mark : plan.Marks())
        marks << Describe(mark);
    QStringList notPlaced;
    for (const PlanUnplaced& record : plan.Unplaced())
        notPlaced << record.text;
    QTEST(marks, "marks");
    QTEST(notPlaced, "notPlaced");
    QTEST(plan.Bounds(), "bounds");
}

void tst_StagePlan::gridStepIsOneTwoOrFiveTimesAPowerOfTen_data()
{
    QTest::addColumn<double>("atLeast");
    QTest::addColumn<double>("step");
    QTest::newRow("exactly a power") << 1000.0 << 1000.0;
    QTest::newRow("just above a power") << 1.0000001 << 2.0;
    QTest::newRow("between two and five") << 0.3 << 0.5;
    QTest::newRow("a five a rounding above its power") << 5e-6 << 5e-6;
    QTest::newRow("above five") << 85.7 << 100.0;
    QTest::newRow("large") << 4.9e12 << 5e12;
    QTest::newRow("zero, from a scale gone wrong") << 0.0 << 1.0;
}

void tst_StagePlan::gridStepIsOneTwoOrFiveTimesAPowerOfTen()
{
    QFETCH(double, atLeast);
    QTEST(PlanView::NiceStep(atLeast), "step");
}

QTEST_APPLESS_MAIN(tst_StagePlan)
#include "tst_StagePlan.moc"
