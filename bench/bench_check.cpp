// SPDX-License-Identifier: GPL-3.0-or-later
// The show check against reading the same show once.
//
// A generated show of 30 scenes, each with 100 puppets over 20 rig bindings, 10 sounds and
// 4 cameras; each rig binding has 20 joints and 10 animations over a 1 MB model whose lists
// stand near the top, keyframe data behind them. Every file the show names is there, so the
// check runs every rule and finds nothing.
//
//   CheckShow   ratio_to_reading: the check's time over the time to Load each document once
//               and scan each model once, the two measured in the same run, alternating
//               (target: at most 1.5).

#include "check/ShowCheck.h"
#include "foundation/mdlGeneral.h"
#include "rig/LtaScanner.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <chrono>

namespace {

constexpr int Scenes = 30;
constexpr int PuppetsPerScene = 100;
constexpr int Bindings = 20;
constexpr int Joints = 20;
constexpr int Animations = 10;
constexpr qint64 ModelBytes = 1024 * 1024;

struct Show {
    QTemporaryDir dir;
    QString base; // rez/, with its separator
    QString listing;
    QStringList scenes, bindings, models;
};

void Write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray Number(int i) { return QByteArray::number(i); }

// The lists in the layout of the sample models, then keyframes up to ModelBytes.
QByteArray ModelText()
{
    QByteArray text = "(lt-model-0 \n\t(on-load-cmds (\n\t\t(anim-bindings (\n";
    for (int i = 0; i < Animations; ++i)
        text += "\t\t\t(anim-binding \n\t\t\t\t(name \"anim" + Number(i) +
                "\" )\n\t\t\t\t(interp-time 200 )\n\t\t\t )\n";
    text += "\t\t))\n\t\t(set-node-flags (";
    for (int i = 0; i < 40; ++i)
        text += "\n\t\t\t(\"node" + Number(i) + "\" 0 )";
    text += "))\n\t))\n\t(animset \"base\" (anims (\n";
    while (text.size() < ModelBytes)
        text += "\t\t\t(posquat ((0.000000 -9.355083 0.032135 )(0.500001 -0.498655 0.501338 "
                "0.500001 )))\n";
    return text + ")))\n)\n";
}

const Show& Generated()
{
    static Show show;
    if (!show.base.isEmpty())
        return show;
    show.base = show.dir.filePath(QStringLiteral("rez")) + QDir::separator();
    const QByteArray model = ModelText();
    Write(show.base + "worlds/stage.dat", {});
    for (int i = 0; i < 5; ++i) {
        Write(show.base + "sounds/effect" + QString::number(i) + ".wav", {});
        Write(show.base + "sounds/line" + QString::number(i) + "01.wav", {});
    }
    for (int b = 0; b < Bindings; ++b) {
        const QString name = QString::number(b);
        show.models << show.base + "models/m" + name + ".lta";
        Write(show.models.last(), model);
        Write(show.base + "models/m" + name + ".ltb", {});
        QByteArray rbt = "<rbt name=\"rig" + Number(b) + "\" type=\"model\" model=\"models\\\\m" +
                         Number(b) + ".ltb\" texture=\"\" icon=\"\">";
        for (int j = 0; j < Joints; ++j)
            rbt += "<joint id=\"" + Number(j) + "\" node=\"node" + Number(j) +
                   "\" min=\"-90.0\" max=\"90.0\" vector=\"0.0,1.0,0.0\" action=\"rotate\" "
                   "desc=\"j\"/>";
        for (int a = 0; a < Animations; ++a)
            rbt += "<animation id=\"" + Number(a) + "\" name=\"a" + Number(a) + "\"/>";
        show.bindings << show.base + "rig" + name + ".rbt";
        Write(show.bindings.last(), rbt + "</rbt>");
    }
    QByteArray tsl = R"(<play title="Bench" mainworld="..\rez\worlds\stage">)";
    for (int s = 0; s < Scenes; ++s) {
        QByteArray ssf =
            R"(<scene world="..\rez\worlds\stage" maincamera="0" nickname="" server="" port="27888">)";
        for (int p = 0; p < PuppetsPerScene; ++p)
            ssf += "<puppet id=\"" + Number(p) + "\" rbt=\"..\\\\rez\\\\rig" +
                   Number(p % Bindings) +
                   ".rbt\" position=\"1.0,0.0,2.5\" scale=\"1.0,1.0,1.0\" "
                   "orientation=\"0.0,90.0,0.0\"/>";
        for (int i = 0; i < 5; ++i)
            ssf += "<sound id=\"" + Number(i) +
                   "\" name=\"e\" type=\"sound\" "
                   "file=\"..\\\\rez\\\\sounds\\\\effect" +
                   Number(i) + ".wav\"/>" + "<sound id=\"" + Number(5 + i) +
                   "\" name=\"l\" type=\"dialog\" "
                   "file=\"..\\\\rez\\\\sounds\\\\line" +
                   Number(i) + "\"/>";
        for (int c = 0; c < 4; ++c)
            ssf += "<camera id=\"" + Number(c) +
                   "\" name=\"c\" position=\"0.0,10.0,-5.0\" orientation=\"0.0,0.0,0.0\"/>";
        show.scenes << show.base + "scene" + QString::number(s) + ".ssf";
        Write(show.scenes.last(), ssf + "</scene>");
        tsl += "<scene id=\"" + Number(s) + "\" name=\"s\" ssf=\"..\\\\rez\\\\scene" + Number(s) +
               ".ssf\"/>";
    }
    show.listing = show.base + "show.tsl";
    Write(show.listing, tsl + "</play>");
    return show;
}

// Each document loaded once and each model scanned once: what the check cannot do without.
bool ReadShow(const Show& show)
{
    mdlGeneral::strCurrentDir = show.base;
    bool ok = clsTSL().Load(show.listing);
    for (const QString& scene : show.scenes)
        ok = clsSSF().Load(scene) && ok;
    for (const QString& binding : show.bindings)
        ok = clsRBT().Load(binding) && ok;
    LtaScanner scanner;
    for (const QString& model : show.models)
        ok = scanner.ScanModel(model) && scanner.strNodes.size() == 40 && ok;
    mdlGeneral::strCurrentDir.clear();
    return ok;
}

void CheckShow(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    const Show& show = Generated();
    Clock::duration checkTime{};
    Clock::duration readTime{};
    for (auto _ : state) {
        const auto checkStart = Clock::now();
        ShowCheck check;
        const bool checked = check.CheckFile(show.listing);
        checkTime += Clock::now() - checkStart;
        if (!checked || !check.Findings().isEmpty() ||
            check.FilesChecked() != 1 + Scenes + Bindings)
            state.SkipWithError("the check did not go through the whole show cleanly");

        state.PauseTiming();
        const auto readStart = Clock::now();
        if (!ReadShow(show))
            state.SkipWithError("the show did not read");
        readTime += Clock::now() - readStart;
        state.ResumeTiming();
    }
    state.counters["ratio_to_reading"] = double(checkTime.count()) / double(readTime.count());
}
BENCHMARK(CheckShow)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
