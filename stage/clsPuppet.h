#pragma once
// Part 3.1: one puppet of a stage scene; a plain record of public text fields.

#include <QString>

class clsPuppet {
public:
    QString Id;  // number of the record as text; empty until AddPuppet
    QString RBT; // resource-relative path of Part 1.1, e.g. "..\rez\bear.rbt"
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
