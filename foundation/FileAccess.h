// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Opening and replacing the suite's files. Every document the suite reads passes one gate, so
// the managers, the command line and the show check refuse the same files for the same
// reasons, and every file it writes is replaced whole or not at all. (Models, which may be far
// larger than a document, are opened by the scanner itself, regular files only.)

#include <QString>

#include <functional>

class QFile;
class QIODevice;

namespace FileAccess {

// Opens `path` for reading when it is a regular file of at most Limits::MaxFileBytes, its
// name matched without regard to case where it does not exist as given. A FIFO, a device or a
// socket fails at once, before a byte is read, so nothing can block or never end. On failure
// `why`, where given, says what the file is instead, in a few words ("there is no such file",
// "it is a FIFO", "it is larger than 64 MiB").
bool OpenForReading(QFile& file, const QString& path, QString* why = nullptr);

// Writes the file through `write` into a temporary twin and puts it in the place of `path`
// only when the whole text is on disk. There is no direct-write fallback: where no twin can be
// made, the save fails and the old file stays as it was, since writing in place can leave a
// cut-off file on a crash or a full disk. `write` says why it failed itself; a failure of the
// file is said here.
bool SaveWhole(const QString& path, const std::function<bool(QIODevice&)>& write,
               QString* why = nullptr);

} // namespace FileAccess
