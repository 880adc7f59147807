// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The record lists of the documents: ordered, with an Add, a Delete, a read by index and a
// count, holding shared references, so that a field written through the record handed out is
// written in the document. Written once for every list of the three documents.

#include "foundation/Limits.h"

#include <QList>
#include <QString>

#include <concepts>
#include <memory>

// A record is a plain class with a public text field `Id`.
template <class Record>
concept IdRecord = requires(Record r)
{
    {
        r.Id
        } -> std::convertible_to<QString>;
    r.Id = QString();
};

// How a list numbers its records.
enum class Numbering {
    ByPlace, // Add and Delete set an Id to the record's place
    Kept,    // animations: the Id refers to the model and never changes
};

template <IdRecord Record, Numbering numbering = Numbering::ByPlace> class RecordList {
public:
    using Pointer = std::shared_ptr<Record>;

    // Id becomes the decimal text of the count before it, and the very object is appended.
    // A null record, or a full list, is left alone: no list outgrows what its file can hold.
    void Add(const Pointer& record)
    {
        if (!record || m_records.size() >= Limits::MaxRecords)
            return;
        if constexpr (numbering == Numbering::ByPlace)
            record->Id = QString::number(m_records.size());
        m_records.append(record);
    }

    // Removes record i and renumbers those behind it; records in front keep their Id, so Ids
    // read from a file survive until a delete reaches them. Out of range does nothing.
    void Delete(qint16 i)
    {
        if (!contains(i))
            return;
        m_records.removeAt(i);
        if constexpr (numbering == Numbering::ByPlace) {
            for (qsizetype k = i; k < m_records.size(); ++k)
                m_records[k]->Id = QString::number(k);
        }
    }

    // The record at index, the very object of the list; nullptr out of range.
    Pointer At(qint16 index) const { return contains(index) ? m_records.at(index) : nullptr; }

    qint16 Count() const { return static_cast<qint16>(m_records.size()); }

    // A Load's step: appends a record read from a file as it stands, Id untouched.
    // False when the list already holds the most a 16-bit count allows.
    [[nodiscard]] bool AppendLoaded(const Pointer& record)
    {
        if (m_records.size() >= Limits::MaxRecords)
            return false;
        m_records.append(record);
        return true;
    }

    void Clear() { m_records.clear(); }

    auto begin() const { return m_records.cbegin(); }
    auto end() const { return m_records.cend(); }

private:
    bool contains(qsizetype i) const { return i >= 0 && i < m_records.size(); }

    QList<Pointer> m_records;
};
