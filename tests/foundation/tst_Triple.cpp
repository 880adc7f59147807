// Overview "Coordinate triple": split at the first two commas, joined by single commas.

#include "foundation/Triple.h"

#include <QtTest>

class tst_Triple : public QObject {
    Q_OBJECT

private slots:
    void splitAtTheFirstTwoCommas_data();
    void splitAtTheFirstTwoCommas();
    void fewerThanTwoCommasFailAndLeaveTheFieldsAlone_data();
    void fewerThanTwoCommasFailAndLeaveTheFieldsAlone();
    void joinWritesTheTextsCharacterForCharacter();
};

void tst_Triple::splitAtTheFirstTwoCommas_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::addColumn<QString>("z");
    QTest::newRow("plain") << u"0.0,1.0,0.0"_qs << u"0.0"_qs << u"1.0"_qs << u"0.0"_qs;
    QTest::newRow("further commas go to z") << u"1,2,3,4"_qs << u"1"_qs << u"2"_qs << u"3,4"_qs;
    QTest::newRow("two commas alone") << u",,"_qs << QString() << QString() << QString();
    QTest::newRow("blanks stay") << u"1.0, 0.0, 0.0"_qs << u"1.0"_qs << u" 0.0"_qs << u" 0.0"_qs;
    QTest::newRow("letters stay") << u"a,b c,"_qs << u"a"_qs << u"b c"_qs << QString();
}

void tst_Triple::splitAtTheFirstTwoCommas()
{
    QFETCH(QString, text);
    QFETCH(QString, x);
    QFETCH(QString, y);
    QFETCH(QString, z);
    QString gotX, gotY, gotZ;
    QVERIFY(SplitTriple(text, gotX, gotY, gotZ));
    QCOMPARE(gotX, x);
    QCOMPARE(gotY, y);
    QCOMPARE(gotZ, z);
    QCOMPARE(JoinTriple(gotX, gotY, gotZ), text);
}

void tst_Triple::fewerThanTwoCommasFailAndLeaveTheFieldsAlone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one comma") << u"1,2"_qs;
    QTest::newRow("none") << u"1"_qs;
    QTest::newRow("empty") << QString();
}

void tst_Triple::fewerThanTwoCommasFailAndLeaveTheFieldsAlone()
{
    QFETCH(QString, text);
    QString x = u"x"_qs, y = u"y"_qs, z = u"z"_qs;
    QVERIFY(!SplitTriple(text, x, y, z));
    QCOMPARE(x, u"x"_qs);
    QCOMPARE(y, u"y"_qs);
    QCOMPARE(z, u"z"_qs);
}

void tst_Triple::joinWritesTheTextsCharacterForCharacter()
{
    QCOMPARE(JoinTriple(u"1"_qs, u" 2"_qs, u"3,4"_qs), u"1, 2,3,4"_qs);
    QCOMPARE(JoinTriple({}, {}, {}), u",,"_qs);
}

QTEST_APPLESS_MAIN(tst_Triple)
#include "tst_Triple.moc"
