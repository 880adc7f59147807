// SPDX-License-Identifier: GPL-3.0-or-later
// Usage:
//   troupe_stress kill DIR [ROUNDS] [--no-temp] [--seed N]
//   troupe_stress full DIR [--inodes] [--no-temp]
//   troupe_stress scan DIR [ROUNDS] [--seed N]
//
// `kill`: for each format, saves a large document over an existing one ROUNDS times (100
// unless given), each save killed with SIGKILL at a random moment; with --no-temp in a
// directory where the save can make no temporary file. `full`: DIR is a small file system
// of its own; for each format the old document is saved there, the disk is filled (and with
// --inodes every inode taken), and the new document is saved over the old; with --no-temp
// in a directory where no temporary file can be made. Exits 1 when a
// file was left that is neither the whole old nor the whole new document, or a save on the
// full disk did not fail with the old file intact. `scan`: scans a large model ROUNDS times
// (100 unless given) while another thread cuts it short, writes it again, grows or replaces
// it at a random moment; exits 1 when a scan did not return True with the model's lists or
// a part of them from the front, and dies where a scan would kill the suite.

#include "foundation/mdlGeneral.h"
#include "fuzz/stress/SaveStress.h"
#include "fuzz/stress/ScanStress.h"
#include "fuzz/stress/StressDocuments.h"

#include <QDir>
#include <QStringList>

#include <cstdio>
#include <random>

namespace {

int Usage()
{
    std::fprintf(stderr, "usage: troupe_stress kill DIR [ROUNDS] [--no-temp] [--seed N]\n"
                         "       troupe_stress full DIR [--inodes] [--no-temp]\n"
                         "       troupe_stress scan DIR [ROUNDS] [--seed N]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    const QStringList commands{QStringLiteral("kill"), QStringLiteral("full"),
                               QStringLiteral("scan")};
    if (args.size() < 2 || !commands.contains(args[0]))
        return Usage();
    const QString command = args.takeFirst();
    const bool kills = command == QLatin1String("kill");
    const QString base = QDir(args.takeFirst()).absolutePath();

    unsigned seed = std::random_device{}();
    const qsizetype seedAt = args.indexOf(QStringLiteral("--seed"));
    if (seedAt >= 0 && seedAt + 1 < args.size()) {
        seed = args[seedAt + 1].toUInt();
        args.remove(seedAt, 2);
    }
    const bool noTemp = args.removeAll(QStringLiteral("--no-temp")) > 0;
    const bool inodes = args.removeAll(QStringLiteral("--inodes")) > 0;
    bool roundsOk = true;
    const int rounds = args.isEmpty() ? 100 : args.takeFirst().toInt(&roundsOk);
    if (!roundsOk || rounds < 1 || !args.isEmpty())
        return Usage();

    if (command == QLatin1String("scan")) {
        std::printf("Scans of a model changed while it is read, %d in all (seed %u):\n", rounds,
                    seed);
        std::fflush(stdout);
        QDir().mkpath(base);
        return ScanStress(seed).scanChangingModels(base, rounds) ? 0 : 1;
    }

    // The rig binding's model path is stored relative to this directory.
    mdlGeneral::strCurrentDir = base + QLatin1Char('/');
    const std::vector<StressFormat> formats = MakeStressFormats();
    SaveStress stress(seed, noTemp ? SaveStress::Directory::NoTemporaryFile
                                   : SaveStress::Directory::Writable);

    if (kills)
        std::printf("Killed saves, %d per format, in a directory %s (seed %u):\n", rounds,
                    noTemp ? "where no temporary file can be made" : "open for writing", seed);
    else
        std::printf("Saves onto a full disk%s, in a directory %s:\n",
                    inodes ? " with no free inode" : "",
                    noTemp ? "where no temporary file can be made" : "open for writing");
    bool allKept = true;
    for (const StressFormat& format : formats) {
        const QString directory = base + QLatin1Char('/') + format.extension +
                                  (noTemp ? QStringLiteral("-notemp") : QString());
        QDir().mkpath(directory);
        const bool kept = kills ? stress.killSaves(format, directory, rounds)
                                : stress.saveOntoFullDisk(format, directory, inodes);
        allKept = allKept && kept;
        std::fflush(stdout);
    }
    return allKept ? 0 : 1;
}
