// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <cstring>

namespace om::controls::qr {

namespace {

constexpr int FieldPolynomial = 0x11d;
constexpr int Stride = 8; ///< Data codewords that are divided in one step.

/// Logarithms and powers of GF(256), base 2.
struct Field
{
    std::uint8_t power[510] = {};
    std::uint8_t logarithm[256] = {};

    constexpr Field()
    {
        int value = 1;
        for (int exponent = 0; exponent < 255; ++exponent) {
            power[exponent] = power[exponent + 255] = static_cast<std::uint8_t>(value);
            logarithm[value] = static_cast<std::uint8_t>(exponent);
            value = value & 0x80 ? value << 1 ^ FieldPolynomial : value << 1;
        }
    }

    constexpr std::uint8_t product(int a, int b) const
    {
        return a && b ? power[logarithm[a] + logarithm[b]] : std::uint8_t(0);
    }
};

constexpr Field field;

/// A polynomial of a lower degree than the generator, highest coefficient first.
template<int Degree>
struct alignas(16) Remainder
{
    static constexpr int Words = Degree <= 16 ? 2 : 4;
    std::uint8_t coefficients[8 * Words] = {};
};

/// For each half of a byte (low, high) of each of the next eight codewords: the whole remainder
/// that each of its values leaves once the eight are divided away. They need only be added up.
template<int Degree>
struct Remainders
{
    Remainder<Degree> halves[2 * Stride][16];

