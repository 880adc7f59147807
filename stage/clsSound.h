#pragma once
// Part 3.1: one sound or dialog line of a stage scene; a plain record of public text fields.

#include <QString>

class clsSound {
public:
    QString Id;   // number of the record as text; empty until AddSound
    QString File; // resource-relative path of Part 1.1, e.g. "..\rez\sounds\door.wav"
    QString Name; // the sound's name, free text
    // "sound" or "dialog"; any other text is treated as "dialog" (Part 3.2).
    QString TypeSound = QStringLiteral("sound");
};
