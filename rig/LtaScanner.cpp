#include "rig/LtaScanner.h"

#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QtAlgorithms>

#include <cstring>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// The model's bytes, read once for both passes: the file is mapped into memory whole (or,
// where its file system cannot map it, read whole), so the second pass starts again at the
// first character without reading anything a second time, and a pass that ends early at the
// end of its list touches no more of the file. The destructor unmaps and closes the file on
// every way out of a scan.
class LtaScanner::ModelFile {
public:
    ModelFile(const QString& path, qsizetype window) : m_file(path), m_window(window) {}
    ~ModelFile()
    {
        if (m_mapped)
            m_file.unmap(m_mapped);
    }
    ModelFile(const ModelFile&) = delete;
    ModelFile& operator=(const ModelFile&) = delete;

    // Regular files only: opening a FIFO waits for a writer, and a device may never end.
    bool Open()
    {
        if (!QFileInfo(m_file.fileName()).isFile() || !m_file.open(QIODevice::ReadOnly) ||
            m_file.isSequential())
            return false;
        const qint64 size = m_file.size();
        if (size == 0)
            return true;
        m_mapped = m_file.map(0, size);
        if (m_mapped) {
            m_bytes = QByteArrayView(reinterpret_cast<const char*>(m_mapped), size);
            return true;
        }
        m_copy = m_file.readAll();
        m_bytes = m_copy;
        return m_copy.size() == size;
    }

    // Back to the first character.
    void Rewind() { m_pos = m_windowEnd = 0; }

    bool AtEnd() const { return m_pos == m_bytes.size(); }
    char Get() { return m_bytes[m_pos++]; }
    void Advance(qsizetype count) { m_pos += count; }

    // The characters from the next one to the file's end, or to the end of its window.
    QByteArrayView Rest() const { return m_bytes.sliced(m_pos); }
    QByteArrayView Window()
    {
        if (m_pos >= m_windowEnd)
            m_windowEnd = m_pos + qMin(m_window - m_pos % m_window, m_bytes.size() - m_pos);
        return m_bytes.sliced(m_pos, m_windowEnd - m_pos);
    }

    // A bracket depth that left 16 bits: the scan fails.
    bool Failed() const { return m_failed; }
    void Fail() { m_failed = true; }

private:
    QFile m_file;
    qsizetype m_window;
    uchar* m_mapped = nullptr;
    QByteArray m_copy;
    QByteArrayView m_bytes;
    qsizetype m_pos = 0;
    qsizetype m_windowEnd = 0;
    bool m_failed = false;
};

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

// The usual block, in keyframe data, holds no possible start of a match and too few brackets
// to end the search: passes over such blocks, from p on while 65 characters are at hand,
// counting their brackets at once, and stops in front of the first other block. A block
// ending on the pattern's first character is no such block, since whether that one starts a
// match decides how the next block's first character is taken.
const char* PassQuietBlocks(const char* p, const char* const end, const QByteArrayView pattern,
                            const int limit, int& depth)
{
#if defined(__SSE2__)
    const __m128i open = _mm_set1_epi8('(');
    const __m128i close = _mm_set1_epi8(')');
    const __m128i first = _mm_set1_epi8(pattern[0]);
    const __m128i second = _mm_set1_epi8(pattern.size() > 1 ? pattern[1] : 0);
    const __m128i any = _mm_set1_epi8(pattern.size() > 1 ? 0 : -1);
    const __m128i zero = _mm_setzero_si128();
    const auto sum = [](const __m128i counts) {
        const __m128i sums = _mm_sad_epu8(counts, _mm_setzero_si128());
        return _mm_cvtsi128_si32(sums) + _mm_cvtsi128_si32(_mm_unpackhi_epi64(sums, sums));
    };
    while (end - p > BlockSize && p[BlockSize - 1] != pattern[0]) {
        __m128i starts = zero;
        __m128i opens = zero;
        __m128i closes = zero;
        for (int i = 0; i < BlockSize; i += 16) {
            const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
            const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i + 1));
            const __m128i follows = _mm_or_si128(_mm_cmpeq_epi8(next, second), any);
            starts = _mm_or_si128(starts, _mm_and_si128(_mm_cmpeq_epi8(chars, first), follows));
            opens = _mm_sub_epi8(opens, _mm_cmpeq_epi8(chars, open));
            closes = _mm_sub_epi8(closes, _mm_cmpeq_epi8(chars, close));
        }
        if (_mm_movemask_epi8(starts) != 0)
            break;
        const int opened = sum(opens);
        const int closed = sum(closes);
        if (depth - closed < limit || depth + opened > DepthMax)
            break;
        depth += opened - closed;
        p += BlockSize;
    }
#else
    Q_UNUSED(end);
    Q_UNUSED(pattern);
    Q_UNUSED(limit);
    Q_UNUSED(depth);
#endif
    return p;
}

