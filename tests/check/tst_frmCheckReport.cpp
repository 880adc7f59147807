// SPDX-License-Identifier: GPL-3.0-or-later
// The report window driven through its controls: the order of the rows, a sort by a head, the
// file a chosen finding hands on, an empty report.

#include "check/ShowCheck.h"
#include "check/frmCheckReport.h"
#include "tests/check/Theatre.h"

#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest>

namespace {

QStringList Column(const QTableWidget& list, int column)
{
    QStringList texts;
    for (int i = 0; i < list.rowCount(); ++i)
        texts << list.item(i, column)->text();
    return texts;
}

} // namespace

class tst_frmCheckReport : public QObject {
    Q_OBJECT

private slots:
    void reportDrivenThroughItsControls()
    {
        const Theatre broken({Replace(u"show.tsl"_s, "Night", ""), Remove(u"sounds/door.wav"_s),
                              Replace(u"hero.rbt"_s, "-45.0", "low")});
        ShowCheck check;
        QVERIFY(check.CheckFile(broken.path(u"show.tsl"_s)));
        frmCheckReport report;
        report.ShowReport(u"show.tsl"_s, check);
        auto* const list = report.findChild<QTableWidget*>(u"lstFindings"_s);
        auto* const counts = report.findChild<QLabel*>(u"lblCounts"_s);
        QVERIFY(report.isVisible() && list->isVisible());
        QCOMPARE(counts->text(), u"4 files checked: 2 errors, 1 warning."_s);
        QCOMPARE(Column(*list, 0), QStringList({"Error", "Error", "Warning"}));
        QCOMPARE(Column(*list, 1), QStringList({"act1.ssf", "hero.rbt", "show.tsl"}));

        // A click on the File head sorts by file; the second click turns the order round.
        QHeaderView* const header = list->horizontalHeader();
        const QPoint fileHead(header->sectionViewportPosition(1) + 5, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, fileHead);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, fileHead);
        QCOMPARE(Column(*list, 1), QStringList({"show.tsl", "hero.rbt", "act1.ssf"}));

        QSignalSpy opened(&report, &frmCheckReport::OpenFile);
        const QRect row = list->visualItemRect(list->item(1, 0));
        // As a real double-click comes: a click, then the second press as a double-click.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row.center());
        list->setCurrentCell(0, 0);
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(opened.size(), 2);
        QCOMPARE(opened[0][0].toString(), broken.path(u"hero.rbt"_s));
        QCOMPARE(opened[1][0].toString(), broken.path(u"show.tsl"_s));

        // A second check replaces the report; with nothing found it says so.
        const Theatre clean;
        ShowCheck none;
        QVERIFY(none.CheckFile(clean.path(u"show.tsl"_s)));
        report.ShowReport(u"show.tsl"_s, none);
        QCOMPARE(list->rowCount(), 0);
        QVERIFY(!list->isVisible());
        QCOMPARE(counts->text(), u"No problems found in show.tsl and the 3 files it reaches."_s);
    }
};

QTEST_MAIN(tst_frmCheckReport)
#include "tst_frmCheckReport.moc"
