// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/stress/SaveStress.h"

#include "fuzz/stress/DirectoryWatch.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// The user a save runs as where root must be kept from writing into the directory.
constexpr uid_t Nobody = 65534;
constexpr int CannotDropPrivileges = 2;
// The first few violations of a format are told in full; the count tells the rest.
constexpr int ViolationsShown = 3;

QByteArray ReadAll(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

bool WriteAll(const QString& file, const QByteArray& bytes)
{
    QFile out(file);
    return out.open(QIODevice::WriteOnly | QIODevice::Truncate) && out.write(bytes) == bytes.size();
}

// The files of the directory other than those named; a killed or failed save may leave
// its temporary file behind.
QStringList Others(const QString& directory, const QStringList& known)
{
    QStringList others = QDir(directory).entryList(QDir::Files | QDir::Hidden);
    others.removeIf([&](const QString& name) { return known.contains(name); });
    return others;
}

void RemoveOthers(const QString& directory, const QStringList& known)
{
    for (const QString& name : Others(directory, known))
        QFile::remove(directory + QLatin1Char('/') + name);
}

// What a file holds, for the report: its size and how it begins and ends.
QString Describe(const QByteArray& bytes)
{
    return QStringLiteral("%1 bytes, \"%2\" ... \"%3\"")
        .arg(bytes.size())
        .arg(QString::fromUtf8(bytes.left(40)), QString::fromUtf8(bytes.right(40)));
}

void Report(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

int Wait(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

// Waits until the save begins to write, or ends without writing a file; gives its exit
// status in the second case.
std::optional<int> WaitForWriting(DirectoryWatch& watch, pid_t child)
{
    for (;;) {
        if (watch.waitForWrite(2))
            return std::nullopt;
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child)
            return status;
    }
}

} // namespace

void SaveStress::shutTemporaryFilesOut(const QString& directory, const QString& file) const
{
    if (m_kind != Directory::NoTemporaryFile)
        return;
    // Root may write anywhere, so its saves run as nobody, with the file open to all; any
    // other user just loses write access to the directory.
    if (geteuid() == 0)
        chmod(QFile::encodeName(file).constData(), 0666);
    else
        chmod(QFile::encodeName(directory).constData(), 0555);
}

void SaveStress::letTemporaryFilesIn(const QString& directory) const
{
    if (m_kind == Directory::NoTemporaryFile && geteuid() != 0)
        chmod(QFile::encodeName(directory).constData(), 0755);
}

pid_t SaveStress::startSave(const StressFormat& format, const QString& file) const
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        if (m_kind == Directory::NoTemporaryFile && geteuid() == 0 &&
            (setgid(Nobody) != 0 || setuid(Nobody) != 0))
            _exit(CannotDropPrivileges);
        _exit(format.saveNew(file) ? 0 : 1);
    }
    return child;
}

