// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The show listing document: a title, a main world and the ordered scenes of a show, with its
// `.tsl` file.

#include "foundation/RecordList.h"
#include "show/clsScene.h"

#include <QString>

#include <memory>

class QIODevice;

class clsTSL {
public:
    QString Title;
    QString MainWorld; // a world reference ("..\rez\worlds\park"), backslashes single

    // Reads a `.tsl` text from `device`. False at the first failure, with the listing as it
    // was and `why` (where given) saying what was expected and on which line.
    bool Read(QIODevice& device, QString* why = nullptr);
    // Writes the listing to `device`. False, with nothing written, when a text holds a
    // character a file cannot carry; `why` names the scene and the field.
    bool Write(QIODevice& device, QString* why = nullptr) const;

    // The file `strFile` read and written; a save replaces the file whole or not at all, and
    // the object does not change.
    bool Load(const QString& strFile);
    bool Save(const QString& strFile, QString* why = nullptr) const;

    // Id becomes the decimal text of the count before it; the very object is kept.
    // At the limit of 32767 scenes it does nothing.
    void AddScene(const std::shared_ptr<clsScene>& scene);
    // Removes the scene at i and renumbers those behind it; out of range does nothing.
    void DeleteScene(qint16 i);
    // The scene at index, the very object of the list; nullptr out of range.
    std::shared_ptr<clsScene> Scenes(qint16 index) const;
    qint16 NumScenes() const;

private:
    RecordList<clsScene> m_scenes;
};
