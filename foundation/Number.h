// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Numbers are text in the documents, as typed; where one must be read as a number (the show
// check, the stage plan), it is read so, the same everywhere.

#include <QStringView>

#include <optional>

// The number a text spells as QString::toDouble takes it in the C locale after blanks around
// it are dropped ("40", "-2.5", "+1e2", ".5"), when it is finite; none for any other text
// (comma decimals, "inf", "nan", hexadecimal, an empty text).
std::optional<double> ReadNumber(QStringView text);
