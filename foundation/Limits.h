// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Counts and indices of the documents are 16-bit signed integers, and every file the suite
// saves must open again: these limits hold for the documents, their files and the scanner.

#include <QtGlobal>

namespace Limits {

// A list never holds more than this many records or names.
inline constexpr qsizetype MaxRecords = 32767;

// The count of a root's child nodes is a 16-bit value, so a root with more child nodes than
// this fails the load of every format.
inline constexpr qsizetype MaxChildNodes = 32768;

// A file larger than this is refused before it is read: no input makes a load run out of
// memory. The largest file the suite writes is a few megabytes.
inline constexpr qint64 MaxFileBytes = 64 * 1024 * 1024;

} // namespace Limits
