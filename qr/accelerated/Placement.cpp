// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/accelerated/Stages.h"

#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace om::controls::qr::accelerated {

namespace {

constexpr int StreamWords = (8 * MaximumCodewords + 63) / 64;

/// Two words that are worked on at once.
typedef std::uint64_t Pair __attribute__((vector_size(16)));
typedef std::uint32_t Words __attribute__((vector_size(16)));

/// The codewords as bits, whole and split once for pairs of columns: where both are free, one takes
/// every other bit and the other those between, many rows at a time. A pair of words is for the
/// left and the right column, as they lie in the board. The first bit is the most significant where
/// columns are filled downwards, the least significant upwards. There is a word of zeros in front,
/// since a run of modules is read with what would stand in the rows above (or below) it, and some
/// behind for the remainder bits.
struct Stream
{
    static constexpr int Front = 1;

    alignas(16) std::uint64_t whole[StreamWords + 4]; ///< As they lie in memory.
    Pair down[StreamWords / 2 + 4]; ///< Odd bits for the left, even bits for the right.
    Pair up[StreamWords / 2 + 4];
};

Stream stream;

/// The bytes of each word in reverse order.
inline Pair swapBytes(Pair value)
{
    value = (value >> 8 & 0x00ff00ff00ff00ffull) | (value & 0x00ff00ff00ff00ffull) << 8;
    typedef std::uint16_t Quarters __attribute__((vector_size(16)));
    const Quarters quarters = reinterpret_cast<Quarters>(value);
    return reinterpret_cast<Pair>(
        __builtin_shufflevector(quarters, quarters, 3, 2, 1, 0, 7, 6, 5, 4));
}

/// Gathers the bits of 16 bytes, most significant first: the odd ones (counted from 0) in the first
/// eight bytes, the even ones in the last.
inline Pair unshuffle(Pair value)
{
    // In each byte the even bits to the upper half and the odd ones to the lower.
    Pair swapped = (value ^ value >> 1) & 0x2222222222222222ull;
    value ^= swapped ^ swapped << 1;
    swapped = (value ^ value >> 2) & 0x0c0c0c0c0c0c0c0cull;
    value ^= swapped ^ swapped << 2;
    // Of each two bytes the halves that belong together; the second byte is the upper.
    typedef std::uint16_t Twos __attribute__((vector_size(16)));
    typedef std::uint8_t Bytes __attribute__((vector_size(16)));
    const Twos twos = reinterpret_cast<Twos>(value);
    const Twos odd = (twos << 4 & 0x00f0) | (twos >> 8 & 0x000f);
    const Twos even = (twos & 0x00f0) | twos >> 12;
    return reinterpret_cast<Pair>(
        __builtin_shufflevector(reinterpret_cast<Bytes>(odd), reinterpret_cast<Bytes>(even), 0, 2,
                                4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30));
}

template<typename Word>
inline Word reverseInBytes(Word value)
{
    value = (value >> 1 & 0x5555555555555555ull) | (value & 0x5555555555555555ull) << 1;
    value = (value >> 2 & 0x3333333333333333ull) | (value & 0x3333333333333333ull) << 2;
    return (value >> 4 & 0x0f0f0f0f0f0f0f0full) | (value & 0x0f0f0f0f0f0f0f0full) << 4;
}

inline std::uint64_t reverse(std::uint64_t value)
{
    return __builtin_bswap64(reverseInBytes(value));
}

/// Copies the codewords into words, and four words of zeros behind them. Returns the words that
/// hold codewords.
inline int copyCodewords(const unsigned char *codewords, int count, std::uint64_t *result)
{
    const int words = (count + 7) / 8;
    result[count / 8] = 0;
    std::memcpy(result, codewords, static_cast<std::size_t>(count));
    for (int index = words; index < words + 4; ++index) {
        result[index] = 0;
    }
    return words;
}

void split(const unsigned char *codewords, int count)
{
    const int words = copyCodewords(codewords, count, stream.whole);
    // Two words give one of each half; one more of zeros follows.
    for (int index = 0; index < words + 2; index += 2) {
        Pair two;
        std::memcpy(&two, stream.whole + index, sizeof two);
        const Pair halves = unshuffle(two);
        stream.down[Stream::Front + index / 2] = swapBytes(halves);
        stream.up[Stream::Front + index / 2] = reverseInBytes(halves);
    }
}

/// 64 bits of all codewords from a position on, the first in the most significant.
inline std::uint64_t readWhole(int position)
{
    const std::uint64_t *word = stream.whole + (position >> 6);
    const int offset = position & 63;
    return __builtin_bswap64(word[0]) << offset | __builtin_bswap64(word[1]) >> 1 >> (63 - offset);
}

/// 64 bits of both halves from a position on, in the order of reading. It may lie up to 64 bits in
/// front of the first.
template<bool Upwards>
inline Pair readHalves(int position)
{
    const Pair *words = (Upwards ? stream.up : stream.down) + Stream::Front + (position >> 6);
    const int offset = position & 63;
    return Upwards ? words[0] >> offset | words[1] << 1 << (63 - offset)
                   : words[0] << offset | words[1] >> 1 >> (63 - offset);
}

/// What a pair of columns takes from \a position on, where the bit numbered \a bit is the first.
template<bool Upwards>
inline Pair readPair(int position, int bit)
{
    const int half = (position >> 1) - bit;
    const Pair bits = readHalves<Upwards>(half);
    if ((position & 1) == 0) {
        return bits;
    }
    // The right column begins with an odd bit, the left one with the even bit behind it.
    return __builtin_shufflevector(readHalves<Upwards>(half + 1), bits, 1, 2);
}

/// 64 bits of a stream from \a position on, the first in the most significant.
inline std::uint64_t readDown(const std::uint64_t *bits, int position)
{
    const std::uint64_t *word = bits + (position >> 6);
    const int offset = position & 63;
    return word[0] << offset | word[1] >> 1 >> (63 - offset);
}

/// The same with the first in the least significant.
inline std::uint64_t readUp(const std::uint64_t *bits, int position)
{
    const std::uint64_t *word = bits + (position >> 6);
    const int offset = position & 63;
    return word[0] >> offset | word[1] << 1 << (63 - offset);
}

/// How many of \a bits are set from \a bit on, in the direction of reading: upwards, the first
/// module is the least significant bit. They are less than 64: a pair of columns that is free in a
/// whole word is one run for both, and no word is free as a whole in one of them only.
template<bool Upwards>
inline int runLength(std::uint64_t bits, int bit)
{
    return Upwards ? __builtin_ctzll(~(bits >> bit)) : __builtin_clzll(~(bits << bit));
}

/// The bits of a run of \a count modules.
template<bool Upwards>
inline std::uint64_t runBits(int bit, int count)
{
    return Upwards ? ~0ull >> (64 - count) << bit : ~0ull << (64 - count) >> bit;
}

/// Whether there are set bits and they follow one another.
inline bool isRun(std::uint64_t bits)
{
    return bits && (bits & (bits + (bits & -bits))) == 0;
}

/// Fills one word of a pair of columns, run by run of modules that are free alike. Returns the
/// position in the stream behind it.
template<bool Upwards>
inline int fillWord(std::uint64_t freeRight, std::uint64_t freeLeft, std::uint64_t *modules,
                    int position)
{
    Pair dark;
    std::memcpy(&dark, modules - 1, sizeof dark);
    const std::uint64_t both = freeRight & freeLeft;
    std::uint64_t waiting = freeRight | freeLeft;
    if (both == waiting && isRun(both)) { // Most words.
        const int bit = Upwards ? __builtin_ctzll(both) : __builtin_clzll(both);
        const int behind = Upwards ? __builtin_clzll(both) : __builtin_ctzll(both);
        dark |= readPair<Upwards>(position, bit) & (Pair{} + both);
        std::memcpy(modules - 1, &dark, sizeof dark);
        return position + 2 * (64 - bit - behind);
    }
    while (waiting) {
        const int bit = Upwards ? __builtin_ctzll(waiting) : __builtin_clzll(waiting);
        const std::uint64_t here = Upwards ? 1ull << bit : 1ull << 63 >> bit;
        int count;
        std::uint64_t run;
        if (both & here) {
            count = runLength<Upwards>(both, bit);
            run = runBits<Upwards>(bit, count);
            dark |= readPair<Upwards>(position, bit) & (Pair{} + run);
            position += 2 * count;
        } else {
            const bool rightOnly = freeRight & here;
            count = runLength<Upwards>((rightOnly ? freeRight : freeLeft) & ~both, bit);
            run = runBits<Upwards>(bit, count);
            std::uint64_t bits = readWhole(position);
            bits = (Upwards ? reverse(bits) << bit : bits >> bit) & run;
            dark |= rightOnly ? Pair{0, bits} : Pair{bits, 0};
            position += count;
        }
        waiting &= ~run;
    }
    std::memcpy(modules - 1, &dark, sizeof dark);
    return position;
}

/// The rows of each word that belong to the symbol.
struct Inside
{
    std::uint64_t words[3];

