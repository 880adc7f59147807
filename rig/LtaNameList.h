// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One of the scanner's two lists of names, index from 0, in file order. The names of a scan
// stand one behind the other in one pool of bytes, with the end of each; a name becomes a
// QString only when it is asked for: its bytes decoded as UTF-8 where they are valid UTF-8,
// otherwise as Latin-1, with nothing skipped. A list of 32767 names thus lives in two blocks
// of memory, which a later scan fills again without allocating as far as they reach.

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <vector>

class LtaNameList {
public:
    qsizetype size() const { return qsizetype(m_ends.size()); }
    bool isEmpty() const { return m_ends.empty(); }

    // Name i (0 <= i < size()), decoded.
    QString at(qsizetype i) const;
    QStringList toStringList() const;

    // Empties the list but keeps its memory for the next scan.
    void clear();
    // One more name, from its bytes.
    void append(QByteArrayView name);
    // More bytes of the last name: a name may reach across two reads of a file.
    void appendToLast(QByteArrayView bytes);

    friend bool operator==(const LtaNameList& names, const QStringList& strings);

private:
    std::vector<char> m_bytes;     // all names, one behind the other
    std::vector<qsizetype> m_ends; // name i: m_bytes[m_ends[i - 1], m_ends[i]), from 0 for i = 0
};
