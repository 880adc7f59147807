// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a rig binding file: a file that reads must write, read again and write the same.

#include "fuzz/RoundTrip.h"
#include "rig/clsRBT.h"

namespace {

// The three paths are left out: a read joins them to the base folder and a write makes
// them relative and lower case again, so only their written form, compared as bytes, is kept.
QStringList Fields(const clsRBT& rbt)
{
    QStringList fields{rbt.Name, QString::number(rbt.NumJoints()),
                       QString::number(rbt.NumAnimations())};
    for (qint16 i = 0; i < rbt.NumJoints(); ++i) {
        const auto j = rbt.Joints(i);
        fields << j->Id << j->Node << j->Min << j->Max << j->VectorX << j->VectorY << j->VectorZ
               << j->Action << j->Description;
    }
    for (qint16 i = 0; i < rbt.NumAnimations(); ++i) {
        const auto a = rbt.Animations(i);
        fields << a->Id << a->Name << a->Anim;
    }
    return fields;
}

// A path that names a folder, not a file, loses its closing separator at every write, since
// making a path relative drops one; only paths of files come back the same.
bool NamesAFolder(const clsRBT& rbt)
{
    for (const QString& path : {rbt.Model, rbt.Texture, rbt.Icon})
        if (path.endsWith(u'/') || path.endsWith(u'\\'))
            return true;
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CheckRoundTrip<clsRBT>(data, size, Fields, NamesAFolder, QStringLiteral("/base/"));
    return 0;
}
