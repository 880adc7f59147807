// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Saves that are interrupted: killed at random moments while they write, or run out of room
// on the disk. After each, the file saved over must hold the whole old or the whole new
// document.

#include "fuzz/stress/StressDocuments.h"

#include <QByteArray>
#include <QString>

#include <random>
#include <sys/types.h>

class SaveStress {
public:
    // Where a save writes: a directory in which it can make a temporary file, or one in
    // which it cannot while the file itself is writable.
    enum class Directory { Writable, NoTemporaryFile };

    SaveStress(unsigned seed, Directory kind) : m_random(seed), m_kind(kind) {}

    // Saves the new document over the old one `rounds` times in `directory`, each save
    // killed with SIGKILL at a random moment after it began to write. True when every file
    // afterwards was one of the two documents.
    bool killSaves(const StressFormat& format, const QString& directory, int rounds);

    // `directory` is on a small file system of its own. Saves the old document there, fills
    // what room is left (and every free inode, with `fillInodes`), then saves the new one.
    // True when the save failed and the old file is unchanged.
    bool saveOntoFullDisk(const StressFormat& format, const QString& directory, bool fillInodes);

private:
    // Keeps the save from making a temporary file in the directory of `file`, where asked.
    void shutTemporaryFilesOut(const QString& directory, const QString& file) const;
    void letTemporaryFilesIn(const QString& directory) const;
    // Runs the save of the new document in a child process, as nobody where root must be
    // kept out of the directory. Its exit status is 0 when the save reported success.
    pid_t startSave(const StressFormat& format, const QString& file) const;

    std::mt19937 m_random;
    Directory m_kind;
};
