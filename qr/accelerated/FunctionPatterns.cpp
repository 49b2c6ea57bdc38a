// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/accelerated/Stages.h"

#include <cstring>

namespace om::controls::qr::accelerated {

namespace {

constexpr int FinderSize = 7;

/// The part of a word, \a index of its line, whose rows lie from \a begin up to before \a end.
std::uint64_t rowsOfWord(int begin, int end, int index)
{
    const int first = begin - 64 * index;
    const int last = end - 64 * index;
    const std::uint64_t from = first <= 0 ? ~0ull : first >= 64 ? 0 : ~0ull >> first;
    const std::uint64_t behind = last <= 0 ? ~0ull : last >= 64 ? 0 : ~0ull >> last;
    return from & ~behind;
}

void addRows(Columns &board, int column, int begin, int end, std::uint64_t pattern = ~0ull)
{
    for (int index = 0; index < 3; ++index) {
        board.words[index][column] |= rowsOfWord(begin, end, index) & pattern;
    }
}

/// Adds the low \a count bits, the first of them in \a row.
inline void addBits(std::uint64_t (&words)[Columns::Words], int row, int count, std::uint64_t bits)
{
    const std::uint64_t aligned = bits << (64 - count);
    words[row >> 6] |= aligned >> (row & 63);
    words[(row >> 6) + 1] |= aligned << 1 << (63 - (row & 63));
}

inline void addBits(Columns &board, int column, int row, int count, std::uint64_t bits)
{
    const std::uint64_t aligned = bits << (64 - count);
    board.words[row >> 6][column] |= aligned >> (row & 63);
    board.words[(row >> 6) + 1][column] |= aligned << 1 << (63 - (row & 63));
}

void placeFinders(int size, Boards &boards)
{
    constexpr std::uint8_t pattern[FinderSize] = {0x7f, 0x41, 0x5d, 0x5d, 0x5d, 0x41, 0x7f};
    const int far = size - FinderSize;
    for (int column = 0; column < FinderSize; ++column) {
        boards.modules.words[0][column] |= std::uint64_t(pattern[column]) << 57;
        addBits(boards.modules, column, far, FinderSize, pattern[column]);
        boards.modules.words[0][far + column] |= std::uint64_t(pattern[column]) << 57;
    }
    // The separators, and next to them the format information with the dark module.
    for (int column = 0; column < FinderSize + 2; ++column) {
        boards.function.words[0][column] |= 0x1ffull << 55;
        addBits(boards.function, column, far - 1, FinderSize + 1, 0xff);
    }
    for (int column = far - 1; column < size; ++column) {
        boards.function.words[0][column] |= 0x1ffull << 55;
    }
    addBits(boards.modules, FinderSize + 1, far - 1, 1, 1);
}

void placeTiming(int size, Boards &boards)
{
    constexpr std::uint64_t timingRow = 1ull << (63 - TimingLine);
    constexpr std::uint64_t evenRows = 0xaaaaaaaaaaaaaaaaull;
    const int begin = FinderSize + 1;
    const int end = size - FinderSize - 1;
    for (int column = begin; column < end; ++column) {
        boards.function.words[0][column] |= timingRow;
    }
    for (int column = begin; column < end; column += 2) {
        boards.modules.words[0][column] |= timingRow;
    }
    addRows(boards.function, TimingLine, begin, end);
    addRows(boards.modules, TimingLine, begin, end, evenRows);
}

/// A column of alignment patterns, five modules wide: what is in its rows.
struct AlignmentColumn
{
    std::uint64_t whole[Columns::Words] = {}; ///< All modules: dark in the first and last column.
    std::uint64_t inside[Columns::Words] = {}; ///< The dark ones in the columns next to those
    std::uint64_t middle[Columns::Words] = {}; ///< and in the one between.

    /// Adds a pattern around row \a y.
    void add(int y)
    {
        addBits(whole, y - 2, 5, 0x1f);
        addBits(inside, y - 2, 5, 0x11);
        addBits(middle, y - 2, 5, 0x15);
    }

    /// Adds the column around column \a x to the boards.
    void place(int words, int x, Boards &boards) const
    {
        for (int word = 0; word < words; ++word) {
            std::uint64_t *function = boards.function.words[word] + x;
            std::uint64_t *modules = boards.modules.words[word] + x;
            for (int column = -2; column <= 2; ++column) {
                function[column] |= whole[word];
            }
            modules[-2] |= whole[word];
            modules[-1] |= inside[word];
            modules[0] |= middle[word];
            modules[1] |= inside[word];
            modules[2] |= whole[word];
        }
    }
};

void placeAlignments(const VersionRow &version, Boards &boards)
{
    const int count = version.alignmentCount;
    if (!count) {
        return;
    }
    const int words = (sizeOf(version.version) + 63) / 64;
    const int last = version.alignments[count - 1];

    // All columns have the patterns in the same rows, but for those that finders take: in the
    // first column both ends, in the last one the upper.
    AlignmentColumn column;
    for (int down = 0; down < count - 1; ++down) {
        column.add(version.alignments[down]);
    }
    if (count > 1) {
        column.place(words, TimingLine, boards);
    }
    column.add(last);
    column.place(words, last, boards);
    if (count > 1) {
        column.add(TimingLine);
    }
    for (int across = 0; across < count - 1; ++across) {
        column.place(words, version.alignments[across], boards);
    }
}

void placeVersionInformation(int version, int size, Boards &boards)
{
    if (version < 7) {
        return;
    }
    // In threes: along the columns beside the lower left finder from its top, along the rows beside
    // the upper right one from its left, the lowest bit first.
    const unsigned information = versionInformation(version);
    const int far = size - 11;
    for (int line = 0; line < 6; ++line) {
        const unsigned three = information >> 3 * line;
        addBits(boards.function, line, far, 3, 7);
        addBits(boards.modules, line, far, 3, (three & 1) << 2 | (three & 2) | (three & 4) >> 2);
        for (int column = 0; column < 3; ++column) {
            const std::uint64_t dark = three >> column & 1;
            boards.modules.words[0][far + column] |= dark << (63 - line);
        }
    }
    for (int column = far; column < far + 3; ++column) {
        boards.function.words[0][column] |= 0x3full << 58;
    }
}

} // namespace

void clearBoards(int size, Boards &boards)
{
    const std::size_t bytes = (StripWidth * stripsOf(size) + 1) * sizeof boards.modules.words[0][0];
    for (int word = 0; word <= size / 64 + 1; ++word) {
        std::memset(boards.function.words[word], 0, bytes);
        std::memset(boards.modules.words[word], 0, bytes);
    }
}

void placeFunctionPatterns(int version, Boards &boards)
{
    const int size = sizeOf(version);
    placeFinders(size, boards);
    placeTiming(size, boards);
    placeAlignments(versionTable[version], boards);
    placeVersionInformation(version, size, boards);
}

} // namespace om::controls::qr::accelerated
