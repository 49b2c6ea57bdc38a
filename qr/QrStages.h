// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

// The stages of making a symbol, in their order. Internal: only the encoder and its tests look
// here.

#include "qr/QrTables.h"

#include <cstdint>

namespace om::controls::qr {

// Processors -----------------------------------------------------------------------------------

/// The sets of instructions to choose from, from the one that runs everywhere to the widest.
enum Instructions {
    Baseline,
    Avx2,
    Avx512,
    InstructionSets
};

/// Whether this processor has them.
bool available(Instructions instructions);

/// The widest that it has.
Instructions widest();

// Data encodation -------------------------------------------------------------------------------

/// The value of a character in alphanumeric mode; every character outside the set has that of ':'.
int alphanumericValue(char character);

/// The bits of a segment of \a count characters (bytes for Kanji) in \a mode with the count width
/// of a version group, 0 to 2.
std::int64_t segmentBits(Mode mode, std::int64_t count, int group);

/// The most bytes that \a version, 1 to 40, holds at \a level.
int byteCapacity(int level, int version);

/// The smallest version that holds \a length bytes at \a level, looked for from the group of the
/// requested version on, each group with its own count width; 0 when there is none.
int chooseVersion(int level, int requested, std::int64_t length);

/// Appends bits, most significant first, to a buffer that holds a symbol's data codewords.
class BitStream
{
public:
    /// \a buffer has MaximumDataCodewords bytes; each is written whole as soon as it is begun.
    explicit BitStream(unsigned char *buffer)
        : m_buffer(buffer)
    {
    }

    /// Appends the low \a count bits of \a value, 0 to 16. False, and nothing more is ever
    /// appended, when the buffer would overflow or an earlier append has failed.
    bool append(unsigned value, int count);

    /// Appends \a count bytes, as as many appends of 8 bits would.
    bool appendBytes(const char *bytes, int count);

    int bits() const { return m_bits; }

private:
    unsigned char *m_buffer;
    int m_bits = 0;
    bool m_failed = false;
};

/// The data codewords of a version that holds the text: mode, count, bytes, terminator, padding.
void encodeData(int level, int version, const char *text, int length, unsigned char *codewords);

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
struct Features
{
    std::uint32_t runs[MaskCount]; ///< Points for runs of five and more, both ways.
    std::uint32_t blocks[MaskCount]; ///< Squares of 2 x 2 modules of one colour.
    std::uint32_t finderLike[MaskCount]; ///< Patterns 1:1:3:1:1 with light around, both ways.
    std::uint32_t dark[MaskCount]; ///< Dark modules.
};

/// Applies each of the eight masks with its format and version information and counts all of the
/// symbol's features.
void countFeatures(Instructions instructions, int level, int size, const Boards &boards,
                   Features &features);

/// The points of one mask for a symbol of \a size.
int penalty(int size, const Features &features, int mask);

/// The mask with the lowest penalty, the lowest number of equals.
int chooseMask(int size, const Features &features);

/// Applies one mask with its format information to the board by rows.
void applyMask(int level, int mask, int size, Boards &boards);

// Result ----------------------------------------------------------------------------------------

/// Writes the board by rows into the result, which has been cleared.
void pack(int size, const Strips &rows, unsigned char *result);

// All stages ------------------------------------------------------------------------------------

/// What qrEncode() does, with one set of instructions.
int encode(Instructions instructions, int level, int version, const char *text, int length,
           unsigned char *result);

} // namespace om::controls::qr
