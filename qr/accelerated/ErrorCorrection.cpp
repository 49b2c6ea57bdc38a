// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrGaloisField.h"
#include "qr/accelerated/Stages.h"

#include <cstring>

namespace om::controls::qr::accelerated {

namespace {

constexpr int NarrowDegree = 16; ///< Remainders up to this degree take one vector of 16 bytes.
constexpr int Stride = 8; ///< Data codewords that are divided in one step.

/// A polynomial of a lower degree than the generator, highest coefficient first.
template<int Degree>
struct alignas(Degree <= NarrowDegree ? 16 : 32) Remainder
{
    std::uint8_t coefficients[Degree <= NarrowDegree ? 16 : 32] = {};
};

/// For each half of a byte (low, high) of each of the next eight codewords: the whole remainder
/// that each of its values leaves once the eight are divided away. They need only be added up.
template<int Degree>
struct Remainders
{
    Remainder<Degree> halves[2 * Stride][16];

    constexpr Remainders()
    {
        const GeneratorPolynomial polynomial(Degree);
        const std::uint8_t(&generator)[MaximumDegree] = polynomial.coefficients;

        // The remainder of x to the power of Degree, then Degree + 1, and so on.
        std::uint8_t rest[Degree] = {};
        for (int index = 0; index < Degree; ++index) {
            rest[index] = generator[index];
        }
        for (int codeword = Stride - 1; codeword >= 0; --codeword) {
            for (int value = 0; value < 16; ++value) {
                for (int index = 0; index < Degree; ++index) {
                    halves[2 * codeword][value].coefficients[index] =
                        field.product(value, rest[index]);
                    halves[2 * codeword + 1][value].coefficients[index] =
                        field.product(value << 4, rest[index]);
                }
            }
            const int head = rest[0];
            for (int index = 0; index < Degree; ++index) {
                rest[index] = static_cast<std::uint8_t>((index + 1 < Degree ? rest[index + 1] : 0)
                                                        ^ field.product(head, generator[index]));
            }
        }
    }
};

template<int Degree>
constexpr Remainders<Degree> remainders;

#define QR_KERNEL __attribute__((always_inline)) inline

typedef std::uint64_t Pair __attribute__((vector_size(16)));
typedef std::uint64_t Four __attribute__((vector_size(32)));

/// The next eight codewords as they lie in memory.
std::uint64_t load(const unsigned char *codewords)
{
    std::uint64_t value;
    std::memcpy(&value, codewords, sizeof value);
    return value;
}

/// A remainder while it is computed: its coefficients in one or two vectors.
template<typename Vector, int Count>
struct Rest
{
    Vector parts[Count] = {};

    QR_KERNEL std::uint64_t head() const { return parts[0][0]; }

    /// Takes the first eight coefficients away.
    QR_KERNEL void advance()
    {
        if constexpr (sizeof(Vector) == sizeof(Four)) {
            parts[0] = __builtin_shufflevector(parts[0], Vector{}, 1, 2, 3, 4);
        } else {
#pragma GCC unroll 2
            for (int part = 0; part + 1 < Count; ++part) {
                parts[part] = __builtin_shufflevector(parts[part], parts[part + 1], 1, 2);
            }
            parts[Count - 1] = __builtin_shufflevector(parts[Count - 1], Vector{}, 1, 2);
        }
    }

