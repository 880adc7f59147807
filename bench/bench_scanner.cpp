// Part 2.3 "Performance constraints": the LTA scanner reads forward, in two passes at most,
// each stopping at the end of its list. Measured on generated LithTech-like models: the two
// lists first, as in real models, then keyframe data up to the wanted size.
//
// The bytes a scan reads: the first pass from the top to the end of the animation list, the
// second from the top again to the end of the node list (a pass whose list is missing reads
// to the file's end). Every Scan* benchmark also reads exactly these bytes plainly, pass by
// pass, in 64 KiB blocks with every byte summed, alternating with the scans (untimed), and
// reports:
//   read_rate             the scan's bytes per second of scan time;
//   ratio_to_plain_read   plain read time / scan time over the same bytes: 1 is as fast as
//                         the plain read, 0.5 half as fast.
//
//   ScanListsFirst/<MB>   a model of that size with short lists: the scan must stop at their
//                         end (target: under 5 ms for 200 MB). MB/s is over the whole file.
//   ScanFullLists         32767 animations and 32767 nodes, then keyframes (target:
//                         ratio_to_plain_read at least 0.5). MB/s is over the bytes up to
//                         the end of the lists.
//   PlainReadFullLists    the plain read of the bytes ScanFullLists reads, on its own.
//   ScanNoLists/<MB>, PlainRead/<MB>
//                         for information: a model without lists is read to its end by both
//                         passes, and the plain read goes through the file twice as well.

#include "rig/LtaScanner.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <map>
#include <tuple>

namespace {

constexpr qint64 MiB = 1024 * 1024;

struct GeneratedModel {
    QString path;
    qint64 size = 0;      // bytes in the file
    qint64 listBytes = 0; // bytes up to the end of the two lists
    qint64 animBytes = 0; // bytes up to the end of the animation list
    int animations = 0;
    int nodes = 0;

