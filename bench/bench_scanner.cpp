// SPDX-License-Identifier: GPL-3.0-or-later
// The LTA scanner against a plain read of the bytes it needs, on generated LithTech-like
// models.
//
// The scan reads the model once, from the top, in 64 KiB blocks, and stops reading where the
// later of its two lists ends; both passes look at each block. Every case also reads those
// same bytes plainly, once, in 64 KiB blocks with every byte summed, alternating with the
// scans (untimed, the file in the page cache for both), and reports
//   ratio_to_read_once   plain read time / scan time: 1 is as fast as reading the bytes the
//                        scan needs once and adding them up; above 1 is faster.
//   read_MB              the bytes the scan needs (bytes_per_second counts these).
//
//   ScanListsFirst/<MB>  short lists at the top, then keyframes up to that size: the scan
//                        stops at the end of the lists (target: under 1 ms at any size).
//   ScanFullLists        32767 animations and 32767 nodes, then keyframes, 21 MB in all.
//   ScanListsLast/<MB>   keyframes first, the short lists at the end: the scan reads the
//                        whole file, and both passes look at all of it.

#include "rig/LtaScanner.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <tuple>

namespace {

constexpr qint64 MiB = 1024 * 1024;

struct GeneratedModel {
    QString path;
    qint64 size = 0;
    qint64 read = 0; // from the top to the end of the lists: what the scan needs
    int animations = 0;
    int nodes = 0;
};

// The lists in the layout of the sample models, inside their (on-load-cmds form.
QByteArray Lists(int animations, int nodes)
{
    QByteArray text = "\n\t(on-load-cmds (\n\t\t(anim-bindings (\n";
    for (int i = 0; i < animations; ++i) {
        text += "\t\t\t(anim-binding \n\t\t\t\t(name \"anim_" + QByteArray::number(i) +
                "\" )\n\t\t\t\t(dims \n\t\t\t\t\t(128.000000 16.000000 16.000000 ))"
                "\n\t\t\t\t(translation \n\t\t\t\t\t(0.000000 0.000000 0.000000 ))"
                "\n\t\t\t\t(interp-time 200 )\n\t\t\t )";
    }
    text += "))\n\t\t(set-node-flags (";
    for (int i = 0; i < nodes; ++i)
        text += "\n\t\t\t(\"joint" + QByteArray::number(i) + "\" 0 )";
    return text + "))\n\t\t(set-command-string \"\" )))\n";
}

// An animation set of keyframe data as in the sample models, `size` bytes or a little more.
void WriteKeyframes(QFile& file, qint64 size)
{
    const qint64 end = file.size() + size;
    file.write("\t(animset \"base_anim\" \n\t\t(keyframe \n\t\t\t(keyframe \n\t\t\t\t(times \n"
               "\t\t\t\t\t(0 208 1250 2291 2500 \n\t\t\t\t\t ))\n\t\t\t\t(values \n"
               "\t\t\t\t\t(\"\" \"\" \"\" \"\" \"\" \n\t\t\t\t\t ))))\n\t\t(anims (\n");
    QByteArray block;
    int anim = 0;
    while (file.size() + block.size() < end) {
        block += "\t\t\t(anim \n\t\t\t\t(parent \"joint" + QByteArray::number(anim++) +
                 "\" )\n\t\t\t\t(frames \n\t\t\t\t\t(posquat ((";
        for (int frame = 0; frame < 200; ++frame)
            block += "\n\t\t\t\t\t\t(0.000000 -9.355083 0.032135 )"
                     "\n\t\t\t\t\t\t(0.500001 -0.498655 0.501338 0.500001 ))(";
        block += "\n\t\t\t\t\t\t(0.000000 0.000000 0.000000 )"
                 "\n\t\t\t\t\t\t(0.000000 0.000000 0.000000 1.000000 ))))))\n";
        if (block.size() > MiB) {
            file.write(block);
            block.clear();
        }
    }
    file.write(block);
    file.write("\t\t)))\n");
}

// Generated once per kind and size, kept in one temporary folder until the program ends.
const GeneratedModel& Model(int animations, int nodes, qint64 keyframes, bool listsLast)
{
    static QTemporaryDir dir;
    static std::map<std::tuple<int, int, qint64, bool>, GeneratedModel> made;
    const auto key = std::make_tuple(animations, nodes, keyframes, listsLast);
    if (const auto found = made.find(key); found != made.end())
        return found->second;

    GeneratedModel model{dir.filePath(QStringLiteral("model_%1_%2_%3_%4.lta")
                                          .arg(animations)
                                          .arg(nodes)
                                          .arg(keyframes)
                                          .arg(listsLast)),
                         0, 0, animations, nodes};
    QFile file(model.path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(model.path));
    file.write("\n(lt-model-0 ");
    if (!listsLast) {
        file.write(Lists(animations, nodes));
        model.read = file.size();
    }
    WriteKeyframes(file, keyframes);
    if (listsLast) {
        file.write(Lists(animations, nodes));
        model.read = file.size();
    }
    file.write(")\n");
    model.size = file.size();
    file.close();
    return made.emplace(key, model).first->second;
}

// One plain read of the file's first `bytes`: open, read in 64 KiB blocks adding up every
// byte, close.
bool PlainRead(const QString& path, qint64 bytes)
{
    QByteArray buffer(64 * 1024, Qt::Uninitialized);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    quint64 sum = 0;
    for (qint64 got; bytes > 0 && (got = file.read(buffer.data(), buffer.size())) > 0;
         bytes -= got) {
        const char* const chars = buffer.constData();
        for (qint64 i = 0; i < got; ++i)
            sum += static_cast<unsigned char>(chars[i]);
    }
    benchmark::DoNotOptimize(sum);
    return bytes <= 0;
}

// Runs the scan and checks that it found what the generator wrote. After each scan, with the
// benchmark's timers paused, the bytes it needs are read plainly, so that both see the same
// conditions.
void Scan(benchmark::State& state, const GeneratedModel& model)
{
    using Clock = std::chrono::steady_clock;
    LtaScanner scanner;
    Clock::duration scanTime{};
    Clock::duration plainTime{};
    for (auto _ : state) {
        const auto scanStart = Clock::now();
        const bool ok = scanner.ScanModel(model.path);
        scanTime += Clock::now() - scanStart;
        benchmark::DoNotOptimize(ok);

        state.PauseTiming();
        const auto plainStart = Clock::now();
        if (!PlainRead(model.path, model.read))
            state.SkipWithError("the plain read failed");
        plainTime += Clock::now() - plainStart;
        state.ResumeTiming();
    }
    if (scanner.strAnimations.size() != model.animations || scanner.strNodes.size() != model.nodes)
        state.SkipWithError("the scan did not find the generated lists");
    state.SetBytesProcessed(state.iterations() * model.read);
    state.counters["file_MB"] = double(model.size) / 1e6;
    state.counters["read_MB"] = double(model.read) / 1e6;
    state.counters["ratio_to_read_once"] = double(plainTime.count()) / double(scanTime.count());
}

void ScanListsFirst(benchmark::State& state)
{
    Scan(state, Model(8, 40, state.range(0) * MiB, false));
}
BENCHMARK(ScanListsFirst)->Arg(1)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);

void ScanFullLists(benchmark::State& state) { Scan(state, Model(32767, 32767, 14 * MiB, false)); }
BENCHMARK(ScanFullLists)->Unit(benchmark::kMillisecond);

void ScanListsLast(benchmark::State& state)
{
    Scan(state, Model(8, 40, state.range(0) * MiB, true));
}
BENCHMARK(ScanListsLast)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
