#pragma once
// The show listing document: a title, a main world and the ordered scenes of a show, with its
// `.tsl` file.

#include "foundation/RecordList.h"
#include "show/clsScene.h"

#include <QString>

#include <memory>

class clsTSL {
public:
    QString Title;
    QString MainWorld; // a world reference ("..\rez\worlds\park"), backslashes single

    // Fills this object from the file; True on success. Not atomic: a failure leaves
    // what was read so far.
    bool Load(const QString& strFile);
    // Writes this object to the file; True on success. The object does not change.
    bool Save(const QString& strFile) const;

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
