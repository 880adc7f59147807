// SPDX-License-Identifier: GPL-3.0-or-later
// The stage scene window on a large scene: 10000 puppets, 10000 sounds and 10000 cameras.
// Targets: opening the scene, from the call to filled lists, under 1 s; adding a record,
// and typing one character into a record's field, each under 5 ms on that scene, and also
// in a list of 32767 rows, where the row typed into is the widest and so sets the list's
// scroll range with every key.
// Each measurement ends after the events the step posted have run, paints included.

#include "bench/PaintCounter.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/DialogService.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "stage/frmMainSSF.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// Answers no dialog; a message would mean the scene did not open.
class SilentDialogs : public DialogService {
public:
    bool ShowOpen(CommonDialog&) override { return false; }
    bool ShowSave(CommonDialog&) override { return false; }
    void MsgBox(const QString& text) override { qFatal("%s", qPrintable(text)); }
    QString InputBox(const QString&, const QString&) override { return {}; }
    bool AskYesNo(const QString&) override { return false; } // no question is expected
};

// Writes `scene` as `name` into a temporary directory that becomes the base directory.
QString WriteScene(const clsSSF& scene, const QString& name)
{
    static QTemporaryDir dir;
    mdlGeneral::strCurrentDir = dir.path() + u'/';
    if (!scene.Save(dir.filePath(name)))
        qFatal("cannot write the scene %s", qPrintable(name));
    return name;
}

// The large scene, written once.
const QString& LargeScene()
{
    static const QString name = [] {
        clsSSF scene;
        scene.World = QStringLiteral(R"(..\rez\worlds\theatre)");
        scene.MainCamera = QStringLiteral("9999");
        for (int i = 0; i < 10000; ++i) {
            const QString n = QString::number(i);
            auto puppet = std::make_shared<clsPuppet>();
            puppet->RBT = QStringLiteral(R"(..\rez\puppet%1.rbt)").arg(n);
            puppet->PositionX = n;
            scene.AddPuppet(puppet);
            auto sound = std::make_shared<clsSound>();
            sound->Name = QStringLiteral("sound ") + n;
            sound->TypeSound = i % 2 ? QStringLiteral("dialog") : QStringLiteral("sound");
            sound->File = QStringLiteral(R"(..\rez\sounds\line%1.wav)").arg(n);
            scene.AddSound(sound);
            auto camera = std::make_shared<clsCamera>();
            camera->Name = QStringLiteral("camera ") + n;
            camera->PositionY = n;
            scene.AddCamera(camera);
        }
        return WriteScene(scene, QStringLiteral("large.ssf"));
    }();
    return name;
}

// 32767 puppets, the most a list holds; the puppet in the middle has the widest row.
constexpr int FullCount = 32767;
constexpr int WidestPuppet = FullCount / 2;

const QString& FullPuppetList()
{
    static const QString name = [] {
        clsSSF scene;
        for (int i = 0; i < FullCount; ++i) {
            auto puppet = std::make_shared<clsPuppet>();
            puppet->RBT = QStringLiteral(R"(..\rez\puppet%1.rbt)").arg(i);
            puppet->PositionX = i == WidestPuppet ? QString(40, u'7') : QString::number(i);
            scene.AddPuppet(puppet);
        }
        return WriteScene(scene, QStringLiteral("full.ssf"));
    }();
    return name;
}

// The window shown with the large scene open, its puppet page on top.
struct OpenWindow {
    SilentDialogs dialogs;
    frmMainSSF window{dialogs};

    explicit OpenWindow(const QString& scene = LargeScene())
    {
        window.show();
        window.OpenSSF(scene);
        QApplication::processEvents();
    }
    template <class T> T* find(const char* name) const
    {
        return window.findChild<T*>(QString::fromLatin1(name));
    }
};

void BM_OpenLargeScene(benchmark::State& state)
{
    OpenWindow open;
    for (auto _ : state) {
        open.window.OpenSSF(LargeScene());
        QApplication::processEvents();
    }
    state.counters["rows"] = open.find<ListBox>("lstPuppets")->ListCount() +
                             open.find<ListBox>("lstSounds")->ListCount() +
                             open.find<ListBox>("lstCameras")->ListCount();
}
BENCHMARK(BM_OpenLargeScene)->Unit(benchmark::kMillisecond);