    // The bytes each pass of the scan reads, both from the top of the file.
    std::array<qint64, 2> Passes() const
    {
        return {animations > 0 ? animBytes : size, nodes > 0 ? listBytes : size};
    }
    qint64 ScannedBytes() const { return Passes()[0] + Passes()[1]; }
};

// The lists in the layout of the corpus (skinnedthing.lta).
QByteArray Lists(int animations, int nodes, qint64* animBytes = nullptr)
{
    QByteArray text = "\n(lt-model-0 \n\t(on-load-cmds (\n";
    if (animations > 0) {
        text += "\t\t(anim-bindings (\n";
        for (int i = 0; i < animations; ++i) {
            text += "\t\t\t(anim-binding \n\t\t\t\t(name \"anim_" + QByteArray::number(i) +
                    "\" )\n\t\t\t\t(dims \n\t\t\t\t\t(128.000000 16.000000 16.000000 ))"
                    "\n\t\t\t\t(translation \n\t\t\t\t\t(0.000000 0.000000 0.000000 ))"
                    "\n\t\t\t\t(interp-time 200 )\n\t\t\t )";
        }
        text += "))\n";
    }
    if (animBytes)
        *animBytes = text.size();
    if (nodes > 0) {
        text += "\t\t(set-node-flags (";
        for (int i = 0; i < nodes; ++i)
            text += "\n\t\t\t(\"joint" + QByteArray::number(i) + "\" 0 )";
        text += "))\n";
    }
    return text;
}

// Keyframe data as in the animsets of the corpus, appended until the file has `size` bytes.
void WriteKeyframes(QFile& file, qint64 size)
{
    const QByteArray head = "\t\t(set-command-string \"\" )))\n\t(animset \"base_anim\" \n"
                            "\t\t(keyframe \n\t\t\t(keyframe \n\t\t\t\t(times \n"
                            "\t\t\t\t\t(0 208 1250 2291 2500 \n\t\t\t\t\t ))\n"
                            "\t\t\t\t(values \n\t\t\t\t\t(\"\" \"\" \"\" \"\" \"\" \n"
                            "\t\t\t\t\t ))))\n\t\t(anims (\n";
    file.write(head);
    QByteArray block;
    int anim = 0;
    while (file.size() + block.size() < size) {
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
    file.write("\t\t))))\n");
}

// Generated once per kind and size, kept in one temporary folder until the program ends.
const GeneratedModel& Model(int animations, int nodes, qint64 size)
{
    static QTemporaryDir dir;
    static std::map<std::tuple<int, int, qint64>, GeneratedModel> made;
    const auto key = std::make_tuple(animations, nodes, size);
    if (const auto found = made.find(key); found != made.end())
        return found->second;

    GeneratedModel model;
    model.path =
        dir.filePath(QStringLiteral("model_%1_%2_%3.lta").arg(animations).arg(nodes).arg(size));
    model.animations = animations;
    model.nodes = nodes;
    QFile file(model.path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(model.path));
    const QByteArray lists = Lists(animations, nodes, &model.animBytes);
    file.write(lists);
    model.listBytes = lists.size();
    WriteKeyframes(file, size);
    model.size = file.size();
    file.close();
    return made.emplace(key, model).first->second;
}

// A plain buffered read of the first bytes[i] bytes of the file for each pass i, each from
// the top: open, read in 64 KiB blocks adding up every byte, close. False when it fails.
// Like the scanner, it takes a fresh buffer each time.
bool PlainRead(const QString& path, const std::array<qint64, 2>& passes)
{
    QByteArray buffer(64 * 1024, Qt::Uninitialized);
    quint64 sum = 0;
    for (const qint64 bytes : passes) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return false;
        for (qint64 left = bytes; left > 0;) {
            const qint64 got = file.read(buffer.data(), qMin<qint64>(left, qint64(buffer.size())));
            if (got <= 0)
                return false;
            const char* const bytes = buffer.constData();
            for (qint64 i = 0; i < got; ++i)
                sum += static_cast<unsigned char>(bytes[i]);
            left -= got;
        }
    }
    benchmark::DoNotOptimize(sum);
    return true;
}

// Runs the scan and checks that it found what the generator wrote. After each scan, with the
// benchmark's timers paused, the same bytes are read plainly, so that both see the same
// conditions; the two times give ratio_to_plain_read.
void Scan(benchmark::State& state, const GeneratedModel& model, qint64 bytesPerScan)
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
        if (!PlainRead(model.path, model.Passes()))
            state.SkipWithError("the plain read failed");
        plainTime += Clock::now() - plainStart;
        state.ResumeTiming();
    }
    if (scanner.strAnimations.size() != model.animations || scanner.strNodes.size() != model.nodes)
        state.SkipWithError("the scan did not find the generated lists");
    state.SetBytesProcessed(state.iterations() * bytesPerScan);
    state.counters["file_MB"] = double(model.size) / 1e6;
    state.counters["read_rate"] =
        benchmark::Counter(double(state.iterations()) * double(model.ScannedBytes()),
                           benchmark::Counter::kIsRate, benchmark::Counter::kIs1024);
    state.counters["ratio_to_plain_read"] = double(plainTime.count()) / double(scanTime.count());
}

// The plain read alone, of the bytes the scan of the model reads.
void PlainRead(benchmark::State& state, const GeneratedModel& model)
{
    for (auto _ : state) {
        if (!PlainRead(model.path, model.Passes()))
            state.SkipWithError("the plain read failed");
    }
    state.SetBytesProcessed(state.iterations() * model.ScannedBytes());
}

// (a) Lists first, then keyframes: the scan stops at the end of the lists.
void ScanListsFirst(benchmark::State& state)
{
    const GeneratedModel& model = Model(8, 40, state.range(0) * MiB);
    Scan(state, model, model.size);
}
BENCHMARK(ScanListsFirst)->Arg(1)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

// (b) Full lists: 32767 animations and 32767 nodes.
void ScanFullLists(benchmark::State& state)
{
    const GeneratedModel& model = Model(32767, 32767, 20 * MiB);
    Scan(state, model, model.listBytes);
}
BENCHMARK(ScanFullLists)->Unit(benchmark::kMillisecond);

void PlainReadFullLists(benchmark::State& state)
{
    const GeneratedModel& model = Model(32767, 32767, 20 * MiB);
    PlainRead(state, model);
}
BENCHMARK(PlainReadFullLists)->Unit(benchmark::kMillisecond);

// For information: the worst case, a model without lists, read to its end by both passes.
void ScanNoLists(benchmark::State& state)
{
    const GeneratedModel& model = Model(0, 0, state.range(0) * MiB);
    Scan(state, model, model.size);
}
BENCHMARK(ScanNoLists)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

void PlainRead(benchmark::State& state)
{
    const GeneratedModel& model = Model(0, 0, state.range(0) * MiB);
    PlainRead(state, model);
}
BENCHMARK(PlainRead)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
