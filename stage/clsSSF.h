// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The stage scene document: world, connection details, main camera and three lists of
// records; its `.ssf` file is read and written in clsSSF_format.cpp.

#include "foundation/RecordList.h"
#include "stage/clsCamera.h"
#include "stage/clsPuppet.h"
#include "stage/clsSound.h"

#include <QString>

#include <memory>

class QIODevice;

class clsSSF {
public:
    QString World;      // a world reference ("..\rez\worlds\park"), backslashes single
    QString MainCamera; // the Id of the main camera, not its name nor its place
    QString Nickname;
    QString Server;
    QString Port; // text; never checked for being a number

    // Reads a `.ssf` text from `device`. False at the first failure, with the scene as it was
    // and `why` (where given) saying what was expected and on which line.
    bool Read(QIODevice& device, QString* why = nullptr);
    // Writes the scene to `device`. False, with nothing written, when a text holds a
    // character a file cannot carry; `why` names the record and the field.
    bool Write(QIODevice& device, QString* why = nullptr) const;

    // The file `strFile` read and written; a save replaces the file whole or not at all, and
    // the object does not change.
    bool Load(const QString& strFile);
    bool Save(const QString& strFile, QString* why = nullptr) const;

    // Id becomes the decimal text of the count before it; the very object is kept.
    // At the limit of 32767 records it does nothing.
    void AddPuppet(const std::shared_ptr<clsPuppet>& p);
    // Removes the record at i and renumbers those behind it; out of range does nothing.
    // MainCamera is never touched.
    void DeletePuppet(qint16 i);
    // The record at index, the very object of the list; nullptr out of range.
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
    RecordList<clsPuppet> m_puppets;
    RecordList<clsSound> m_sounds;
    RecordList<clsCamera> m_cameras;
};

// The text a sound's `file` is stored as, before its backslashes are doubled: a sound of type
// exactly "sound" keeps its file name; any other type is a dialog line, stored without its
// extension and without the digits in front of it, since the run-time picks the numbered takes
// itself ("..\rez\sounds\hello07.wav" is stored "..\rez\sounds\hello").
QString StoredSoundFile(const clsSound& s);
