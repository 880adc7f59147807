// SPDX-License-Identifier: GPL-3.0-or-later
#include "rig/LtaScanner.h"

#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"
#include "rig/LtaQuickPassage.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

using namespace LtaQuickPassage;

// One pass of the scan, carried from one piece of the file to the next: the step it stands
// at, the search under way (FindInFile's place in the pattern and depth) and the list it
// fills. The first pass finds each "(anim-binding", then "(name" and the quote in front of
// the name; the second finds "(set-node-flags" once, then each `("` in front of a node name.
class LtaScanner::Pass {
public:
    enum class List { Animations, Nodes };

    Pass(const List list, LtaNameList& names) : m_list(list), m_names(names)
    {
        Start(list == List::Animations ? Step::Entry : Step::NodeList);
    }

    bool Running() const { return m_step != Step::Done; }
    // A list that would pass 32767 names, or a bracket depth that left 16 bits.
    bool Failed() const { return m_failed; }

    // Runs the pass over the next piece of the file, as far as the piece reaches.
    void Take(QByteArrayView piece)
    {
        while (Running()) {
            switch (m_step) {
            case Step::EntryFound:
                // A pattern that ends on the file's last character counts as not found, so
                // the entry counts only once a character follows.
                if (piece.isEmpty())
                    return;
                // A 32768th name would overflow the 16-bit count of a list.
                if (m_names.size() >= Limits::MaxRecords)
                    Fail();
                else if (m_list == List::Animations)
                    Start(Step::Name);
                else
                    m_step = Step::ReadName;
                break;
            case Step::ReadName:
            case Step::ReadMore:
                if (!ReadUntil(piece, '"'))
                    return;
                Start(Step::Entry);
                break;
            default: {
                const Outcome result = FindInFile(piece);
                if (result == Outcome::Running)
                    return;
                if (result == Outcome::Overflow)
                    Fail();
                else
                    Searched(result == Outcome::Found);
            }
            }
        }
    }

    // Runs both passes over the piece. While both search, the blocks that matter to neither
    // are passed by both at once, so that keyframe data, most of a model, is looked at once
    // for the two.
    static void TakeBoth(Pass& first, Pass& second, QByteArrayView piece)
    {
        while (first.Searching() && second.Searching() && !piece.isEmpty()) {
            if (first.m_search.place == 0 && second.m_search.place == 0 &&
                OpensWithABracket(first.m_search) && OpensWithABracket(second.m_search)) {
                const char* const begin = piece.data();
                piece = piece.sliced(PassQuietBlocks<2>(begin, begin + piece.size(),
                                                        {&first.m_search, &second.m_search}) -
                                     begin);
            }
            // The block in front of which the passage stopped, or in which a match is under
            // way, goes through each on its own.
            const QByteArrayView block = piece.first(qMin<qsizetype>(BlockSize, piece.size()));
            first.Take(block);
            second.Take(block);
            piece = piece.sliced(block.size());
        }
        first.Take(piece);
        second.Take(piece);
    }

    // The file has ended behind the last piece: every search under way returns False. A
    // binding whose name was not reached yet still gives an entry, with an empty name.
    void End()
    {
        if (m_step == Step::Name || m_step == Step::Quote || m_step == Step::ReadName)
            m_names.append({});
        m_step = Step::Done;
    }

private:
    // The steps up to Quote search for a pattern. ReadName begins a name, ReadMore goes on
    // with one that reaches across pieces.
    enum class Step { NodeList, Entry, Name, Quote, EntryFound, ReadName, ReadMore, Done };
    enum class Outcome { Running, Found, Stopped, Overflow };

    bool Searching() const { return m_step <= Step::Quote; }

    void Start(const Step step)
    {
        m_step = step;
        switch (step) {
        case Step::NodeList:
            m_search.pattern = "(set-node-flags";
            break;
        case Step::Entry:
            m_search.pattern = m_list == List::Animations ? QByteArrayView("(anim-binding")
                                                          : QByteArrayView("(\"");
            break;
        case Step::Name:
            m_search.pattern = "(name";
            break;
        default:
            m_search.pattern = "\"";
            break;
        }
        // An entry search ends where the list closes; the others may not leave the form in
        // which they started.
        m_search.limit = step == Step::Entry ? -2 : 0;
        m_search.place = 0;
        m_search.depth = 0;
    }

    // Only the search for an entry is looked at: when it stops on the limit, the list has
    // ended. The others leave the file where they ended, found or not.
    void Searched(const bool found)
    {
        switch (m_step) {
        case Step::NodeList:
            Start(Step::Entry);
            break;
        case Step::Entry:
            m_step = found ? Step::EntryFound : Step::Done;
            break;
        case Step::Name:
            Start(Step::Quote);
            break;
        default:
            m_step = Step::ReadName;
            break;
        }
    }