// Passes over characters one at a time, from p up to end, in front of the first one that
// may start a match or end the search.
const char* PassOneByOne(const char* p, const char* const end, const char first, const int limit,
                         int& depth)
{
    for (; p != end && *p != first; ++p) {
        const int next = depth + int(*p == '(') - int(*p == ')');
        if (next < limit || next > DepthMax)
            break;
        depth = next;
    }
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
        for (uint near = _mm_movemask_epi8(_mm_or_si128(brackets, firsts)); near != 0;
             near &= near - 1) {
            const char* const q = p + qCountTrailingZeroBits(near);
            if (*q == pattern[0])
                return q - begin;
            const int next = depth + (*q == '(' ? 1 : -1);
            if (next < limit || next > DepthMax)
                return q - begin;
            depth = next;
        }
        p += 16;
    }
#else
    const char* const near = p + qMin<qsizetype>(16, end - p);
    p = PassOneByOne(p, near, pattern[0], limit, depth);
    if (p != near)
        return p - begin;
#endif
    while (end - p > BlockSize) {
        p = PassQuietBlocks(p, end, pattern, limit, depth);
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
            const int next = depth + (((block.open >> i) & 1) != 0 ? 1 : -1);
            if (next < limit || next > DepthMax)
                return p + i - begin;
            depth = next;
        }
        p += plain;
        if (plain < BlockSize)
            return p - begin;
    }
    return PassOneByOne(p, end, pattern[0], limit, depth) - begin;
}

} // namespace

LtaScanner::LtaScanner(qsizetype bufferSize) : m_bufferSize(qMax<qsizetype>(bufferSize, 1)) {}

bool LtaScanner::FindInFile(ModelFile& file, QByteArrayView pattern, qint16 limit)
{
    qsizetype place = 0; // how much of the pattern has been matched
    int depth = 0;       // counted from this call, not from the file's start
    bool stop = false;
    while (!file.AtEnd() && place < pattern.size() && !stop) {
        if (place == 0) {
            file.Advance(PassOver(file.Window(), pattern, limit, depth));
            if (file.AtEnd())
                break;
        }
        const char c = file.Get();
        // A character that does not go on with the match sets it back to the start, and is
        // not tried again as the start of the pattern.
        place = c == pattern[place] ? place + 1 : 0;
        // Every bracket counts, inside quotes or not, the pattern's own included.
        depth += int(c == '(') - int(c == ')');
        if (depth > DepthMax || depth < DepthMin) {
            file.Fail();
            return false;
        }
        stop = depth < limit;
    }
    // A pattern that ends on the file's last character counts as not found; a search that
    // stopped on the limit returns False, standing behind the bracket that stopped it.
    return !file.AtEnd() && !stop;
}

void LtaScanner::ReadUntil(ModelFile& file, char delimiter, LtaNameList& names)
{
    // Brackets count for nothing here; the file's end simply ends the text.
    const QByteArrayView rest = file.Rest();
    const auto* const hit =
        rest.isEmpty()
            ? nullptr
            : static_cast<const char*>(std::memchr(rest.data(), delimiter, size_t(rest.size())));
    const qsizetype length = hit ? hit - rest.data() : rest.size();
    names.append(rest.first(length));
    file.Advance(hit ? length + 1 : length);
}

bool LtaScanner::ScanAnimations(ModelFile& file)
{
    // Each binding gives one entry, whether or not a (name was found inside it: one without
    // a name takes its text from the next double quote in the file. The pass ends where the
    // list of bindings closes (the depth falls below -2).
    for (;;) {
        if (!FindInFile(file, "(anim-binding", -2))
            return !file.Failed();
        // A 32768th name would overflow the 16-bit count of a list.
        if (strAnimations.size() >= Limits::MaxRecords)
            return false;
        FindInFile(file, "(name", 0);
        FindInFile(file, "\"", 0);
        if (file.Failed())
            return false;
        ReadUntil(file, '"', strAnimations);
    }
}

bool LtaScanner::ScanNodes(ModelFile& file)
{
    // Each entry ("Hip" 1) of the node list gives one name; the pass ends where the form
    // around the list closes, so another form behind the list in that form is still read.
    FindInFile(file, "(set-node-flags", 0);
    if (file.Failed())
        return false;
    for (;;) {
        if (!FindInFile(file, "(\"", -2))
            return !file.Failed();
        if (strNodes.size() >= Limits::MaxRecords)
            return false;
        ReadUntil(file, '"', strNodes);
    }
}

bool LtaScanner::ScanModel(const QString& strModelFile)
{
    strAnimations.clear();
    strNodes.clear();

    // A path that does not exist as given is matched without regard to case. No name is a
    // file that cannot be opened (asked of QFile, it warns on stderr).
    if (strModelFile.isEmpty())
        return false;
    ModelFile file(mdlGeneral::ResolveFileCase(strModelFile), m_bufferSize);
    if (!file.Open() || !ScanAnimations(file))
        return false;
    // The second pass starts at the first character wherever the first ended, so the order
    // of the two lists in the file does not matter.
    file.Rewind();
    return ScanNodes(file);
}
