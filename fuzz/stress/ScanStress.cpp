// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/stress/ScanStress.h"

#include "rig/LtaScanner.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>

#include <array>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

enum class Change { CutToNothing, Cut, WrittenAgain, Grown, Replaced };
constexpr std::array Changes{Change::CutToNothing, Change::Cut, Change::WrittenAgain, Change::Grown,
                             Change::Replaced};
constexpr std::array<const char*, Changes.size()> ChangeNames{
    "cut to nothing", "cut at a random place", "written again", "grown", "replaced"};

// Keyframe data as an exporter writes it.
const QByteArray Keyframes = "\n\t\t\t\t\t\t(0.000000 -9.355083 0.032135 )\n\t\t\t\t\t\t(0.500001 "
                             "-0.498655 0.501338 0.500001 ))(";

struct Model {
    QByteArray bytes;
    QStringList animations;
    QStringList nodes;
};

// 32 MiB of keyframes, then the two lists, which a change thus mostly cuts away.
Model MakeModel()
{
    Model model;
    model.bytes = "\n(lt-model-0 \n\t(animset \"base_anim\" \n\t\t(anims (\n\t\t\t(anim ((" +
                  Keyframes.repeated(32 * 1024 * 1024 / Keyframes.size()) +
                  "))))\n\t(on-load-cmds (\n\t\t(anim-bindings (";
    for (int i = 0; i < 8; ++i) {
        model.animations << QStringLiteral("anim_%1").arg(i);
        model.bytes += "\n\t\t\t(anim-binding \n\t\t\t\t(name \"" +
                       model.animations.last().toLatin1() + "\" )\n\t\t\t\t(interp-time 200 ))";
    }
    model.bytes += "))\n\t\t(set-node-flags (";
    for (int i = 0; i < 40; ++i) {
        model.nodes << QStringLiteral("joint%1").arg(i);
        model.bytes += "\n\t\t\t(\"" + model.nodes.last().toLatin1() + "\" 0 )";
    }
    model.bytes += "))))\n";
    return model;
}

bool Write(const QString& path, const QByteArray& bytes, QIODevice::OpenMode mode)
{
    QFile file(path);
    return file.open(mode) && file.write(bytes) == bytes.size();
}

void Apply(const Change change, const QString& path, const Model& model, const qint64 cutTo)
{
    switch (change) {
    case Change::CutToNothing:
        QFile::resize(path, 0);
        break;
    case Change::Cut:
        QFile::resize(path, cutTo);
        break;
    case Change::WrittenAgain:
        Write(path, model.bytes, QIODevice::WriteOnly | QIODevice::Truncate);
        break;
    case Change::Grown:
        Write(path, Keyframes.repeated(100000), QIODevice::Append);
        break;
    case Change::Replaced: {
        // A rename over the model: the scan goes on reading the file it opened.
        const QString next = path + QStringLiteral(".new");
        Write(next, model.bytes, QIODevice::WriteOnly | QIODevice::Truncate);
        std::rename(QFile::encodeName(next).constData(), QFile::encodeName(path).constData());
        break;
    }
    }
}

// The names of a scan that read the model from the front up to some place: the model's own
// from the first, the last one perhaps cut short.
bool IsFront(const LtaNameList& names, const QStringList& all)
{
    return all.join(QLatin1Char('\n')).startsWith(names.toStringList().join(QLatin1Char('\n')));
}

} // namespace

bool ScanStress::scanChangingModels(const QString& directory, const int rounds)
{
    const Model model = MakeModel();
    const QString path = directory + QStringLiteral("/model.lta");
    const auto write = [&] {
        if (!Write(path, model.bytes, QIODevice::WriteOnly | QIODevice::Truncate))
            qFatal("cannot write %s", qPrintable(path));
    };

    // The change comes at a random moment from before the scan opens the file to a little
    // after an unchanged scan would have ended.
    write();
    LtaScanner scanner;
    QElapsedTimer timer;
    timer.start();
    scanner.ScanModel(path);
    const qint64 scanTime = timer.nsecsElapsed();
    std::uniform_int_distribution<qint64> delays(0, scanTime + scanTime / 4);
    std::uniform_int_distribution<qint64> places(0, model.bytes.size());
    std::uniform_int_distribution<size_t> changes(0, Changes.size() - 1);

    std::array<int, Changes.size()> ended{}; // scans that lost the lists, per change
    std::array<int, Changes.size()> made{};
    int violations = 0;
    for (int round = 0; round < rounds; ++round) {
        const size_t kind = changes(m_random);
        const auto delay = std::chrono::nanoseconds(delays(m_random));
        const qint64 cutTo = places(m_random);
        write();
        std::thread changer([&] {
            std::this_thread::sleep_for(delay);
            Apply(Changes[kind], path, model, cutTo);
        });
        const bool scanned = scanner.ScanModel(path);
        changer.join();
        ++made[kind];
        if (!scanned || !IsFront(scanner.strAnimations, model.animations) ||
            !IsFront(scanner.strNodes, model.nodes)) {
            ++violations;
            std::printf("  VIOLATION: %s after %lld us: scan %s, %lld animations, %lld nodes\n",
                        ChangeNames[kind], qint64(delay.count() / 1000), scanned ? "True" : "False",
                        qint64(scanner.strAnimations.size()), qint64(scanner.strNodes.size()));
        }
        if (scanner.strNodes.size() < model.nodes.size())
            ++ended[kind];
    }
    for (size_t kind = 0; kind < Changes.size(); ++kind)
        std::printf("  %-22s %4d scans, %4d ended short of the lists\n", ChangeNames[kind],
                    made[kind], ended[kind]);
    std::printf("  %d violations\n", violations);
    return violations == 0;
}
