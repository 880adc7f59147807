// SPDX-License-Identifier: GPL-3.0-or-later
// The show listing's operations on its scene list; RecordList holds the steps. Its `.tsl`
// file is read and written in clsTSL_format.cpp.

#include "show/clsTSL.h"

void clsTSL::AddScene(const std::shared_ptr<clsScene>& scene) { m_scenes.Add(scene); }
void clsTSL::DeleteScene(qint16 i) { m_scenes.Delete(i); }
std::shared_ptr<clsScene> clsTSL::Scenes(qint16 index) const { return m_scenes.At(index); }
qint16 clsTSL::NumScenes() const { return m_scenes.Count(); }
