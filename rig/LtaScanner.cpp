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
class LtaScanner::ModelFile
{
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

// Any character that is neither a bracket nor the pattern's first, read while the place is 1,
// changes nothing in FindInFile: the place stays 1 and the depth stays. So the search looks
// only at the brackets and first characters, and at the characters behind them while a match
// is under way; the others it passes over, sixteen at a time where the processor allows.

// Bit i set where block[i] (i < 64) is "(", ")" or `first`.
quint64 EventMask64(const char* const block, const char first)
{
#if defined(__SSE2__)
    const __m128i open = _mm_set1_epi8('(');
    const __m128i close = _mm_set1_epi8(')');
    const __m128i start = _mm_set1_epi8(first);
    quint64 mask = 0;
    for (int i = 0; i < 64; i += 16) {
        const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
        const __m128i hits = _mm_or_si128(
            _mm_or_si128(_mm_cmpeq_epi8(chars, open), _mm_cmpeq_epi8(chars, close)),
            _mm_cmpeq_epi8(chars, start));
        mask |= quint64(quint32(_mm_movemask_epi8(hits))) << i;
    }
    return mask;
#else
    quint64 mask = 0;
    for (int i = 0; i < 64; ++i) {
        const char c = block[i];
        if (c == '(' || c == ')' || c == first)
            mask |= quint64(1) << i;
    }
    return mask;
#endif
}

// The first of [p, end) that is a bracket or `first`; end when there is none.
const char* NextBracketOr(const char* p, const char* const end, const char first)
{
    while (p != end && *p != '(' && *p != ')' && *p != first)
        ++p;
    return p;
}

} // namespace

LtaScanner::LtaScanner(qsizetype bufferSize)
    : m_bufferSize(qMax<qsizetype>(bufferSize, 1))
{
}

bool LtaScanner::FindInFile(ModelFile& file, QByteArrayView pattern, qint16 limit)
{
    // Step 1. `place` counts from 0 here where the Part counts from 1.
    const char* const pat = pattern.data();
    const qsizetype length = pattern.size();
    qsizetype place = 0;
    int depth = 0;
    bool stop = false;
    bool overflow = false;

    // Steps 2.2 to 2.4 for one character read; false when the loop of step 2 ends with it.
    const auto take = [&](const char c) {
        // Step 2.2: on a mismatch back to the start, without trying this character again.
        place = (c == pat[place]) ? place + 1 : 0;
        // Step 2.3: every bracket counts, inside quotes or not, the pattern's own included.
        depth += int(c == '(') - int(c == ')');
        if (depth < limit || depth > DepthMax) [[unlikely]] {
            if (depth > DepthMax || depth < DepthMin)
                overflow = true; // design 5: the 16-bit depth would overflow
            else
                stop = true; // step 2.4
            return false;
        }
        return place != length;
    };

    // Step 2, over the characters in the buffer; AtEnd refills it.
    while (place < length && !stop && !overflow && !file.AtEnd()) {
        const char* p = file.Pos();
        const char* const end = file.End();
        bool goOn = true;
        while (goOn && p != end) {
            if (place != 0) {
                goOn = take(*p++);
            } else if (end - p < 64) {
                p = NextBracketOr(p, end, pat[0]);
                if (p != end)
                    goOn = take(*p++);
            } else {
                // A block of 64 characters: only those marked in `events` need a look, and
                // those behind them while a match is under way.
                const char* const block = p;
                p += 64;
                for (quint64 events = EventMask64(block, pat[0]); events != 0;) {
                    const char* q = block + qCountTrailingZeroBits(events);
                    do {
                        goOn = take(*q++);
                    } while (goOn && place != 0 && q != p);
                    if (!goOn || place != 0) {
                        p = q; // the search ended here, or a match runs on past the block
                        break;
                    }
                    const qptrdiff taken = q - block;
                    events = taken == 64 ? 0 : events & (~quint64(0) << taken);
                }
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
