// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace om::controls::qr {

namespace {

void placeModule(Symbol &symbol, int x, int y, bool dark)
{
    symbol.function.set(x, y);
    if (dark) {
        symbol.columns.set(x, y);
    }
}

/// A finder pattern of 7 x 7 modules around a center, with the light separator around it.
void placeFinderPattern(Symbol &symbol, int centerX, int centerY)
{
    for (int x = std::max(centerX - 4, 0); x <= std::min(centerX + 4, symbol.size - 1); ++x) {
        for (int y = std::max(centerY - 4, 0); y <= std::min(centerY + 4, symbol.size - 1); ++y) {
            const int ring = std::max(std::abs(x - centerX), std::abs(y - centerY));
            placeModule(symbol, x, y, ring != 2 && ring != 4);
        }
    }
}

/// The timing patterns between the separators: alternating modules, the even ones dark.
void placeTimingPatterns(Symbol &symbol)
{
    for (int place = 8; place < symbol.size - 8; ++place) {
        placeModule(symbol, TimingLine, place, place % 2 == 0);
        placeModule(symbol, place, TimingLine, place % 2 == 0);
    }
}

void placeAlignmentPattern(Symbol &symbol, int centerX, int centerY)
{
    for (int x = -2; x <= 2; ++x) {
        for (int y = -2; y <= 2; ++y) {
            const int ring = std::max(std::abs(x), std::abs(y));
            placeModule(symbol, centerX + x, centerY + y, ring != 1);
        }
    }
}

/// Alignment patterns at all pairs of coordinates, of which 6 is the first, but for the three pairs
/// that lie in finder patterns.
void placeAlignmentPatterns(const VersionRow &version, Symbol &symbol)
{
    const int last = version.alignmentCount;
    const auto coordinate = [&](int index) {
        return index == 0 ? TimingLine : int(version.alignments[index - 1]);
    };
    for (int across = 0; across <= last; ++across) {
        for (int down = 0; down <= last; ++down) {
            const bool upperLeft = across == 0 && down == 0;
            const bool upperRight = across == last && down == 0;
            const bool lowerLeft = across == 0 && down == last;
            if (!upperLeft && !upperRight && !lowerLeft) {
                placeAlignmentPattern(symbol, coordinate(across), coordinate(down));
            }
        }
    }
}

/// The version information of versions 7 and above, in threes, the lowest bit first: along the
/// columns above the lower left finder pattern, along the rows to the left of the upper right one.
void placeVersionInformation(int version, Symbol &symbol)
{
    if (version < 7) {
        return;
    }
    const int information = versionInformation(version);
    const int far = symbol.size - 11;
    for (int bit = 0; bit < 18; ++bit) {
        const bool dark = information >> bit & 1;
        placeModule(symbol, bit / 3, far + bit % 3, dark);
        placeModule(symbol, far + bit % 3, bit / 3, dark);
    }
}

/// The area of the format information, light for now, and the dark module.
void reserveFormatInformation(Symbol &symbol)
{
    for (int bit = 0; bit < FormatBits; ++bit) {
        for (const Place &place : formatPlaces(bit, symbol.size)) {
            placeModule(symbol, place.x, place.y, false);
        }
    }
    placeModule(symbol, 8, symbol.size - 8, true);
}

} // namespace

void BitMatrix::clear(int size)
{
    const std::size_t lines = static_cast<std::size_t>(size) + 2 * Margin;
    for (int word = 0; word < wordsOf(size); ++word) {
        std::memset(words[word], 0, lines * sizeof words[word][0]);
    }
}

void placeFunctionPatterns(int version, Symbol &symbol)
{
    symbol.size = sizeOf(version);
    symbol.function.clear(symbol.size);
    symbol.columns.clear(symbol.size);

    const int far = symbol.size - 4;
    placeFinderPattern(symbol, 3, 3);
    placeFinderPattern(symbol, far, 3);
    placeFinderPattern(symbol, 3, far);
    placeTimingPatterns(symbol);
    placeAlignmentPatterns(versionTable[version], symbol);
    placeVersionInformation(version, symbol);
    reserveFormatInformation(symbol);
}

} // namespace om::controls::qr
