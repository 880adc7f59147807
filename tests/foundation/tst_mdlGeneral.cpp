// Part 1.1: path services, with the Linux rules of design.md section 4.

#include "foundation/mdlGeneral.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace mdlGeneral;

class tst_mdlGeneral : public QObject {
    Q_OBJECT

private slots:
    void getDirectoryAndGetFileNameOfPlainAndEmptyNames();
    void getDirectoryAndGetFileNameSplitAtEitherSeparator_data();
    void getDirectoryAndGetFileNameSplitAtEitherSeparator();

    void examplesOfPart11_data();
    void examplesOfPart11();
    void examplesOnLinuxPaths_data();
    void examplesOnLinuxPaths();

    void emptyTargetIsEmptyWhateverTheBase_data();
    void emptyTargetIsEmptyWhateverTheBase();
    void emptyBaseGivesTargetLowerCasedWithoutTrailingOrOneLeadingBackslash_data();
    void emptyBaseGivesTargetLowerCasedWithoutTrailingOrOneLeadingBackslash();
    void targetEqualToBaseGivesEmpty_data();
    void targetEqualToBaseGivesEmpty();
    void directoryNameThatMerelyBeginsLikeTheOtherIsNotShared();
    void siblingDirectoriesOfTheSameLengthAreNotShared();
    void baseComparedWithoutCaseButResultNeverShowsItsCase();
    void anotherDriveLosesItsLetter();
    void argumentsAreNotChanged();

    void doublingAndUndoingBackslashes_data();
    void doublingAndUndoingBackslashes();
    void storedTextBecomesNativePath();
    void roundTripOfBaseRelativePathIsStable_data();
    void roundTripOfBaseRelativePathIsStable();

    void resolveFileCaseTakesAnExistingPathAsGiven();
    void resolveFileCaseMatchesEachComponentWithoutCase();
    void resolveFileCasePrefersExactThenByteOrder();
    void resolveFileCaseGivesThePathBackWhenNothingMatches();

    void strCurrentDirIsEmptyAtTheStart();
};

void tst_mdlGeneral::getDirectoryAndGetFileNameOfPlainAndEmptyNames()
{
    QCOMPARE(GetDirectory(u"hero.ltb"_qs), QString());
    QCOMPARE(GetFileName(u"hero.ltb"_qs), u"hero.ltb"_qs);
    QCOMPARE(GetFileName(u"c:\\game\\"_qs), QString());
    QCOMPARE(GetDirectory(QString()), QString());
    QCOMPARE(GetFileName(QString()), QString());
}

void tst_mdlGeneral::getDirectoryAndGetFileNameSplitAtEitherSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("windows") << u"C:\\Shows\\Rez\\Park.dat"_qs << u"C:\\Shows\\Rez\\"_qs
                             << u"Park.dat"_qs;
    QTest::newRow("linux") << u"/home/ann/show/a.tsl"_qs << u"/home/ann/show/"_qs << u"a.tsl"_qs;
    QTest::newRow("last of either, slash") << u"a\\b/c.ssf"_qs << u"a\\b/"_qs << u"c.ssf"_qs;
    QTest::newRow("last of either, backslash") << u"a/b\\c.ssf"_qs << u"a/b\\"_qs << u"c.ssf"_qs;
    QTest::newRow("linux directory") << u"/home/ann/"_qs << u"/home/ann/"_qs << QString();
    QTest::newRow("root file") << u"/a.tsl"_qs << u"/"_qs << u"a.tsl"_qs;
}

void tst_mdlGeneral::getDirectoryAndGetFileNameSplitAtEitherSeparator()
{
    QFETCH(QString, path);
    QFETCH(QString, directory);
    QFETCH(QString, fileName);
    QCOMPARE(GetDirectory(path), directory);
    QCOMPARE(GetFileName(path), fileName);
    QCOMPARE(GetDirectory(path) + GetFileName(path), path);
}

