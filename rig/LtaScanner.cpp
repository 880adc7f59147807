#include "rig/LtaScanner.h"

#include "foundation/Limits.h"
#include "foundation/mdlGeneral.h"

#include <QByteArray>
#include <QFile>
#include <QtAlgorithms>

#include <algorithm>
#include <cstring>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// The spec's "sequential text file reading" (open by path, test for the end, read one
// character, close) over a QFile read in blocks into a buffer of our own (design 1). The
// scan's logic still takes one character at a time; it just takes them from the buffer.
// The file is closed by the destructor, so on every way out of a scan (design 6).
class LtaScanner::ModelFile {
public:
    ModelFile(const QString& path, qsizetype bufferSize)
        : m_file(path), m_buffer(qMax<qsizetype>(bufferSize, 1), Qt::Uninitialized)
    {
    }

    // Open (again) for reading from the first character. Unbuffered: the block buffer
    // here is the only one, so no byte is copied twice.
    bool Open()
    {
        m_file.close();
        m_pos = m_end = m_buffer.constData();
        return m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    // The spec's EOF: no character is left to read. Refills the buffer when it is used up.
    bool AtEnd()
    {
        if (m_pos == m_end)
            Refill();
        return m_pos == m_end;
    }

    // The characters read ahead and not yet taken: [Pos(), End()).
    const char* Pos() const { return m_pos; }
    const char* End() const { return m_end; }
    void Advance(const char* to) { m_pos = to; }

    // A read error or a 16-bit overflow: the scan fails (Part 2.3 "Failure handling").
    bool Failed() const { return m_failed; }
    void Fail() { m_failed = true; }

private:
    void Refill()
    {
        if (m_failed)
            return;
        const qint64 got = m_file.read(m_buffer.data(), m_buffer.size());
        if (got < 0) {
            // A read error ends the characters and fails the scan.
            m_failed = true;
            return;
        }
        m_pos = m_buffer.constData();
        m_end = m_pos + got;
    }

    QFile m_file;
    QByteArray m_buffer;
    const char* m_pos = nullptr;
    const char* m_end = nullptr;
    bool m_failed = false;
};

namespace {

constexpr int DepthMax = std::numeric_limits<qint16>::max();
constexpr int DepthMin = std::numeric_limits<qint16>::min();

// "(" and ")" are 0x28 and 0x29: one test finds both.
constexpr bool IsBracket(const char c) { return (c | 1) == ')'; }

// While no match is under way, a character that is neither a bracket nor the start of a
// match changes nothing in FindInFile. So where the buffer holds 64 characters, FindInFile
// looks at them through bit masks: it counts their brackets one by one (any may stop the
// search) up to the first character that may start a match, and takes that one as usual.

// Bit i tells whether block[i] (i < 64) is `c`.
quint64 MaskOf(const char* const block, const char c)
{
    quint64 mask = 0;
#if defined(__SSE2__)
    const __m128i wanted = _mm_set1_epi8(c);
    for (int i = 0; i < 64; i += 16) {
        const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
        mask |= quint64(quint32(_mm_movemask_epi8(_mm_cmpeq_epi8(chars, wanted)))) << i;
    }
#else
    for (int i = 0; i < 64; ++i)
        mask |= quint64(block[i] == c) << i;
#endif
    return mask;
}

// The characters of a block of 64 that FindInFile looks at, as masks.
struct BlockMasks {
    quint64 open;   // "("
    quint64 close;  // ")"
    quint64 first;  // the pattern's first character
    quint64 second; // its second (none for a pattern of one character)

