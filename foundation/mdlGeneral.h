#pragma once
// Part 1.1: path services, the one shared module of the system, with the Linux rules of
// design.md section 4: both separators split a path, stored texts keep Windows form.

#include <QString>

namespace mdlGeneral {

// Part 1.1: the base directory of the run. Empty at the start, set once from the first
// qualifying file picked, never changed again. The only process-wide state of the suite.
extern QString strCurrentDir;

// The text up to and including the last separator (`\` or `/`); empty when there is none.
QString GetDirectory(const QString& path);

// The text behind the last separator; the whole path when there is none.
QString GetFileName(const QString& path);

// `target` told relative to the directory `base`, lower case, with `\` only.
QString MakeRelativePath(const QString& target, const QString& base);

// Part 1.1 "Storing paths": every backslash written twice, and each pair made one again,
// left to right without overlap, so a lone backslash survives.
QString DoubleBackslashes(const QString& text);
QString UndoubleBackslashes(const QString& text);

// Design 4.3: a stored text's `\` become the native separator (on Windows nothing changes).
QString StoredToNative(const QString& stored);

// Design 4.5: the path as given when it exists, else the path whose components match it
// without regard to case (an exact match first, then the first by byte order). When no
// such file exists either, the path as given.
QString ResolveFileCase(const QString& path);

} // namespace mdlGeneral