    void Fail()
    {
        m_failed = true;
        m_step = Step::Done;
    }

    // Takes characters from the front of the piece until the pattern is complete, the depth
    // counted from the search's start falls below the limit, or the piece is used up.
    Outcome FindInFile(QByteArrayView& piece)
    {
        // The place and the depth are kept in locals: a character read through a pointer
        // might be any member, so members would be stored and loaded again for each one.
        const QByteArrayView pattern = m_search.pattern;
        const int limit = m_search.limit;
        qsizetype place = m_search.place;
        int depth = m_search.depth;
        const char* p = piece.data();
        const char* const end = p + piece.size();
        Outcome result = Outcome::Running;
        while (p != end && result == Outcome::Running) {
            if (place == 0) {
                p += PassOver(QByteArrayView(p, end), pattern, limit, depth);
                if (p == end)
                    break;
            }
            const char c = *p++;
            // A character that does not go on with the match sets it back to the start, and
            // is not tried again as the start of the pattern.
            if (c == pattern[place])
                ++place;
            else
                place = 0;
            // Every bracket counts, inside quotes or not, the pattern's own included; only a
            // bracket moves the depth out of its range.
            if (c == '(' || c == ')') {
                depth += c == '(' ? 1 : -1;
                if (depth > DepthMax || depth < DepthMin) {
                    result = Outcome::Overflow;
                    break;
                }
                if (depth < limit) {
                    result = Outcome::Stopped;
                    break;
                }
            }
            if (place == pattern.size())
                result = Outcome::Found;
        }
        m_search.place = place;
        m_search.depth = depth;
        piece = QByteArrayView(p, end);
        return result;
    }

    // The piece's text up to the delimiter, as a new name or the rest of the last one; True
    // when the delimiter came (consumed, left out). Brackets count for nothing here.
    bool ReadUntil(QByteArrayView& piece, const char delimiter)
    {
        if (piece.isEmpty())
            return false;
        const auto* const hit =
            static_cast<const char*>(std::memchr(piece.data(), delimiter, size_t(piece.size())));
        const qsizetype length = hit ? hit - piece.data() : piece.size();
        if (m_step == Step::ReadName)
            m_names.append(piece.first(length));
        else
            m_names.appendToLast(piece.first(length));
        m_step = Step::ReadMore;
        piece = piece.sliced(hit ? length + 1 : length);
        return hit != nullptr;
    }

    const List m_list;
    LtaNameList& m_names;
    Step m_step = Step::Done;
    Search m_search;
    bool m_failed = false;
};

LtaScanner::LtaScanner(qsizetype bufferSize) : m_bufferSize(qMax<qsizetype>(bufferSize, 1)) {}

bool LtaScanner::ScanModel(const QString& strModelFile)
{
    strAnimations.clear();
    strNodes.clear();

    // A path that does not exist as given is matched without regard to case. No name is a
    // file that cannot be opened (asked of QFile, it warns on stderr). Regular files only:
    // opening a FIFO waits for a writer, and a device may never end.
    if (strModelFile.isEmpty())
        return false;
    QFile file(mdlGeneral::ResolveFileCase(strModelFile));
    if (!QFileInfo(file.fileName()).isFile() ||
        !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.isSequential())
        return false;

    // The file is read once, front to back, through one buffer, and is never mapped: another
    // program may cut the model short while it is read, which ends a read early but would
    // kill the process at the first touch of a mapped page. Each piece goes through the first
    // pass and then the second, so the second starts at the first character without reading
    // anything again, and the order of the two lists in the file does not matter. Reading
    // stops where both passes have ended.
    Pass animations(Pass::List::Animations, strAnimations);
    Pass nodes(Pass::List::Nodes, strNodes);
    QByteArray buffer(qMax(m_bufferSize, DefaultBufferSize), Qt::Uninitialized);
    while (!animations.Failed() && (animations.Running() || nodes.Running())) {
        const qint64 got = file.read(buffer.data(), buffer.size());
        if (got < 0)
            return false;
        if (got == 0) {
            animations.End();
            nodes.End();
            break;
        }
        for (QByteArrayView rest(buffer.constData(), got); !rest.isEmpty();
             rest = rest.sliced(qMin(rest.size(), m_bufferSize))) {
            Pass::TakeBoth(animations, nodes, rest.first(qMin(rest.size(), m_bufferSize)));
        }
    }
    // The second pass runs only behind a first one that did not fail.
    if (animations.Failed())
        strNodes.clear();
    return !animations.Failed() && !nodes.Failed();
}
