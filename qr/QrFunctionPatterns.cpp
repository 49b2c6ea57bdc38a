// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <cstring>

namespace om::controls::qr {

namespace {

constexpr int TimingLine = 6;
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
    for (int index = 0; index < 3; ++index)
        board.words[index][column] |= rowsOfWord(begin, end, index) & pattern;
}

/// Adds the low \a count bits, the first of them in \a row.
void addBits(std::uint64_t (&words)[Columns::Words], int row, int count, std::uint64_t bits)
{
    const std::uint64_t aligned = bits << (64 - count);
    words[row >> 6] |= aligned >> (row & 63);
    words[(row >> 6) + 1] |= aligned << 1 << (63 - (row & 63));
}

void addBits(Columns &board, int column, int row, int count, std::uint64_t bits)
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
    for (int column = far - 1; column < size; ++column)
        boards.function.words[0][column] |= 0x1ffull << 55;
    addBits(boards.modules, FinderSize + 1, far - 1, 1, 1);
}

void placeTiming(int size, Boards &boards)
{
    constexpr std::uint64_t timingRow = 1ull << (63 - TimingLine);
    constexpr std::uint64_t evenRows = 0xaaaaaaaaaaaaaaaaull;
    const int begin = FinderSize + 1;
    const int end = size - FinderSize - 1;
    for (int column = begin; column < end; ++column)
        boards.function.words[0][column] |= timingRow;
    for (int column = begin; column < end; column += 2)
        boards.modules.words[0][column] |= timingRow;
    addRows(boards.function, TimingLine, begin, end);
    addRows(boards.modules, TimingLine, begin, end, evenRows);
}

void placeAlignments(const VersionRow &version, Boards &boards)
{
    constexpr std::uint8_t pattern[5] = {0x1f, 0x11, 0x15, 0x11, 0x1f};
    const int count = version.alignmentCount;
    if (!count)
        return;
    const int last = version.alignments[count - 1];

    // Every column of patterns has them in the same rows, but for those that finders take.
    for (int across = -1; across < count; ++across) {
        const int x = across < 0 ? TimingLine : version.alignments[across];
        std::uint64_t area[Columns::Words] = {};
        std::uint64_t dark[3][Columns::Words] = {};
        for (int down = -1; down < count; ++down) {
            const int y = down < 0 ? TimingLine : version.alignments[down];
            if ((x == TimingLine && (y == TimingLine || y == last))
                || (x == last && y == TimingLine))
                continue;
            addBits(area, y - 2, 5, 0x1f);
            for (int column = 0; column < 3; ++column)
                addBits(dark[column], y - 2, 5, pattern[column]);
        }
        for (int word = 0; word < 3; ++word) {
            for (int column = 0; column < 5; ++column) {
                boards.function.words[word][x - 2 + column] |= area[word];
                boards.modules.words[word][x - 2 + column] |=
                    dark[column < 3 ? column : 4 - column][word];
            }
        }
    }
}

void placeVersionInformation(int version, int size, Boards &boards)
{
    if (version < 7)
        return;
    const unsigned information = versionInformation(version);
    const int far = size - 11;
    for (int bit = 0; bit < 18; ++bit) {
        const unsigned dark = information >> bit & 1;
        addBits(boards.modules, bit / 3, far + bit % 3, 1, dark);
        boards.modules.words[0][far + bit % 3] |= std::uint64_t(dark) << (63 - bit / 3);
    }
    for (int column = 0; column < 6; ++column)
        addBits(boards.function, column, far, 3, 7);
    for (int column = far; column < far + 3; ++column)
        boards.function.words[0][column] |= 0x3full << 58;
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

} // namespace om::controls::qr
