// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a stage scene file: a file that reads must write, read again and write the same.

#include "fuzz/RoundTrip.h"
#include "stage/clsSSF.h"

namespace {

QStringList Fields(const clsSSF& ssf)
{
    QStringList fields{ssf.World,
                       ssf.MainCamera,
                       ssf.Nickname,
                       ssf.Server,
                       ssf.Port,
                       QString::number(ssf.NumPuppets()),
                       QString::number(ssf.NumSounds()),
                       QString::number(ssf.NumCameras())};
    for (qint16 i = 0; i < ssf.NumPuppets(); ++i) {
        const auto p = ssf.Puppets(i);
        fields << p->Id << p->RBT << p->PositionX << p->PositionY << p->PositionZ << p->ScaleX
               << p->ScaleY << p->ScaleZ << p->OrientationX << p->OrientationY << p->OrientationZ;
    }
    for (qint16 i = 0; i < ssf.NumSounds(); ++i) {
        const auto s = ssf.Sounds(i);
        fields << s->Id << s->Name << s->TypeSound;
        // A dialog line's file is stored without the extension and the digits in front of
        // it, so only a plain sound keeps its file name as read.
        if (s->TypeSound == QLatin1String("sound"))
            fields << s->File;
    }
    for (qint16 i = 0; i < ssf.NumCameras(); ++i) {
        const auto c = ssf.Cameras(i);
        fields << c->Id << c->Name << c->PositionX << c->PositionY << c->PositionZ
               << c->OrientationX << c->OrientationY << c->OrientationZ;
    }
    return fields;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CheckRoundTrip<clsSSF>(data, size, Fields, nullptr);
    return 0;
}
