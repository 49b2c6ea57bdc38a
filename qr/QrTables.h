// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

namespace om::controls::qr {

constexpr int MaximumVersion = 40;
constexpr int MaximumSize = 4 * MaximumVersion + 17;
constexpr int MaximumCodewords = 3706;
constexpr int MaximumDataCodewords = 2956;
constexpr int MaximumAlignments = 6;
constexpr int LevelCount = 4; ///< L, M, Q, H: the index order of every per-level column.
constexpr int MaskCount = 8;
constexpr int FormatBits = 15;
constexpr int TimingLine = 6; ///< The row and the column of the timing patterns.

/// Blocks of one length: how many, and the codewords of each, all of them and those of data.
struct BlockGroup
{
    std::uint8_t blocks;
    std::uint8_t total;
    std::uint8_t data;
};

/// What ISO/IEC 18004 fixes for one version.
struct VersionRow
{
    std::uint16_t version;
    std::uint16_t total;
    std::uint16_t data[LevelCount];
    std::uint8_t alignmentCount;
    std::uint8_t alignments[MaximumAlignments]; ///< Coordinates other than 6, ascending.
    BlockGroup groups[LevelCount][2]; ///< The second is empty where all are alike.

    int blockCount(int level) const { return groups[level][0].blocks + groups[level][1].blocks; }
    int correction(int level) const { return groups[level][0].total - groups[level][0].data; }
};

/// One row per version; row 0 is all zeros.
extern const VersionRow versionTable[MaximumVersion + 1];

enum Mode {
    Numeric,
    Alphanumeric,
    EightBit,
    Kanji
};

/// The width of the character count, by version group (1-9, 10-26, 27-40) and mode.
extern const std::uint8_t countWidths[3][4];

/// The \a value of \a valueBits bits followed by the check bits of a BCH code: the remainder of
/// its division by a \a generator of the degree \a checkBits.
constexpr int bchCode(int value, int valueBits, int generator, int checkBits)
{
    int rest = value << checkBits;
    for (int bit = valueBits - 1; bit >= 0; --bit) {
        if (rest >> (bit + checkBits) & 1) {
            rest ^= generator << bit;
        }
    }
    return value << checkBits | rest;
}

/// The format information of a level and a mask, ready to be placed: BCH(15,5), masked.
constexpr int formatInformation(int level, int mask)
{
    constexpr int levelCodes[LevelCount] = {1, 0, 3, 2};
    return bchCode(levelCodes[level] << 3 | mask, 5, 0x537, 10) ^ 0x5412;
}

struct Place
{
    int x;
    int y;
};

/// Where a bit of the format information stands, 0 being the lowest, in its two copies: one around
/// the upper left finder pattern, stepping over the timing patterns, the other below the upper
/// right one from the right and then downwards beside the lower left one.
constexpr std::array<Place, 2> formatPlaces(int bit, int size)
{
    if (bit < 8) {
        return {{{8, bit < 6 ? bit : bit + 1}, {size - 1 - bit, 8}}};
    }
    return {{{bit == 8 ? 7 : 14 - bit, 8}, {8, size - 15 + bit}}};
}

/// The version information of versions 7 to 40: BCH(18,6).
constexpr int versionInformation(int version)
{
    return bchCode(version, 6, 0x1f25, 12);
}

constexpr int sizeOf(int version)
{
    return 4 * version + 17;
}

/// The version group that decides the width of the character count. 0 belongs to the first.
constexpr int groupOf(int version)
{
    return version < 10 ? 0 : version < 27 ? 1 : 2;
}

/// Whether \a mask, 0 to 7, inverts the data module in this column and row.
constexpr bool maskCondition(int mask, int x, int y)
{
    switch (mask) {
    case 0:
        return (x + y) % 2 == 0;
    case 1:
        return y % 2 == 0;
    case 2:
        return x % 3 == 0;
    case 3:
        return (x + y) % 3 == 0;
    case 4:
        return (y / 2 + x / 3) % 2 == 0;
    case 5:
        return x * y % 2 + x * y % 3 == 0;
    case 6:
        return (x * y % 2 + x * y % 3) % 2 == 0;
    default:
        return ((x + y) % 2 + x * y % 3) % 2 == 0;
    }
}

/// All conditions repeat after twelve lines.
constexpr int MaskPeriod = 12;

} // namespace om::controls::qr
