// SPDX-License-Identifier: GPL-3.0-or-later
#include "rig/LtaNameList.h"

#include <QStringDecoder>

#include <algorithm>

namespace {

QString DecodeName(QByteArrayView bytes)
{
    // Plain ASCII, the usual name, reads the same either way: the quicker conversion.
    const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (ascii || !bytes.isValidUtf8())
        return QString::fromLatin1(bytes);
    // QString::fromUtf8 would drop a leading U+FEFF as a byte-order mark; in a name it is a
    // character of the name.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(bytes);
}

} // namespace

QString LtaNameList::at(qsizetype i) const
{
    Q_ASSERT(i >= 0 && i < size());
    const qsizetype begin = i == 0 ? 0 : m_ends[size_t(i - 1)];
    return DecodeName(QByteArrayView(m_bytes.data() + begin, m_ends[size_t(i)] - begin));
}

QStringList LtaNameList::toStringList() const
{
    QStringList strings;
    strings.reserve(size());
    for (qsizetype i = 0; i < size(); ++i)
        strings.append(at(i));
    return strings;
}

void LtaNameList::clear()
{
    // std::vector keeps its capacity.
    m_bytes.clear();
    m_ends.clear();
}

void LtaNameList::append(QByteArrayView name)
{
    m_bytes.insert(m_bytes.end(), name.begin(), name.end());
    m_ends.push_back(qsizetype(m_bytes.size()));
}

void LtaNameList::appendToLast(QByteArrayView bytes)
{
    Q_ASSERT(!isEmpty());
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    m_ends.back() = qsizetype(m_bytes.size());
}

bool operator==(const LtaNameList& names, const QStringList& strings)
{
    if (names.size() != strings.size())
        return false;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names.at(i) != strings.at(i))
            return false;
    }
    return true;
}
