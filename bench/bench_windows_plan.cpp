// SPDX-License-Identifier: GPL-3.0-or-later
// The stage plan window on a large scene. Target: opening the plan of 30000 records (15000
// puppets, 15000 cameras), shown and painted once, under 100 ms. The measurement ends after the
// events the step posted have run, the paint included. (Typing with the plan open is measured
// through the stage manager, in bench_windows_stage.cpp.)

#include "bench/PaintCounter.h"
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

} // namespace
