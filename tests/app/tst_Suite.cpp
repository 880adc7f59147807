// SPDX-License-Identifier: GPL-3.0-or-later
// The suite: hand-overs and Tools entries across the managers; files on the command line.

#include "app/Suite.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/WindowDriver.h"

#include <QApplication>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString Examples = QStringLiteral(TROUPE_EXAMPLES_DIR) + u'/';

template <class Window> Window* shown() // the one manager of its kind, when it is shown
{
    QList<Window*> found;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<Window*>(widget))
            found << window;
    return found.size() == 1 && found[0]->isVisible() ? found[0] : nullptr;
}

// "none" for a manager not shown, "-" for one shown without a file, else its file.
template <class Window> QString state()
{
    const Window* window = shown<Window>();
    const QString file = window ? mdlGeneral::GetFileName(window->DocumentPath()) : u"none"_s;
    return file.isEmpty() ? u"-"_s : file;
}

} // namespace

class tst_Suite : public QObject {
    Q_OBJECT

private slots:
    void init() { mdlGeneral::strCurrentDir.clear(); }

    // From a listing to a scene to a puppet's rig binding; a Tools entry shows a closed manager.
    void aShowFromItsListingToAPuppetsRigBinding()
    {
        auto scripted = std::make_unique<ScriptedDialogService>();
        const QStringList& messages = scripted->messages();
        Suite suite(std::move(scripted));
        suite.OpenFiles({Examples + u"midnight.tsl"_s},
                        [](const QString& line) { QFAIL(qPrintable(line)); });
        WindowDriver show(shown<frmMainTSL>());
        show.pickRow(u"lstScenes"_s, 0);
        show.trigger(u"menEditSSF"_s);
        QCOMPARE(state<frmMainSSF>(), u"act1.ssf"_s);
        frmMainSSF* ssf = shown<frmMainSSF>();
        const clsSSF* scene = ssf->Document();
        WindowDriver stage(ssf);
        stage.pickRow(u"lstPuppets"_s, 1);
        stage.trigger(u"menEditRBT"_s);
        QCOMPARE(state<frmMainRBT>(), u"dancer.rbt"_s);
        WindowDriver rig(shown<frmMainRBT>());
        QCOMPARE(rig.listBox(u"lstAnimations"_s)->List(0), u"Breathes (idle)"_s);

        ssf->close(); // by the frame
        rig.trigger(u"menSFFEditor"_s);
        QCOMPARE(shown<frmMainSSF>(), ssf);
        QCOMPARE(ssf->Document(), scene);
        QCOMPARE(messages, QStringList());
    }

    // Check... in a manager checks its document as it stands; a double-click on a finding
    // shows that document's manager without opening it again, or opens another file in its.
    void aCheckFromAManagerAndItsFindingsOpened()
    {
        auto scripted = std::make_unique<ScriptedDialogService>();
        const QStringList& messages = scripted->messages();
        Suite suite(std::move(scripted));
        suite.OpenFiles({Examples + u"act1.ssf"_s},
                        [](const QString& line) { QFAIL(qPrintable(line)); });
        frmMainSSF* ssf = shown<frmMainSSF>();
        WindowDriver stage(ssf);
        stage.pickRow(u"lstPuppets"_s, 0);
        stage.type(u"txtPosX"_s, u"o"_s); // "0.0o", unsaved
        stage.trigger(u"menCheck"_s);

        QWidget* report = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            report = top->objectName() == u"frmCheckReport"_s ? top : report;
        QVERIFY(report && report->isVisible());
        auto* list = report->findChild<QTableWidget*>(u"lstFindings"_s);
        QCOMPARE(list->item(0, 0)->text(), u"Error"_s);
        QCOMPARE(list->item(0, 2)->text(), u"puppet 0"_s);
        const auto open = [list](const QString& file) {
            for (int row = 0; row < list->rowCount(); ++row)
                if (list->item(row, 1)->text() == file) {
                    list->setCurrentCell(row, 0);
                    QTest::keyClick(list, Qt::Key_Return);
                    return true;
                }
            return false;
        };
        const clsSSF* scene = ssf->Document();
        QVERIFY(open(u"act1.ssf"_s));
        QCOMPARE(ssf->Document(), scene);
        QCOMPARE(scene->Puppets(0)->PositionX, u"0.0o"_s);
        QVERIFY(open(u"crate.rbt"_s)); // the compiled model beside it is missing
        QCOMPARE(state<frmMainRBT>(), u"crate.rbt"_s);
        QCOMPARE(messages, QStringList());
        suite.ShowManager(Manager::TSL); // without a document: nothing to check
        WindowDriver(shown<frmMainTSL>()).trigger(u"menCheck"_s);
        QCOMPARE(messages.size(), 1);
    }

