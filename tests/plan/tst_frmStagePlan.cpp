// SPDX-License-Identifier: GPL-3.0-or-later
// The stage plan window driven through its controls: the wheel, the Fit button and keys, clicks
// on marks and on the records not placed, and an edit of the scene it shows.

#include "plan/PlanCanvas.h"
#include "plan/frmStagePlan.h"
#include "stage/clsSSF.h"
#include "tests/support/WindowDriver.h"

#include <QListWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_frmStagePlan : public QObject {
    Q_OBJECT

    clsSSF scene;
    std::unique_ptr<frmStagePlan> window;
    std::unique_ptr<WindowDriver> ui;
    PlanCanvas* canvas = nullptr;

    QPointF onScreen(int mark) const
    {
        return canvas->View().ToScreen(canvas->Plan().Marks().at(mark).position);
    }
    // Every mark stands inside the plan.
    bool allMarksShown() const
    {
        for (int i = 0; i < canvas->Plan().Marks().size(); ++i)
            if (!canvas->rect().contains(onScreen(i).toPoint()))
                return false;
        return true;
    }
    void wheel(const QPointF& at, int notches)
    {
        QWheelEvent event(at, canvas->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas, &event);
    }

private slots:
    void init()
    {
        scene = clsSSF();
        for (const auto& [x, z] :
             {std::pair{u"0"_s, u"0"_s}, {u"40"_s, u"10"_s}, {u"4o"_s, u"0"_s}}) {
            auto puppet = std::make_shared<clsPuppet>();
            puppet->PositionX = x;
            puppet->PositionZ = z;
            scene.AddPuppet(puppet);
        }
        auto camera = std::make_shared<clsCamera>();
        camera->PositionZ = u"-400"_s;
        scene.AddCamera(camera);
        window = std::make_unique<frmStagePlan>();
        window->SetScene(&scene, u"act.ssf"_s);
        ui = std::make_unique<WindowDriver>(window.get());
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        canvas = ui->find<PlanCanvas>(u"picPlan"_s);
    }

    void wheelZoomsAboutTheCursor()
    {
        const QPointF cursor = onScreen(1) + QPointF(7, -3);
        const QPointF world = canvas->View().ToWorld(cursor);
        const double scale = canvas->View().Scale();
        wheel(cursor, 2);
        QCOMPARE(canvas->View().Scale(), scale * 1.25 * 1.25);
        QCOMPARE(canvas->View().ToWorld(cursor), world);
        wheel(cursor, -2);
        QCOMPARE(canvas->View().Scale(), scale);
    }

    void fitShowsEveryMark_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("Fit button") << u"cmdFit"_s;
        QTest::newRow("F") << u"F"_s;
        QTest::newRow("Home") << u"Home"_s;
    }
    void fitShowsEveryMark()
    {
        QFETCH(QString, how);
        QVERIFY(allMarksShown());
        wheel(onScreen(0), 10);
        QVERIFY(!allMarksShown());
        if (how == u"cmdFit")
            ui->click(how);
        else
            QTest::keyClick(window.get(), how == u"F" ? Qt::Key_F : Qt::Key_Home);
        QVERIFY(allMarksShown());
        // Fitted again, the plan follows an edit that moves a mark far away.
        scene.Puppets(1)->PositionX = u"4000"_s;
        window->Refresh();
        QVERIFY(allMarksShown());
    }

    void clicksReportTheirRecord()
    {
        QSignalSpy clicked(window.get(), &frmStagePlan::RecordClicked);
        QTest::mouseClick(canvas, Qt::LeftButton, {}, onScreen(2).toPoint() + QPoint(3, 2));
        QTest::mouseClick(canvas, Qt::LeftButton, {}, onScreen(1).toPoint());
        QTest::mouseClick(canvas, Qt::LeftButton, {}, (onScreen(0) + QPointF(0, 40)).toPoint());
        auto* notPlaced = ui->find<QListWidget>(u"lstNotPlaced"_s);
        QCOMPARE(notPlaced->count(), 1);
        QTest::mouseClick(notPlaced->viewport(), Qt::LeftButton, {},
                          notPlaced->visualItemRect(notPlaced->item(0)).center());
        // A drag from a mark moves the plan and reports nothing.
        const QPointF before = onScreen(0);
        const QPoint from = before.toPoint();
        QTest::mousePress(canvas, Qt::LeftButton, {}, from);
        QTest::mouseMove(canvas, from + QPoint(15, 0));
        QTest::mouseMove(canvas, from + QPoint(30, 0));
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, from + QPoint(30, 0));
        QCOMPARE(onScreen(0), before + QPointF(30, 0));

        QList<std::pair<PlanRecord::Kind, qint16>> records;
        for (const QList<QVariant>& arguments : clicked)
            records.append({arguments[0].value<PlanRecord::Kind>(), arguments[1].value<qint16>()});
        QCOMPARE(records,
                 (QList<std::pair<PlanRecord::Kind, qint16>>{
                     {PlanRecord::Camera, 0}, {PlanRecord::Puppet, 1}, {PlanRecord::Puppet, 2}}));
    }

    void editsAndAnotherSceneAreFollowed()
    {
        scene.Puppets(2)->PositionX = u"8"_s;
        window->Refresh();
        QCOMPARE(canvas->Plan().Marks().size(), 4);
        QVERIFY(ui->find<QWidget>(u"fraNotPlaced"_s)->isHidden());
        window->SetScene(nullptr, {});
        QCOMPARE(window->windowTitle(), u"Stage Plan - <no name>"_s);
        QVERIFY(canvas->Plan().Marks().isEmpty());
    }
};

QTEST_MAIN(tst_frmStagePlan)
#include "tst_frmStagePlan.moc"
