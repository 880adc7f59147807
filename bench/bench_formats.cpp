// SPDX-License-Identifier: GPL-3.0-or-later
// Load and Save of the three document formats (.ssf, .rbt, .tsl) at the sizes of the largest
// documents a window is expected to hold.
// Targets: each under 100 ms each way; a Load at most 1.5 times the time of QXmlStreamReader
// reading the same file and building nothing (the counter `ratio_to_parse`, CPU time of the
// two interleaved), and the memory a Load takes at its peak at most three times the file's
// size (`peak_per_file_byte`; `kept_per_file_byte` is what the loaded document holds). A file
// that Load read and Save wrote again is byte for byte the same (checked once per format
// before timing; a format that fails the check is skipped with an error).
//
// A format takes part through a traits struct: the document class, a name, and Fill, which
// builds the large document. FormatFiles<Traits> writes its file once; BM_Load and BM_Save
// are the same two templates for every format. To add a format, write its traits and two
// BENCHMARK_TEMPLATE lines at the bottom.

#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <malloc.h>
#include <memory>
#include <string>
#include <vector>

namespace {

// --- the formats ---

// 10000 puppets, 10000 sounds (half of them dialog lines) and 10000 cameras.
struct SsfFormat {
    using Document = clsSSF;
    static constexpr const char* Name = "scene.ssf";

    static void Fill(clsSSF& ssf)
    {
        ssf.World = QStringLiteral(R"(..\rez\worlds\theatre)");
        ssf.MainCamera = QStringLiteral("0");
        ssf.Nickname = QStringLiteral("bench");
        ssf.Server = QStringLiteral("stage.example");
        ssf.Port = QStringLiteral("27888");
        for (int i = 0; i < 10000; ++i) {
            const QString n = QString::number(i);
            auto p = std::make_shared<clsPuppet>();
            p->RBT = QStringLiteral(R"(..\rez\puppet%1.rbt)").arg(n);
            p->PositionX = n;
            p->PositionY = QStringLiteral("0.0");
            p->PositionZ = QStringLiteral("-%1.5").arg(n);
            p->OrientationY = QStringLiteral("90.0");
            ssf.AddPuppet(p);

            auto s = std::make_shared<clsSound>();
            s->Name = QStringLiteral("sound ") + n;
            s->TypeSound = i % 2 ? QStringLiteral("dialog") : QStringLiteral("sound");
            // A dialog line loses its digits on the first save; the round trip checked
            // below starts from that saved file.
            s->File = QStringLiteral(R"(..\rez\sounds\line%1.wav)").arg(n);
            ssf.AddSound(s);

            auto c = std::make_shared<clsCamera>();
            c->Name = QStringLiteral("camera ") + n;
            c->PositionX = n;
            c->PositionY = QStringLiteral("10.0");
            c->PositionZ = QStringLiteral("-5.0");
            ssf.AddCamera(c);
        }
    }
};

// 32767 joints and one animation. A root with more than 32768 child nodes fails every Load,
// so 32767 joints and 32767 animations could not be read back; the heaviest file that loads
// has the joints, the larger elements, at the list limit.
struct RbtFormat {
    using Document = clsRBT;
    static constexpr const char* Name = "hero.rbt";

    static void Fill(clsRBT& rbt)
    {
        // Full paths under the base directory of the run, stored relative to it.
        rbt.Name = QStringLiteral("Hero");
        rbt.Model = mdlGeneral::strCurrentDir + QStringLiteral("models/hero.ltb");
        rbt.Texture = mdlGeneral::strCurrentDir + QStringLiteral("skins/hero.dtx");
        rbt.Icon = mdlGeneral::strCurrentDir + QStringLiteral("hero.bmp");
        for (int i = 0; i < 32767; ++i) {
            auto j = std::make_shared<clsJoint>();
            j->Node = QStringLiteral("Node") + QString::number(i);
            j->Min = QStringLiteral("-90.0");
            j->Max = QStringLiteral("90.0");
            j->VectorX = QStringLiteral("0.0");
            j->VectorY = QStringLiteral("1.0");
            j->VectorZ = QStringLiteral("0.0");
            j->Action = i % 2 ? QStringLiteral("translate") : QStringLiteral("rotate");
            j->Description = QStringLiteral("joint ") + QString::number(i);
            rbt.AddJoint(j);
        }
        auto a = std::make_shared<clsAnimation>();
        a->Id = QStringLiteral("3");
        a->Name = QStringLiteral("Wave");
        rbt.AddAnimation(a);
    }
};

// 32767 scenes, the list limit.
struct TslFormat {
    using Document = clsTSL;
    static constexpr const char* Name = "show.tsl";

