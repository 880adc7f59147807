// SPDX-License-Identifier: GPL-3.0-or-later
// `troupe --plan` as a user runs it on a terminal without a display: the built program on a
// small scene in the test's own folder, writing SVG and PNG, and refusing what it cannot do.

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// Two puppets, one that cannot be placed, and two cameras.
const QByteArray SceneFile =
    R"(<scene world="..\rez\worlds\workshop" maincamera="0" nickname="" server="" port="">)"
    R"(<puppet id="0" rbt="..\\rez\\crate.rbt" position="0.0,0.0,0.0" scale="1,1,1" orientation="0,0,0"/>)"
    R"(<puppet id="1" rbt="..\\rez\\dancer &amp; co.rbt" position="-40,0,25" scale="1,1,1" orientation="0,90,0"/>)"
    R"(<puppet id="2" rbt="..\\rez\\broken.rbt" position="4o,0,0" scale="1,1,1" orientation="0,0,0"/>)"
    R"(<camera id="0" name="Wide" position="0,60,-200" orientation="10,0,0"/>)"
    R"(<camera id="1" name="Crate close" position="0,20,-60" orientation="5,0,0"/></scene>)"_ba;

} // namespace

class tst_PlanCommand : public QObject {
    Q_OBJECT

private slots:
    void writesThePlanOrSaysWhyNot_data()
    {
        QTest::addColumn<QStringList>("arguments"); // run in a folder holding scene.ssf
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("written"); // the picture, or a part of the one-line message
        const auto plan = [](const QString& output) {
            return QStringList{u"--plan"_s, u"scene.ssf"_s, u"--output"_s, output};
        };
        QTest::newRow("svg") << plan(u"plan.svg"_s) << 0 << u"plan.svg"_s;
        QTest::newRow("png, by an upper-case extension")
            << plan(u"plan.PNG"_s) << 0 << u"plan.PNG"_s;
        QTest::newRow("unknown extension") << plan(u"plan.jpg"_s) << 1 << u"plan.jpg: "_s;
        QTest::newRow("output that cannot be written")
            << plan(u"none/plan.svg"_s) << 1 << u"none/plan.svg: cannot be written"_s;
        QTest::newRow("scene that does not load")
            << QStringList{u"--plan=missing.ssf"_s, u"--output=plan.svg"_s} << 1
            << u"missing.ssf: "_s;
        QTest::newRow("no output")
            << QStringList{u"--plan"_s, u"scene.ssf"_s} << 1 << u"--plan FILE.ssf --output"_s;
    }
    void writesThePlanOrSaysWhyNot()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, written);
        QTemporaryDir dir;
        QFile scene(dir.filePath(u"scene.ssf"_s));
        QVERIFY(scene.open(QIODevice::WriteOnly) && scene.write(SceneFile) == SceneFile.size());
        scene.close();

        QProcess troupe;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"QT_QPA_PLATFORM"_s);
        environment.insert(u"DISPLAY"_s, QString());
        const QTemporaryDir runtime; // Qt warns on stderr when there is none
        environment.insert(u"XDG_RUNTIME_DIR"_s, runtime.path());
        troupe.setProcessEnvironment(environment);
        troupe.setWorkingDirectory(dir.path());
        troupe.start(QStringLiteral(TROUPE_BINARY), arguments);
        QVERIFY(troupe.waitForFinished(60000));
        QCOMPARE(troupe.exitStatus(), QProcess::NormalExit);
        QCOMPARE(troupe.exitCode(), status);
        const QString errors = QString::fromUtf8(troupe.readAllStandardError());

        if (status != 0) {
            QVERIFY2(errors.startsWith(u"troupe: "_s) && errors.count(u'\n') == 1 &&
                         errors.contains(written),
                     qPrintable(errors));
            QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{u"scene.ssf"_s});
            return;
        }
        QCOMPARE(errors, QString());
        QFile picture(dir.filePath(written));
        QVERIFY(picture.open(QIODevice::ReadOnly));
        const QByteArray bytes = picture.readAll();
        if (written.endsWith(u".PNG"_s)) {
            QVERIFY(bytes.size() > 1000);
            QVERIFY(bytes.startsWith("\x89PNG\r\n\x1a\n"));
            return;
        }
        // Every record is named in a text element, the one not placed too, so it can be found.
        for (const QString& name : {u"crate.rbt"_s, u"dancer &amp; co.rbt"_s, u"Wide (main)"_s,
                                    u"Crate close"_s, u"broken.rbt (puppet 2)"_s}) {
            const QRegularExpression text(u"<text[^>]*>[^<]*"_s + QRegularExpression::escape(name));
            QVERIFY2(text.match(QString::fromUtf8(bytes)).hasMatch(), qPrintable(name));
        }
    }
};

QTEST_GUILESS_MAIN(tst_PlanCommand)
#include "tst_PlanCommand.moc"