    explicit Inside(int size)
    {
        for (int word = 0; word < 3; ++word) {
            const int rows = size - 64 * word;
            words[word] = rows <= 0 ? 0 : rows >= 64 ? ~0ull : ~(~0ull >> rows);
        }
    }
};

/// The pairs of columns in the order in which they are filled: from the right, upwards first,
/// stepping over the timing pattern.
struct ColumnPair
{
    int column; ///< The right one of the pair.
    bool upwards = true;

    explicit ColumnPair(int size)
        : column(size - 1)
    {
    }

    bool isValid() const { return column > 0; }
    void next()
    {
        column -= column - 2 == TimingLine ? 3 : 2;
        upwards = !upwards;
    }
};

void placeRuns(int size, const unsigned char *codewords, int count, Boards &boards)
{
    split(codewords, count);

    const Inside inside(size);
    const int words = (size + 63) / 64;
    int position = 0;
    for (ColumnPair pair(size); pair.isValid(); pair.next()) {
        for (int step = 0; step < words; ++step) {
            const int word = pair.upwards ? words - 1 - step : step;
            const std::uint64_t *function = boards.function.words[word] + pair.column;
            const std::uint64_t freeRight = ~function[0] & inside.words[word];
            const std::uint64_t freeLeft = ~function[-1] & inside.words[word];
            std::uint64_t *modules = boards.modules.words[word] + pair.column;
            position = pair.upwards ? fillWord<true>(freeRight, freeLeft, modules, position)
                                    : fillWord<false>(freeRight, freeLeft, modules, position);
        }
    }
}

#if defined(__x86_64__)

#define QR_DEPOSIT __attribute__((target("bmi2,popcnt")))

/// The codewords as bits for both directions of reading, with zeros behind them.
struct WholeStream
{
    alignas(16) std::uint64_t down[StreamWords + 4];
    alignas(16) std::uint64_t up[StreamWords + 4];
};

WholeStream wholeStream;

void turn(const unsigned char *codewords, int count)
{
    const int words = copyCodewords(codewords, count, wholeStream.up);
    for (int index = 0; index < words + 2; index += 2) {
        Pair two;
        std::memcpy(&two, wholeStream.up + index, sizeof two);
        const Pair down = swapBytes(two);
        const Pair up = reverseInBytes(two);
        std::memcpy(wholeStream.down + index, &down, sizeof down);
        std::memcpy(wholeStream.up + index, &up, sizeof up);
    }
}

/// Fills 32 rows of a pair of columns, given in the lower half of the words: the modules of both
/// side by side, in the order of the stream, take the next bits of the stream where they are free.
/// Returns the position in the stream behind it.
template<bool Upwards>
QR_DEPOSIT inline int depositRows(std::uint64_t freeRight, std::uint64_t freeLeft,
                                  std::uint64_t &right, std::uint64_t &left, int position)
{
    constexpr std::uint64_t rightPlaces = Upwards ? 0x5555555555555555ull : 0xaaaaaaaaaaaaaaaaull;
    const std::uint64_t free =
        _pdep_u64(freeRight, rightPlaces) | _pdep_u64(freeLeft, ~rightPlaces);
    const int count = __builtin_popcountll(free);
    // Downwards the next bits are the highest of a word but the lowest of it are deposited. Of no
    // bits it does not matter which.
    const std::uint64_t bits = Upwards
        ? readUp(wholeStream.up, position)
        : readDown(wholeStream.down, position) >> ((64 - count) & 63);
    const std::uint64_t dark = _pdep_u64(bits, free);
    right = _pext_u64(dark, rightPlaces);
    left = _pext_u64(dark, ~rightPlaces);
    return position + count;
}

/// Fills a pair of columns, of which \a column is the right one. \a Halves is how many of a word
/// there are, 1 or 2.
template<bool Upwards, int Halves>
QR_DEPOSIT inline int depositPair(const Inside &inside, int words, int column, int position,
                                  Boards &boards)
{
    constexpr std::uint64_t lowerHalf = 0xffffffff;
    for (int step = 0; step < words; ++step) {
        const int word = Upwards ? words - 1 - step : step;
        const std::uint64_t *function = boards.function.words[word] + column;
        const std::uint64_t freeRight = ~function[0] & inside.words[word];
        const std::uint64_t freeLeft = ~function[-1] & inside.words[word];
        std::uint64_t right = 0;
        std::uint64_t left = 0;
#pragma GCC unroll 2
        for (int half = 0; half < Halves; ++half) {
            const bool upper = half == (Upwards ? Halves - 1 : 0);
            const int shift = upper ? 32 : 0;
            std::uint64_t rows[2];
            position =
                depositRows<Upwards>(freeRight >> shift & lowerHalf, freeLeft >> shift & lowerHalf,
                                     rows[0], rows[1], position);
            right |= rows[0] << shift;
            left |= rows[1] << shift;
        }
        std::uint64_t *modules = boards.modules.words[word] + column;
        modules[0] |= right;
        modules[-1] |= left;
    }
    return position;
}

template<int Halves>
QR_DEPOSIT inline void depositPairs(int size, Boards &boards)
{
    const Inside inside(size);
    const int words = (size + 63) / 64;
    int position = 0;
    for (ColumnPair pair(size); pair.isValid(); pair.next()) {
        position = pair.upwards
            ? depositPair<true, Halves>(inside, words, pair.column, position, boards)
            : depositPair<false, Halves>(inside, words, pair.column, position, boards);
    }
}

QR_DEPOSIT void placeDeposits(int size, const unsigned char *codewords, int count, Boards &boards)
{
    turn(codewords, count);
    if (size <= 32) {
        depositPairs<1>(size, boards);
    } else {
        depositPairs<2>(size, boards);
    }
}

#undef QR_DEPOSIT

#endif

} // namespace

