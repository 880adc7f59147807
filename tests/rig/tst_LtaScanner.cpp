// SPDX-License-Identifier: GPL-3.0-or-later
// The LTA scanner: inline and sample models, limits, refused files, random texts read twice,
// models cut short while they are scanned.

#include "rig/LtaScanner.h"
#include "tests/support/TestFiles.h"

#include <QRandomGenerator>
#include <QStringDecoder>
#include <QtTest>

#include <atomic>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

// Tiny windows put each pattern, name and bracket across an edge; 100 mixes blocks of 64
// with edges; the last is the default.
const QList<qsizetype> WindowSizes{1, 2, 7, 100, LtaScanner::DefaultBufferSize};

// A second reading of the scan, one character at a time over the bytes in memory, sharing
// no code with the scanner.
struct PlainScan {
    explicit PlainScan(const QByteArray& model) : bytes(model) { ok = Scan(); }

    QByteArray bytes;
    qsizetype pos = 0;
    bool overflow = false;
    bool ok = false;
    QStringList animations, nodes;

    bool Find(const QByteArray& pattern, int limit)
    {
        int place = 0, depth = 0;
        while (pos < bytes.size() && place < pattern.size()) {
            const char c = bytes[pos++];
            place = c == pattern[place] ? place + 1 : 0;
            depth += int(c == '(') - int(c == ')');
            if (depth > 32767 || depth < -32768)
                return !(overflow = true);
            if (depth < limit)
                return false;
        }
        return pos < bytes.size();
    }
    QString Until(char delimiter)
    {
        const qsizetype end = bytes.indexOf(delimiter, pos);
        const QByteArray text = bytes.mid(pos, end < 0 ? -1 : end - pos);
        pos = end < 0 ? bytes.size() : end + 1;
        const auto utf8 = QStringDecoder::Utf8;
        return text.isValidUtf8()
                   ? QStringDecoder(utf8, QStringDecoder::Flag::ConvertInitialBom)(text)
                   : QString::fromLatin1(text);
    }
    bool Scan()
    {
        while (Find("(anim-binding", -2)) {
            if (animations.size() == 32767)
                return false;
            Find("(name", 0);
            Find("\"", 0);
            if (overflow)
                return false;
            animations.append(Until('"'));
        }
        pos = 0;
        Find("(set-node-flags", 0);
        while (!overflow && Find("(\"", -2)) {
            if (nodes.size() == 32767)
                return false;
            nodes.append(Until('"'));
        }
        return !overflow;
    }
};

// Waits until this process holds the file open, or the scan is over.
void WaitUntilOpen(const QString& path, const std::atomic<bool>& scanned)
{
    const QString target = QFileInfo(path).canonicalFilePath();
    const QDir fds(u"/proc/self/fd"_s, {}, QDir::NoSort, QDir::AllEntries | QDir::System);
    while (!scanned) {
        for (const QFileInfo& fd : fds.entryInfoList()) {
            if (fd.symLinkTarget() == target)
                return;
        }
    }
}

} // namespace

class tst_LtaScanner : public QObject {
    Q_OBJECT

    TestFiles m_files;
    // A model with both lists, scanned first so its names must go.
    const QString m_earlier =
        m_files.write(u"old.lta"_s, R"m((anim-binding (name "old")) (set-node-flags ("old" 1)))m");

    // Scans path, after the earlier model, at every window size: each scan must give ok and
    // the two lists, and leave no file open.
    void Scan(const QString& path, bool ok, const QStringList& animations, const QStringList& nodes)
    {
        const auto openFiles = [] {
            return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
        };
        for (const qsizetype size : WindowSizes) {
            LtaScanner scanner(size);
            const qsizetype open = openFiles();
            QVERIFY(scanner.ScanModel(m_earlier));
            const bool result = scanner.ScanModel(path);
            QCOMPARE(openFiles(), open);
            QVERIFY2(result == ok && scanner.strAnimations == animations &&
                         scanner.strNodes == nodes,
                     qPrintable(u"window %1: %2, %3 / %4"_s.arg(size).arg(result).arg(
                         scanner.strAnimations.toStringList().join('|'),
                         scanner.strNodes.toStringList().join('|'))));
        }
    }

private slots:
    void scan_data();
    void scan()
    {
        QFETCH(QByteArray, model);
        QFETCH(bool, ok);
        QFETCH(QStringList, animations);
        QFETCH(QStringList, nodes);
        const PlainScan plain{model};
        QCOMPARE(plain.ok, ok);
        QCOMPARE(plain.animations, animations);
        QCOMPARE(plain.nodes, nodes);
        Scan(m_files.write(u"model.lta"_s, model), ok, animations, nodes);
    }

