// The stage plan window on large scenes. Targets: opening the plan of 30000 records (15000
// puppets, 15000 cameras), shown and painted once, under 100 ms; after one puppet's position
// is typed anew in a scene of 1000 records, Refresh and the repaint under 16 ms, one frame.
// Each measurement ends after the events the step posted have run, the paint included.

#include "plan/frmStagePlan.h"
#include "stage/clsSSF.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace {

// Puppets and cameras in equal numbers on a square of ground, facing every way.
clsSSF Scene(int records)
{
    clsSSF scene;
    scene.MainCamera = QStringLiteral("0");
    const int side = int(std::sqrt(records / 2)) + 1;
    for (int i = 0; i < records / 2; ++i) {
        auto puppet = std::make_shared<clsPuppet>();
        puppet->RBT = QStringLiteral(R"(..\rez\puppet%1.rbt)").arg(i);
        puppet->PositionX = QString::number(i % side * 10);
        puppet->PositionZ = QString::number(i / side * 10);
        puppet->OrientationY = QString::number(i * 7 % 360);
        scene.AddPuppet(puppet);
        auto camera = std::make_shared<clsCamera>();
        camera->Name = QStringLiteral("camera ") + QString::number(i);
        camera->PositionX = QString::number(i % side * 10 + 5);
        camera->PositionY = QStringLiteral("40");
        camera->PositionZ = QString::number(i / side * 10 + 5);
        camera->OrientationY = QString::number(i * 13 % 360);
        scene.AddCamera(camera);
    }
    return scene;
}

// Counts the paints of the plan, so a measurement knows the plan was drawn.
class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

void BM_OpenPlanOfLargeScene(benchmark::State& state)
{
    const clsSSF scene = Scene(30000);
    PaintCounter counter;
    for (auto _ : state) {
        frmStagePlan window;
        window.findChild<QWidget*>(QStringLiteral("picPlan"))->installEventFilter(&counter);
        window.SetScene(&scene, QStringLiteral("large.ssf"));
        window.show();
        QApplication::processEvents();
        state.PauseTiming(); // closing the window is not part of opening it
        window.close();
        state.ResumeTiming();
    }
    if (counter.paints < state.iterations())
        state.SkipWithError("the plan was not painted at every opening");
    state.counters["records"] = scene.NumPuppets() + scene.NumCameras();
}
BENCHMARK(BM_OpenPlanOfLargeScene)->Unit(benchmark::kMillisecond);

// The X position of a puppet in the middle typed anew, two values in turn, as the stage
// manager calls Refresh after each edit.
void BM_RefreshAfterAnEdit(benchmark::State& state)
{
    const clsSSF scene = Scene(1000);
    frmStagePlan window;
    PaintCounter counter;
    window.findChild<QWidget*>(QStringLiteral("picPlan"))->installEventFilter(&counter);
    window.SetScene(&scene, QStringLiteral("scene.ssf"));
    window.show();
    QApplication::processEvents();
    const int paintsBefore = counter.paints;
    const auto puppet = scene.Puppets(250);
    bool moved = false;
    for (auto _ : state) {
        puppet->PositionX = moved ? QStringLiteral("12.5") : QStringLiteral("13.5");
        moved = !moved;
        window.Refresh();
        QApplication::processEvents();
    }
    if (counter.paints - paintsBefore < state.iterations())
        state.SkipWithError("the plan was not painted after every edit");
}
BENCHMARK(BM_RefreshAfterAnEdit)->Unit(benchmark::kMillisecond);

} // namespace
