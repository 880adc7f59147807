#pragma once
// What each format target checks of a document that loads: it saves, the saved file loads
// again with the same fields, and a second save writes the same bytes as the first. So a
// file the suite writes always opens again and does not drift from save to save.

#include "fuzz/FuzzWorkspace.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

// `fields` lists the texts of a document that a load and a save must keep unchanged;
// `drifts`, where given, tells a document that by rule does not come back the same.
template <class Document>
void CheckRoundTrip(const std::uint8_t* data, std::size_t size, const QString& extension,
                    QStringList (*fields)(const Document&),
                    bool (*drifts)(const Document&) = nullptr)
{
    const FuzzWorkspace& workspace = FuzzWorkspace::instance();
    const QString input = workspace.write(QStringLiteral("input.") + extension, data, size);
    Document loaded;
    if (!loaded.Load(input) || (drifts && drifts(loaded)))
        return;

    const QString firstFile = workspace.path(QStringLiteral("first.") + extension);
    const QString secondFile = workspace.path(QStringLiteral("second.") + extension);
    FuzzExpect(loaded.Save(firstFile), "a loaded document does not save");
    Document reloaded;
    FuzzExpect(reloaded.Load(firstFile), "a saved file does not load again");
    FuzzExpectSame(fields(loaded), fields(reloaded), "a field changed through save and load");
    FuzzExpect(reloaded.Save(secondFile), "a reloaded document does not save");
    FuzzExpectSame(FuzzWorkspace::read(firstFile), FuzzWorkspace::read(secondFile),
                   "the second save wrote other bytes than the first");
}
