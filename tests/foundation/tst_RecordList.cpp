// SPDX-License-Identifier: GPL-3.0-or-later
// The record list of every document: Ids by place or kept, and the limit of 32767 records.

#include "foundation/RecordList.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Record {
    QString Id;
};

template <class List> QStringList ids(const List& list)
{
    QStringList result;
    for (const auto& record : list)
        result << record->Id;
    return result;
}

} // namespace

class tst_RecordList : public QObject {
    Q_OBJECT

private slots:
    void idsByPlaceAreRenumberedOnlyBehindADelete()
    {
        RecordList<Record> list;
        for (const QString& id : {u"3"_s, u"7"_s, u"9"_s, u"11"_s})
            QVERIFY(list.AppendLoaded(std::make_shared<Record>(id)));
        list.Add(std::make_shared<Record>());
        QCOMPARE(ids(list), QStringList({u"3"_s, u"7"_s, u"9"_s, u"11"_s, u"4"_s}));
        list.Delete(1);
        list.Delete(-1); // out of range: nothing happens
        list.Delete(4);
        list.At(1)->Id = u"edited"_s; // the very object of the list
        QCOMPARE(ids(list), QStringList({u"3"_s, u"edited"_s, u"2"_s, u"3"_s}));
        QCOMPARE(list.At(4), nullptr);
    }

    void keptIdsAndTheLimit()
    {
        RecordList<Record, Numbering::Kept> list;
        list.Add(std::make_shared<Record>(u"7"_s));
        list.Add(std::make_shared<Record>(u"4"_s));
        list.Delete(0);
        list.Add(nullptr);
        QCOMPARE(ids(list), QStringList({u"4"_s}));
        while (list.Count() < 32767)
            list.Add(std::make_shared<Record>());
        list.Add(std::make_shared<Record>(u"over"_s));
        QVERIFY(!list.AppendLoaded(std::make_shared<Record>(u"over"_s)));
        QCOMPARE(list.Count(), qint16(32767));
        QCOMPARE(list.At(32766)->Id, QString());
    }
};

QTEST_APPLESS_MAIN(tst_RecordList)
#include "tst_RecordList.moc"