    void agreesWithPlainReading_data()
    {
        QTest::addColumn<int>("rounds");
        QTest::addColumn<int>("pieces");
        QTest::newRow("short texts") << 300 << 60;
        QTest::newRow("long texts") << 30 << 3000; // many blocks of 64, with false starts
        // A text behind 0 to 299 blanks: its false starts fall on every place of a block.
        QTest::newRow("hidden patterns at every offset") << 300 << -1;
    }

    void agreesWithPlainReading()
    {
        QFETCH(int, rounds);
        QFETCH(int, pieces);
        const QByteArrayList parts =
            QByteArray("(anim-binding|(anim-bindings|(name|(set-node-flags|"
                       "(\"|\"|(|)|))| |Hip|\\|((|\n|\xC3\xA9|\xEF\xBB\xBF")
                .split('|');
        QRandomGenerator random(1999);
        int withNames = 0;
        for (int round = 0; round < rounds; ++round) {
            QByteArray bytes;
            if (pieces < 0) // clang-format off
                bytes = QByteArray(round, ' ') + R"m(((anim-binding ((name "a" ("b" (( ((set-node-flags ((("c" 1) (anim-binding ((("d" 1)))))m";
            // clang-format on
            for (int i = random.bounded(qMax(pieces, 0) + 1); i > 0; --i)
                bytes += parts[random.bounded(parts.size())];
            const PlainScan plain{bytes};
            withNames += plain.animations.size() + plain.nodes.size() > 0 ? 1 : 0;
            Scan(m_files.write(u"model.lta"_s, bytes), plain.ok, plain.animations, plain.nodes);
            if (QTest::currentTestFailed())
                QFAIL(bytes.left(3000).toPercentEncoding().constData());
        }
        QVERIFY(withNames > rounds / 6);
    }

    // Only a regular file is read, found whatever the case of its name.
    void readsOnlyARegularFile_data()
    {
        QTest::addColumn<QString>("path");
        QVERIFY(mkfifo(QFile::encodeName(m_files.path("fifo.lta")).constData(), 0600) == 0);
        m_files.write(u"Thing.LTA"_s, R"m((set-node-flags ("Hip" 1)))m");
        QTest::newRow("missing") << m_files.path("missing.lta");
        QTest::newRow("FIFO without a writer") << m_files.path("fifo.lta");
        QTest::newRow("name in another case") << m_files.path("thing.lta");
    }

    void readsOnlyARegularFile()
    {
        QFETCH(QString, path);
        const bool ok = path.endsWith(u"thing.lta"_s);
        Scan(path, ok, {}, ok ? QStringList{"Hip"} : QStringList());
    }

    // Another program cuts the model short or writes it again while it is scanned, soon
    // after the scan opened it. The scan ends where its reads end, the process lives, and
    // the lists, which stand at the end, are what the scan reached of them: the model's own
    // names from the first, the last one perhaps cut short.
    void modelChangedDuringTheScan_data()
    {
        QTest::addColumn<qint64>("cutTo"); // bytes left; -1: the whole model written again
        QTest::newRow("cut to nothing") << qint64(0);
        QTest::newRow("cut in the keyframes") << qint64(8 << 20);
        QTest::newRow("written again") << qint64(-1);
    }

