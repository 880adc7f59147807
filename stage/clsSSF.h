#pragma once
// Part 3.1: the stage scene document; Part 3.2: its `.ssf` file format (clsSSF_format.cpp).

#include "foundation/RecordList.h"
#include "stage/clsCamera.h"
#include "stage/clsPuppet.h"
#include "stage/clsSound.h"

#include <QString>

#include <memory>
#include <optional>

class clsSSF {
public:
    QString World;      // world reference of Part 1.1, backslashes single
    QString MainCamera; // the Id of the main camera, not its name nor its place
    QString Nickname;
    QString Server;
    QString Port; // text; never checked for being a number

    // Part 3.2: fills this (new) object from the file; True when the whole file was read.
    // Not atomic: a failure leaves the root fields and the records read so far.
    bool Load(const QString& strFile);
    // Part 3.2: writes this object to the file; True when written. The object does not change.
    bool Save(const QString& strFile) const;

    // Id becomes the decimal text of the count before it; the very object is kept.
    // At the limit of 32767 records it does nothing (design 5).
    void AddPuppet(const std::shared_ptr<clsPuppet>& p);
    // Removes the record at i and renumbers those behind it; out of range does nothing.
    // MainCamera is never touched.
    void DeletePuppet(qint16 i);
    // The record at index, the very object of the list; nullptr out of range (design 7).
    std::shared_ptr<clsPuppet> Puppets(qint16 index) const;
    qint16 NumPuppets() const;

    void AddSound(const std::shared_ptr<clsSound>& s);
    void DeleteSound(qint16 i);
    std::shared_ptr<clsSound> Sounds(qint16 index) const;
    qint16 NumSounds() const;

    void AddCamera(const std::shared_ptr<clsCamera>& c);
    void DeleteCamera(qint16 i);
    std::shared_ptr<clsCamera> Cameras(qint16 index) const;
    qint16 NumCameras() const;

private:
    // Part 3.2: the value of an optional attribute, empty when it is absent.
    static QString NullToEmpty(const std::optional<QString>& value);
    // Part 3.2: the text of a sound's `file` attribute before doubling.
    static QString StoredSoundFile(const clsSound& s);
    // Part 3.2: the text of `File` from the undoubled `file` attribute.
    static QString LoadedSoundFile(const clsSound& s);

    RecordList<clsPuppet> m_puppets;
    RecordList<clsSound> m_sounds;
    RecordList<clsCamera> m_cameras;
};
