#pragma once
// Part 4.1: the show listing document and its `.tsl` file format.

#include "foundation/RecordList.h"
#include "show/clsScene.h"

#include <QString>

#include <memory>
#include <optional>

class clsTSL {
public:
    QString Title;
    QString MainWorld; // world reference of Part 1.1, backslashes single

    // Fills this object from the file; True on success. Not atomic: a failure leaves
    // what was read so far (Part 4.1 Failure handling).
    bool Load(const QString& strFile);
    // Writes this object to the file; True on success. The object does not change.
    bool Save(const QString& strFile) const;

    // Id becomes the decimal text of the count before it; the very object is kept.
    // At the limit of 32767 scenes it does nothing (design.md 5).
    void AddScene(const std::shared_ptr<clsScene>& scene);
    // Removes the scene at i and renumbers those behind it; out of range does nothing.
    void DeleteScene(qint16 i);
    // The scene at index, the very object of the list; nullptr out of range (design 7).
    std::shared_ptr<clsScene> Scenes(qint16 index) const;
    qint16 NumScenes() const;

private:
    // Part 4.1 Load step 3: a missing attribute (VB Null) becomes the empty string.
    static QString NullToEmpty(const std::optional<QString>& value);

    RecordList<clsScene> m_scenes;
};
