// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Path services, the one shared module of the suite. The run-time that plays the files is a
// Windows program, so stored paths keep Windows form; on Linux both separators split a path.

#include <QString>

namespace mdlGeneral {

// The base directory of the run. Empty at the start, set once from the first
// qualifying file picked, never changed again. The only process-wide state of the suite.
extern QString strCurrentDir;

// Makes the directory of `pickedFile` the base directory, unless one is set already: the
// first qualifying file picked in the run decides it.
void TakeCurrentDirFrom(const QString& pickedFile);

// The text up to and including the last separator (`\` or `/`); empty when there is none.
QString GetDirectory(const QString& path);

// The text behind the last separator; the whole path when there is none.
QString GetFileName(const QString& path);

// `target` told relative to the directory `base`, lower case, with `\` only.
QString MakeRelativePath(const QString& target, const QString& base);

// Stored paths: every backslash written twice, and each pair made one again,
// left to right without overlap, so a lone backslash survives.
QString DoubleBackslashes(const QString& text);
QString UndoubleBackslashes(const QString& text);

// A stored text's `\` become the native separator (on Windows nothing changes).
QString StoredToNative(const QString& stored);

// The path as given when it exists, else the path whose components match it
// without regard to case (an exact match first, then the first by byte order). When no
// such file exists either, the path as given.
QString ResolveFileCase(const QString& path);

} // namespace mdlGeneral
