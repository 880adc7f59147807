// The record lists of the Overview: Add, Delete, read by index and count, with the two ways
// of numbering (by place for joints, puppets, sounds, cameras and scenes; kept for
// animations) and the limits of design.md sections 5 and 7.

#include "foundation/RecordList.h"

#include <QtTest>

namespace {

struct Record {
    QString Id;
};

template <class List>
QStringList ids(const List& list)
{
    QStringList result;
    for (const auto& record : list)
        result << record->Id;
    return result;
}

std::shared_ptr<Record> record(const QString& id = {})
{
    return std::make_shared<Record>(Record{id});
}

} // namespace

class tst_RecordList : public QObject {
    Q_OBJECT

private slots:
    void addNumbersByPlaceAndKeepsTheVeryObject();
    void deleteRenumbersOnlyThoseBehind();
    void keptNumberingNeverTouchesAnId();
    void appendLoadedKeepsTheIdOfTheFile();
    void indexOutOfRangeReadsNothingAndDeletesNothing();
    void listStopsAt32767Records();
    void nullRecordIsNotAdded();
};

void tst_RecordList::addNumbersByPlaceAndKeepsTheVeryObject()
{
    RecordList<Record> list;
    const auto first = record(u"old"_qs);
    list.Add(first);
    list.Add(record());
    list.Add(record());
    QCOMPARE(ids(list), QStringList({u"0"_qs, u"1"_qs, u"2"_qs}));
    QCOMPARE(list.At(0), first);
    list.At(0)->Id = u"edited"_qs;
    QCOMPARE(first->Id, u"edited"_qs);
}

void tst_RecordList::deleteRenumbersOnlyThoseBehind()
{
    RecordList<Record> list;
    for (const QString& id : {u"3"_qs, u"7"_qs, u"9"_qs, u"11"_qs})
        QVERIFY(list.AppendLoaded(record(id)));
    list.Delete(1);
    QCOMPARE(ids(list), QStringList({u"3"_qs, u"1"_qs, u"2"_qs}));
    list.Delete(2);
    QCOMPARE(ids(list), QStringList({u"3"_qs, u"1"_qs}));
}

void tst_RecordList::keptNumberingNeverTouchesAnId()
{
    RecordList<Record, Numbering::Kept> list;
    list.Add(record(u"7"_qs));
    list.Add(record(u"1"_qs));
    list.Add(record(u"4"_qs));
    list.Delete(0);
    QCOMPARE(ids(list), QStringList({u"1"_qs, u"4"_qs}));
}

void tst_RecordList::appendLoadedKeepsTheIdOfTheFile()
{
    RecordList<Record> list;
    QVERIFY(list.AppendLoaded(record(u"5"_qs)));
    QVERIFY(list.AppendLoaded(record(u"5"_qs)));
    list.Add(record());
    QCOMPARE(ids(list), QStringList({u"5"_qs, u"5"_qs, u"2"_qs}));
}

void tst_RecordList::indexOutOfRangeReadsNothingAndDeletesNothing()
{
    RecordList<Record> list;
    list.Add(record());
    QCOMPARE(list.At(-1), nullptr);
    QCOMPARE(list.At(1), nullptr);
    list.Delete(-1);
    list.Delete(1);
    QCOMPARE(list.Count(), qint16(1));
}

void tst_RecordList::listStopsAt32767Records()
{
    RecordList<Record> list;
    for (int i = 0; i < 32767; ++i)
        list.Add(record());
    QCOMPARE(list.Count(), qint16(32767));
    const auto extra = record(u"x"_qs);
    list.Add(extra);
    QVERIFY(!list.AppendLoaded(extra));
    QCOMPARE(list.Count(), qint16(32767));
    QCOMPARE(extra->Id, u"x"_qs);
    list.Clear();
    QCOMPARE(list.Count(), qint16(0));
}

void tst_RecordList::nullRecordIsNotAdded()
{
    RecordList<Record> list;
    list.Add(nullptr);
    QCOMPARE(list.Count(), qint16(0));
}

QTEST_APPLESS_MAIN(tst_RecordList)
#include "tst_RecordList.moc"
