// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

// The stages of making a symbol behind data encodation, in their order. Internal: only the
// accelerated encoder and its tests look here.

#include "qr/QrTables.h"
#include "qr/accelerated/Encoder.h"

#include <cstdint>

namespace om::controls::qr::accelerated {

// Error correction ------------------------------------------------------------------------------

/// Room for the error-correction codewords of one block.
constexpr int CorrectionStride = 32;

/// The error-correction codewords of \a blocks blocks that follow one another, each the remainder
/// of its \a count data codewords, shifted by \a degree, divided by the generator polynomial of
/// that degree. Of each, CorrectionStride bytes are written to \a results, of which those behind
/// the first \a degree are zero.
void correctionCodewords(Instructions instructions, const unsigned char *data, int count,
                         int degree, int blocks, unsigned char *results);

/// What interleave() may overwrite behind the last codeword.
constexpr int SpreadExcess = 7;

/// All codewords in their final order: the data of the blocks column by column, then the same of
/// their error correction.
void interleave(Instructions instructions, int level, int version, const unsigned char *data,
                unsigned char *codewords);

// Boards ----------------------------------------------------------------------------------------

/// Modules are scored in strips of 31: a line of a strip is a word of 32 bits, most significant
/// first, whose last bit is the first of the next strip, so that each square of 2 x 2 modules lies
/// in one strip.
constexpr int StripWidth = 31;
constexpr int MaximumStrips = (MaximumSize + StripWidth - 1) / StripWidth;
constexpr int PaddedSize = 192;

constexpr int stripsOf(int size)
{
    return (size + StripWidth - 1) / StripWidth;
}

/// Where the last strip has 15 places or less, those of both boards are scored as one: the one by
/// rows in the upper half of the words, the one by columns in the lower.
constexpr int SharedShift = 16;

constexpr bool isShared(int size, int strip)
{
    return size - strip * StripWidth < SharedShift;
}

struct SharedStrip
{
    alignas(32) std::uint32_t modules[PaddedSize];
    alignas(32) std::uint32_t free[PaddedSize];
};

struct Strips
{
    alignas(32) std::uint32_t lines[MaximumStrips][PaddedSize];

    bool at(int line, int position) const
    {
        const int strip = position / StripWidth;
        return lines[strip][line] >> (31 - (position - strip * StripWidth)) & 1;
    }
};

/// A board as columns of 64 rows a word, row 0 in the most significant bit of the first word. The
/// columns of a word lie side by side. Bits behind the last row are 0.
struct Columns
{
    static constexpr int Words = 4; ///< Three are used; the last is read and always zero.

    alignas(32) std::uint64_t words[Words][PaddedSize];

    bool at(int x, int y) const { return words[y >> 6][x] >> (63 - (y & 63)) & 1; }
};

/// A symbol under construction.
struct Boards
{
    Columns function; ///< The modules that are no data.
    Columns modules; ///< Dark modules before masking, without the format information.
    Strips free; ///< The data modules; alike by columns and by rows.
    Strips columns; ///< The modules, a line a column.
    Strips rows; ///< The modules, a line a row.
    SharedStrip shared; ///< The last of both, where it is shared.
};

/// Clears the columns that a symbol of \a size uses.
void clearBoards(int size, Boards &boards);

/// Finder patterns with separators, timing and alignment patterns, version information, the dark
/// module, and the area of the format information, which is left light.
void placeFunctionPatterns(int version, Boards &boards);

/// Places the bits of the codewords in the zigzag of two columns from the lower right corner.
void placeCodewords(Instructions instructions, int size, const unsigned char *codewords, int count,
                    Boards &boards);

/// Fills the strips, both ways, from the columns.
void cutStrips(int size, Boards &boards);

// Masks -----------------------------------------------------------------------------------------

/// The conditions for one strip: a word of each mask for each line of the period.
struct alignas(32) MaskPattern
{
    std::uint32_t lines[MaskPeriod][MaskCount] = {};
};

/// The pattern of a strip of the board by columns or by rows.
const MaskPattern &maskPattern(bool byRows, int strip);

/// The pattern of a strip that both boards share.
const MaskPattern &sharedMaskPattern(int strip);

/// Both copies of the format information lie in the column and the row 8: one within the first nine
/// lines, the other within the last eight.
constexpr int FormatPlace = 8;
constexpr int FormatNear = 9;
constexpr int FormatFar = 8;

/// The format information of a level as words to be added to a board by columns or by rows, a word
/// of each mask.
struct alignas(32) FormatLines
{
    std::uint32_t near[FormatNear][MaskCount] = {}; ///< Of the first strip, the first lines.
    std::uint32_t far[FormatFar][MaskCount] = {}; ///< Of the first strip, the last lines.
    std::uint32_t across[MaskCount] = {}; ///< Of the line 8, the last places of the symbol, moved
                                          ///< to the first of the word.
};

const FormatLines &formatLines(int level, bool byRows);

/// What the penalty rules count, for each mask.
struct MaskFeatures
{
    std::uint32_t runs[MaskCount]; ///< Points for runs of five and more, both ways.
    std::uint32_t blocks[MaskCount]; ///< Squares of 2 x 2 modules of one colour.
    std::uint32_t finderLike[MaskCount]; ///< Patterns 1:1:3:1:1 with light around, both ways.
    std::uint32_t dark[MaskCount]; ///< Dark modules.
};

/// Applies each of the eight masks with its format information and counts all of the symbol's
/// features.
void countFeatures(Instructions instructions, int level, int size, const Boards &boards,
                   MaskFeatures &features);

/// The mask with the lowest penalty, the lowest number of equals.
int chooseMask(int size, const MaskFeatures &features);

/// Applies one mask with its format information to the board by rows.
void applyMask(int level, int mask, int size, Boards &boards);

// Result ----------------------------------------------------------------------------------------

/// Writes the board by rows into the result, which has been cleared.
void pack(int size, const Strips &rows, unsigned char *result);

} // namespace om::controls::qr::accelerated
