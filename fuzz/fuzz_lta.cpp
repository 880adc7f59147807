// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a model: the scan reads the file through a buffer, and its result and both
// name lists must not depend on the buffer's size, down to one byte, where every pattern
// and every name is split across reads.

#include "fuzz/FuzzWorkspace.h"
#include "rig/LtaScanner.h"

#include <array>

namespace {

QStringList Scan(const QString& file, qsizetype bufferSize)
{
    LtaScanner scanner(bufferSize);
    const bool scanned = scanner.ScanModel(file);
    // The counts go first so that a name list cannot pass for the end of the other.
    return QStringList{scanned ? QStringLiteral("scanned") : QStringLiteral("failed"),
                       QString::number(scanner.strAnimations.size()),
                       QString::number(scanner.strNodes.size())} +
           scanner.strAnimations.toStringList() + scanner.strNodes.toStringList();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = FuzzWorkspace::instance().write(QStringLiteral("input.lta"), data, size);
    const QStringList whole = Scan(file, 64 * 1024);
    for (const qsizetype bufferSize : std::array<qsizetype, 2>{1, 7})
        FuzzExpectSame(whole, Scan(file, bufferSize), "the scan depends on the size of its buffer");
    return 0;
}
