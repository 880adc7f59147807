// SPDX-License-Identifier: GPL-3.0-or-later
#include "rig/LtaQuickPassage.h"

#include <QtAlgorithms>

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace LtaQuickPassage {

namespace {

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

// Passes over characters one at a time, from p up to end, in front of the first one that
// may start a match or end the search.
const char* PassOneByOne(const char* p, const char* const end, const char first, const int limit,
                         int& depth)
{
    while (p != end && *p != first && Count(*p, limit, depth))
        ++p;
    return p;
}

} // namespace

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

template const char* PassQuietBlocks<1>(const char*, const char*, const std::array<Search*, 1>&);
template const char* PassQuietBlocks<2>(const char*, const char*, const std::array<Search*, 2>&);

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

} // namespace LtaQuickPassage
