// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What each format target checks of a document that reads: it writes, the text written reads
// again with the same fields, and a second write gives the same bytes as the first. So a file
// the suite writes always opens again and does not drift from save to save. Everything
// happens in memory: no input touches the disk.

#include "fuzz/FuzzWorkspace.h"

#include <QBuffer>
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

namespace RoundTrip {

template <class Document, class... Base>
bool ReadBytes(Document& document, QByteArray bytes, const Base&... base)
{
    QBuffer device(&bytes);
    return device.open(QIODevice::ReadOnly) && document.Read(device, base...);
}

// The bytes written; a null array when the write failed.
template <class Document, class... Base>
QByteArray WrittenBytes(const Document& document, const Base&... base)
{
    QByteArray bytes("");
    QBuffer device(&bytes);
    return device.open(QIODevice::WriteOnly) && document.Write(device, base...) ? bytes
                                                                                : QByteArray();
}

} // namespace RoundTrip

// `fields` lists the texts of a document that a read and a write must keep unchanged;
// `drifts`, where given, tells a document that by rule does not come back the same; `base` is
// the base folder of a format that stores paths relative to one.
template <class Document, class... Base>
void CheckRoundTrip(const std::uint8_t* data, std::size_t size,
                    QStringList (*fields)(const Document&), bool (*drifts)(const Document&),
                    const Base&... base)
{
    Document loaded;
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    if (!RoundTrip::ReadBytes(loaded, input, base...) || (drifts && drifts(loaded)))
        return;

    const QByteArray first = RoundTrip::WrittenBytes(loaded, base...);
    FuzzExpect(!first.isNull(), "a document that was read does not write");
    Document reloaded;
    FuzzExpect(RoundTrip::ReadBytes(reloaded, first, base...),
               "a written text does not read again");
    FuzzExpectSame(fields(loaded), fields(reloaded), "a field changed through write and read");
    const QByteArray second = RoundTrip::WrittenBytes(reloaded, base...);
    FuzzExpect(!second.isNull(), "a document read again does not write");
    FuzzExpectSame(first, second, "the second write gave other bytes than the first");
}
