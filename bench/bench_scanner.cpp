// Part 2.3 "Performance constraints": the LTA scanner reads forward, in two passes at most,
// each stopping at the end of its list. Measured on generated LithTech-like models: the two
// lists first, as in real models, then keyframe data up to the wanted size.
//
//   ScanListsFirst/<MB>   a model of that size with short lists: the scan must stop at their
//                         end (target: under 5 ms for 200 MB). MB/s is over the whole file.
//   ScanFullLists         32767 animations and 32767 nodes, then keyframes; MB/s over the
//                         bytes up to the end of the lists (the first pass reads the
//                         animation list, the second reads it again and then the nodes).
//   PlainReadFullLists    the same bytes read once in 64 KiB blocks, every byte summed
//                         (target: the scan at least half as fast).
//   ScanNoLists/<MB>, PlainRead/<MB>
//                         for information: a model without lists is read to its end by both
//                         passes (twice the bytes), against one plain read.

#include "rig/LtaScanner.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <vector>

namespace {

constexpr qint64 MiB = 1024 * 1024;

struct GeneratedModel
{
    QString path;
    qint64 size = 0;      // bytes in the file
    qint64 listBytes = 0; // bytes up to the end of the two lists
    qint64 animBytes = 0; // bytes up to the end of the animation list
    int animations = 0;
    int nodes = 0;
};

// The lists in the layout of the corpus (skinnedthing.lta).
QByteArray Lists(int animations, int nodes, qint64* animBytes = nullptr)
{
    QByteArray text = "\n(lt-model-0 \n\t(on-load-cmds (\n";
    if (animations > 0) {
        text += "\t\t(anim-bindings (\n";
        for (int i = 0; i < animations; ++i) {
            text += "\t\t\t(anim-binding \n\t\t\t\t(name \"anim_" + QByteArray::number(i)
                    + "\" )\n\t\t\t\t(dims \n\t\t\t\t\t(128.000000 16.000000 16.000000 ))"
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
        block += "\t\t\t(anim \n\t\t\t\t(parent \"joint" + QByteArray::number(anim++)
                 + "\" )\n\t\t\t\t(frames \n\t\t\t\t\t(posquat ((";
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
    model.path = dir.filePath(QStringLiteral("model_%1_%2_%3.lta").arg(animations).arg(nodes).arg(size));
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

// Runs the scan and checks that it found what the generator wrote. `read_rate` counts the
// characters the scan takes: the first pass reads to the end of the animation list, the
// second from the top again to the end of the node list.
void Scan(benchmark::State& state, const GeneratedModel& model, qint64 bytesPerScan)
{
    LtaScanner scanner;
    for (auto _ : state) {
        const bool ok = scanner.ScanModel(model.path);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(scanner.strNodes.constData());
    }
    if (scanner.strAnimations.size() != model.animations || scanner.strNodes.size() != model.nodes)
        state.SkipWithError("the scan did not find the generated lists");
    state.SetBytesProcessed(state.iterations() * bytesPerScan);
    state.counters["file_MB"] = double(model.size) / 1e6;
    if (model.nodes > 0)
        state.counters["read_rate"] = benchmark::Counter(
            double(state.iterations()) * double(model.animBytes + model.listBytes),
            benchmark::Counter::kIsRate, benchmark::Counter::kIs1024);
}

// A plain buffered read of the first `bytes` bytes of the file, touching each one.
void PlainRead(benchmark::State& state, const QString& path, qint64 bytes)
{
    std::vector<char> buffer(64 * 1024);
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            state.SkipWithError("cannot open");
            return;
        }
        quint64 sum = 0;
        qint64 left = bytes;
        while (left > 0) {
            const qint64 got = file.read(buffer.data(), qMin<qint64>(left, qint64(buffer.size())));
            if (got <= 0)
                break;
            for (qint64 i = 0; i < got; ++i)
                sum += static_cast<unsigned char>(buffer[size_t(i)]);
            left -= got;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(state.iterations() * bytes);
}

// (a) Lists first, then keyframes: the scan stops at the end of the lists.
void ScanListsFirst(benchmark::State& state)
{
    const GeneratedModel& model = Model(8, 40, state.range(0) * MiB);
    Scan(state, model, model.size);
}
BENCHMARK(ScanListsFirst)->Arg(1)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

// (b) Full lists: 32767 animations and 32767 nodes, against a plain read of the same bytes.
void ScanFullLists(benchmark::State& state)
{
    const GeneratedModel& model = Model(32767, 32767, 20 * MiB);
    Scan(state, model, model.listBytes);
}
BENCHMARK(ScanFullLists)->Unit(benchmark::kMillisecond);

void PlainReadFullLists(benchmark::State& state)
{
    const GeneratedModel& model = Model(32767, 32767, 20 * MiB);
    PlainRead(state, model.path, model.listBytes);
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
    PlainRead(state, model.path, model.size);
}
BENCHMARK(PlainRead)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
