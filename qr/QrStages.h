// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

// The stages of making a symbol, in their order. Internal: only the encoder and its tests look
// here.

#include "qr/QrTables.h"

#include <cstdint>

namespace om::controls::qr {

// Data analysis ---------------------------------------------------------------------------------

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

// Data encodation -------------------------------------------------------------------------------

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

// Error correction coding -----------------------------------------------------------------------

/// The error correction codewords of one block: the remainder of its \a count data codewords,
/// shifted by \a degree, divided by the generator polynomial of that degree, which is one of the
/// version table's.
void correctionCodewords(const unsigned char *data, int count, int degree,
                         unsigned char *correction);

/// The final message: the data codewords of the blocks column by column, then the same of their
/// error correction codewords.
void constructMessage(int level, int version, const unsigned char *data, unsigned char *message);

// Module placement ------------------------------------------------------------------------------

/// A bit for each module of a symbol. A line, which is a row or a column as its owner says, is a
/// few words of 64 places, the first place in the most significant bit. The words that hold the
/// same places of all lines lie side by side: next to a module's word is that of the module in the
/// next line. In front of the first line and behind the last lie some whose bits are 0.
struct BitMatrix
{
    static constexpr int Words = (MaximumSize + 63) / 64;
    static constexpr int Margin = 4;

    std::uint64_t words[Words][Margin + MaximumSize + Margin];

    /// The word of these places in line 0.
    std::uint64_t *first(int word) { return words[word] + Margin; }
    const std::uint64_t *first(int word) const { return words[word] + Margin; }

    bool at(int line, int place) const
    {
        return first(place >> 6)[line] >> (63 - (place & 63)) & 1;
    }

    void set(int line, int place) { first(place >> 6)[line] |= 1ull << (63 - (place & 63)); }

    /// Clears the lines and the margins of a symbol of \a size.
    void clear(int size);
};

/// The words of a line that a symbol of \a size uses.
constexpr int wordsOf(int size)
{
    return (size + 63) / 64;
}

/// A word with its first \a count places set: none for 0 or less, all for 64 or more.
constexpr std::uint64_t firstPlaces(int count)
{
    return count <= 0 ? 0 : count >= 64 ? ~0ull : ~(~0ull >> count);
}

/// A symbol before masking, without the format information.
struct Symbol
{
    int size;
    BitMatrix function; ///< The modules that are no data; alike by rows and by columns.
    BitMatrix columns; ///< The dark modules, a line a column.
    BitMatrix rows; ///< The same, a line a row.
};

/// Starts a symbol: finder patterns with separators, timing and alignment patterns, version
/// information, the dark module, and the area of the format information, which is left light. Of
/// the dark modules only the columns are filled.
void placeFunctionPatterns(int version, Symbol &symbol);

/// Places the bits of the message, \a count codewords, in pairs of columns, upwards and downwards
/// in turn, from the lower right corner; modules that remain stay light. Of the dark modules only
/// the columns are filled.
void placeCodewords(const unsigned char *message, int count, Symbol &symbol);

/// Fills the rows of the symbol from its columns.
void transpose(Symbol &symbol);

// Data masking ----------------------------------------------------------------------------------

/// A symbol with a mask and its format information: its dark modules.
struct MaskedSymbol
{
    int size;
    BitMatrix columns; ///< A line a column.
    BitMatrix rows; ///< A line a row.
};

/// Inverts the data modules that meet the condition of \a mask, 0 to 7.
void applyMask(int mask, const Symbol &symbol, MaskedSymbol &masked);

/// Places both copies of the format information.
void placeFormatInformation(int level, int mask, MaskedSymbol &masked);

/// What the penalty rules count.
struct Features
{
    int runs; ///< Points for runs of five and more, both ways.
    int blocks; ///< Squares of 2 x 2 modules of one colour.
    int finderLike; ///< Patterns 1:1:3:1:1 with light around, both ways.
    int dark; ///< Dark modules.
};

/// Counts all features of a symbol.
Features countFeatures(const MaskedSymbol &masked);

/// The penalty points of a symbol of \a size with these features.
constexpr int penalty(int size, const Features &features)
{
    const int percent = 100 * features.dark / (size * size);
    const int imbalance = (percent < 50 ? 50 - percent : percent - 50) / 5;
    return features.runs + 3 * features.blocks + 40 * features.finderLike + 10 * imbalance;
}

/// The mask with the lowest penalty, the lowest number of equals.
constexpr int lowestPenalty(const int (&penalties)[MaskCount])
{
    int best = 0;
    for (int mask = 1; mask < MaskCount; ++mask) {
        if (penalties[mask] < penalties[best]) {
            best = mask;
        }
    }
    return best;
}

/// Applies each of the eight masks in turn and chooses the one with the lowest penalty. \a masked
/// is where the masked symbols are made, one after the other.
int chooseMask(int level, const Symbol &symbol, MaskedSymbol &masked);

// All stages ------------------------------------------------------------------------------------

/// Makes a symbol from a text that fits the version: all stages behind the choice of the version.
/// \a result, which has been cleared, gets the modules, row by row.
using Maker = void (*)(int level, int version, const char *text, int length, unsigned char *result);

/// The plain one.
void makeSymbol(int level, int version, const char *text, int length, unsigned char *result);

/// What qrEncode() does, with a maker of choice.
int encode(Maker maker, int level, int version, const char *text, int length,
           unsigned char *result);

} // namespace om::controls::qr
