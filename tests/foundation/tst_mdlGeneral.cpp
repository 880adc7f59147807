// SPDX-License-Identifier: GPL-3.0-or-later
// Path services: splitting, the relative form stored in files, backslashes, case.

#include "foundation/mdlGeneral.h"
#include "tests/support/TestFiles.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mdlGeneral;

class tst_mdlGeneral : public QObject {
    Q_OBJECT

private slots:
    void splitAtTheLastSeparatorOfEitherKind()
    {
        const auto split = [](const QString& p) { return GetDirectory(p) + u'|' + GetFileName(p); };
        QCOMPARE(split(u"hero.ltb"_s), u"|hero.ltb"_s);
        QCOMPARE(split(uR"(c:\game\)"_s), uR"(c:\game\|)"_s);
        QCOMPARE(split(uR"(a\b/c.ssf)"_s), uR"(a\b/|c.ssf)"_s);
        QCOMPARE(split(uR"(a/b\c.ssf)"_s), uR"(a/b\|c.ssf)"_s);
    }

    void relativePath_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("base");
        QTest::addColumn<QString>("stored");
        const QString rez = uR"(C:\Game\Rez\)"_s;
        QTest::newRow("sub-directory")
            << uR"(C:\Game\Rez\Models\Hero.LTB)"_s << rez << uR"(models\hero.ltb)"_s;
        QTest::newRow("sibling") << uR"(C:\Game\Art\Hero.ltb)"_s << rez << uR"(..\art\hero.ltb)"_s;
        QTest::newRow("name that begins like the base's")
            << uR"(c:\game\rez2\a.ltb)"_s << rez << uR"(..\rez2\a.ltb)"_s;
        QTest::newRow("base that begins like the name")
            << uR"(c:\game\rez\a.ltb)"_s << uR"(c:\game\rez2\)"_s << uR"(..\rez\a.ltb)"_s;
        QTest::newRow("siblings of one length")
            << uR"(c:\game\rez1\a.ltb)"_s << uR"(c:\game\rez2\)"_s << uR"(..\rez1\a.ltb)"_s;
        QTest::newRow("the base itself") << uR"(C:\Game\Rez)"_s << rez << QString();
        QTest::newRow("base without backslash")
            << uR"(c:\game\rez\)"_s << uR"(C:\GAME\REZ)"_s << QString();
        QTest::newRow("empty base")
            << uR"(C:\Game\Hero.ltb)"_s << QString() << uR"(c:\game\hero.ltb)"_s;
        QTest::newRow("empty base, one leading backslash goes")
            << uR"(\\Srv\Hero.ltb)"_s << QString() << uR"(\srv\hero.ltb)"_s;
        QTest::newRow("another drive loses its letter")
            << uR"(d:\art\hero.ltb)"_s << uR"(c:\game\rez\)"_s << uR"(..\..\art\hero.ltb)"_s;
        QTest::newRow("linux up two")
            << u"/home/art/Hero.ltb"_s << u"/home/ann/show"_s << uR"(..\..\art\hero.ltb)"_s;
    }

    void relativePath()
    {
        QFETCH(QString, target);
        QFETCH(QString, base);
        QFETCH(QString, stored);
        QCOMPARE(MakeRelativePath(target, base), stored);
        // Stable from then on: joined to the base as a load does, it gives the same text back.
        const QString directory = GetFileName(base).isEmpty() ? base : base + u'\\';
        if (!stored.isEmpty() && !base.isEmpty())
            QCOMPARE(MakeRelativePath(directory + StoredToNative(stored), base), stored);
    }

    void doubledBackslashesComeBack()
    {
        QCOMPARE(DoubleBackslashes(uR"(..\rez\a\\b)"_s), uR"(..\\rez\\a\\\\b)"_s);
        QCOMPARE(UndoubleBackslashes(uR"(..\\rez\\a\\\\b)"_s), uR"(..\rez\a\\b)"_s);
        // A lone backslash of a hand-made file survives; three become two, left to right.
        QCOMPARE(UndoubleBackslashes(uR"(..\rez\a\\\b)"_s), uR"(..\rez\a\\b)"_s);
    }

    void fileNamesMatchWithoutCase()
    {
        // Saved lower case, opened on a file system where case counts: an exact match first,
        // then the first by byte order ("HERO" < "Hero" < "hero"); no match keeps the name.
        TestFiles files;
        QVERIFY(QDir().mkpath(files.path(u"Models/Rez"_s)));
        for (const QString& name : {u"hero.LTA"_s, u"Hero.lta"_s, u"HERO.lta"_s})
            files.write(u"Models/Rez/"_s + name, {});
        const auto resolved = [&](const QString& name) {
            return ResolveFileCase(files.path(name));
        };
        QCOMPARE(resolved(u"models/rez/hero.lta"_s), files.path(u"Models/Rez/HERO.lta"_s));
        QCOMPARE(resolved(u"MODELS/REZ/Hero.lta"_s), files.path(u"Models/Rez/Hero.lta"_s));
        QCOMPARE(resolved(u"models/nowhere.lta"_s), files.path(u"models/nowhere.lta"_s));
    }
};

QTEST_APPLESS_MAIN(tst_mdlGeneral)
#include "tst_mdlGeneral.moc"