    QR_KERNEL void add(const unsigned char *coefficients)
    {
#pragma GCC unroll 2
        for (int part = 0; part < Count; ++part) {
            Vector more;
            std::memcpy(&more, coefficients + part * sizeof more, sizeof more);
            parts[part] ^= more;
        }
    }
};

/// Divides \a Blocks blocks of \a count codewords side by side, so that while one waits for the
/// rows of the \a table the other is added up. A row is \a Parts vectors.
template<typename Vector, int Parts, int Blocks>
QR_KERNEL void divide(const unsigned char *table, const unsigned char *data, int count,
                      unsigned char *results)
{
    constexpr int RowSize = Parts * sizeof(Vector);
    // Two sums of a single one, so that not every addition waits for the one before.
    constexpr int sums = Blocks == 1 ? 2 : 1;
    Rest<Vector, Parts> rests[Blocks][sums];

    // The first step takes what is more than whole steps: zeros in front change nothing.
    const int ahead = count % Stride;
    std::uint64_t next[Blocks];
#pragma GCC unroll 2
    for (int block = 0; block < Blocks; ++block) {
        const unsigned char *first = data + block * count;
        next[block] = ahead ? 0 : load(first);
        for (int index = 0; index < ahead; ++index) {
            next[block] = next[block] >> 8 | std::uint64_t(first[index]) << 56;
        }
    }
    for (int done = ahead ? ahead : Stride;; done += Stride) {
        // The halves of the codewords, each in the upper half of a byte: 16 times its value.
        std::uint64_t halves[Blocks][2];
#pragma GCC unroll 2
        for (int block = 0; block < Blocks; ++block) {
            const std::uint64_t head = next[block] ^ rests[block][0].head();
            halves[block][0] = head << 4 & 0xf0f0f0f0f0f0f0f0ull;
            halves[block][1] = head & 0xf0f0f0f0f0f0f0f0ull;
            rests[block][0].advance();
            if constexpr (sums == 2) {
                rests[block][1] = {};
            }
        }
#pragma GCC unroll 8
        for (int codeword = 0; codeword < Stride; ++codeword) {
#pragma GCC unroll 2
            for (int half = 0; half < 2; ++half) {
                const unsigned char *rows = table + (2 * codeword + half) * 16 * RowSize;
#pragma GCC unroll 2
                for (int block = 0; block < Blocks; ++block) {
                    const std::uint64_t value = halves[block][half] & 0xff;
                    halves[block][half] >>= 8;
                    rests[block][half % sums].add(rows + value * (RowSize / 16));
                }
            }
        }
        if constexpr (sums == 2) {
#pragma GCC unroll 2
            for (int part = 0; part < Parts; ++part) {
                rests[0][0].parts[part] ^= rests[0][1].parts[part];
            }
        }
        if (done >= count) {
            break;
        }
#pragma GCC unroll 2
        for (int block = 0; block < Blocks; ++block) {
            next[block] = load(data + block * count + done);
        }
    }
#pragma GCC unroll 2
    for (int block = 0; block < Blocks; ++block, results += CorrectionStride) {
        std::memcpy(results, &rests[block][0], sizeof rests[block][0]);
        if constexpr (RowSize < CorrectionStride) {
            std::memset(results + 16, 0, 16);
        }
    }
}

template<typename Vector, int Parts>
QR_KERNEL void divideAll(const unsigned char *table, const unsigned char *data, int count,
                         int blocks, unsigned char *results)
{
    for (; blocks >= 2; blocks -= 2, data += 2 * count, results += 2 * CorrectionStride) {
        divide<Vector, Parts, 2>(table, data, count, results);
    }
    if (blocks) {
        divide<Vector, Parts, 1>(table, data, count, results);
    }
}

template<int Parts>
void divideBlocks(const unsigned char *table, const unsigned char *data, int count, int blocks,
                  unsigned char *results)
{
    divideAll<Pair, Parts>(table, data, count, blocks, results);
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) void divideBlocksWide(const unsigned char *table,
                                                      const unsigned char *data, int count,
                                                      int blocks, unsigned char *results)
{
    divideAll<Four, 1>(table, data, count, blocks, results);
}
#endif

template<int Degree>
constexpr const unsigned char *table()
{
    return remainders<Degree>.halves[0][0].coefficients;
}

const unsigned char *tableOf(int degree)
{
    switch (degree) {
    case 7:
        return table<7>();
    case 10:
        return table<10>();
    case 13:
        return table<13>();
    case 15:
        return table<15>();
    case 16:
        return table<16>();
    case 17:
        return table<17>();
    case 18:
        return table<18>();
    case 20:
        return table<20>();
    case 22:
        return table<22>();
    case 24:
        return table<24>();
    case 26:
        return table<26>();
    case 28:
        return table<28>();
    default: // The version table has no other.
        return table<30>();
    }
}

} // namespace

void correctionCodewords(Instructions instructions, const unsigned char *data, int count,
                         int degree, int blocks, unsigned char *results)
{
    const unsigned char *table = tableOf(degree);
    if (degree <= NarrowDegree) {
        return divideBlocks<1>(table, data, count, blocks, results);
    }
#if defined(__x86_64__)
    if (instructions != Baseline) {
        return divideBlocksWide(table, data, count, blocks, results);
    }
#endif
    (void)instructions;
    divideBlocks<2>(table, data, count, blocks, results);
}

namespace {

typedef std::uint8_t Bytes __attribute__((vector_size(16)));
typedef std::uint16_t Twos __attribute__((vector_size(16)));
typedef std::uint32_t Fours __attribute__((vector_size(16)));

/// The first eight bytes of two rows in turn.
inline Twos zipRows(std::uint64_t first, std::uint64_t second)
{
    return reinterpret_cast<Twos>(__builtin_shufflevector(
        reinterpret_cast<Bytes>(Pair{first, 0}), reinterpret_cast<Bytes>(Pair{second, 0}), 0, 16, 1,
        17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
}

/// Twos of bytes in turn, of the lower or the upper halves.
template<bool Upper>
inline Fours zipTwos(Twos first, Twos second)
{
    constexpr int at = Upper ? 4 : 0;
    return reinterpret_cast<Fours>(__builtin_shufflevector(
        first, second, at, at + 8, at + 1, at + 9, at + 2, at + 10, at + 3, at + 11));
}

/// The same of fours of bytes.
template<bool Upper>
inline Pair zipFours(Fours first, Fours second)
{
    constexpr int at = Upper ? 2 : 0;
    return reinterpret_cast<Pair>(
        __builtin_shufflevector(first, second, at, at + 4, at + 1, at + 5));
}

inline void storeColumns(Pair two, unsigned char *columns, int step)
{
    const std::uint64_t first = two[0];
    const std::uint64_t second = two[1];
    std::memcpy(columns, &first, sizeof first);
    std::memcpy(columns + step, &second, sizeof second);
}

/// Writes the columns of a square of 8 x 8 bytes \a step bytes apart.
inline void transpose(const std::uint64_t (&rows)[8], unsigned char *columns, int step)
{
    const Twos first = zipRows(rows[0], rows[1]);
    const Twos second = zipRows(rows[2], rows[3]);
    const Twos third = zipRows(rows[4], rows[5]);
    const Twos fourth = zipRows(rows[6], rows[7]);
    const Fours left = zipTwos<false>(first, second);
    const Fours right = zipTwos<true>(first, second);
    const Fours leftBelow = zipTwos<false>(third, fourth);
    const Fours rightBelow = zipTwos<true>(third, fourth);
    storeColumns(zipFours<false>(left, leftBelow), columns, step);
    storeColumns(zipFours<true>(left, leftBelow), columns + 2 * step, step);
    storeColumns(zipFours<false>(right, rightBelow), columns + 4 * step, step);
    storeColumns(zipFours<true>(right, rightBelow), columns + 6 * step, step);
}

/// Blocks behind one another, the first ones a byte shorter than the others.
struct Blocks
{
    const unsigned char *bytes;
    int distance; ///< From the beginning of a shorter one to that of the next.
    int count;
    int shorter; ///< How many are shorter.

    const unsigned char *at(int block) const
    {
        return bytes + block * distance + (block > shorter ? block - shorter : 0);
    }
};

/// Puts byte c of block b at c * blocks.count + b, for the first \a length bytes, which are 8 or
/// more of several blocks: eight bytes of eight blocks at a time. Up to SpreadExcess bytes behind
/// are overwritten.
void spread(const Blocks &blocks, int length, unsigned char *result)
{
    if (blocks.count == 1) {
        std::memcpy(result, blocks.bytes, static_cast<std::size_t>(length));
        return;
    }
    // What is left over comes first: in the places of the blocks that it lacks, which are those of
    // the first ones in the next column, it leaves something that is overwritten later.
    const int whole = blocks.count - blocks.count % 8;
    for (int begin = blocks.count == whole ? whole - 8 : whole; begin >= 0; begin -= 8) {
        const unsigned char *first[8];
        for (int index = 0; index < 8; ++index) {
            const int block = begin + index;
            first[index] = blocks.at(block < blocks.count ? block : begin);
        }
        for (int column = 0;;) {
            std::uint64_t rows[8];
#pragma GCC unroll 8
            for (int index = 0; index < 8; ++index) {
                rows[index] = load(first[index] + column);
            }
            transpose(rows, result + column * blocks.count + begin, blocks.count);
            if (column == length - 8) {
                break;
            }
            column = column + 8 < length - 8 ? column + 8 : length - 8;
        }
    }
}

constexpr int MaximumBlocks = 81;

unsigned char corrections[MaximumBlocks * CorrectionStride];

} // namespace

void interleave(Instructions instructions, int level, int version, const unsigned char *data,
                unsigned char *codewords)
{
    const VersionRow &row = versionTable[version];
    const int blocks = row.blockCount(level);
    const int correction = row.correction(level);
    const int shorter = row.groups[level][0].blocks;
    const int length = row.groups[level][0].data;
    const unsigned char *longer = data + shorter * length;

    correctionCodewords(instructions, data, length, correction, shorter, corrections);
    correctionCodewords(instructions, longer, length + 1, correction, blocks - shorter,
                        corrections + shorter * CorrectionStride);

    spread({data, length, blocks, shorter}, length, codewords);
    codewords += blocks * length;
    for (int block = shorter; block < blocks; ++block, longer += length + 1) {
        *codewords++ = longer[length];
    }
    spread({corrections, CorrectionStride, blocks, blocks}, correction, codewords);
}

} // namespace om::controls::qr::accelerated
