// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"
#include "qr/accelerated/Stages.h"

#include <cstring>

namespace om::controls::qr::accelerated {

namespace {

/// The conditions repeat after six positions and twelve lines, strips begin 31 positions apart.
constexpr int StripPhases = 6;

struct MaskPatterns
{
    MaskPattern strips[2][StripPhases];
    MaskPattern shared[StripPhases];

    constexpr MaskPatterns()
        : strips()
        , shared()
    {
        for (int byRows = 0; byRows < 2; ++byRows) {
            for (int strip = 0; strip < StripPhases; ++strip) {
                for (int line = 0; line < MaskPeriod; ++line) {
                    for (int mask = 0; mask < MaskCount; ++mask) {
                        std::uint32_t word = 0;
                        for (int bit = 0; bit < 32; ++bit) {
                            const int position = strip * StripWidth + bit;
                            const bool set = byRows ? maskCondition(mask, position, line)
                                                    : maskCondition(mask, line, position);
                            word = word << 1 | std::uint32_t(set);
                        }
                        strips[byRows][strip].lines[line][mask] = word;
                        shared[strip].lines[line][mask] |=
                            byRows ? word >> SharedShift << SharedShift : word >> SharedShift;
                    }
                }
            }
        }
    }
};

constexpr MaskPatterns patterns;

static_assert(MaximumStrips <= StripPhases, "one pattern for each strip");

/// The same by rows for one mask at a time: a word for each line of the period.
struct MaskLines
{
    alignas(16) std::uint32_t strips[StripPhases][MaskCount][MaskPeriod];

    constexpr MaskLines()
        : strips()
    {
        for (int strip = 0; strip < StripPhases; ++strip) {
            for (int mask = 0; mask < MaskCount; ++mask) {
                for (int line = 0; line < MaskPeriod; ++line) {
                    strips[strip][mask][line] = patterns.strips[true][strip].lines[line][mask];
                }
            }
        }
    }
};

constexpr MaskLines maskLines;

typedef std::uint32_t Words __attribute__((vector_size(16)));

struct AllFormatLines
{
    FormatLines boards[LevelCount][2];

    constexpr AllFormatLines()
        : boards()
    {
        for (int level = 0; level < LevelCount; ++level) {
            for (int mask = 0; mask < MaskCount; ++mask) {
                const int information = formatInformation(level, mask);
                for (int bit = 0; bit < FormatBits; ++bit) {
                    if (information >> bit & 1) {
                        addBit(boards[level], mask, bit);
                    }
                }
            }
        }
    }

private:
    static constexpr std::uint32_t at(int place) { return 0x80000000u >> place; }

    static constexpr void addBit(FormatLines (&board)[2], int mask, int bit)
    {
        // The size does not matter: the first of the places lies in the upper left corner.
        const Place near = formatPlaces(bit, MaximumSize)[0];
        board[0].near[near.x][mask] |= at(near.y);
        board[1].near[near.y][mask] |= at(near.x);
        if (bit < 8) { // From the right, below the upper right finder.
            board[0].far[7 - bit][mask] |= at(FormatPlace);
            board[1].across[mask] |= at(7 - bit);
        } else { // Downwards, beside the lower left finder.
            board[0].across[mask] |= at(bit - 7);
            board[1].far[bit - 7][mask] |= at(FormatPlace);
        }
    }
};

constexpr AllFormatLines allFormatLines;

} // namespace

const MaskPattern &maskPattern(bool byRows, int strip)
{
    return patterns.strips[byRows][strip];
}

const MaskPattern &sharedMaskPattern(int strip)
{
    return patterns.shared[strip];
}

const FormatLines &formatLines(int level, bool byRows)
{
    return allFormatLines.boards[level][byRows];
}

int chooseMask(int size, const MaskFeatures &features)
{
    int penalties[MaskCount];
    for (int mask = 0; mask < MaskCount; ++mask) {
        penalties[mask] = penalty(
            size,
            {static_cast<int>(features.runs[mask]), static_cast<int>(features.blocks[mask]),
             static_cast<int>(features.finderLike[mask]), static_cast<int>(features.dark[mask])});
    }
    return lowestPenalty(penalties);
}

void applyMask(int level, int mask, int size, Boards &boards)
{
    const int strips = stripsOf(size);
    for (int strip = 0; strip < strips; ++strip) {
        const std::uint32_t *conditions = maskLines.strips[strip][mask];
        int phase = 0;
        for (int line = 0; line < size; line += 4) {
            Words rows;
            Words free;
            Words condition;
            std::memcpy(&rows, boards.rows.lines[strip] + line, sizeof rows);
            std::memcpy(&free, boards.free.lines[strip] + line, sizeof free);
            std::memcpy(&condition, conditions + phase, sizeof condition);
            rows ^= condition & free;
            std::memcpy(boards.rows.lines[strip] + line, &rows, sizeof rows);
            phase = phase + 4 < MaskPeriod ? phase + 4 : 0;
        }
    }

    const FormatLines &format = formatLines(level, true);
    for (int line = 0; line < FormatNear; ++line) {
        boards.rows.lines[0][line] |= format.near[line][mask];
    }
    for (int line = 0; line < FormatFar; ++line) {
        boards.rows.lines[0][size - FormatFar + line] |= format.far[line][mask];
    }
    for (int strip = 0; strip < strips; ++strip) {
        const int place = size - FormatFar - strip * StripWidth;
        if (place > -FormatFar && place < 32) {
            boards.rows.lines[strip][FormatPlace] |=
                place < 0 ? format.across[mask] << -place : format.across[mask] >> place;
        }
    }
}

void pack(int size, const Strips &rows, unsigned char *result)
{
    constexpr int TwoStrips = 2 * StripWidth;
    const int strips = stripsOf(size);
    std::uint64_t pending = 0; // The next bits of the result, the first in the most significant.
    int count = 0;
    for (int row = 0; row < size; ++row) {
        for (int strip = 0; strip < strips; strip += 2) {
            // Two strips at a time, without the bit that each has of the next. What lies behind the
            // symbol is light.
            const std::uint64_t first = rows.lines[strip][row] >> 1;
            const std::uint64_t second = strip + 1 < strips ? rows.lines[strip + 1][row] >> 1 : 0;
            const std::uint64_t bits = first << 33 | second << 2;
            const int left = size - strip * StripWidth;
            pending |= bits >> count;
            const int total = count + (left < TwoStrips ? left : TwoStrips);
            if (total < 64) {
                count = total;
                continue;
            }
            const std::uint64_t full = __builtin_bswap64(pending);
            std::memcpy(result, &full, sizeof full);
            result += sizeof full;
            pending = bits << (64 - count); // Some was pending: two strips alone are less than 64.
            count = total - 64;
        }
    }
    for (; count > 0; count -= 8, pending <<= 8) {
        *result++ = static_cast<unsigned char>(pending >> 56);
    }
}

} // namespace om::controls::qr::accelerated
