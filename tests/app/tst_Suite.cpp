// The suite: hand-overs and Tools entries across the managers; files on the command line.

#include "app/Suite.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/WindowDriver.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

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
        QVERIFY(suite.OpenFiles({Examples + u"midnight.tsl"_s}).isEmpty());
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

    void filesOnTheCommandLine_data()
    {
        QVERIFY(QFile::copy(Examples + u"midnight.tsl"_s, m_elsewhere.filePath(u"x.tsl"_s)));
        QTest::addColumn<QString>("files");    // in the examples; "@x.tsl" lies in another folder
        QTest::addColumn<QString>("failing");  // the files named in the failures, in order
        QTest::addColumn<QString>("managers"); // state of the rbt, ssf and tsl managers after
        QTest::newRow("one of each kind") << u"midnight.tsl act2.ssf drum.rbt"_s << QString()
                                          << u"drum.rbt act2.ssf midnight.tsl"_s;
        QTest::newRow("bad ones named, others open")
            << u"sounds/knock1.wav gone.ssf act3.ssf"_s << u"sounds/knock1.wav gone.ssf"_s
            << u"none act3.ssf none"_s;
        QTest::newRow("no xml; outside the first folder")
            << u"models/crate.lta crate.rbt @x.tsl"_s << u"models/crate.lta @x.tsl"_s
            << u"crate.rbt none -"_s;
        QTest::newRow("only unknown files: as without files")
            << u"models/crate.lta"_s << u"models/crate.lta"_s << u"- none none"_s;
    }

    void filesOnTheCommandLine()
    {
        QFETCH(QString, files);
        QFETCH(QString, failing);
        QFETCH(QString, managers);
        const auto paths = [this](const QString& names) {
            QStringList list;
            for (const QString& name : names.split(u' ', Qt::SkipEmptyParts))
                list << (name[0] == u'@' ? m_elsewhere.filePath(name.mid(1)) : Examples + name);
            return list;
        };
        Suite suite(std::make_unique<ScriptedDialogService>());

        QStringList named; // each failure begins with the path it names
        for (const QString& failure : suite.OpenFiles(paths(files)))
            named << failure.section(u": "_s, 0, 0);
        QCOMPARE(named, paths(failing));
        QCOMPARE(QStringList({state<frmMainRBT>(), state<frmMainSSF>(), state<frmMainTSL>()}),
                 managers.split(u' '));
    }

private:
    QTemporaryDir m_elsewhere; // a valid listing outside the folder of the first file
};

QTEST_MAIN(tst_Suite)
#include "tst_Suite.moc"
