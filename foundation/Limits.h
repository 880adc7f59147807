#pragma once
// Overview "Record lists" and design.md section 5: counts and indices are 16-bit signed
// integers of the Visual Basic original.

#include <QtGlobal>

namespace Limits {

// A list never holds more than this many records or names.
inline constexpr qsizetype MaxRecords = 32767;

// Part 3.2 (and design 5 for every format): the count of a root's child nodes is a 16-bit
// value, so a root with more child nodes than this fails the load.
inline constexpr qsizetype MaxChildNodes = 32768;

} // namespace Limits
