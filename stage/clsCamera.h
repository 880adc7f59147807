// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One camera of a stage scene: a plain record of text fields, with no operations. A new
// camera stands at the origin, unturned.

#include <QString>

class clsCamera {
public:
    QString Id;   // number of the record as text; empty until AddCamera; what MainCamera holds
    QString Name; // the camera's name, free text
    QString PositionX = QStringLiteral("0.0");
    QString PositionY = QStringLiteral("0.0");
    QString PositionZ = QStringLiteral("0.0");
    QString OrientationX = QStringLiteral("0.0");
    QString OrientationY = QStringLiteral("0.0");
    QString OrientationZ = QStringLiteral("0.0");
};
