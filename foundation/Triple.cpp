#include "foundation/Triple.h"

#include <QStringBuilder>

QString JoinTriple(const QString& x, const QString& y, const QString& z)
{
    return x % u',' % y % u',' % z; // one allocation for the five pieces
}

bool SplitTriple(const QString& text, QString& x, QString& y, QString& z)
{
    const qsizetype p1 = text.indexOf(u',');
    if (p1 < 0)
        return false;
    const qsizetype p2 = text.indexOf(u',', p1 + 1);
    if (p2 < 0)
        return false;
    x = text.left(p1);
    y = text.mid(p1 + 1, p2 - p1 - 1);
    z = text.mid(p2 + 1);
    return true;
}
