// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a show listing: a file that reads must write, read again and write the same.

#include "fuzz/RoundTrip.h"
#include "show/clsTSL.h"

namespace {

QStringList Fields(const clsTSL& tsl)
{
    QStringList fields{tsl.Title, tsl.MainWorld, QString::number(tsl.NumScenes())};
    for (qint16 i = 0; i < tsl.NumScenes(); ++i) {
        const auto scene = tsl.Scenes(i);
        fields << scene->Id << scene->Name << scene->SSF;
    }
    return fields;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CheckRoundTrip<clsTSL>(data, size, Fields, nullptr);
    return 0;
}
