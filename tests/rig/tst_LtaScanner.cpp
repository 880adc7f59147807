// Part 2.3: the LTA model scanner, with design.md sections 5 and 6.

#include "rig/LtaScanner.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString Fixture(const QString& name)
{
    return QStringLiteral(TROUPE_FIXTURES_DIR "/rig/") + name;
}

QString CorpusModel(const QString& name)
{
    return QStringLiteral(TROUPE_FIXTURES_DIR "/models/") + name;
}

// The buffer sizes every list is checked with: tiny ones put each pattern, name and
// bracket across a buffer boundary; 100 takes blocks of 64 characters (the scanner's quick
// way) between frequent boundaries; the last is the default.
const QList<qsizetype> BufferSizes{1, 2, 7, 100, LtaScanner::DefaultBufferSize};

// ---------------------------------------------------------------------------------------
// A second, plain reading of Part 2.3, one character at a time over bytes in memory, as the
// oracle for generated and binary input. It shares no code with the scanner.
class ReferenceScan
{
public:
    bool ok = false;
    QStringList animations;
    QStringList nodes;

    explicit ReferenceScan(const QByteArray& bytes) : m_bytes(bytes) { ok = Scan(); }

private:
    bool Eof() const { return m_pos >= m_bytes.size(); }
    char Get() { return m_bytes.at(m_pos++); }

    bool Find(const QByteArray& pattern, int limit)
    {
        int place = 1;
        int depth = 0;
        bool stop = false;
        while (!Eof() && place <= pattern.size() && !stop) {
            const char c = Get();
            if (c == pattern.at(place - 1))
                ++place;
            else
                place = 1;
            if (c == '(')
                ++depth;
            if (c == ')')
                --depth;
            if (depth > 32767 || depth < -32768) {
                m_overflow = true;
                return false;
            }
            if (depth < limit)
                stop = true;
        }
        return !Eof() && !stop;
    }

    QString Until(char delimiter)
    {
        QByteArray text;
        while (!Eof()) {
            const char c = Get();
            if (c == delimiter)
                break;
            text.append(c);
        }
        return text.isValidUtf8() ? QString::fromUtf8(text) : QString::fromLatin1(text);
    }

    bool Scan()
    {
        m_pos = 0;
        while (Find("(anim-binding", -2)) {
            if (animations.size() == 32767)
                return false;
            Find("(name", 0);
            Find("\"", 0);
            if (m_overflow)
                return false;
            animations.append(Until('"'));
        }
        if (m_overflow)
            return false;
        m_pos = 0;
        Find("(set-node-flags", 0);
        while (!m_overflow && Find("(\"", -2)) {
            if (nodes.size() == 32767)
                return false;
            nodes.append(Until('"'));
        }
        return !m_overflow;
    }

    QByteArray m_bytes;
    qsizetype m_pos = 0;
    bool m_overflow = false;
};

// A model with the two lists in the layout of the corpus, in either order.
QByteArray NodeList(int count)
{
    if (count == 0)
        return {};
    QByteArray text = "\t\t(set-node-flags (\n";
    for (int i = 0; i < count; ++i)
        text += "\t\t\t(\"node" + QByteArray::number(i) + "\" 0 )\n";
    text += "\t\t))\n";
    return text;
}

QByteArray AnimationList(int count)
{
    // No list at all for none: an empty (anim-bindings ()) would still give one entry.
    if (count == 0)
        return {};
    QByteArray text = "\t\t(anim-bindings (\n";
    for (int i = 0; i < count; ++i)
        text += "\t\t\t(anim-binding\n\t\t\t\t(name \"anim" + QByteArray::number(i)
                + "\" )\n\t\t\t\t(interp-time 200 )\n\t\t\t )\n";
    text += "\t\t))\n";
    return text;
}

QByteArray Model(const QByteArray& lists)
{
    return "\n(lt-model-0 \n\t(on-load-cmds (\n" + lists + "\t))\n\t(animset \"x\" ))\n";
}

QStringList Numbered(const QString& stem, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(stem + QString::number(i));
    return names;
}

} // namespace