    static void Fill(clsTSL& tsl)
    {
        tsl.Title = QStringLiteral("The Bench Show");
        tsl.MainWorld = QStringLiteral(R"(..\rez\worlds\theatre)");
        for (int i = 0; i < 32767; ++i) {
            auto scene = std::make_shared<clsScene>();
            scene->SSF = QStringLiteral(R"(..\rez\scene%1.ssf)").arg(i);
            scene->Name = QStringLiteral("Scene ") + QString::number(i);
            tsl.AddScene(scene);
        }
    }
};

// A root with 10000 attributes besides its own two, and one scene: a load must not search the
// attributes before each one it adds. The file is written as it stands; no save makes it.
struct TslManyAttributesFormat {
    using Document = clsTSL;
    static constexpr const char* Name = "attributes.tsl";

    static QByteArray File()
    {
        QByteArray file = R"(<play title="Wide" mainworld="..\rez\worlds\park")";
        for (int i = 0; i < 10000; ++i)
            file += " a" + QByteArray::number(i) + "=\"" + QByteArray::number(i) + '"';
        return file + R"(><scene id="0" name="One" ssf="one.ssf"/></play>)";
    }
};

// --- the shared set-up: one file per format, checked before anything is timed ---

// One directory for every format's files; it is also the base directory of the run, set
// once as a run of the suite would.
const QTemporaryDir& BaseDir()
{
    static const QTemporaryDir dir;
    if (mdlGeneral::strCurrentDir.isEmpty() && dir.isValid())
        mdlGeneral::strCurrentDir = dir.path() + u'/';
    return dir;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

template <class Format>
concept WrittenAsItStands = requires
{
    Format::File();
};

template <class Format> class FormatFiles {
public:
    using Document = typename Format::Document;

    static const FormatFiles& Get()
    {
        static const FormatFiles files;
        return files;
    }

    QString loadPath; // BM_Load reads it
    QString savePath; // where BM_Save writes
    qint64 fileSize = 0;
    std::string error; // not empty when the set-up or the round trip failed

private:
    // Only the files outlive the set-up: no document of one format stays on the heap
    // while another format is timed.
    FormatFiles()
    {
        const QTemporaryDir& dir = BaseDir();
        if (!dir.isValid()) {
            error = "no temporary directory";
            return;
        }
        loadPath = dir.filePath(QStringLiteral("first-") + QLatin1String(Format::Name));
        savePath = dir.filePath(QStringLiteral("again-") + QLatin1String(Format::Name));

        if constexpr (WrittenAsItStands<Format>) {
            QFile file(loadPath);
            const QByteArray bytes = Format::File();
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                error = "the file could not be written";
        } else {
            Document filled;
            Format::Fill(filled);
            Document loaded;
            if (!filled.Save(loadPath))
                error = "Save of the filled document gave False";
            else if (!loaded.Load(loadPath))
                error = "Load of the saved file gave False";
            else if (!loaded.Save(savePath))
                error = "Save of the loaded document gave False";
            else if (BytesOf(loadPath) != BytesOf(savePath))
                error = "the file Load read and Save wrote again differs from the file read";
        }
        fileSize = QFile(loadPath).size();
    }
};

// --- measuring ---

// CPU time of this thread: the machine is shared, and the time other work takes from the
// processor is no part of a Load.
double ThreadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// What the limit is measured against: Qt's reader taking the file token by token, building
// nothing. It reads the file in blocks, as the document service does.
bool ParseOnly(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

// A field of /proc/self/status in bytes (VmRSS, VmHWM).
double StatusBytes(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(field + ':', 0) == 0)
            return std::stod(line.substr(field.size() + 1)) * 1024.0;
    }
    return 0;
}

// The resident memory one Load adds at its peak, and what the loaded document keeps of it.
// Freed memory goes back to the system before each reading, and the kernel's peak mark is
// reset, so the peak is this Load's.
struct LoadMemory {
    double peak = 0;
    double kept = 0;
};

template <class Format> LoadMemory MeasureLoadMemory(const QString& path)
{
    malloc_trim(0);
    const double before = StatusBytes("VmRSS");
    std::ofstream("/proc/self/clear_refs") << "5";
    auto document = std::make_unique<typename Format::Document>();
    document->Load(path);
    LoadMemory memory;
    memory.peak = StatusBytes("VmHWM") - before;
    malloc_trim(0);
    memory.kept = StatusBytes("VmRSS") - before;
    return memory;
}

// --- the two benchmarks, the same for every format ---

template <class Format> void BM_Load(benchmark::State& state)
{
    const FormatFiles<Format>& files = FormatFiles<Format>::Get();
    if (!files.error.empty()) {
        state.SkipWithError(files.error.c_str());
        return;
    }
    const LoadMemory memory = MeasureLoadMemory<Format>(files.loadPath);
    double loadSeconds = 0;
    double parseSeconds = 0;
    for (auto _ : state) {
        // A new document for each Load, as the windows make one for every Open; its
        // destruction is not Load's work.
        auto document = std::make_unique<typename Format::Document>();
        const double start = ThreadSeconds();
        const bool ok = document->Load(files.loadPath);
        const double loaded = ThreadSeconds();
        const bool parsed = ParseOnly(files.loadPath);
        const double end = ThreadSeconds();
        state.SetIterationTime(loaded - start);
        loadSeconds += loaded - start;
        parseSeconds += end - loaded;
        if (!ok || !parsed) {
            state.SkipWithError(ok ? "the reader alone failed" : "Load gave False");
            break;
        }
    }
    state.SetBytesProcessed(state.iterations() * files.fileSize);
    state.counters["ratio_to_parse"] = parseSeconds > 0 ? loadSeconds / parseSeconds : 0;
    state.counters["peak_per_file_byte"] = memory.peak / double(files.fileSize);
    state.counters["kept_per_file_byte"] = memory.kept / double(files.fileSize);
    state.counters["working_per_file_byte"] = (memory.peak - memory.kept) / double(files.fileSize);
}

template <class Format> void BM_Save(benchmark::State& state)
{
    const FormatFiles<Format>& files = FormatFiles<Format>::Get();
    if (!files.error.empty()) {
        state.SkipWithError(files.error.c_str());
        return;
    }
    // The document that Load read from the file, as a window saves after an Open.
    typename Format::Document loaded;
    if (!loaded.Load(files.loadPath)) {
        state.SkipWithError("Load gave False");
        return;
    }
    for (auto _ : state) {
        if (!loaded.Save(files.savePath)) {
            state.SkipWithError("Save gave False");
            break;
        }
    }
    state.SetBytesProcessed(state.iterations() * files.fileSize);
}

// The machine is shared: with --benchmark_repetitions=N the least time of the N runs is
// reported beside mean and median, as the figure least disturbed by other work.
double Least(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

} // namespace

BENCHMARK_TEMPLATE(BM_Load, SsfFormat)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->ComputeStatistics("min", Least);
BENCHMARK_TEMPLATE(BM_Save, SsfFormat)
    ->Unit(benchmark::kMillisecond)
    ->ComputeStatistics("min", Least);
BENCHMARK_TEMPLATE(BM_Load, RbtFormat)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->ComputeStatistics("min", Least);
BENCHMARK_TEMPLATE(BM_Save, RbtFormat)
    ->Unit(benchmark::kMillisecond)
    ->ComputeStatistics("min", Least);
BENCHMARK_TEMPLATE(BM_Load, TslFormat)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->ComputeStatistics("min", Least);
BENCHMARK_TEMPLATE(BM_Save, TslFormat)
    ->Unit(benchmark::kMillisecond)
    ->ComputeStatistics("min", Least);
BENCHMARK_TEMPLATE(BM_Load, TslManyAttributesFormat)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->ComputeStatistics("min", Least);

BENCHMARK_MAIN();
