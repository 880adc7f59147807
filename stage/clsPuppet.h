// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One puppet of a stage scene: a plain record of text fields, with no operations. A new
// puppet stands at the origin, unscaled and unturned.

#include <QString>

class clsPuppet {
public:
    QString Id;  // number of the record as text; empty until AddPuppet
    QString RBT; // a path under the run-time's resources, "..\rez\bear.rbt"
    QString PositionX = QStringLiteral("0.0");
    QString PositionY = QStringLiteral("0.0");
    QString PositionZ = QStringLiteral("0.0");
    QString ScaleX = QStringLiteral("1.0");
    QString ScaleY = QStringLiteral("1.0");
    QString ScaleZ = QStringLiteral("1.0");
    QString OrientationX = QStringLiteral("0.0");
    QString OrientationY = QStringLiteral("0.0");
    QString OrientationZ = QStringLiteral("0.0");
};