    BlockMasks(const char* const block, QByteArrayView pattern)
        : open(MaskOf(block, '(')), close(MaskOf(block, ')')),
          first(pattern[0] == '(' ? open : MaskOf(block, pattern[0])),
          second(pattern.size() > 1 ? MaskOf(block, pattern[1]) : 0)
    {
    }
};

// How many of the 64 characters of a block, read with no match under way (the Part's place
// 1), count for their brackets alone: none of them completes a match, and none is under way
// behind them. Proof: such a match would start at a character j that is the pattern's first
// and is followed by its second (bit j of `starts`), or that is the last one of them. So
// they end before the first start, and before the run of first characters in front of it
// (as in the Part's "((name", where the second "(" is not tried again as a start).
int PlainPrefix(const BlockMasks& masks, const qsizetype length)
{
    const quint64 last = quint64(1) << 63; // its follower is not in the block
    const quint64 starts = length == 1 ? masks.first : masks.first & ((masks.second >> 1) | last);
    if (starts == 0)
        return 64;
    const quint64 before = (quint64(1) << qCountTrailingZeroBits(starts)) - 1;
    const quint64 others = before & ~masks.first;
    return others == 0 ? 0 : 64 - qCountLeadingZeroBits(others);
}

// The first of [p, end) that is a bracket or `first`; end when there is none.
const char* NextBracketOr(const char* p, const char* const end, const char first)
{
    while (p != end && !IsBracket(*p) && *p != first)
        ++p;
    return p;
}

} // namespace

LtaScanner::LtaScanner(qsizetype bufferSize) : m_bufferSize(qMax<qsizetype>(bufferSize, 1)) {}

bool LtaScanner::FindInFile(ModelFile& file, QByteArrayView pattern, qint16 limit)
{
    // Step 1. `place` counts from 0 here where the Part counts from 1.
    const char* const pat = pattern.data();
    const qsizetype length = pattern.size();
    qsizetype place = 0;
    int depth = 0;
    bool stop = false;
    bool overflow = false;
    bool lookedNear = false;

    // Steps 2.3 and 2.4 for one character read; false when the loop of step 2 ends with it.
    const auto count = [&](const char c) {
        // Step 2.3: every bracket counts, inside quotes or not, the pattern's own included.
        depth += int(c == '(') - int(c == ')');
        if (depth < limit || depth > DepthMax) [[unlikely]] {
            if (depth > DepthMax || depth < DepthMin)
                overflow = true; // design 5: the 16-bit depth would overflow
            else
                stop = true; // step 2.4
            return false;
        }
        return true;
    };
    // Steps 2.2 to 2.4.
    const auto take = [&](const char c) {
        // Step 2.2: on a mismatch back to the start, without trying this character again.
        place = (c == pat[place]) ? place + 1 : 0;
        return count(c) && place != length;
    };

    // Step 2, over the characters in the buffer; AtEnd refills it.
    while (place < length && !stop && !overflow && !file.AtEnd()) {
        const char* p = file.Pos();
        const char* const end = file.End();
        bool goOn = true;
        while (goOn && p != end) {
            if (place != 0) {
                // A match under way: the characters that go on with it and are no brackets
                // only move the place on (steps 2.2 and 2.3); the first other one is taken.
                const auto extends = [](char c, char wanted) {
                    return c == wanted && !IsBracket(c);
                };
                const qsizetype most = qMin(length - place, end - p);
                const char* const other = std::mismatch(p, p + most, pat + place, extends).first;
                place += other - p;
                p = other;
                if (place == length)
                    goOn = false;
                else if (p != end)
                    goOn = take(*p++);
            } else if (!lookedNear) {
                // At a search's start the next bracket or first character is mostly near
                // (the quote behind "(name", the ")" behind a node's name): it is first
                // looked for one character at a time, among the next 8.
                lookedNear = true;
                const char* const near = p + qMin<qptrdiff>(8, end - p);
                p = NextBracketOr(p, near, pat[0]);
                if (p != near)
                    goOn = take(*p++);
            } else if (end - p >= 64 && depth <= DepthMax - 64) {
                // A block of 64 characters (too few brackets to overflow the depth): those in
                // front of a possible match count only for their brackets; the next is taken.
                const BlockMasks masks(p, pattern);
                const int plain = PlainPrefix(masks, length);
                const quint64 taken = plain == 64 ? ~quint64(0) : (quint64(1) << plain) - 1;
                const char* const block = p;
                p += plain;
                for (quint64 brackets = (masks.open | masks.close) & taken; brackets != 0;
                     brackets &= brackets - 1) {
                    const int i = qCountTrailingZeroBits(brackets);
                    depth += int((masks.open >> i) & 1) * 2 - 1; // step 2.3; it cannot overflow
                    if (depth < limit) [[unlikely]] {
                        // Step 2.4 (or, for a limit of -32768, the depth leaves 16 bits).
                        (depth < DepthMin ? overflow : stop) = true;
                        p = block + i + 1;
                        goOn = false;
                        break;
                    }
                }
                if (goOn && plain < 64)
                    goOn = take(*p++);
            } else {
                p = NextBracketOr(p, end, pat[0]);
                if (p != end)
                    goOn = take(*p++);
            }
        }
        file.Advance(p);
    }
    if (overflow) {
        file.Fail(); // the scan fails
        return false;
    }

    // Step 3: a pattern ending on the file's last character counts as not found, and a
    // search stopped on the limit returns False, standing behind the bracket that stopped it.
    return !file.AtEnd() && !stop;
}

void LtaScanner::ReadUntil(ModelFile& file, char delimiter, LtaNameList& names)
{
    // Brackets count for nothing here; the file's end simply ends the text.
    QByteArray text; // only for a name that runs across the end of the buffer
    while (!file.AtEnd()) {
        const char* const p = file.Pos();
        const char* const end = file.End();
        const auto* hit = static_cast<const char*>(std::memchr(p, delimiter, size_t(end - p)));
        if (hit) {
            file.Advance(hit + 1); // the delimiter is consumed and left out
            if (text.isEmpty()) {
                names.append(QByteArrayView(p, hit));
            } else {
                text.append(p, hit - p);
                names.append(text);
            }
            return;
        }
        text.append(p, end - p);
        file.Advance(end);
    }
    names.append(text);
}

bool LtaScanner::ScanAnimations(ModelFile& file)
{
    // Part 2.3 step 2: the first pass, animations.
    for (;;) {
        if (!FindInFile(file, "(anim-binding", -2))
            return !file.Failed(); // the pass is over (or the depth overflowed)
        // Design 5: a 32768th name would overflow the 16-bit count.
        if (strAnimations.size() >= Limits::MaxRecords)
            return false;
        FindInFile(file, "(name", 0); // result not looked at
        if (file.Failed())
            return false;
        FindInFile(file, "\"", 0); // result not looked at
        if (file.Failed())
            return false;
        ReadUntil(file, '"', strAnimations);
        if (file.Failed())
            return false;
    }
}

bool LtaScanner::ScanNodes(ModelFile& file)
{
    // Part 2.3 step 4: the second pass, nodes.
    FindInFile(file, "(set-node-flags", 0); // result not looked at
    if (file.Failed())
        return false;
    for (;;) {
        if (!FindInFile(file, "(\"", -2))
            return !file.Failed(); // the pass is over (or the depth overflowed)
        if (strNodes.size() >= Limits::MaxRecords)
            return false; // design 5, as for the animations
        ReadUntil(file, '"', strNodes);
        if (file.Failed())
            return false;
    }
}

bool LtaScanner::ScanModel(const QString& strModelFile)
{
    // Design 6: each scan starts both arrays empty, so an earlier model's names never show.
    strAnimations.clear();
    strNodes.clear();

    // Step 1; design 4.5: a path that does not exist as given is matched without case.
    // No name is a file that cannot be opened (asked of QFile, it warns on stderr).
    if (strModelFile.isEmpty())
        return false;
    ModelFile file(mdlGeneral::ResolveFileCase(strModelFile), m_bufferSize);
    if (!file.Open())
        return false;

    if (!ScanAnimations(file))
        return false;

    // Step 3: close and open again, so the second pass starts at the first character
    // wherever the first ended; the order of the two lists in the file does not matter.
    if (!file.Open())
        return false;

    // Step 5: the file is closed by ModelFile's destructor here as on every other way out.
    return ScanNodes(file);
}
