#include "rig/LtaScanner.h"

#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr int DepthMax = std::numeric_limits<qint16>::max();
constexpr int DepthMin = std::numeric_limits<qint16>::min();

// The passage over characters that cannot matter looks at 64 at a time through bit masks.
constexpr int BlockSize = 64;

// Bit i tells whether block[i] is `c`.
quint64 MaskOf(const char* const block, const char c)
{
    quint64 mask = 0;
#if defined(__SSE2__)
    const __m128i wanted = _mm_set1_epi8(c);
    for (int i = 0; i < BlockSize; i += 16) {
        const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
        mask |= quint64(quint32(_mm_movemask_epi8(_mm_cmpeq_epi8(chars, wanted)))) << i;
    }
#else
    for (int i = 0; i < BlockSize; ++i)
        mask |= quint64(block[i] == c) << i;
#endif
    return mask;
}

// The characters of 64 at `block` that the search looks at; block[64] must be readable.
struct BlockMasks {
    quint64 open;   // "("
    quint64 close;  // ")"
    quint64 first;  // the pattern's first character
    quint64 starts; // where a match may start: the first character followed by the second

    BlockMasks(const char* const block, const QByteArrayView pattern)
        : open(MaskOf(block, '(')), close(MaskOf(block, ')')),
          first(pattern[0] == '(' ? open : MaskOf(block, pattern[0])),
          starts(pattern.size() == 1 ? first
                                     : first & (MaskOf(block + 1, pattern[1]) | LastOfBlock))
    {
    }

    // The block's last character, if it is the first one, is taken as a start: whether it
    // starts a match decides how the next block's first character is taken.
    static constexpr quint64 LastOfBlock = quint64(1) << (BlockSize - 1);

    // How many characters, from the first, lie in front of every match that may start in
    // the block: none of them completes a match or leaves one under way. A match starts
    // only where the first character is followed by the second, and the run of first
    // characters in front of such a place is left out too, since every other one of them
    // is taken as no start (in "((name" the second bracket ends the first one's match).
    int Plain() const
    {
        if (starts == 0)
            return BlockSize;
        const quint64 before = (quint64(1) << qCountTrailingZeroBits(starts)) - 1;
        const quint64 others = before & ~first;
        return others == 0 ? 0 : BlockSize - qCountLeadingZeroBits(others);
    }
};

// Adds the character's bracket to depth; False, leaving depth as it was, where that would end
// the search: below limit, or beyond 16 bits.
bool Count(const char c, const int limit, int& depth)
{
    const int next = depth + int(c == '(') - int(c == ')');
    if (next < limit || next > DepthMax)
        return false;
    depth = next;
    return true;
}

// FindInFile's state, kept from one piece of the file to the next.
struct Search {
    QByteArrayView pattern;
    int limit = 0;
    qsizetype place = 0; // how much of the pattern has been matched
    int depth = 0;       // counted from the search's start, not from the file's
};

// Whether the quick passage over blocks takes the search: its pattern is a bracket followed
// by more, as all but the quote are, so the brackets it counts are the pattern's first
// characters too.
bool OpensWithABracket(const Search& search)
{
    return search.pattern.size() > 1 && search.pattern[0] == '(';
}

// The usual block, in keyframe data, holds no possible start of a match and too few brackets
// to end a search: passes over such blocks, from p on while 65 characters are at hand,
// counting their brackets at once for each of the searches, which have no match under way
// and open with a bracket, and stops in front of the first other block.
template <size_t N>
const char* PassQuietBlocks(const char* p, const char* const end,
                            const std::array<Search*, N>& searches)
{
#if defined(__SSE2__)
    __m128i second[N];
    for (size_t s = 0; s < N; ++s)
        second[s] = _mm_set1_epi8(searches[s]->pattern[1]);
    const auto sum = [](const __m128i counts) {
        const __m128i sums = _mm_sad_epu8(counts, _mm_setzero_si128());
        return _mm_cvtsi128_si32(sums) + _mm_cvtsi128_si32(_mm_unpackhi_epi64(sums, sums));
    };
    // How many of the `size` characters at p are passed over, their brackets added to each
    // search's depth; none when they are no quiet block.
    const auto quiet = [&](const int size) {
        __m128i starts = _mm_setzero_si128();
        __m128i opens = _mm_setzero_si128();
        __m128i closes = _mm_setzero_si128();
        for (int i = 0; i < size; i += 16) {
            const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
            const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i + 1));
            // A match may start where a bracket is followed by a pattern's second character.
            __m128i follows = _mm_cmpeq_epi8(next, second[0]);
            for (size_t s = 1; s < N; ++s)
                follows = _mm_or_si128(follows, _mm_cmpeq_epi8(next, second[s]));
            const __m128i opened = _mm_cmpeq_epi8(chars, _mm_set1_epi8('('));
            starts = _mm_or_si128(starts, _mm_and_si128(opened, follows));
            opens = _mm_sub_epi8(opens, opened);
            closes = _mm_sub_epi8(closes, _mm_cmpeq_epi8(chars, _mm_set1_epi8(')')));
        }
        if (_mm_movemask_epi8(starts) != 0)
            return 0;
        int opened = sum(opens);
        const int closed = sum(closes);
        if (std::any_of(searches.begin(), searches.end(), [=](const Search* search) {
                return search->depth - closed < search->limit || search->depth + opened > DepthMax;
            }))
            return 0;
        // A run of brackets at the end is left to the next block: whether its last one
        // starts a match decides how the character behind it is taken, and in a run every
        // other one is taken as no start (in "((name" the second bracket ends the first one's
        // match).
        int taken = size;
        for (; taken > 0 && p[taken - 1] == '('; --taken)
            --opened;
        for (Search* const search : searches)
            search->depth += opened - closed;
        return taken;
    };
    // Two at once only behind a few quiet blocks: inside a list the next entry is mostly near.
    for (int size = BlockSize, quietOnes = 0;;) {
        const int taken = end - p > size ? quiet(size) : 0;
        if (taken > 0) {
            p += taken;
            size = ++quietOnes >= 2 ? 2 * BlockSize : BlockSize;
        } else if (size > BlockSize) {
            size = BlockSize;
            quietOnes = 0;
        } else {
            break;
        }
    }
