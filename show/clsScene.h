#pragma once
// Part 4.1: one scene of a show listing; a plain record of public text fields.

#include <QString>

class clsScene {
public:
    QString Id;   // number of the record as text; empty until AddScene
    QString SSF;  // resource-relative path of Part 1.1, e.g. "..\rez\act1.ssf"
    QString Name; // free text
};