void placeCodewords(Instructions instructions, int size, const unsigned char *codewords, int count,
                    Boards &boards)
{
#if defined(__x86_64__)
    // The first processors with these instructions take a hundred cycles for one.
    if (instructions != Baseline && !__builtin_cpu_is("znver1") && !__builtin_cpu_is("znver2")) {
        return placeDeposits(size, codewords, count, boards);
    }
#endif
    (void)instructions;
    placeRuns(size, codewords, count, boards);
}

namespace {

/// The lower halves of the words of two pairs.
inline Words lowerHalves(const Pair &first, const Pair &second)
{
    return __builtin_shufflevector(reinterpret_cast<Words>(first), reinterpret_cast<Words>(second),
                                   0, 2, 4, 6);
}

/// The 32 bits from a row on, of the two columns from \a column on, in the lower halves.
inline Pair cutTwo(const Columns &board, int row, int column)
{
    const int offset = row & 63;
    Pair above;
    Pair below;
    std::memcpy(&above, &board.words[row >> 6][column], sizeof above);
    if (offset <= 32) {
        return above >> (32 - offset);
    }
    std::memcpy(&below, &board.words[(row >> 6) + 1][column], sizeof below);
    return above << (offset - 32) | below >> (96 - offset);
}

/// The 32 bits from a row on, of the four columns from \a column on.
inline Words cutFour(const Columns &board, int row, int column)
{
    return lowerHalves(cutTwo(board, row, column), cutTwo(board, row, column + 2));
}

/// Exchanges, in squares of 8 or more lines, the upper right and the lower left quarter. A vector
/// is four lines.
template<int Vectors>
inline void exchangeVectors(Words (&lines)[8], std::uint32_t right)
{
    constexpr int distance = 4 * Vectors;
#pragma GCC unroll 8
    for (int index = 0; index < 8; ++index) {
        if (index & Vectors) {
            continue;
        }
        const Words swapped =
            (lines[index] ^ lines[index + Vectors] >> distance) & (Words{} + right);
        lines[index] ^= swapped;
        lines[index + Vectors] ^= swapped << distance;
    }
}

/// The same within a vector, for lines that \a other has in each other's places: the upper ones
/// take their right part from the left of the lower, the lower ones the other way.
inline Words exchanged(Words lines, Words other, int distance, Words upper, std::uint32_t left)
{
    const Words keep = (upper & (Words{} + left)) | (~upper & (Words{} + ~left));
    return (lines & keep) | (upper & ~keep & other >> distance)
        | (~upper & ~keep & other << distance);
}

/// Transposes a square of 32 x 32 modules: what was a line becomes a bit.
inline void transpose(Words (&lines)[8])
{
    exchangeVectors<4>(lines, 0x0000ffffu);
    exchangeVectors<2>(lines, 0x00ff00ffu);
    exchangeVectors<1>(lines, 0x0f0f0f0fu);
#pragma GCC unroll 8
    for (int index = 0; index < 8; ++index) {
        Words four = lines[index];
        four = exchanged(four, Words{four[2], four[3], four[0], four[1]}, 2, Words{~0u, ~0u, 0, 0},
                         0xccccccccu);
        four = exchanged(four, Words{four[1], four[0], four[3], four[2]}, 1, Words{~0u, 0, ~0u, 0},
                         0xaaaaaaaau);
        lines[index] = four;
    }
}

} // namespace

