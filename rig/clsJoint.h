// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One joint of a rig binding: a plain record of text fields, with no operations. Every
// field starts empty: no default limit or vector lives in the record.

#include <QString>

class clsJoint {
public:
    QString Id;      // the joint's place in the joint list, as decimal text
    QString Node;    // the model node that this joint drives
    QString Min;     // lower limit, as typed
    QString Max;     // upper limit, as typed
    QString VectorX; // the axis, one component each
    QString VectorY;
    QString VectorZ;
    QString Action;      // "rotate" or "translate"
    QString Description; // the joint's display name
};