    void filesOnTheCommandLine_data()
    {
        QVERIFY(QFile::copy(Examples + u"midnight.tsl"_s, m_elsewhere.filePath(u"x.tsl"_s)));
        QVERIFY(mkfifo(QFile::encodeName(m_elsewhere.filePath(u"fifo.ssf"_s)).constData(), 0600) ==
                0);
        QVERIFY(
            QFile::link(m_elsewhere.filePath(u"loop.rbt"_s), m_elsewhere.filePath(u"loop.rbt"_s)));
        QFile binary(m_elsewhere.filePath(u"binary.rbt"_s));
        QVERIFY(binary.open(QIODevice::WriteOnly) && binary.write("\x7f"
                                                                  "ELF\x02\x01") > 0);
        QTest::addColumn<QString>("files");    // in the examples; "@x.tsl" lies in another folder
        QTest::addColumn<QString>("failures"); // "file: why" of each file that did not open
        QTest::addColumn<QString>("managers"); // state of the rbt, ssf and tsl managers after
        QTest::newRow("one of each kind") << u"midnight.tsl act2.ssf drum.rbt"_s << QString()
                                          << u"drum.rbt act2.ssf midnight.tsl"_s;
        QTest::newRow("each bad one said as what it is, and no window for it")
            << u"sounds/knock1.wav gone.ssf @fifo.ssf @loop.rbt @binary.rbt act3.ssf"_s
            << u"knock1.wav: Troupe opens rig binding tables (.rbt), stage scenes (.ssf) and "
               "show listings (.tsl)|gone.ssf: there is no such file|fifo.ssf: it is a FIFO|"
               "loop.rbt: its symbolic links lead round in a loop|binary.rbt: it is no rig "
               "binding table: line 1, column 2: Start tag expected."_s
            << u"none act3.ssf none"_s;
        QTest::newRow("a later file from another folder")
            << u"crate.rbt @x.tsl"_s << u"x.tsl: it is not in the base folder of this run"_s
            << u"crate.rbt none none"_s;
        QTest::newRow("none opens: as without files")
            << u"models/crate.lta"_s << u"crate.lta: Troupe opens"_s << u"- none none"_s;
    }

    void filesOnTheCommandLine()
    {
        QFETCH(QString, files);
        QFETCH(QString, failures);
        QFETCH(QString, managers);
        QStringList paths;
        for (const QString& name : files.split(u' ', Qt::SkipEmptyParts))
            paths << (name[0] == u'@' ? m_elsewhere.filePath(name.mid(1)) : Examples + name);
        auto scripted = std::make_unique<ScriptedDialogService>();
        const QStringList& messages = scripted->messages();
        Suite suite(std::move(scripted));

        QStringList reported;
        suite.OpenFiles(paths, [&](const QString& line) { reported << line; });
        const QStringList expected = failures.split(u'|', Qt::SkipEmptyParts);
        QCOMPARE(reported.size(), expected.size());
        for (qsizetype i = 0; i < expected.size(); ++i) {
            const QString file = expected[i].section(u": "_s, 0, 0);
            const QString why = expected[i].section(u": "_s, 1);
            QVERIFY2(reported[i].contains(u'/' + file + u": not opened; "_s + why),
                     qPrintable(reported[i]));
        }
        QCOMPARE(messages, QStringList()); // none of them brought up a message box
        QCOMPARE(QStringList({state<frmMainRBT>(), state<frmMainSSF>(), state<frmMainTSL>()}),
                 managers.split(u' '));
    }

private:
    QTemporaryDir m_elsewhere; // a valid listing outside the folder of the first file
};

QTEST_MAIN(tst_Suite)
#include "tst_Suite.moc"