void cutStrips(int size, Boards &boards)
{
    const int strips = stripsOf(size);
    for (int strip = 0; strip < strips; ++strip) {
        const int first = strip * StripWidth;
        // Behind the symbol nothing is free: those positions stay light in all masks.
        const int width = size - first;
        const Words inside = Words{} + (width < 32 ? ~(~0u >> width) : ~0u);
        for (int column = 0; column < size; column += 4) {
            const Words modules = cutFour(boards.modules, first, column);
            const Words free = inside & ~cutFour(boards.function, first, column);
            std::memcpy(boards.columns.lines[strip] + column, &modules, sizeof modules);
            std::memcpy(boards.free.lines[strip] + column, &free, sizeof free);
        }

        // The columns of this strip, 32 rows at a time, become the lines of its rows.
        for (int row = 0; row < size; row += 32) {
            Words lines[8];
            for (int index = 0; index < 8; ++index) {
                lines[index] = cutFour(boards.modules, row, first + 4 * index);
            }
            transpose(lines);
            std::memcpy(boards.rows.lines[strip] + row, lines, sizeof lines);
        }
    }

    const int last = strips - 1;
    if (!isShared(size, last)) {
        return;
    }
    for (int line = 0; line < size; line += 4) {
        Words rows;
        Words columns;
        Words free;
        std::memcpy(&rows, boards.rows.lines[last] + line, sizeof rows);
        std::memcpy(&columns, boards.columns.lines[last] + line, sizeof columns);
        std::memcpy(&free, boards.free.lines[last] + line, sizeof free);
        rows |= columns >> SharedShift;
        free |= free >> SharedShift;
        std::memcpy(boards.shared.modules + line, &rows, sizeof rows);
        std::memcpy(boards.shared.free + line, &free, sizeof free);
    }
}

} // namespace om::controls::qr::accelerated