#else
    Q_UNUSED(end);
    Q_UNUSED(searches);
#endif
    return p;
}

// Passes over characters one at a time, from p up to end, in front of the first one that
// may start a match or end the search.
const char* PassOneByOne(const char* p, const char* const end, const char first, const int limit,
                         int& depth)
{
    while (p != end && *p != first && Count(*p, limit, depth))
        ++p;
    return p;
}

// How many of the window's characters, taken with no match under way, would change nothing
// but the depth and could not end the search: the depth they leave is neither below limit
// nor beyond 16 bits. Their brackets are added to depth. The character behind them may
// start a match or end the search; it is left to be taken on its own.
qsizetype PassOver(const QByteArrayView window, const QByteArrayView pattern, const int limit,
                   int& depth)
{
    const char* const begin = window.data();
    const char* const end = begin + window.size();
    // Inside a list the next character that matters is mostly near (the quote behind
    // "(name", the next node's entry): the first 16 are looked at before any block.
    const char* p = begin;
#if defined(__SSE2__)
    if (end - p >= 16) {
        const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i brackets = _mm_or_si128(_mm_cmpeq_epi8(chars, _mm_set1_epi8('(')),
                                              _mm_cmpeq_epi8(chars, _mm_set1_epi8(')')));
        const __m128i firsts = _mm_cmpeq_epi8(chars, _mm_set1_epi8(pattern[0]));
        const char* behind = p + 16;
        for (uint near = _mm_movemask_epi8(_mm_or_si128(brackets, firsts)); near != 0;
             near &= near - 1) {
            const char* const q = p + qCountTrailingZeroBits(near);
            if (*q != pattern[0]) {
                if (!Count(*q, limit, depth))
                    return q - begin;
                continue;
            }
            if (pattern.size() == 1 || end - q < 2 || q[1] == pattern[1])
                return q - begin;
            // A first character not followed by the second starts no match, and the one
            // behind it is taken as no start: both count for their brackets alone.
            if (!Count(q[0], limit, depth))
                return q - begin;
            if (!Count(q[1], limit, depth))
                return q + 1 - begin;
            if (q + 1 == behind)
                behind = q + 2;
            else
                near &= ~(1u << (q + 1 - p));
        }
        p = behind;
    }
#else
    const char* const near = p + qMin<qsizetype>(16, end - p);
    p = PassOneByOne(p, near, pattern[0], limit, depth);
    if (p != near)
        return p - begin;
#endif
    while (end - p > BlockSize) {
        if (Search search{pattern, limit, 0, depth}; OpensWithABracket(search)) {
            p = PassQuietBlocks<1>(p, end, {&search});
            depth = search.depth;
        }
        if (end - p <= BlockSize)
            break;
        // A block with a possible start, or with brackets that may end the search: its
        // brackets in front of the first possible start are counted one by one.
        const BlockMasks block(p, pattern);
        const int plain = block.Plain();
        const quint64 taken = plain == BlockSize ? ~quint64(0) : (quint64(1) << plain) - 1;
        for (quint64 brackets = (block.open | block.close) & taken; brackets != 0;
             brackets &= brackets - 1) {
            const int i = qCountTrailingZeroBits(brackets);
            if (!Count(p[i], limit, depth))
                return p + i - begin;
        }
        p += plain;
        if (plain < BlockSize)
            return p - begin;
    }
    return PassOneByOne(p, end, pattern[0], limit, depth) - begin;
}

} // namespace

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
