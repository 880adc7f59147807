// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/Number.h"

#include <QString>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

// A plain decimal, "-12.5": an optional minus, digits, and a point with digits behind it.
bool PlainDecimal(QStringView text)
{
    qsizetype i = text.startsWith(u'-') ? 1 : 0;
    const auto digits = [&] {
        const qsizetype from = i;
        while (i < text.size() && text[i] >= u'0' && text[i] <= u'9')
            ++i;
        return i > from;
    };
    if (!digits())
        return false;
    if (i < text.size() && text[i] == u'.') {
        ++i;
        if (!digits())
            return false;
    }
    return i == text.size();
}

} // namespace

// The usual plain decimal of a few digits is read by std::from_chars, which gives the same
// value as QString::toDouble many times faster.
std::optional<double> ReadNumber(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    char bytes[24];
    if (trimmed.size() <= qsizetype(sizeof bytes) && PlainDecimal(trimmed)) {
        std::transform(trimmed.begin(), trimmed.end(), bytes, [](QChar c) { return c.toLatin1(); });
        double value = 0;
        std::from_chars(bytes, bytes + trimmed.size(), value);
        return value;
    }
    bool ok = false;
    const double value = trimmed.toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}
