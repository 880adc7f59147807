// SPDX-License-Identifier: GPL-3.0-or-later
// `troupe --check` as a user runs it, without a display: its lines, summary and exit status.

#include "tests/check/Theatre.h"

#include <QProcess>
#include <QtTest>

class tst_CheckCommand : public QObject {
    Q_OBJECT

private slots:
    void linesAndStatus_data()
    {
        QTest::addColumn<QList<Edit>>("edits");
        QTest::addColumn<QString>("workingDir"); // under the theatre's folder
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("out"); // THEATRE stands for the theatre's folder
        QTest::addColumn<QString>("err");
        QTest::addColumn<int>("status");
        const QList<Edit> broken{Replace(u"act2.ssf"_s, "80", "x"), Remove(u"models/Hero.lta"_s)};
        const QString clean = u"4 files checked: 0 errors, 0 warnings\n"_s;
        const auto lines = [](const QString& at) { // the files' paths behind `at`
            return at + u"rez/act2.ssf: warning: the port \"x\" is no number from 1 to 65535\n"_s +
                   at +
                   u"rez/hero.rbt: error: the model's text file THEATRE/rez/models/hero.lta "
                   u"is missing\n2 files checked: 1 error, 1 warning\n"_s;
        };
        // clang-format off
        QTest::newRow("clean show") << QList<Edit>() << u""_s << QStringList{"rez/show.tsl"} << clean << u""_s << 0;
        QTest::newRow("a file reached is checked once") << QList<Edit>() << u""_s << QStringList{"rez/act1.ssf", "rez/show.tsl"} << clean << u""_s << 0;
        QTest::newRow("errors and warnings") << broken << u""_s << QStringList{"rez/act2.ssf"} << lines({}) << u""_s << 1;
        QTest::newRow("a file outside the working folder") << broken << u"rez/models"_s << QStringList{"../act2.ssf"}
            << lines(u"THEATRE/"_s) << u""_s << 1;
        QTest::newRow("missing file") << QList<Edit>() << u""_s << QStringList{"rez/act2.ssf", "rez/act9.ssf"}
            << u"2 files checked: 0 errors, 0 warnings\n"_s << u"troupe: cannot check rez/act9.ssf: there is no such file\n"_s << 2;
        QTest::newRow("no document") << QList<Edit>() << u""_s << QStringList{"rez/sounds/door.wav"}
            << u"0 files checked: 0 errors, 0 warnings\n"_s << u"troupe: cannot check rez/sounds/door.wav: it is no .tsl, .ssf or .rbt file\n"_s << 2;
        QTest::newRow("no file named") << QList<Edit>() << u""_s << QStringList() << u""_s << u"troupe: --check needs a file to check\n"_s << 2;
        // clang-format on
    }

    void linesAndStatus()
    {
        QFETCH(QList<Edit>, edits);
        QFETCH(QString, workingDir);
        QFETCH(QStringList, files);
        QFETCH(QString, out);
        QFETCH(QString, err);
        QFETCH(int, status);
        const Theatre theatre(edits);
        QProcess troupe;
        troupe.setWorkingDirectory(theatre.root() + u'/' + workingDir);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s); // would need a display
        environment.insert(u"DISPLAY"_s, {});
        troupe.setProcessEnvironment(environment);
        troupe.start(QStringLiteral(TROUPE_BINARY), QStringList{u"--check"_s} + files);
        QVERIFY(troupe.waitForFinished(20000));
        QCOMPARE(QString::fromUtf8(troupe.readAllStandardError()), err);
        QCOMPARE(QString::fromUtf8(troupe.readAllStandardOutput()),
                 QString(out).replace(u"THEATRE"_s, QDir(theatre.root()).canonicalPath()));
        QCOMPARE(troupe.exitCode(), status);
    }
};

QTEST_GUILESS_MAIN(tst_CheckCommand)
#include "tst_CheckCommand.moc"