void tst_mdlGeneral::examplesOfPart11_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("result");
    QTest::newRow("models") << u"C:\\Game\\Rez\\Models\\Hero.LTB"_qs << u"models\\hero.ltb"_qs;
    QTest::newRow("same directory") << u"C:\\Game\\Rez\\Hero.ltb"_qs << u"hero.ltb"_qs;
    QTest::newRow("sibling") << u"C:\\Game\\Art\\Hero.ltb"_qs << u"..\\art\\hero.ltb"_qs;
    QTest::newRow("rez2") << u"C:\\Game\\Rez2\\a.ltb"_qs << u"..\\rez2\\a.ltb"_qs;
    QTest::newRow("dot dot kept") << u"C:\\Game\\Rez\\..\\Models\\Hero.ltb"_qs
                                  << u"..\\models\\hero.ltb"_qs;
    QTest::newRow("base with backslash") << u"C:\\Game\\Rez\\"_qs << QString();
    QTest::newRow("base without backslash") << u"C:\\Game\\Rez"_qs << QString();
}

void tst_mdlGeneral::examplesOfPart11()
{
    QFETCH(QString, target);
    QFETCH(QString, result);
    QCOMPARE(MakeRelativePath(target, u"C:\\Game\\Rez\\"_qs), result);
}

void tst_mdlGeneral::examplesOnLinuxPaths_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("result");
    QTest::newRow("models") << u"/home/ann/Game/Rez/Models/Hero.LTB"_qs << u"models\\hero.ltb"_qs;
    QTest::newRow("same directory") << u"/home/ann/Game/Rez/Hero.ltb"_qs << u"hero.ltb"_qs;
    QTest::newRow("sibling") << u"/home/ann/Game/Art/Hero.ltb"_qs << u"..\\art\\hero.ltb"_qs;
    QTest::newRow("rez2") << u"/home/ann/Game/Rez2/a.ltb"_qs << u"..\\rez2\\a.ltb"_qs;
    QTest::newRow("dot dot kept") << u"/home/ann/Game/Rez/../Models/Hero.ltb"_qs
                                  << u"..\\models\\hero.ltb"_qs;
    QTest::newRow("base with slash") << u"/home/ann/Game/Rez/"_qs << QString();
    QTest::newRow("base without slash") << u"/home/ann/Game/Rez"_qs << QString();
    QTest::newRow("design 4.2") << u"/home/ann/Game/Rez/Models/Hero.ltb"_qs
                                << u"models\\hero.ltb"_qs;
}

void tst_mdlGeneral::examplesOnLinuxPaths()
{
    QFETCH(QString, target);
    QFETCH(QString, result);
    QCOMPARE(MakeRelativePath(target, u"/home/ann/Game/Rez/"_qs), result);
}

void tst_mdlGeneral::emptyTargetIsEmptyWhateverTheBase_data()
{
    QTest::addColumn<QString>("base");
    QTest::newRow("empty") << QString();
    QTest::newRow("windows") << u"C:\\Game\\Rez\\"_qs;
    QTest::newRow("linux") << u"/home/ann/"_qs;
}

void tst_mdlGeneral::emptyTargetIsEmptyWhateverTheBase()
{
    QFETCH(QString, base);
    QCOMPARE(MakeRelativePath(QString(), base), QString());
}

void tst_mdlGeneral::emptyBaseGivesTargetLowerCasedWithoutTrailingOrOneLeadingBackslash_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("result");
    QTest::newRow("spec") << u"C:\\Game\\Hero.ltb"_qs << u"c:\\game\\hero.ltb"_qs;
    QTest::newRow("trailing") << u"C:\\Game\\"_qs << u"c:\\game"_qs;
    QTest::newRow("one leading") << u"\\Game\\Hero.ltb"_qs << u"game\\hero.ltb"_qs;
    QTest::newRow("only one leading") << u"\\\\Srv\\Hero.ltb"_qs << u"\\srv\\hero.ltb"_qs;
    QTest::newRow("linux") << u"/Home/Hero.ltb"_qs << u"home\\hero.ltb"_qs;
}

