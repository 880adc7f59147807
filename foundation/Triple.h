// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A coordinate triple: three texts joined by single commas in one attribute, split at the
// first two commas. No number is parsed: blanks and letters stay.

#include <QString>
#include <QStringView>

// X, ",", Y, ",", Z, character for character.
QString JoinTriple(const QString& x, const QString& y, const QString& z);

// X in front of the first comma, Y between it and the next, Z all behind that, further
// commas included. Any of the three may be empty. False, with the three left alone, when the
// text holds fewer than two commas.
[[nodiscard]] bool SplitTriple(QStringView text, QStringView& x, QStringView& y, QStringView& z);
