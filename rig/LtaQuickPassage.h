// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The scanner's quick passage over the characters of a model that cannot matter: keyframe data
// between the lists, text between two names. It finds, many characters at a time, the next
// character that may start a match of a search's pattern or end the search by its brackets,
// and counts the brackets it passes; the scan then takes that character one at a time, as
// the rules say.

#include <QByteArrayView>
#include <QtGlobal>

#include <array>
#include <limits>

namespace LtaQuickPassage {

constexpr int DepthMax = std::numeric_limits<qint16>::max();
constexpr int DepthMin = std::numeric_limits<qint16>::min();

// The passage looks at 64 characters at a time through bit masks.
constexpr int BlockSize = 64;

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
bool OpensWithABracket(const Search& search);

// Passes over the blocks, from p on while 65 characters are at hand, that hold no possible
// start of a match and too few brackets to end a search, counting their brackets at once for
// each of the searches (which have no match under way and open with a bracket); stops in
// front of the first other block.
template <size_t N>
const char* PassQuietBlocks(const char* p, const char* end, const std::array<Search*, N>& searches);
extern template const char* PassQuietBlocks<1>(const char*, const char*,
                                               const std::array<Search*, 1>&);
extern template const char* PassQuietBlocks<2>(const char*, const char*,
                                               const std::array<Search*, 2>&);

// How many of the window's characters, taken with no match under way, would change nothing
// but the depth and could not end the search. Their brackets are added to depth; the
// character behind them is left to be taken on its own.
qsizetype PassOver(QByteArrayView window, QByteArrayView pattern, int limit, int& depth);

} // namespace LtaQuickPassage
