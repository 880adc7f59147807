// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One sound or dialog line of a stage scene: a plain record of text fields, with no
// operations. A new one is a sound.

#include <QString>

class clsSound {
public:
    QString Id;   // number of the record as text; empty until AddSound
    QString File; // a path under the run-time's resources, "..\rez\sounds\door.wav"
    QString Name; // the sound's name, free text
    // "sound" or "dialog"; any other text is treated as "dialog" by the file.
    QString TypeSound = QStringLiteral("sound");
};
