// SPDX-License-Identifier: GPL-3.0-or-later
// The example show as the theatre keeps it: every file it names is found from its `rez`
// folder, and the scanner reads the models that its rig bindings bind.

#include "foundation/mdlGeneral.h"
#include "rig/LtaScanner.h"
#include "rig/clsRBT.h"
#include "show/clsTSL.h"
#include "stage/clsSSF.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Rez = QStringLiteral(TROUPE_EXAMPLES_DIR "/"); // the show's folder, `rez`

// Where the run-time, working in a folder beside `rez`, finds a stored resource path.
QFileInfo RunTimeFile(const QString& stored)
{
    return QFileInfo(QDir::cleanPath(Rez + u"../bin/"_s + mdlGeneral::StoredToNative(stored)));
}

} // namespace

class tst_ExampleShow : public QObject {
    Q_OBJECT

private slots:
    void init() { mdlGeneral::strCurrentDir = Rez; }

    void eachRigBindingBindsItsModel_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("animations"); // the model's own, in its order
        QTest::newRow("crate") << u"crate.rbt"_s << u"closed shake open hop"_s;
        QTest::newRow("dancer") << u"dancer.rbt"_s << u"idle wave bow walk"_s;
        QTest::newRow("drum") << u"drum.rbt"_s << u"rest beat roll"_s;
    }

    void eachRigBindingBindsItsModel()
    {
        QFETCH(QString, file);
        QFETCH(QString, animations);
        clsRBT rbt;
        QVERIFY(rbt.Load(Rez + file));
        LtaScanner scan;
        QVERIFY(scan.ScanModel(rbt.Model.chopped(1) + u'a')); // the text model beside the .ltb
        QCOMPARE(scan.strAnimations.toStringList(), animations.split(u' '));
        const QStringList nodes = scan.strNodes.toStringList();
        for (qint16 i = 0; i < rbt.NumJoints(); ++i)
            QVERIFY2(nodes.contains(rbt.Joints(i)->Node), qPrintable(rbt.Joints(i)->Node));
        for (qint16 i = 0; i < rbt.NumAnimations(); ++i)
            QVERIFY(rbt.Animations(i)->Id.toInt() < scan.strAnimations.size());
    }

    // A scene or binding is found both by the run-time's path and by its bare name in the
    // base folder, as the managers look for it; a sound file is there, a dialog line has
    // two takes or more.
    void everyFileOfTheShowIsFoundFromRez()
    {
        QStringList missing;
        const auto found = [&](const QString& stored) {
            const QString there = RunTimeFile(stored).canonicalFilePath(); // empty if missing
            const bool same =
                !there.isEmpty() &&
                there == QFileInfo(Rez + mdlGeneral::GetFileName(stored)).canonicalFilePath();
            if (!same)
                missing << stored;
            return same;
        };
        clsTSL show;
        QVERIFY(show.Load(Rez + u"midnight.tsl"_s));
        for (qint16 i = 0; i < show.NumScenes(); ++i) {
            clsSSF scene;
            const QString ssf = show.Scenes(i)->SSF;
            QVERIFY2(found(ssf) && scene.Load(Rez + mdlGeneral::GetFileName(ssf)), qPrintable(ssf));
            for (qint16 p = 0; p < scene.NumPuppets(); ++p)
                found(scene.Puppets(p)->RBT);
            for (qint16 s = 0; s < scene.NumSounds(); ++s) {
                const clsSound& sound = *scene.Sounds(s);
                const QFileInfo file = RunTimeFile(sound.File);
                const QRegularExpression take(QRegularExpression::anchoredPattern(
                    QRegularExpression::escape(file.completeBaseName()) + u"\\d*\\.wav"_s));
                const QStringList takes = file.dir().entryList(QDir::Files).filter(take);
                if (sound.TypeSound == u"sound" ? !file.isFile() : takes.size() < 2)
                    missing << sound.File;
            }
        }
        QCOMPARE(missing, QStringList());
    }
};

QTEST_MAIN(tst_ExampleShow)
#include "tst_ExampleShow.moc"
