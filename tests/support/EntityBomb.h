#pragma once
// A billion laughs for the bad-input tests: a DTD whose entity
// `&l9;` expands to 10^9 characters. Qt's expansion limit makes such a file not well-formed.

#include <QByteArray>

// The document type declaration for a root named `root`; the document follows it and uses
// `&l9;` where the bomb should go off.
inline QByteArray EntityBombPrologue(const QByteArray& root)
{
    QByteArray dtd = "<!DOCTYPE " + root + " [<!ENTITY l0 \"lol\">";
    for (int level = 1; level <= 9; ++level) {
        const QByteArray previous = "&l" + QByteArray::number(level - 1) + ';';
        dtd += "<!ENTITY l" + QByteArray::number(level) + " \"" + previous.repeated(10) + "\">";
    }
    return dtd + "]>";
}
