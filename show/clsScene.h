// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One scene of a show listing: a plain record of text fields, with no operations. Every
// field starts empty.

#include <QString>

class clsScene {
public:
    QString Id;   // number of the record as text; empty until AddScene
    QString SSF;  // a path under the run-time's resources, "..\rez\act1.ssf"
    QString Name; // free text
};
