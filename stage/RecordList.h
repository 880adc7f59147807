#pragma once
// The record list of the Overview ("Record lists") and Part 3.1, written once for the
// puppet, sound and camera lists of clsSSF. Nothing in it is particular to stage scenes:
// clsRBT and clsTSL keep lists of the same kind, so it could move to foundation/.

#include "foundation/Limits.h"

#include <QList>
#include <QString>

#include <concepts>
#include <memory>

// A record is a plain class with a public text field `Id`.
template <class Record>
concept IdRecord = requires(Record r) {
    { r.Id } -> std::convertible_to<QString>;
    r.Id = QString();
};

template <IdRecord Record>
class RecordList {
public:
    using Pointer = std::shared_ptr<Record>;

    // Part 3.1 AddPuppet: Id becomes the decimal text of the count before it, and the very
    // object is appended. A null record, or a full list (design 5), is left alone.
    void Add(const Pointer& record)
    {
        if (!record || m_records.size() >= Limits::MaxRecords)
            return;
        record->Id = QString::number(m_records.size());
        m_records.append(record);
    }

    // Part 3.1 DeletePuppet: remove place i, then renumber every record behind it to its
    // new place. Records in front keep their Id. Out of range does nothing (design 7).
    void Delete(qint16 i)
    {
        if (!contains(i))
            return;
        m_records.removeAt(i);
        for (qsizetype k = i; k < m_records.size(); ++k)
            m_records[k]->Id = QString::number(k);
    }

    // The record at index, the very object of the list; nullptr out of range (design 7).
    Pointer At(qint16 index) const { return contains(index) ? m_records.at(index) : nullptr; }

    qint16 Count() const { return static_cast<qint16>(m_records.size()); }

    // Part 3.2 Load step 5.3: appends a record read from a file as it stands, Id untouched.
    // False when the list already holds the most a 16-bit count allows (design 5).
    [[nodiscard]] bool AppendLoaded(const Pointer& record)
    {
        if (m_records.size() >= Limits::MaxRecords)
            return false;
        m_records.append(record);
        return true;
    }

    auto begin() const { return m_records.cbegin(); }
    auto end() const { return m_records.cend(); }

private:
    bool contains(qsizetype i) const { return i >= 0 && i < m_records.size(); }

    QList<Pointer> m_records;
};