    constexpr Remainders()
    {
        std::uint8_t generator[Degree] = {}; // Without the leading 1, highest first.
        generator[Degree - 1] = 1;
        for (int root = 0; root < Degree; ++root) {
            for (int index = 0; index < Degree; ++index) {
                generator[index] = field.product(generator[index], field.power[root]);
                if (index + 1 < Degree)
                    generator[index] ^= generator[index + 1];
            }
        }

        // The remainder of x to the power of Degree, then Degree + 1, and so on.
        std::uint8_t rest[Degree] = {};
        for (int index = 0; index < Degree; ++index)
            rest[index] = generator[index];
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

typedef std::uint64_t Pair __attribute__((vector_size(16)));

/// The next eight codewords as they lie in memory.
std::uint64_t load(const unsigned char *codewords)
{
    std::uint64_t value;
    std::memcpy(&value, codewords, sizeof value);
    return value;
}

#if __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "The remainder is shifted in words whose first byte is the lowest"
#endif

template<int Degree>
void divide(const unsigned char *data, int count, unsigned char *result)
{
    constexpr bool wide = Degree > 16;
    constexpr int rowShift = wide ? 5 : 4;
    static_assert(sizeof(Remainder<Degree>) == 1 << rowShift, "rows are found by shifting");
    const unsigned char *table = remainders<Degree>.halves[0][0].coefficients;
    Pair front = {0, 0};
    Pair back = {0, 0};

    // The first step takes what is more than whole steps: zeros in front change nothing.
    const int ahead = count % Stride;
    std::uint64_t next = 0;
    if (ahead) {
        for (int index = 0; index < ahead; ++index)
            next = next >> 8 | std::uint64_t(data[index]) << 56;
    } else {
        next = load(data);
    }
    for (int done = ahead ? ahead : Stride;; done += Stride) {
        const std::uint64_t head = next ^ front[0];
        front = Pair{front[1], back[0]};
        back = Pair{back[1], 0};
        // Two sums, so that not every addition waits for the one before.
        Pair sums[4] = {front, {0, 0}, back, {0, 0}};
#pragma GCC unroll 16
        for (int half = 0; half < 2 * Stride; ++half) {
            // The value of this half, times the size of a row.
            const int shift = 4 * half - rowShift;
            const std::uint64_t offset =
                (shift < 0 ? head << -shift : head >> shift) & (15u << rowShift);
            const unsigned char *row = table + half * (16 << rowShift) + offset;
            Pair part;
            std::memcpy(&part, row, sizeof part);
            sums[half & 1] ^= part;
            if constexpr (wide) {
                std::memcpy(&part, row + sizeof part, sizeof part);
                sums[2 + (half & 1)] ^= part;
            }
        }
        front = sums[0] ^ sums[1];
        back = sums[2] ^ sums[3];
        if (done >= count)
            break;
        next = load(data + done);
    }
    std::memcpy(result, &front, 16);
    std::memcpy(result + 16, &back, 16);
}

} // namespace

void correctionCodewords(const unsigned char *data, int count, int degree, unsigned char *result)
{
    switch (degree) {
    case 7:
        return divide<7>(data, count, result);
    case 10:
        return divide<10>(data, count, result);
    case 13:
        return divide<13>(data, count, result);
    case 15:
        return divide<15>(data, count, result);
    case 16:
        return divide<16>(data, count, result);
    case 17:
        return divide<17>(data, count, result);
    case 18:
        return divide<18>(data, count, result);
    case 20:
        return divide<20>(data, count, result);
    case 22:
        return divide<22>(data, count, result);
    case 24:
        return divide<24>(data, count, result);
    case 26:
        return divide<26>(data, count, result);
    case 28:
        return divide<28>(data, count, result);
    default: // The version table has no other.
        return divide<30>(data, count, result);
    }
}

namespace {

/// Exchanges, in squares of 2 * Rows bytes a side, the upper right and the lower left quarter.
template<int Rows>
inline void exchange(std::uint64_t (&rows)[8], std::uint64_t left)
{
    constexpr int bits = 8 * Rows;
#pragma GCC unroll 8
    for (int index = 0; index < 8; ++index) {
        if (index & Rows)
            continue;
        const std::uint64_t swapped = (rows[index] >> bits ^ rows[index + Rows]) & left;
        rows[index] ^= swapped << bits;
        rows[index + Rows] ^= swapped;
    }
}

/// Puts byte c of block b, of \a count blocks that lie \a stride bytes apart, at c * step + b:
/// eight bytes of eight blocks at a time.
void spread(const unsigned char *blocks, int stride, int count, int length, unsigned char *result,
            int step)
{
    int block = 0;
    for (; block + 8 <= count; block += 8, blocks += 8 * stride) {
        int column = 0;
        for (; column + 8 <= length; column += 8) {
            std::uint64_t rows[8];
#pragma GCC unroll 8
            for (int index = 0; index < 8; ++index)
                rows[index] = load(blocks + index * stride + column);
            exchange<4>(rows, 0x00000000ffffffffull);
            exchange<2>(rows, 0x0000ffff0000ffffull);
            exchange<1>(rows, 0x00ff00ff00ff00ffull);
#pragma GCC unroll 8
            for (int index = 0; index < 8; ++index)
                std::memcpy(result + (column + index) * step + block, &rows[index], 8);
        }
        for (; column < length; ++column) {
            for (int index = 0; index < 8; ++index)
                result[column * step + block + index] = blocks[index * stride + column];
        }
    }
    for (; block < count; ++block, blocks += stride) {
        for (int column = 0; column < length; ++column)
            result[column * step + block] = blocks[column];
    }
}

constexpr int MaximumBlocks = 81;
constexpr int CorrectionStride = 32;

unsigned char corrections[MaximumBlocks * CorrectionStride];

} // namespace

void interleave(int level, int version, const unsigned char *data, unsigned char *codewords)
{
    const VersionRow &row = versionTable[version];
    const int blocks = row.blockCount(level);
    const int correction = row.correction(level);
    const int shorter = row.groups[level][0].blocks;
    const int length = row.groups[level][0].data;
    const unsigned char *longer = data + shorter * length;

    for (int block = 0; block < blocks; ++block) {
        const bool isLonger = block >= shorter;
        const unsigned char *first =
            isLonger ? longer + (block - shorter) * (length + 1) : data + block * length;
        correctionCodewords(first, length + isLonger, correction,
                            corrections + block * CorrectionStride);
    }

    spread(data, length, shorter, length, codewords, blocks);
    spread(longer, length + 1, blocks - shorter, length, codewords + shorter, blocks);
    codewords += blocks * length;
    for (int block = shorter; block < blocks; ++block, longer += length + 1)
        *codewords++ = longer[length];
    spread(corrections, CorrectionStride, blocks, correction, codewords, blocks);
}

} // namespace om::controls::qr