class tst_LtaScanner : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    int m_fileNumber = 0;

    // A file of the given bytes in the temporary directory, under a fresh name.
    QString WriteModel(const QByteArray& bytes, const QString& name = QString())
    {
        const QString path = m_dir.filePath(
            name.isEmpty() ? QStringLiteral("model%1.lta").arg(++m_fileNumber) : name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    // Scans with every buffer size and checks the result and both lists each time.
    void CheckScan(const QString& path, bool result, const QStringList& animations,
                   const QStringList& nodes)
    {
        for (const qsizetype size : BufferSizes) {
            LtaScanner scanner(size);
            const bool ok = scanner.ScanModel(path);
            const QByteArray where = path.toUtf8() + " buffer " + QByteArray::number(size);
            QVERIFY2(ok == result, where);
            QVERIFY2(scanner.strAnimations == animations,
                     where + ": " + scanner.strAnimations.toStringList().join('|').toUtf8());
            QVERIFY2(scanner.strNodes == nodes,
                     where + ": " + scanner.strNodes.toStringList().join('|').toUtf8());
        }
    }

    void CheckFixture(const QString& name, const QStringList& animations, const QStringList& nodes)
    {
        CheckScan(Fixture(name), true, animations, nodes);
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    // --- Part 2.3, "Edge cases worth testing" ------------------------------------------

    void fileWithNeitherListGivesTrueAndAddsNoEntry()
    {
        CheckFixture("no_lists.lta", {}, {});
    }

    void setNodeFlagsAtEndOfEnclosingFormGivesHipAndArm()
    {
        // The form that follows the enclosing one ("Leg") is not reached.
        CheckFixture("node_flags_at_end_of_enclosing_form.lta", {}, {"Hip", "Arm"});
        const QString path = WriteModel(R"((set-node-flags ("Hip" 1) ("Arm" 1)))");
        CheckScan(path, true, {}, {"Hip", "Arm"});
    }

    void animationListBehindNodeListIsFound()
    {
        CheckFixture("anims_behind_nodes.lta", {"walk", "run"}, {"Hip", "Arm"});
        // The same, generated: 500 nodes and then 300 animations.
        const QString path = WriteModel(Model(NodeList(500) + AnimationList(300)));
        CheckScan(path, true, Numbered("anim", 300), Numbered("node", 500));
    }

    void nameEndsAtFirstQuoteWithoutEscape()
    {
        // "Hip\"(" ends at the quote behind the backslash; the rest, ("Knee", is scanned
        // as ordinary text and gives a node of its own.
        CheckFixture("backslash_does_not_escape_quote.lta", {}, {"Hip\\", "Knee", "Arm"});
    }

    void bracketInsideNameCountsForNothing()
    {
        CheckFixture("bracket_inside_name.lta", {"wave)))", "((jump"}, {"Hip)))", "((Arm"});
    }

    void bracketInOtherQuotedTextIsCounted_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("nodes");
        // "x))" closes the list early: "Arm" is lost.
        QTest::newRow("early") << "bracket_in_quoted_text_ends_pass_early.lta" << QStringList{"Hip"};
        // "(x" keeps it open past the enclosing form: "Leg" of the next form is taken.
        QTest::newRow("late") << "bracket_in_quoted_text_ends_pass_late.lta"
                              << QStringList{"Hip", "Leg"};
    }

    void bracketInOtherQuotedTextIsCounted()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, nodes);
        CheckFixture(file, {}, nodes);
    }

    void formAfterSetNodeFlagsInSameEnclosingFormIsScanned()
    {
        CheckFixture("form_after_set_node_flags.lta", {}, {"Hip", "Extra", "More"});
    }

    void bindingWithoutNameTakesTextFromNextQuote()
    {
        // The second binding has no (name: its "(name" search stops at its end, and its
        // text is the next quoted text in the file, "c" of the third binding, which then
        // gets no entry of its own.
        CheckFixture("binding_without_name.lta", {"a", "c"}, {});
    }

    void patternsAreExactWithCaseAndWithoutBlanks()
    {
        // (Anim-Binding and ( name are passed over, so the one binding takes "cmd";
        // (Set-Node-Flags is no node list.
        CheckFixture("patterns_with_other_case_or_blanks.lta", {"cmd"}, {});
    }

    void twoOpeningBracketsHideAPattern()
    {
        CheckFixture("two_brackets_hide_pattern.lta", {"b"}, {"Arm"});
    }

    void fileEndingInsideNameGivesNameUpToEnd_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("animations");
        QTest::addColumn<QStringList>("nodes");
        QTest::newRow("animation") << "ends_inside_animation_name.lta" << QStringList{"wal"}
                                   << QStringList{};
        QTest::newRow("node") << "ends_inside_node_name.lta" << QStringList{}
                              << QStringList{"Hip", "Ar"};
    }

    void fileEndingInsideNameGivesNameUpToEnd()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, animations);
        QFETCH(QStringList, nodes);
        CheckFixture(file, animations, nodes);
    }

    void emptyBindingListStillGivesOneEntry()
    {
        // Follows from the bullet above: the "(anim-binding" at the front of
        // "(anim-bindings" counts as a binding, and its text is the next quoted text.
        const QByteArray bytes = R"((x (anim-bindings ()) (set-node-flags ( ("Hip" 0)))))";
        QCOMPARE(ReferenceScan(bytes).animations, QStringList{"Hip"});
        CheckScan(WriteModel(bytes), true, {"Hip"}, {"Hip"});
    }

    // --- Part 2.3, step 3 of FindInFile: the three results a reader might not expect ----

    void searchStoppedOnLimitReturnsFalse()
    {
        // The animation pass stops at the end of the bindings and the node pass at the
        // end of the form around set-node-flags: "z" and "Late" stand behind them.
        CheckFixture("list_ends_where_search_stops.lta", {"a"}, {"Hip"});
    }

    void patternEndingOnLastCharacterIsNotFound_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("animations");
        QTest::addColumn<QStringList>("nodes");
        // The pattern is the last thing in the file: not found, no entry.
        QTest::newRow("anim-binding last") << QByteArray("(anim-binding") << QStringList{}
                                           << QStringList{};
        QTest::newRow("quote bracket last") << QByteArray("(set-node-flags (\"") << QStringList{}
                                            << QStringList{};
        // One character more and it is found, with the file's end for the rest.
        QTest::newRow("anim-binding and a blank") << QByteArray("(anim-binding ")
                                                  << QStringList{""} << QStringList{};
        QTest::newRow("quote bracket and a letter") << QByteArray("(set-node-flags (\"x")
                                                    << QStringList{} << QStringList{"x"};
    }

    void patternEndingOnLastCharacterIsNotFound()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, animations);
        QFETCH(QStringList, nodes);
        CheckScan(WriteModel(bytes), true, animations, nodes);
    }

    void doubleBracketMissesName_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("animations");
        QTest::newRow("(name") << QByteArray(R"(( (anim-binding (name "hidden") (x "next"))))")
                               << QStringList{"hidden"};
        // "((name": the second bracket sets the place back and is not tried again; the
        // "(name" search runs to its limit and the quote search to the file's end.
        QTest::newRow("((name") << QByteArray(R"(( (anim-binding ((name "hidden") (x "next"))))")
                                << QStringList{""};
    }

    void doubleBracketMissesName()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, animations);
        CheckScan(WriteModel(bytes), true, animations, {});
    }

    // --- The real models ----------------------------------------------------------------

    void corpusModels_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("animations");
        QTest::addColumn<QStringList>("nodes");
        const QStringList baseAnim{"base_anim"};
        const QStringList joint1{"joint1"};
        QTest::newRow("anteyes") << "anteyes.lta" << QStringList{} << QStringList{};
        QTest::newRow("antheadnoeyes") << "antheadnoeyes.lta" << baseAnim << joint1;
        QTest::newRow("box") << "box.lta" << baseAnim << joint1;
        QTest::newRow("cylinder") << "cylinder.lta" << baseAnim << joint1;
        QTest::newRow("highpolyshere") << "highpolyshere.lta" << baseAnim << joint1;
        QTest::newRow("lowpolyshere") << "lowpolyshere.lta" << baseAnim << joint1;
        QTest::newRow("rs_toon_2pass_1texstage_vs")
            << "rs_toon_2pass_1texstage_vs.lta" << QStringList{} << QStringList{};
        QTest::newRow("skinnedthing") << "skinnedthing.lta" << baseAnim
                                      << QStringList{"joint1", "joint2", "joint3"};
        QTest::newRow("teapot") << "teapot.lta" << baseAnim << joint1;
        QTest::newRow("wall") << "wall.lta" << baseAnim << joint1;
    }

    void corpusModels()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, animations);
        QFETCH(QStringList, nodes);
        QVERIFY(QFile::exists(CorpusModel(file)));
        CheckScan(CorpusModel(file), true, animations, nodes);
    }

    void everyCorpusModelIsListed()
    {
        // The table above covers the whole corpus: a model added to it must be added there.
        const QStringList files =
            QDir(QStringLiteral(TROUPE_FIXTURES_DIR "/models")).entryList({"*.lta"}, QDir::Files);
        const QStringList listed{"anteyes.lta",      "antheadnoeyes.lta", "box.lta",
                                 "cylinder.lta",     "highpolyshere.lta", "lowpolyshere.lta",
                                 "rs_toon_2pass_1texstage_vs.lta",        "skinnedthing.lta",
                                 "teapot.lta",       "wall.lta"};
        QCOMPARE(files, listed);
    }

    void tinyBuffersGiveTheSameLists_data()
    {
        QTest::addColumn<QString>("path");
        const QDir corpus(QStringLiteral(TROUPE_FIXTURES_DIR "/models"));
        for (const QString& name : corpus.entryList({"*.lta"}, QDir::Files))
            QTest::newRow(qPrintable("corpus/" + name)) << corpus.filePath(name);
        const QDir fixtures(QStringLiteral(TROUPE_FIXTURES_DIR "/rig"));
        for (const QString& name : fixtures.entryList({"*.lta"}, QDir::Files))
            QTest::newRow(qPrintable("fixture/" + name)) << fixtures.filePath(name);
    }

    void tinyBuffersGiveTheSameLists()
    {
        QFETCH(QString, path);
        // Against the reference reading of the whole file, for every buffer size.
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const ReferenceScan expected(file.readAll());
        QVERIFY(expected.ok);
        CheckScan(path, true, expected.animations, expected.nodes);
    }

    // --- Bad input ----------------------------------------------------------------------

    void missingModelGivesFalse()
    {
        LtaScanner scanner;
        QVERIFY(!scanner.ScanModel(m_dir.filePath("no such model.lta")));
        QVERIFY(!scanner.ScanModel(QString()));
        QVERIFY(scanner.strAnimations.isEmpty());
        QVERIFY(scanner.strNodes.isEmpty());
    }

    void directoryGivesFalse()
    {
        QVERIFY(QDir(m_dir.path()).mkpath("folder.lta"));
        LtaScanner scanner;
        QVERIFY(!scanner.ScanModel(m_dir.filePath("folder.lta")));
        QVERIFY(scanner.strAnimations.isEmpty());
        QVERIFY(scanner.strNodes.isEmpty());
    }

    void emptyFileGivesTrueWithEmptyLists()
    {
        // The file opens and both passes find nothing: a file without the lists gives True.
        CheckScan(WriteModel(QByteArray()), true, {}, {});
    }

    void binaryFileScansAsThePartSays()
    {
        // Random bytes (a fixed seed), with the lists' patterns sown in among them.
        QRandomGenerator random(2003);
        QByteArray bytes(256 * 1024, Qt::Uninitialized);
        for (char& byte : bytes)
            byte = char(random.bounded(256));
        const QByteArray patterns[] = {"(anim-binding", "(name", "\"", "(set-node-flags", "(\"",
                                       "(", ")"};
        for (int i = 0; i < 3000; ++i) {
            const QByteArray& pattern = patterns[random.bounded(7)];
            bytes.replace(random.bounded(bytes.size() - 20), pattern.size(), pattern);
        }
        const ReferenceScan expected(bytes);
        const QString path = WriteModel(bytes);
        CheckScan(path, expected.ok, expected.animations, expected.nodes);
        // Not an empty comparison: the sown patterns gave names.
        QVERIFY(!expected.animations.isEmpty() || !expected.nodes.isEmpty());
    }

    void randomTextsScanAsThePartSays_data()
    {
        QTest::addColumn<int>("rounds");
        QTest::addColumn<int>("maxPieces");
        QTest::newRow("short") << 300 << 60;
        // Long enough for many blocks of 64 characters, with false starts in them.
        QTest::newRow("long") << 30 << 3000;
    }

    void randomTextsScanAsThePartSays()
    {
        // Many texts of the lists' building blocks against the reference reading.
        QFETCH(int, rounds);
        QFETCH(int, maxPieces);
        QRandomGenerator random(1999);
        const QByteArray pieces[] = {"(anim-binding", "(anim-bindings", "(name", "(set-node-flags",
                                     "(\"", "\"", "(", ")", "))", " ", "Hip", "\\", "((", "\n", "é"};
        int withNames = 0;
        for (int round = 0; round < rounds; ++round) {
            QByteArray bytes;
            const int count = random.bounded(maxPieces);
            for (int i = 0; i < count; ++i)
                bytes += pieces[random.bounded(15)];
            const ReferenceScan expected(bytes);
            withNames += expected.animations.size() + expected.nodes.size() > 0 ? 1 : 0;
            CheckScan(WriteModel(bytes), expected.ok, expected.animations, expected.nodes);
            if (QTest::currentTestFailed()) {
                qWarning("text: %s", bytes.constData());
                return;
            }
        }
        QVERIFY(withNames > rounds / 6);
    }

    void bracketDepthBeyond16BitsFails_data()
    {
        QTest::addColumn<int>("brackets");
        QTest::addColumn<bool>("result");
        QTest::newRow("32767") << 32767 << true;
        QTest::newRow("32768") << 32768 << false;
        QTest::newRow("ten million") << 10'000'000 << false;
    }

    void bracketDepthBeyond16BitsFails()
    {
        QFETCH(int, brackets);
        QFETCH(bool, result);
        const QString path = WriteModel(QByteArray(brackets, '('));
        LtaScanner scanner;
        QCOMPARE(scanner.ScanModel(path), result);
        QVERIFY(scanner.strAnimations.isEmpty());
        QVERIFY(scanner.strNodes.isEmpty());
    }

    void depthIsCountedFromEachSearch()
    {
        // Over 40000 brackets open at the file's end, but no single search counts more
        // than 20003 of them, so nothing overflows.
        const QByteArray h(20000, '(');
        const QByteArray bytes = "(set-node-flags (anim-binding (name \"a\" (\"n1\" " + h
                                 + "(anim-binding (name \"b\" (\"n2\" " + h + "(\"n3\" ";
        const ReferenceScan expected(bytes);
        QVERIFY(expected.ok);
        CheckScan(WriteModel(bytes), true, {"a", "b"}, {"n1", "n2", "n3"});
    }

    void nameCountBeyond16BitsFails_data()
    {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<int>("animations");
        QTest::addColumn<bool>("result");
        QTest::newRow("32767 nodes") << 32767 << 0 << true;
        QTest::newRow("32768 nodes") << 32768 << 0 << false;
        QTest::newRow("40000 nodes") << 40000 << 0 << false;
        QTest::newRow("32767 animations") << 0 << 32767 << true;
        QTest::newRow("32768 animations") << 0 << 32768 << false;
        QTest::newRow("40000 animations") << 0 << 40000 << false;
    }

    void nameCountBeyond16BitsFails()
    {
        QFETCH(int, nodes);
        QFETCH(int, animations);
        QFETCH(bool, result);
        const QString path = WriteModel(Model(AnimationList(animations) + NodeList(nodes)));
        LtaScanner scanner;
        QCOMPARE(scanner.ScanModel(path), result);
        // Never more than 32767 names in a list, failure or not.
        QCOMPARE(scanner.strAnimations.size(), qMin(animations, 32767));
        QCOMPARE(scanner.strNodes.size(), qMin(nodes, 32767));
        if (result) {
            QCOMPARE(scanner.strAnimations.toStringList(), Numbered("anim", animations));
            QCOMPARE(scanner.strNodes.toStringList(), Numbered("node", nodes));
        }
    }

    void nulBytesInNamesAreKept()
    {
        static const char raw[] = "(set-node-flags (\"Hi\0p\" 1) (\"\0\" 1))";
        const QByteArray bytes(raw, sizeof raw - 1);
        CheckScan(WriteModel(bytes), true, {},
                  {QString::fromUtf8("Hi\0p", 4), QString(QChar(u'\0'))});
    }

    void namesAreUtf8OrElseLatin1_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("ascii") << QByteArray("Hip") << QStringLiteral("Hip");
        QTest::newRow("valid UTF-8") << QByteArray("Gr\xC3\xBC\xC3\x9F") << QStringLiteral(u"Grüß");
        QTest::newRow("invalid UTF-8") << QByteArray("Gr\xFC\xDF") << QStringLiteral(u"Grüß");
        QTest::newRow("cut UTF-8") << QByteArray("A\xC3") << QStringLiteral(u"AÃ");
    }

    void namesAreUtf8OrElseLatin1()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, expected);
        const QString path = WriteModel("(anim-binding (name \"" + name
                                        + "\")) (set-node-flags (\"" + name + "\" 1))");
        CheckScan(path, true, {expected}, {expected});
    }

    // --- Design 6 -----------------------------------------------------------------------

    void earlierNamesNeverShowAfterModelWithoutLists()
    {
        LtaScanner scanner;
        QVERIFY(scanner.ScanModel(CorpusModel("skinnedthing.lta")));
        QCOMPARE(scanner.strNodes.size(), 3);
        QVERIFY(scanner.ScanModel(CorpusModel("anteyes.lta")));
        QVERIFY(scanner.strAnimations.isEmpty());
        QVERIFY(scanner.strNodes.isEmpty());

        // A list shorter than the earlier one is cut to the new length.
        QVERIFY(scanner.ScanModel(CorpusModel("skinnedthing.lta")));
        QVERIFY(scanner.ScanModel(CorpusModel("box.lta")));
        QCOMPARE(scanner.strNodes.toStringList(), QStringList{"joint1"});

        // A failed scan shows no earlier names either.
        QVERIFY(scanner.ScanModel(CorpusModel("skinnedthing.lta")));
        QVERIFY(!scanner.ScanModel(m_dir.filePath("missing.lta")));
        QVERIFY(scanner.strAnimations.isEmpty());
        QVERIFY(scanner.strNodes.isEmpty());
    }

    void fileIsClosedOnEveryWayOut()
    {
        const QDir fds(QStringLiteral("/proc/self/fd"));
        if (!fds.exists())
            QSKIP("no /proc/self/fd on this system");
        const QString deep = WriteModel(QByteArray(40000, '('));
        const QString many = WriteModel(Model(NodeList(32768)));
        const QString good = CorpusModel("skinnedthing.lta");
        QVERIFY(QDir(m_dir.path()).mkpath("closed-folder.lta"));
        const QString folder = m_dir.filePath("closed-folder.lta");

        const auto openFiles = [&] { return fds.entryList(QDir::AllEntries | QDir::System).size(); };
        const qsizetype before = openFiles();
        LtaScanner scanner;
        QVERIFY(scanner.ScanModel(good));
        QVERIFY(!scanner.ScanModel(deep));
        QVERIFY(!scanner.ScanModel(many));
        QVERIFY(!scanner.ScanModel(folder));
        QVERIFY(!scanner.ScanModel(m_dir.filePath("missing.lta")));
        QCOMPARE(openFiles(), before);
    }

    void namesAreHeldAsBytesAndDecodedWhenAsked()
    {
        // The lists hold the names' bytes; at(), toStringList() and == decode them
        // (design 6). A later scan fills the same lists afresh.
        LtaScanner scanner;
        QVERIFY(scanner.ScanModel(WriteModel("(set-node-flags (\"Gr\xC3\xBC\xC3\x9F\" 1) (\"\" 1)"
                                             " (\"Gr\xFC\xDF\" 1) (\"Hip\" 1))")));
        QCOMPARE(scanner.strNodes.size(), 4);
        QCOMPARE(scanner.strNodes.at(0), QStringLiteral(u"Grüß")); // valid UTF-8
        QCOMPARE(scanner.strNodes.at(1), QString());
        QCOMPARE(scanner.strNodes.at(2), QStringLiteral(u"Grüß")); // Latin-1
        QCOMPARE(scanner.strNodes.at(3), QStringLiteral("Hip"));
        const QString gruess = QStringLiteral(u"Grüß");
        const QStringList all{gruess, QString(), gruess, "Hip"};
        QCOMPARE(scanner.strNodes.toStringList(), all);
        QVERIFY(scanner.strNodes == all);
        QVERIFY(!(scanner.strNodes == all.mid(0, 3)));
        QVERIFY(!(scanner.strNodes == QStringList{gruess, QString(), gruess, "Hop"}));

        QVERIFY(scanner.ScanModel(CorpusModel("skinnedthing.lta")));
        QCOMPARE(scanner.strNodes.toStringList(), (QStringList{"joint1", "joint2", "joint3"}));
        QCOMPARE(scanner.strAnimations.at(0), QStringLiteral("base_anim"));
    }

    // --- Design 4.5 ---------------------------------------------------------------------

    void modelPathIsMatchedWithoutCase()
    {
        QFile model(CorpusModel("skinnedthing.lta"));
        QVERIFY(model.open(QIODevice::ReadOnly));
        QVERIFY(QDir(m_dir.path()).mkpath("Models"));
        WriteModel(model.readAll(), "Models/SkinnedThing.LTA");
        CheckScan(m_dir.filePath("models/skinnedthing.lta"), true, {"base_anim"},
                  {"joint1", "joint2", "joint3"});
    }
};

QTEST_GUILESS_MAIN(tst_LtaScanner)
#include "tst_LtaScanner.moc"