    void modelChangedDuringTheScan()
    {
        QFETCH(qint64, cutTo);
        QStringList animations, nodes;
        QByteArray bindings, flags;
        for (int i = 0; i < 8; ++i) {
            animations << u"walk%1"_s.arg(i);
            nodes << u"joint%1"_s.arg(i);
            bindings += " (anim-binding (name \"" + animations.last().toLatin1() + "\"))";
            flags += " (\"" + nodes.last().toLatin1() + "\" 0)";
        }
        const QByteArray model =
            "(lt-model-0 (anims (" +
            QByteArray("\n\t(0.000000 -9.355083 )(0.500001 )").repeated(500000) +
            ")) (on-load-cmds ((anim-bindings (" + bindings + ")) (set-node-flags (" + flags +
            ")))))";
        QRandomGenerator random(7);
        LtaScanner scanner;
        int cutBeforeTheLists = 0;
        for (int round = 0; round < 10; ++round) {
            const QString path = m_files.write(u"cut.lta"_s, model);
            const auto delay = std::chrono::microseconds(random.bounded(1000));
            std::atomic<bool> scanned = false;
            std::thread cutter([&] {
                WaitUntilOpen(path, scanned);
                std::this_thread::sleep_for(delay);
                if (cutTo >= 0)
                    QFile::resize(path, cutTo);
                else
                    m_files.write(u"cut.lta"_s, model);
            });
            const bool ok = scanner.ScanModel(path);
            scanned = true;
            cutter.join();
            QVERIFY(ok);
            QVERIFY(
                animations.join('|').startsWith(scanner.strAnimations.toStringList().join('|')));
            QVERIFY(nodes.join('|').startsWith(scanner.strNodes.toStringList().join('|')));
            cutBeforeTheLists += scanner.strAnimations.isEmpty() ? 1 : 0;
        }
        QVERIFY(cutBeforeTheLists > 0);
    }
};

