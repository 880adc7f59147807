// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Lists the animation and node names of a LithTech text model (.lta). It is no parser: it
// reads the model one character at a time from the front, looks for a few fixed patterns and
// keeps one running count of round brackets, which only decides where a list ends. The rig
// binding window owns one; it depends on nothing of the window, so it is tested and measured
// alone.

#include "rig/LtaNameList.h"

#include <QByteArrayView>
#include <QString>

class LtaScanner {
public:
    // The model is read in blocks of this many bytes (or more), and its bytes are looked at
    // in pieces of this many: the quick passage over characters that cannot matter never
    // looks across a piece's edge. Tests use tiny pieces to put every pattern, name and
    // bracket across an edge. Sizes below 1 are 1.
    static constexpr qsizetype DefaultBufferSize = 64 * 1024;

    explicit LtaScanner(qsizetype bufferSize = DefaultBufferSize);

    // True when the file was opened and both passes ran, whether or not they found a list;
    // False on any failure: a file that is missing or no regular file (a FIFO or a device
    // would block or never end), a read error, a list that would pass 32767 names, a bracket
    // depth that would leave the 16-bit range. The lists are written as a side effect. A
    // model that another program cuts short or rewrites during the scan is scanned as far as
    // the reads reach; the scan never ends the process.
    bool ScanModel(const QString& strModelFile);

    // The names in file order, index from 0; an animation's index is what a clsAnimation's
    // Id means. Each scan starts both empty, so a model without a list never shows the
    // names of an earlier one.
    LtaNameList strAnimations;
    LtaNameList strNodes;

private:
    class Pass;

    qsizetype m_bufferSize;
};
