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
    // The model's bytes are looked at in windows of this many bytes; the quick passage over
    // characters that cannot matter never looks across a window's edge. Tests use tiny
    // windows to put every pattern, name and bracket across an edge. Sizes below 1 are 1.
    static constexpr qsizetype DefaultBufferSize = 64 * 1024;

    explicit LtaScanner(qsizetype bufferSize = DefaultBufferSize);

    // True when the file was opened and both passes ran, whether or not they found a list;
    // False on any failure: a file that is missing or no regular file (a FIFO or a device
    // would block or never end), a list that would pass 32767 names, a bracket depth that
    // would leave the 16-bit range. The lists are written as a side effect.
    bool ScanModel(const QString& strModelFile);

    // The names in file order, index from 0; an animation's index is what a clsAnimation's
    // Id means. Each scan starts both empty, so a model without a list never shows the
    // names of an earlier one.
    LtaNameList strAnimations;
    LtaNameList strNodes;

private:
    class ModelFile;

    // True when the pattern was found, with the file standing directly behind it; False at
    // the file's end, or when the bracket depth counted from this call fell below limit,
    // standing behind that bracket. A depth leaving 16 bits marks the file failed.
    static bool FindInFile(ModelFile& file, QByteArrayView pattern, qint16 limit);
    // The text up to the delimiter (consumed, left out) or the file's end, appended to names.
    static void ReadUntil(ModelFile& file, char delimiter, LtaNameList& names);

    bool ScanAnimations(ModelFile& file);
    bool ScanNodes(ModelFile& file);

    qsizetype m_bufferSize;
};
