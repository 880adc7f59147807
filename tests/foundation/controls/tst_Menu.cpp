// Part 1.3: `Menu` entries: spec name, caption, event `Click`.

#include "foundation/controls/Menu.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QtTest>

class tst_Menu : public QObject {
    Q_OBJECT

private slots:
    void entriesCarryTheirSpecNameAndCaptionInOrder();
    void choosingAnEntryRaisesClick();
};

void tst_Menu::entriesCarryTheirSpecNameAndCaptionInOrder()
{
    QMainWindow window;
    QMenu* file = Menu::AddMenu(window.menuBar(), QStringLiteral("menFile"), QStringLiteral("File"));
    Menu::AddEntry(file, QStringLiteral("menNewTSL"), QStringLiteral("&New Troupe Show Listing"));
    Menu::AddSeparator(file, QStringLiteral("menSep04"));
    Menu::AddEntry(file, QStringLiteral("menExit"), QStringLiteral("&Exit"));
    Menu::AddMenu(window.menuBar(), QStringLiteral("menTools"), QStringLiteral("Tools"));

    QCOMPARE(window.findChild<QMenu*>(QStringLiteral("menFile")), file);
    const QList<QAction*> bar = window.menuBar()->actions();
    QCOMPARE(bar.size(), 2);
    QCOMPARE(bar[0]->text(), QStringLiteral("File"));
    QCOMPARE(bar[1]->text(), QStringLiteral("Tools"));

    const QList<QAction*> entries = file->actions();
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries[0]->objectName(), QStringLiteral("menNewTSL"));
    QCOMPARE(entries[0]->text(), QStringLiteral("&New Troupe Show Listing"));
    QVERIFY(qobject_cast<Menu*>(entries[0]));
    QCOMPARE(entries[1]->objectName(), QStringLiteral("menSep04"));
    QVERIFY(entries[1]->isSeparator());
    QCOMPARE(entries[2]->objectName(), QStringLiteral("menExit"));
    QVERIFY(entries[2]->shortcut().isEmpty());
    QCOMPARE(window.findChild<QAction*>(QStringLiteral("menExit")), entries[2]);
}

void tst_Menu::choosingAnEntryRaisesClick()
{
    QMainWindow window;
    QMenu* scene = Menu::AddMenu(window.menuBar(), QStringLiteral("menScene"), QStringLiteral("Scene"));
    Menu* remove = Menu::AddEntry(scene, QStringLiteral("menDeleteScene"), QStringLiteral("&Delete"));
    QSignalSpy click(remove, &Menu::Click);
    remove->trigger();
    QCOMPARE(click.count(), 1);

    // Chosen from the open menu with the mouse.
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    scene->popup(window.mapToGlobal(QPoint(10, 10)));
    QVERIFY(QTest::qWaitForWindowExposed(scene));
    QTest::mouseClick(scene, Qt::LeftButton, {}, scene->actionGeometry(remove).center());
    QTRY_COMPARE(click.count(), 2);
}

QTEST_MAIN(tst_Menu)
#include "tst_Menu.moc"