bool SaveStress::killSaves(const StressFormat& format, const QString& directory, int rounds)
{
    const QString name = QStringLiteral("show.") + format.extension;
    const QString file = directory + QLatin1Char('/') + name;
    const QString scratch = directory + QStringLiteral("/scratch.") + format.extension;
    if (!format.saveOld(file) || !format.saveNew(scratch)) {
        Report(QStringLiteral("  cannot save the documents in %1").arg(directory));
        return false;
    }
    const QByteArray oldBytes = ReadAll(file);
    const QByteArray newBytes = ReadAll(scratch);
    QFile::remove(scratch);
    shutTemporaryFilesOut(directory, file);

    DirectoryWatch watch(directory);
    if (!watch.isValid()) {
        Report(QStringLiteral("  cannot watch %1").arg(directory));
        return false;
    }
    // How long a save goes on writing once it has opened a file; the kills fall anywhere
    // in that time and a little after. Most of a save builds the text in memory, where a
    // kill can do no harm, so the clock starts when the writing does.
    std::array<qint64, 3> writing{};
    for (qint64& time : writing) {
        WriteAll(file, oldBytes);
        watch.drain();
        const pid_t child = startSave(format, file);
        const std::optional<int> ended = WaitForWriting(watch, child);
        QElapsedTimer timer;
        timer.start();
        // The last event before the save ends marks the end of its writing.
        int status = ended.value_or(0);
        while (!ended && waitpid(child, &status, WNOHANG) == 0) {
            if (watch.waitForWrite(5))
                time = timer.nsecsElapsed() / 1000;
        }
        if (!ended && watch.waitForWrite(0))
            time = timer.nsecsElapsed() / 1000;
        if (WIFEXITED(status) && WEXITSTATUS(status) == CannotDropPrivileges) {
            Report(QStringLiteral("  cannot run the save as another user"));
            return false;
        }
    }
    std::sort(writing.begin(), writing.end());
    const qint64 writeMicroseconds = std::max<qint64>(writing[1], 1000);
    RemoveOthers(directory, {name});

    std::uniform_int_distribution<qint64> moment(0, writeMicroseconds * 6 / 5);
    int killedOld = 0, killedNew = 0, finished = 0, failed = 0, leftovers = 0, violations = 0;
    for (int round = 0; round < rounds; ++round) {
        if (!WriteAll(file, oldBytes)) {
            Report(QStringLiteral("  cannot write the old document again"));
            return false;
        }
        const qint64 delay = moment(m_random);
        watch.drain();
        const pid_t child = startSave(format, file);
        if (child < 0) {
            Report(QStringLiteral("  cannot fork: %1").arg(qt_error_string(errno)));
            return false;
        }
        // A save that writes no file (it fails at once) has ended by itself.
        const std::optional<int> ended = WaitForWriting(watch, child);
        if (!ended) {
            usleep(useconds_t(delay));
            kill(child, SIGKILL);
        }
        const int status = ended ? *ended : Wait(child);

        const QByteArray now = ReadAll(file);
        const bool killed = WIFSIGNALED(status);
        if (now == oldBytes)
            killed ? ++killedOld : ++failed;
        else if (now == newBytes)
            killed ? ++killedNew : ++finished;
        else if (++violations <= ViolationsShown) {
            Report(QStringLiteral("  VIOLATION in round %1, %2 %3 us after it began to "
                                  "write: %4")
                       .arg(round + 1)
                       .arg(killed ? QStringLiteral("killed") : QStringLiteral("ended"))
                       .arg(delay)
                       .arg(Describe(now)));
        }
        leftovers += Others(directory, {name}).isEmpty() ? 0 : 1;
        RemoveOthers(directory, {name});
    }
    letTemporaryFilesIn(directory);

    Report(QStringLiteral("  %1 (%2, %3 bytes, writing for %4 ms): %5 killed leaving the old "
                          "file, %6 killed leaving the new, %7 finished, %8 failed leaving "
                          "the old; %9 left a temporary file; %10 violations")
               .arg(format.extension, format.description)
               .arg(newBytes.size())
               .arg(double(writeMicroseconds) / 1000, 0, 'f', 1)
               .arg(killedOld)
               .arg(killedNew)
               .arg(finished)
               .arg(failed)
               .arg(leftovers)
               .arg(violations));
    return violations == 0;
}

bool SaveStress::saveOntoFullDisk(const StressFormat& format, const QString& directory,
                                  bool fillInodes)
{
    const QString name = QStringLiteral("show.") + format.extension;
    const QString file = directory + QLatin1Char('/') + name;
    if (!format.saveOld(file)) {
        Report(QStringLiteral("  %1: the old document does not fit on the empty disk")
                   .arg(format.extension));
        return false;
    }
    const QByteArray oldBytes = ReadAll(file);
    const QString scratch = directory + QStringLiteral("/scratch.") + format.extension;
    const QByteArray newBytes = format.saveNew(scratch) ? ReadAll(scratch) : QByteArray();
    QFile::remove(scratch);

    // Every block, then every inode, taken by files of no interest.
    QStringList known{name, QStringLiteral("filler")};
    {
        const QByteArray filler = QFile::encodeName(directory + QStringLiteral("/filler"));
        const int fd = open(filler.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const std::vector<char> block(4096, 'x');
        while (fd >= 0 && write(fd, block.data(), block.size()) > 0) {
        }
        if (fd >= 0)
            close(fd);
    }
    for (int i = 0; fillInodes; ++i) {
        const QString empty = QStringLiteral("inode%1").arg(i);
        const int fd = open(QFile::encodeName(directory + QLatin1Char('/') + empty).constData(),
                            O_WRONLY | O_CREAT, 0644);
        if (fd < 0)
            break;
        close(fd);
        known << empty;
    }

    shutTemporaryFilesOut(directory, file);
    const int status = Wait(startSave(format, file));
    letTemporaryFilesIn(directory);
    const bool saved = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    const QByteArray now = ReadAll(file);
    const QStringList others = Others(directory, known);
    // The new document does not fit, so the save must fail and leave the old one; a save
    // that says it succeeded must have written the new one whole.
    const bool kept = saved ? now == newBytes : now == oldBytes;
    const QString outcome = now == oldBytes   ? QStringLiteral("old file intact")
                            : now == newBytes ? QStringLiteral("new file whole")
                                              : QStringLiteral("old file DESTROYED (") +
                                                    Describe(now) + QLatin1Char(')');
    Report(QStringLiteral("  %1: save %2, %3%4")
               .arg(format.extension,
                    saved ? QStringLiteral("reported success") : QStringLiteral("failed"), outcome,
                    others.isEmpty()
                        ? QString()
                        : QStringLiteral("; left behind: ") + others.join(QStringLiteral(", "))));
    QDir(directory).removeRecursively();
    return kept;
}