void tst_mdlGeneral::emptyBaseGivesTargetLowerCasedWithoutTrailingOrOneLeadingBackslash()
{
    QFETCH(QString, target);
    QFETCH(QString, result);
    QCOMPARE(MakeRelativePath(target, QString()), result);
}

void tst_mdlGeneral::targetEqualToBaseGivesEmpty_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("base");
    QTest::newRow("both trailing") << u"c:\\game\\rez\\"_qs << u"c:\\game\\rez\\"_qs;
    QTest::newRow("target without") << u"c:\\game\\rez"_qs << u"c:\\game\\rez\\"_qs;
    QTest::newRow("base without") << u"c:\\game\\rez\\"_qs << u"c:\\game\\rez"_qs;
    QTest::newRow("neither") << u"C:\\Game\\Rez"_qs << u"c:\\game\\rez"_qs;
    QTest::newRow("linux") << u"/home/ann"_qs << u"/home/ann/"_qs;
}

void tst_mdlGeneral::targetEqualToBaseGivesEmpty()
{
    QFETCH(QString, target);
    QFETCH(QString, base);
    QCOMPARE(MakeRelativePath(target, base), QString());
}

void tst_mdlGeneral::directoryNameThatMerelyBeginsLikeTheOtherIsNotShared()
{
    QCOMPARE(MakeRelativePath(u"c:\\game\\rez2\\a.ltb"_qs, u"c:\\game\\rez\\"_qs),
             u"..\\rez2\\a.ltb"_qs);
    QCOMPARE(MakeRelativePath(u"c:\\game\\rez\\a.ltb"_qs, u"c:\\game\\rez2\\"_qs),
             u"..\\rez\\a.ltb"_qs);
}

void tst_mdlGeneral::siblingDirectoriesOfTheSameLengthAreNotShared()
{
    QCOMPARE(MakeRelativePath(u"c:\\game\\rez1\\a.ltb"_qs, u"c:\\game\\rez2\\"_qs),
             u"..\\rez1\\a.ltb"_qs);
}

void tst_mdlGeneral::baseComparedWithoutCaseButResultNeverShowsItsCase()
{
    QCOMPARE(MakeRelativePath(u"C:\\GAME\\A.LTB"_qs, u"c:\\game\\"_qs), u"a.ltb"_qs);
    QCOMPARE(MakeRelativePath(u"c:\\game\\a.ltb"_qs, u"C:\\GAME\\"_qs), u"a.ltb"_qs);
}

void tst_mdlGeneral::anotherDriveLosesItsLetter()
{
    // Part 1.1, Left to the implementer, and design 4.6: the algorithm as written.
    QCOMPARE(MakeRelativePath(u"d:\\art\\hero.ltb"_qs, u"c:\\game\\rez\\"_qs),
             u"..\\..\\art\\hero.ltb"_qs);
}

void tst_mdlGeneral::argumentsAreNotChanged()
{
    const QString target = u"C:\\Game\\Rez\\Models\\Hero.LTB"_qs;
    const QString base = u"C:\\Game\\Rez"_qs;
    QString t = target;
    QString b = base;
    MakeRelativePath(t, b);
    GetDirectory(t);
    GetFileName(t);
    QCOMPARE(t, target);
    QCOMPARE(b, base);
}

void tst_mdlGeneral::doublingAndUndoingBackslashes_data()
{
    QTest::addColumn<QString>("memory");
    QTest::addColumn<QString>("stored");
    QTest::newRow("resource") << u"..\\rez\\act1.ssf"_qs << u"..\\\\rez\\\\act1.ssf"_qs;
    QTest::newRow("none") << u"plain"_qs << u"plain"_qs;
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("two in a row") << u"a\\\\b"_qs << u"a\\\\\\\\b"_qs;
}