// "Add puppet..." pressed; a fixed number of presses keeps the scene under its record limit.
void BM_AddPuppet(benchmark::State& state)
{
    OpenWindow open;
    CommandButton* add = open.find<CommandButton>("Command1");
    for (auto _ : state) {
        add->click();
        QApplication::processEvents();
    }
    state.counters["puppets"] = open.window.Document()->NumPuppets();
}
BENCHMARK(BM_AddPuppet)->Unit(benchmark::kMillisecond)->Iterations(2000);

// A scene of 500 puppets and 500 cameras on a square of ground, written once.
const QString& ThousandRecords()
{
    static const QString name = [] {
        clsSSF scene;
        for (int i = 0; i < 500; ++i) {
            auto puppet = std::make_shared<clsPuppet>();
            puppet->RBT = QStringLiteral(R"(..\rez\puppet%1.rbt)").arg(i);
            puppet->PositionX = QString::number(i % 23 * 10);
            puppet->PositionZ = QString::number(i / 23 * 10);
            puppet->OrientationY = QString::number(i * 7 % 360);
            scene.AddPuppet(puppet);
            auto camera = std::make_shared<clsCamera>();
            camera->Name = QStringLiteral("camera %1").arg(i);
            camera->PositionX = QString::number(i % 23 * 10 + 5);
            camera->PositionZ = QString::number(i / 23 * 10 + 5);
            scene.AddCamera(camera);
        }
        return WriteScene(scene, QStringLiteral("thousand.ssf"));
    }();
    return name;
}

// One key typed into the X position of a puppet in the middle of the list: a digit and a
// Backspace in turn, so the field stays short. With the plan open, each key repaints it.
void TypeIntoPositionX(benchmark::State& state, const QString& scene, int puppet,
                       bool withPlan = false)
{
    OpenWindow open(scene);
    PaintCounter plan;
    if (withPlan) {
        open.find<QAction>("menStagePlan")->trigger();
        QApplication::processEvents();
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == QStringLiteral("frmStagePlan"))
                top->findChild<QWidget*>(QStringLiteral("picPlan"))->installEventFilter(&plan);
    }
    open.find<ListBox>("lstPuppets")->setListIndex(puppet);
    TextBox* box = open.find<TextBox>("txtPosX");
    box->setFocus();
    box->end(false);
    bool digit = true;
    for (auto _ : state) {
        const Qt::Key key = digit ? Qt::Key_1 : Qt::Key_Backspace;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier,
                        digit ? QStringLiteral("1") : QString());
        QApplication::sendEvent(box, &press);
        QApplication::processEvents();
        digit = !digit;
    }
    if (open.window.Document()->Puppets(static_cast<qint16>(puppet))->PositionX != box->Text())
        state.SkipWithError("the field did not reach the record");
    if (withPlan && plan.paints < state.iterations())
        state.SkipWithError("the plan was not painted after every key");
}

void BM_TypeIntoPuppetField(benchmark::State& state)
{
    TypeIntoPositionX(state, LargeScene(), 5000);
}
BENCHMARK(BM_TypeIntoPuppetField)->Unit(benchmark::kMillisecond);

void BM_TypeIntoTheWidestOf32767Rows(benchmark::State& state)
{
    TypeIntoPositionX(state, FullPuppetList(), WidestPuppet);
}
BENCHMARK(BM_TypeIntoTheWidestOf32767Rows)->Unit(benchmark::kMillisecond);

// Target: under 16 ms, one frame, the plan's repaint included.
void BM_TypeIntoAPositionWithThePlanOpen(benchmark::State& state)
{
    TypeIntoPositionX(state, ThousandRecords(), 250, true);
}
BENCHMARK(BM_TypeIntoAPositionWithThePlanOpen)->Unit(benchmark::kMillisecond);

} // namespace
