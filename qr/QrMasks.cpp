// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <cstring>

namespace om::controls::qr {

namespace {

/// The conditions repeat after six positions and twelve lines, strips begin 31 positions apart.
constexpr int StripPhases = 6;

struct MaskPatterns
{
    MaskPattern strips[2][StripPhases];

    constexpr MaskPatterns()
        : strips()
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
                    }
                }
            }
        }
    }
};

constexpr MaskPatterns patterns;

static_assert(MaximumStrips <= StripPhases, "one pattern for each strip");

struct AllFormatLanes
{
    FormatLanes levels[LevelCount];

    constexpr AllFormatLanes()
        : levels()
    {
        for (int level = 0; level < LevelCount; ++level) {
            for (int mask = 0; mask < MaskCount; ++mask) {
                const int information = formatInformation(level, mask);
                for (int bit = 0; bit < FormatBits; ++bit)
                    levels[level].bits[bit][mask] = information >> bit & 1 ? ~0u : 0u;
            }
        }
    }
};

constexpr AllFormatLanes allFormatLanes;

} // namespace

const MaskPattern &maskPattern(bool byRows, int strip)
{
    return patterns.strips[byRows][strip];
}

const FormatLanes &formatLanes(int level)
{
    return allFormatLanes.levels[level];
}

void formatModules(int size, bool byRows, FormatModule (&modules)[FormatModules])
{
    constexpr int Place = 8; // Both copies lie in this column and this row.
    int count = 0;
    const auto add = [&](int x, int y, int bit) {
        modules[count++] = {static_cast<std::uint8_t>(byRows ? y : x),
                            static_cast<std::uint8_t>(byRows ? x : y),
                            static_cast<std::uint8_t>(bit)};
    };
    for (int bit = 0; bit < FormatBits; ++bit) {
        // Around the finder in the upper left corner, stepping over the timing patterns.
        if (bit < 8)
            add(Place, bit < 6 ? bit : bit + 1, bit);
        else
            add(bit == 8 ? 7 : 14 - bit, Place, bit);
        // Below the upper right finder, then beside the lower left one.
        if (bit < 8)
            add(size - 1 - bit, Place, bit);
        else
            add(Place, size - 15 + bit, bit);
    }
}

int penalty(int size, const Features &features, int mask)
{
    const int percent = static_cast<int>(100 * features.dark[mask]) / (size * size);
    const int imbalance = (percent < 50 ? 50 - percent : percent - 50) / 5;
    return static_cast<int>(features.runs[mask] + 3 * features.blocks[mask]
                            + 40 * features.finderLike[mask])
        + 10 * imbalance;
}

int chooseMask(int size, const Features &features)
{
    int best = 0;
    int lowest = penalty(size, features, 0);
    for (int mask = 1; mask < MaskCount; ++mask) {
        const int points = penalty(size, features, mask);
        if (points < lowest) {
            lowest = points;
            best = mask;
        }
    }
    return best;
}

void applyMask(int level, int mask, int size, Boards &boards)
{
    const int strips = stripsOf(size);
    for (int strip = 0; strip < strips; ++strip) {
        const MaskPattern &pattern = maskPattern(true, strip);
        std::uint32_t *rows = boards.rows.lines[strip];
        const std::uint32_t *free = boards.free.lines[strip];
        for (int base = 0; base < size; base += MaskPeriod) {
            for (int line = 0; line < MaskPeriod && base + line < size; ++line)
                rows[base + line] ^= pattern.lines[line][mask] & free[base + line];
        }
    }

    const int information = formatInformation(level, mask);
    FormatModule modules[FormatModules];
    formatModules(size, true, modules);
    for (const FormatModule &module : modules) {
        const int strip = module.position / StripWidth;
        const int bit = 31 - (module.position - strip * StripWidth);
        const std::uint32_t dark = information >> module.bit & 1;
        boards.rows.lines[strip][module.line] |= dark << bit;
        if (bit == 31 && strip > 0) // Also the last one of the strip before.
            boards.rows.lines[strip - 1][module.line] |= dark;
    }
}

void pack(int size, const Strips &rows, unsigned char *result)
{
    const int strips = stripsOf(size);
    const int lastWidth = size - (strips - 1) * StripWidth;
    std::uint64_t pending = 0; // The next bits of the result, the first in the most significant.
    int count = 0;
    for (int row = 0; row < size; ++row) {
        for (int strip = 0; strip < strips; ++strip) {
            const int width = strip + 1 < strips ? StripWidth : lastWidth;
            const std::uint64_t bits = rows.lines[strip][row] >> (32 - width);
            pending |= bits << (64 - count - width);
            count += width;
            if (count >= 32) {
                const std::uint32_t full = __builtin_bswap32(pending >> 32);
                std::memcpy(result, &full, sizeof full);
                result += sizeof full;
                pending <<= 32;
                count -= 32;
            }
        }
    }
    for (; count > 0; count -= 8, pending <<= 8)
        *result++ = static_cast<unsigned char>(pending >> 56);
}

} // namespace om::controls::qr
