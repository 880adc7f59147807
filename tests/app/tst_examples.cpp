// The example show: every file loads, every rig's model scans and offers what the binding
// names, every file saves back byte for byte, and the listing leads to every scene and the
// scenes to every rig binding of the folder.

#include "foundation/mdlGeneral.h"
#include "rig/LtaScanner.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Saving what was loaded gives the file back: the example is written as Troupe writes.
template <class Document> void savesBackUnchanged(const Document& doc, const QString& path)
{
    QTemporaryDir dir;
    const QString copy = dir.filePath(u"copy"_s);
    QVERIFY(doc.Save(copy));
    QCOMPARE(contents(copy), contents(path));
}

} // namespace

class tst_examples : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_dir = QDir(QStringLiteral(TROUPE_EXAMPLES_DIR));
        // The folder is the base folder, as after opening any of its files.
        mdlGeneral::strCurrentDir = QDir::toNativeSeparators(m_dir.absolutePath() + u'/');
    }

    void everyFileOpensAndTheListingReachesAll()
    {
        clsTSL show;
        const QStringList listings = m_dir.entryList({u"*.tsl"_s});
        QCOMPARE(listings.size(), 1);
        QVERIFY(show.Load(m_dir.filePath(listings[0])));
        savesBackUnchanged(show, m_dir.filePath(listings[0]));
        QCOMPARE(show.NumScenes(), 3);

        QSet<QString> scenes, rigs;
        for (qint16 i = 0; i < show.NumScenes(); ++i) {
            const QString name = mdlGeneral::GetFileName(show.Scenes(i)->SSF);
            QVERIFY2(m_dir.exists(name), qPrintable(name));
            scenes << name;
            clsSSF scene;
            QVERIFY2(scene.Load(m_dir.filePath(name)), qPrintable(name));
            savesBackUnchanged(scene, m_dir.filePath(name));
            QVERIFY(scene.NumPuppets() > 0 && scene.NumSounds() > 0 && scene.NumCameras() > 0);
            for (qint16 p = 0; p < scene.NumPuppets(); ++p)
                rigs << mdlGeneral::GetFileName(scene.Puppets(p)->RBT);
        }
        QCOMPARE(scenes, files(u"*.ssf"_s));
        QCOMPARE(rigs, files(u"*.rbt"_s));
        for (const QString& name : rigs)
            rigOpensWithItsModel(name);
    }

private:
    QSet<QString> files(const QString& pattern) const
    {
        const QStringList names = m_dir.entryList({pattern});
        return {names.begin(), names.end()};
    }

    // As the rig binding manager opens it: the model's lists are not empty, every animation
    // Id is an index into the model's animations and every joint drives a node of the model.
    void rigOpensWithItsModel(const QString& name)
    {
        clsRBT rig;
        QVERIFY2(rig.Load(m_dir.filePath(name)), qPrintable(name));
        savesBackUnchanged(rig, m_dir.filePath(name));
        LtaScanner scanner;
        QString lta = rig.Model;
        lta.back() = u'a';
        QVERIFY2(scanner.ScanModel(lta), qPrintable(lta));
        QVERIFY(!scanner.strAnimations.isEmpty() && !scanner.strNodes.isEmpty());
        QVERIFY(rig.NumJoints() > 0 && rig.NumAnimations() > 0);
        for (qint16 a = 0; a < rig.NumAnimations(); ++a) {
            bool number = false;
            const int id = rig.Animations(a)->Id.toInt(&number);
            QVERIFY(number && id >= 0 && id < scanner.strAnimations.size());
        }
        const QStringList nodes = scanner.strNodes.toStringList();
        for (qint16 j = 0; j < rig.NumJoints(); ++j)
            QVERIFY2(nodes.contains(rig.Joints(j)->Node), qPrintable(name));
    }

    QDir m_dir;
};

QTEST_GUILESS_MAIN(tst_examples)
#include "tst_examples.moc"
