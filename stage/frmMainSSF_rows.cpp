// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed-pitch rows of the three lists. A row cuts its first field and pads each column
// with blanks up to where the next begins, so the columns line up under the head labels in
// a fixed-pitch font. A column whose text is already as long as its width or longer gets
// no blanks: the next column follows directly, and the record keeps its whole text.

#include "stage/frmMainSSF.h"

namespace {

QString triple(const QString& x, const QString& y, const QString& z)
{
    return u'(' + x + u',' + y + u',' + z + u')';
}

// The text cut to `cut` characters and padded with blanks to `width`.
QString firstColumn(const QString& text, qsizetype cut, qsizetype width)
{
    return text.left(cut).leftJustified(width, u' ');
}

// The row so far padded with blanks to `width`, never cut.
QString padded(const QString& row, qsizetype width) { return row.leftJustified(width, u' '); }

} // namespace

QString frmMainSSF::PuppetRowText(qint16 index) const
{
    const std::shared_ptr<clsPuppet> p = objSSF ? objSSF->Puppets(index) : nullptr;
    if (!p)
        return {}; // a row without a record shows nothing
    QString row = firstColumn(p->RBT, 29, 30) + triple(p->PositionX, p->PositionY, p->PositionZ);
    row = padded(row, 46) + triple(p->ScaleX, p->ScaleY, p->ScaleZ);
    return padded(row, 62) + triple(p->OrientationX, p->OrientationY, p->OrientationZ);
}

QString frmMainSSF::SoundRowText(qint16 index) const
{
    const std::shared_ptr<clsSound> s = objSSF ? objSSF->Sounds(index) : nullptr;
    if (!s)
        return {};
    // The name comes first in the row, although the file comes first in the record.
    return padded(firstColumn(s->Name, 26, 27) + s->File, 65) + s->TypeSound;
}

QString frmMainSSF::CameraRowText(qint16 index) const
{
    const std::shared_ptr<clsCamera> c = objSSF ? objSSF->Cameras(index) : nullptr;
    if (!c)
        return {};
    // The position column is 20 wide here, so the orientation starts at column 63 as in
    // the puppet row.
    const QString row =
        firstColumn(c->Name, 41, 42) + triple(c->PositionX, c->PositionY, c->PositionZ);
    return padded(row, 62) + triple(c->OrientationX, c->OrientationY, c->OrientationZ);
}
