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

void addRows(Line &line, int begin, int end, std::uint64_t pattern = ~0ull)
{
    for (int index = 0; index < 3; ++index)
        line.words[index] |= rowsOfWord(begin, end, index) & pattern;
}

/// Adds the low \a count bits, the first of them in \a row.
void addBits(Line &line, int row, int count, std::uint64_t bits)
{
    const std::uint64_t aligned = bits << (64 - count);
    line.words[row >> 6] |= aligned >> (row & 63);
    line.words[(row >> 6) + 1] |= aligned << 1 << (63 - (row & 63));
}

void placeFinders(int size, Boards &boards)
{
    constexpr std::uint8_t pattern[FinderSize] = {0x7f, 0x41, 0x5d, 0x5d, 0x5d, 0x41, 0x7f};
    const int far = size - FinderSize;
    for (int column = 0; column < FinderSize; ++column) {
        boards.modules[column].words[0] |= std::uint64_t(pattern[column]) << 57;
        addBits(boards.modules[column], far, FinderSize, pattern[column]);
        boards.modules[far + column].words[0] |= std::uint64_t(pattern[column]) << 57;
    }
    // The separators, and next to them the format information with the dark module.
    for (int column = 0; column < FinderSize + 2; ++column) {
        boards.function[column].words[0] |= 0x1ffull << 55;
        addBits(boards.function[column], far - 1, FinderSize + 1, 0xff);
    }
    for (int column = far - 1; column < size; ++column)
        boards.function[column].words[0] |= 0x1ffull << 55;
    addBits(boards.modules[FinderSize + 1], far - 1, 1, 1);
}

void placeTiming(int size, Boards &boards)
{
    constexpr std::uint64_t timingRow = 1ull << (63 - TimingLine);
    constexpr std::uint64_t evenRows = 0xaaaaaaaaaaaaaaaaull;
    const int begin = FinderSize + 1;
    const int end = size - FinderSize - 1;
    for (int column = begin; column < end; ++column)
        boards.function[column].words[0] |= timingRow;
    for (int column = begin; column < end; column += 2)
        boards.modules[column].words[0] |= timingRow;
    addRows(boards.function[TimingLine], begin, end);
    addRows(boards.modules[TimingLine], begin, end, evenRows);
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
        Line area = {};
        Line dark[3] = {};
        for (int down = -1; down < count; ++down) {
            const int y = down < 0 ? TimingLine : version.alignments[down];
            if ((x == TimingLine && (y == TimingLine || y == last))
                || (x == last && y == TimingLine))
                continue;
            addBits(area, y - 2, 5, 0x1f);
            for (int column = 0; column < 3; ++column)
                addBits(dark[column], y - 2, 5, pattern[column]);
        }
        for (int column = 0; column < 5; ++column) {
            const Line &part = dark[column < 3 ? column : 4 - column];
            for (int word = 0; word < 3; ++word) {
                boards.function[x - 2 + column].words[word] |= area.words[word];
                boards.modules[x - 2 + column].words[word] |= part.words[word];
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
        addBits(boards.modules[bit / 3], far + bit % 3, 1, dark);
        boards.modules[far + bit % 3].words[0] |= std::uint64_t(dark) << (63 - bit / 3);
    }
    for (int column = 0; column < 6; ++column)
        addBits(boards.function[column], far, 3, 7);
    for (int column = far; column < far + 3; ++column)
        boards.function[column].words[0] |= 0x3full << 58;
}

} // namespace

void clearBoards(int size, Boards &boards)
{
    const int lines = StripWidth * stripsOf(size) + 1;
    std::memset(boards.function, 0, lines * sizeof(Line));
    std::memset(boards.modules, 0, lines * sizeof(Line));
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
