// SPDX-License-Identifier: GPL-3.0-or-later
// The stage scene's operations on its three record lists; RecordList holds the steps. Its
// `.ssf` file is read and written in clsSSF_format.cpp.

#include "stage/clsSSF.h"

void clsSSF::AddPuppet(const std::shared_ptr<clsPuppet>& p) { m_puppets.Add(p); }
void clsSSF::DeletePuppet(qint16 i) { m_puppets.Delete(i); }
std::shared_ptr<clsPuppet> clsSSF::Puppets(qint16 index) const { return m_puppets.At(index); }
qint16 clsSSF::NumPuppets() const { return m_puppets.Count(); }

void clsSSF::AddSound(const std::shared_ptr<clsSound>& s) { m_sounds.Add(s); }
void clsSSF::DeleteSound(qint16 i) { m_sounds.Delete(i); }
std::shared_ptr<clsSound> clsSSF::Sounds(qint16 index) const { return m_sounds.At(index); }
qint16 clsSSF::NumSounds() const { return m_sounds.Count(); }

// DeleteCamera renumbers the cameras behind i and leaves MainCamera alone, so it
// may then name another camera, or none.
void clsSSF::AddCamera(const std::shared_ptr<clsCamera>& c) { m_cameras.Add(c); }
void clsSSF::DeleteCamera(qint16 i) { m_cameras.Delete(i); }
std::shared_ptr<clsCamera> clsSSF::Cameras(qint16 index) const { return m_cameras.At(index); }
qint16 clsSSF::NumCameras() const { return m_cameras.Count(); }