void tst_mdlGeneral::doublingAndUndoingBackslashes()
{
    QFETCH(QString, memory);
    QFETCH(QString, stored);
    QCOMPARE(DoubleBackslashes(memory), stored);
    QCOMPARE(UndoubleBackslashes(stored), memory);
    // Part 1.1: a lone backslash of a hand-edited file survives the undoing.
    QCOMPARE(UndoubleBackslashes(u"..\\rez\\act1.ssf"_qs), u"..\\rez\\act1.ssf"_qs);
    // Left to right without overlap: three become two.
    QCOMPARE(UndoubleBackslashes(u"a\\\\\\b"_qs), u"a\\\\b"_qs);
}

void tst_mdlGeneral::storedTextBecomesNativePath()
{
    const QString native = StoredToNative(u"models\\hero.ltb"_qs);
    QCOMPARE(native, u"models"_qs + QDir::separator() + u"hero.ltb"_qs);
    QCOMPARE(StoredToNative(QString()), QString());
}

void tst_mdlGeneral::roundTripOfBaseRelativePathIsStable_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("stored");
    QTest::newRow("linux sub-directory")
        << u"/home/ann/show/"_qs << u"/home/ann/show/Models/Hero.ltb"_qs << u"models\\hero.ltb"_qs;
    QTest::newRow("linux up two") << u"/home/ann/show/"_qs << u"/home/art/Hero.ltb"_qs
                                  << u"..\\..\\art\\hero.ltb"_qs;
    QTest::newRow("windows") << u"C:\\Game\\Rez\\"_qs << u"C:\\Game\\Art\\Hero.ltb"_qs
                             << u"..\\art\\hero.ltb"_qs;
}

void tst_mdlGeneral::roundTripOfBaseRelativePathIsStable()
{
    // Part 1.1 "Round trips" and design 4.3: the first save lower-cases; from then on the
    // stored text is stable through the native join of a load.
    QFETCH(QString, base);
    QFETCH(QString, field);
    QFETCH(QString, stored);
    QCOMPARE(MakeRelativePath(field, base), stored);
    const QString joined = base + StoredToNative(UndoubleBackslashes(DoubleBackslashes(stored)));
    QCOMPARE(MakeRelativePath(joined, base), stored);
}

void tst_mdlGeneral::resolveFileCaseTakesAnExistingPathAsGiven()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(u"Show.tsl"_qs);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(ResolveFileCase(path), path);
}

void tst_mdlGeneral::resolveFileCaseMatchesEachComponentWithoutCase()
{
    // Design 4.5: MakeRelativePath stored `models\hero.ltb` for Models/Hero.ltb.
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkpath(u"Models/Rez"_qs));
    const QString real = dir.filePath(u"Models/Rez/Hero.ltb"_qs);
    QFile file(real);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(ResolveFileCase(dir.path() + u"/models/rez/hero.ltb"_qs), real);
    QCOMPARE(ResolveFileCase(dir.path() + u"/MODELS/REZ/HERO.LTB"_qs), real);
}

void tst_mdlGeneral::resolveFileCasePrefersExactThenByteOrder()
{
    QTemporaryDir dir;
    for (const QString& name : {u"hero.LTA"_qs, u"Hero.lta"_qs, u"HERO.lta"_qs}) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    // No exact match: "HERO.lta" < "Hero.lta" < "hero.LTA" by bytes.
    QCOMPARE(ResolveFileCase(dir.filePath(u"hero.lta"_qs)), dir.filePath(u"HERO.lta"_qs));
    // An exact match wins.
    QCOMPARE(ResolveFileCase(dir.filePath(u"Hero.lta"_qs)), dir.filePath(u"Hero.lta"_qs));
}

void tst_mdlGeneral::resolveFileCaseGivesThePathBackWhenNothingMatches()
{
    QTemporaryDir dir;
    const QString missing = dir.path() + u"/nowhere/else.tsl"_qs;
    QCOMPARE(ResolveFileCase(missing), missing);
    QCOMPARE(ResolveFileCase(QString()), QString());
}

void tst_mdlGeneral::strCurrentDirIsEmptyAtTheStart()
{
    QVERIFY(strCurrentDir.isEmpty());
}

QTEST_APPLESS_MAIN(tst_mdlGeneral)
#include "tst_mdlGeneral.moc"
