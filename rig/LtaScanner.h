#pragma once
// Part 2.3: the LTA model scanner. The spec makes it three private functions of frmMainRBT
// with no dependence on its controls; here it is a class of its own so that it can be tested
// and measured alone, and the window owns one. It is no parser: it reads the model one
// character at a time, looks for a few fixed patterns and keeps one running bracket count.

#include "rig/LtaNameList.h"

#include <QByteArrayView>
#include <QString>

class LtaScanner {
public:
    // Design 1: the file is read through a buffer; its size may be set (tests use tiny ones
    // to put every pattern across a buffer boundary). Sizes below 1 are taken as 1.
    static constexpr qsizetype DefaultBufferSize = 64 * 1024;

    explicit LtaScanner(qsizetype bufferSize = DefaultBufferSize);

    // True when the file was opened and both passes ran; False on any failure (a file that
    // cannot be opened or read, a list that would pass 32767 names, a bracket depth that
    // would leave the 16-bit range). The arrays are written as a side effect.
    bool ScanModel(const QString& strModelFile);

    // Part 2.3 "Data model": the names in file order, index from 0. The index of an
    // animation is what a clsAnimation's Id means. Design 6: each scan starts both empty.
    LtaNameList strAnimations;
    LtaNameList strNodes;

private:
    class ModelFile;

    // Part 2.3 "Algorithms", to the letter; a 16-bit overflow of the depth or a read
    // error marks the file failed, which fails the scan.
    static bool FindInFile(ModelFile& file, QByteArrayView pattern, qint16 limit);
    // ReadUntil's text goes straight into the array as its next entry, as the scan's
    // assignment to the entry at index count would put it.
    static void ReadUntil(ModelFile& file, char delimiter, LtaNameList& names);

    bool ScanAnimations(ModelFile& file);
    bool ScanNodes(ModelFile& file);

    qsizetype m_bufferSize;
};