void tst_LtaScanner::scan_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QStringList>("animations");
    QTest::addColumn<QStringList>("nodes");
    const auto row = [](const QByteArray& name, const QByteArray& model,
                        const QStringList& animations, const QStringList& nodes, bool ok = true) {
        QTest::newRow(name.constData()) << model << ok << animations << nodes;
    };
    // clang-format off
    row("node list at the end of its enclosing form", R"m((lt-model-0 (on-load-cmds (set-node-flags ("Hip" 1) ("Arm" 1))) (shape "after" ("Leg" 1)))m", {}, {"Hip", "Arm"});
    row("animations behind nodes", R"m((lt-model-0 (on-load-cmds ( (set-node-flags ( ("Hip" 0 ) ("Arm" 0 ))) (anim-bindings ( (anim-binding (name "walk" ) (dims (1.0 2.0 3.0 )) (interp-time 200 )) (anim-binding (name "run" ) (interp-time 200 )))))))m", {"walk", "run"}, {"Hip", "Arm"});
    // The name ends at the quote behind the backslash; ("Knee then gives a node.
    row("backslash does not escape a quote", R"m((lt-model-0 (on-load-cmds ( (set-node-flags ( ("Hip\"("Knee" 1) ("Arm" 1))))))m", {}, {"Hip\\", "Knee", "Arm"});
    // The second binding's (name search stops at its end; it takes "c" of the third.
    row("binding without a name", R"m((lt-model-0 (on-load-cmds ( (anim-bindings ( (anim-binding (name "a")) (anim-binding (interp-time 200)) (anim-binding (name "c")))))))m", {"a", "c"}, {});
    row("bracket in quoted text ends a list early", R"m((lt-model-0 (on-load-cmds ( (set-node-flags ( ("Hip" 1 "x))") ("Arm" 1))))))m", {}, {"Hip"});
    row("bracket in quoted text ends a list late", R"m((lt-model-0 (on-load-cmds (set-node-flags ("Hip" 1 "(x"))) (shape ("Leg" 1)))m", {}, {"Hip", "Leg"});
    row("bracket inside a name counts for nothing", R"m((lt-model-0 (on-load-cmds ( (anim-bindings ( (anim-binding (name "wave)))" )) (anim-binding (name "((jump" )))) (set-node-flags ( ("Hip)))" 1) ("((Arm" 1))))))m", {"wave)))", "((jump"}, {"Hip)))", "((Arm"});
    row("form behind the node list in the same form", R"m((lt-model-0 (on-load-cmds (set-node-flags ("Hip" 1)) (add-deformer ("Extra" 2) ("More" 3))) (shape ("Outside" 1)))m", {}, {"Hip", "Extra", "More"});
    row("patterns are exact, with case, without blanks", R"m((lt-model-0 (on-load-cmds ( (Anim-Binding (name "upper")) (anim-bindings ( (anim-binding ( name "blank") (interp-time 200)))) (set-command-string "cmd") (Set-Node-Flags ("Hip" 1)))))m", {"cmd"}, {});
    row("two brackets hide a pattern", R"m((lt-model-0 (on-load-cmds ( (anim-bindings ( (anim-binding ((name "a")) ) (anim-binding (name "b")))) (set-node-flags ( (("Hip" 1)) ("Arm" 1))))))m", {"b"}, {"Arm"});
    row("((name: the quote search runs on", R"m(( (anim-binding ((name "hidden") (x "next"))))m", {""}, {});
    row("file ends inside a node name", R"m((lt-model-0 (on-load-cmds ( (set-node-flags ( ("Hip" 1) ("Ar)m", {}, {"Hip", "Ar"});
    row("empty binding list still gives an entry", R"m((x (anim-bindings ()) (set-node-flags ( ("Hip" 0)))))m", {"Hip"}, {"Hip"});
    row("UTF-8 name", "(set-node-flags (\"Gr\xC3\xBC\xC3\x9F\" 1) (\"A\xC3\" 1))", {}, {u"Grüß"_s, u"AÃ"_s});
    row("leading U+FEFF is kept", "(anim-binding (name \"\xEF\xBB\xBFHip\")) (set-node-flags (\"\xEF\xBB\xBF\" 1))", {u"\uFEFFHip"_s}, {u"\uFEFF"_s});
    row("NUL in names", "(set-node-flags (\"Hi\0p\" 1) (\"\0\" 1))"_ba, {}, {QString::fromUtf8("Hi\0p", 4), QString(QChar(0))});
    // A list of 32767 entries is read whole; one more fails the scan.
    QByteArray nodeList = "(x (set-node-flags (\n", animationList = "(x (list (\n";
    QStringList nodes, animations;
    for (int i = 0; i < 32767; ++i) {
        nodeList += "\t(\"node" + QByteArray::number(i) + "\" 0)\n";
        animationList += "\t(anim-binding (name \"anim" + QByteArray::number(i) + "\") (interp-time 200))\n";
        nodes << "node" + QString::number(i);
        animations << "anim" + QString::number(i);
    }
    row("32767 nodes", nodeList + "))))", {}, nodes);
    row("32768 nodes", nodeList + "(\"more\" 0)))))", {}, nodes, false);
    row("32767 animations", animationList + "))))", animations, {});
    row("32768 animations", animationList + "(anim-binding (name \"more\")))))", animations, {}, false);
    row("depth 32767", QByteArray(32767, '('), {}, {});
    row("depth 32768", QByteArray(32768, '('), {}, {}, false);
    // Over 40000 brackets stay open, but no one search counts more than 20003 of them.
    const QByteArray h(20000, '(');
    row("depth is counted from each search", R"m((set-node-flags (anim-binding (name "a" ("n1" )m" + h + R"m((anim-binding (name "b" ("n2" )m" + h + R"m(("n3" )m", {"a", "b"}, {"n1", "n2", "n3"});

    // The sample models: two hold no lists, skinnedthing three joints, the others one.
    for (const QString name : {"anteyes", "antheadnoeyes", "box", "cylinder", "highpolyshere", "lowpolyshere", "rs_toon_2pass_1texstage_vs", "skinnedthing", "teapot", "wall"}) {
        QFile file(QStringLiteral(TROUPE_FIXTURES_DIR "/models/") + name + ".lta");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const bool none = name == "anteyes" || name.startsWith("rs_toon");
        const QStringList nodes = name == "skinnedthing" ? QStringList{"joint1", "joint2", "joint3"} : QStringList{"joint1"};
        row(qPrintable(name), file.readAll(), none ? QStringList() : QStringList{"base_anim"}, none ? QStringList() : nodes);
    }
    // clang-format on
}

QTEST_GUILESS_MAIN(tst_LtaScanner)
#include "tst_LtaScanner.moc"
