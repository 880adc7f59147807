// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/Triple.h"

#include <QStringBuilder>

QString JoinTriple(const QString& x, const QString& y, const QString& z)
{
    return x % u',' % y % u',' % z; // one allocation for the five pieces
}

bool SplitTriple(QStringView text, QStringView& x, QStringView& y, QStringView& z)
{
    const qsizetype p1 = text.indexOf(u',');
    if (p1 < 0)
        return false;
    const qsizetype p2 = text.indexOf(u',', p1 + 1);
    if (p2 < 0)
        return false;
    x = text.first(p1);
    y = text.sliced(p1 + 1, p2 - p1 - 1);
    z = text.sliced(p2 + 1);
    return true;
}
