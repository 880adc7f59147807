// The example show opens whole, from the listing to every scene and every rig binding, and
// saves back byte for byte. The suite test opens the same files through the windows.

#include "foundation/mdlGeneral.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"
#include "tests/support/TestFiles.h"

#include <QDir>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_examples : public QObject {
    Q_OBJECT

private slots:
    void everyFileOpensAndTheListingReachesAll()
    {
        mdlGeneral::strCurrentDir = QDir::toNativeSeparators(m_dir.absolutePath() + u'/');
        clsTSL show;
        QVERIFY(opens(show, u"midnight.tsl"_s));
        QSet<QString> scenes, rigs;
        for (qint16 i = 0; i < show.NumScenes(); ++i) {
            clsSSF scene;
            const QString name = mdlGeneral::GetFileName(show.Scenes(i)->SSF);
            QVERIFY2(opens(scene, name), qPrintable(name));
            scenes << name;
            QVERIFY(scene.NumPuppets() > 0 && scene.NumSounds() > 0 && scene.NumCameras() > 0);
            for (qint16 p = 0; p < scene.NumPuppets(); ++p)
                rigs << mdlGeneral::GetFileName(scene.Puppets(p)->RBT);
        }
        const QStringList ssfs = m_dir.entryList({u"*.ssf"_s}),
                          rbts = m_dir.entryList({u"*.rbt"_s});
        QCOMPARE(scenes, QSet<QString>(ssfs.begin(), ssfs.end()));
        QCOMPARE(rigs, QSet<QString>(rbts.begin(), rbts.end()));
        for (const QString& name : rigs) {
            clsRBT rig;
            QVERIFY2(opens(rig, name), qPrintable(name));
        }
    }

private:
    // Loads, and saving what was loaded gives the file back: written as Troupe writes.
    template <class Document> bool opens(Document& doc, const QString& name) const
    {
        const TestFiles copy;
        return doc.Load(m_dir.filePath(name)) && doc.Save(copy.path(name)) &&
               TestFiles::read(copy.path(name)) == TestFiles::read(m_dir.filePath(name));
    }

    const QDir m_dir{QStringLiteral(TROUPE_EXAMPLES_DIR)};
};

QTEST_GUILESS_MAIN(tst_examples)
#include "tst_examples.moc"
