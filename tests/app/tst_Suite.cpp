// The suite: each manager made once at its first use, hand-overs and Tools entries that show
// a manager as it was, closing by the frame, and files given on the command line.

#include "app/Suite.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmMainRBT.h"
#include "show/frmMainTSL.h"
#include "stage/frmMainSSF.h"
#include "tests/support/ScriptedDialogService.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString Examples = QStringLiteral(TROUPE_EXAMPLES_DIR) + u'/';

template <class Window> QList<Window*> managers()
{
    QList<Window*> found;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<Window*>(widget))
            found << window;
    return found;
}

template <class Window> Window* shown()
{
    const QList<Window*> found = managers<Window>();
    return found.size() == 1 && found[0]->isVisible() ? found[0] : nullptr;
}

} // namespace

class tst_Suite : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(Examples + u"midnight.tsl"_s, m_elsewhere.filePath(u"x.tsl"_s)));
    }
    void init() { mdlGeneral::strCurrentDir.clear(); }

    void startsWithTheRigBindingManagerAlone()
    {
        Suite suite(std::make_unique<ScriptedDialogService>());
        suite.Start();
        QVERIFY(shown<frmMainRBT>() && !shown<frmMainRBT>()->Document());
        QVERIFY(managers<frmMainSSF>().isEmpty() && managers<frmMainTSL>().isEmpty());
    }

    void managersAreMadeOnceAndShownAsTheyWere()
    {
        Suite suite(std::make_unique<ScriptedDialogService>());
        mdlGeneral::strCurrentDir = Examples;
        suite.EditSSF(u"act1.ssf"_s);
        frmMainSSF* ssf = shown<frmMainSSF>();
        QVERIFY(ssf && ssf->CurrentFile() == u"act1.ssf"_s);
        const clsSSF* scene = ssf->Document();

        ssf->close(); // by the frame: hidden, not gone
        QVERIFY(!ssf->isVisible());
        suite.ShowSSFManager();
        suite.EditSSF(std::nullopt);
        QCOMPARE(shown<frmMainSSF>(), ssf);
        QCOMPARE(ssf->Document(), scene);

        suite.EditRBT(u"dancer.rbt"_s);
        suite.ShowRBTManager();
        QVERIFY(shown<frmMainRBT>() && shown<frmMainRBT>()->CurrentFile() == u"dancer.rbt"_s);
        QCOMPARE(managers<frmMainTSL>().size(), 0);
    }

    void closingTheLastManagerEndsTheRun()
    {
        Suite suite(std::make_unique<ScriptedDialogService>());
        suite.ShowTSLManager();
        suite.ShowRBTManager();
        QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
        qsizetype afterFirst = -1;
        QTimer::singleShot(0, [&] {
            shown<frmMainTSL>()->close();
            afterFirst = lastClosed.count();
            shown<frmMainRBT>()->close();
        });
        QTimer guard; // a run that does not end fails instead of hanging
        guard.callOnTimeout([] { QCoreApplication::exit(1); });
        guard.start(5000);
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(afterFirst, 0);
        QCOMPARE(lastClosed.count(), 1);
    }

    void filesOnTheCommandLine_data()
    {
        QTest::addColumn<QStringList>("paths");
        QTest::addColumn<QStringList>("failing"); // each failure line begins with its path
        QTest::addColumn<QStringList>("opened");  // CurrentFile of the rbt, ssf and tsl managers
        const QString other = m_elsewhere.path() + u'/';
        QTest::newRow("one of each kind")
            << QStringList{Examples + u"midnight.tsl"_s, Examples + u"act2.ssf"_s,
                           Examples + u"drum.rbt"_s}
            << QStringList() << QStringList{u"drum.rbt"_s, u"act2.ssf"_s, u"midnight.tsl"_s};
        QTest::newRow("bad ones are named, the others open")
            << QStringList{Examples + u"models/README.md"_s, Examples + u"gone.ssf"_s,
                           Examples + u"act3.ssf"_s}
            << QStringList{Examples + u"models/README.md"_s, Examples + u"gone.ssf"_s}
            << QStringList{QString(), u"act3.ssf"_s, QString()};
        QTest::newRow("not an xml file, and one outside the first folder")
            << QStringList{Examples + u"models/box.lta"_s, Examples + u"crate.rbt"_s,
                           other + u"x.tsl"_s}
            << QStringList{Examples + u"models/box.lta"_s, other + u"x.tsl"_s}
            << QStringList{u"crate.rbt"_s, QString(), QString()};
        QTest::newRow("only unknown files: the start-up window")
            << QStringList{Examples + u"models/box.lta"_s}
            << QStringList{Examples + u"models/box.lta"_s}
            << QStringList{QString(), QString(), QString()};
    }

    void filesOnTheCommandLine()
    {
        QFETCH(QStringList, paths);
        QFETCH(QStringList, failing);
        QFETCH(QStringList, opened);
        Suite suite(std::make_unique<ScriptedDialogService>());

        const QStringList failures = suite.OpenFiles(paths);
        QCOMPARE(failures.size(), failing.size());
        for (qsizetype i = 0; i < failing.size(); ++i)
            QVERIFY2(failures[i].startsWith(failing[i] + u": "_s), qPrintable(failures[i]));
        QVERIFY(shown<frmMainRBT>() || shown<frmMainSSF>() || shown<frmMainTSL>());
        QCOMPARE(shown<frmMainRBT>() ? shown<frmMainRBT>()->CurrentFile() : QString(), opened[0]);
        QCOMPARE(shown<frmMainSSF>() ? shown<frmMainSSF>()->CurrentFile() : QString(), opened[1]);
        QCOMPARE(shown<frmMainTSL>() ? shown<frmMainTSL>()->CurrentFile() : QString(), opened[2]);
    }

private:
    QTemporaryDir m_elsewhere; // a valid listing outside the folder of the first file
};

QTEST_MAIN(tst_Suite)
#include "tst_Suite.moc"
