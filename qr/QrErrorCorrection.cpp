// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrGaloisField.h"
#include "qr/QrStages.h"

namespace om::controls::qr {

namespace {

constexpr int PolynomialWords = 4;

/// The coefficients of a polynomial below a degree of 32, the highest in the most significant byte
/// of the first word: adding polynomials is adding words without carry.
struct Polynomial
{
    std::uint64_t words[PolynomialWords] = {};

    constexpr void setCoefficient(int index, std::uint8_t value)
    {
        words[index / 8] |= std::uint64_t(value) << (56 - 8 * (index % 8));
    }

    std::uint8_t coefficient(int index) const
    {
        return static_cast<std::uint8_t>(words[index / 8] >> (56 - 8 * (index % 8)));
    }

    /// Takes the first coefficient away and multiplies the rest by x.
    void advance()
    {
        for (int word = 0; word + 1 < PolynomialWords; ++word) {
            words[word] = words[word] << 8 | words[word + 1] >> 56;
        }
        words[PolynomialWords - 1] <<= 8;
    }

    void add(const Polynomial &other)
    {
        for (int word = 0; word < PolynomialWords; ++word) {
            words[word] ^= other.words[word];
        }
    }
};

/// The multiples of a generator polynomial by which a remainder is reduced: one for each value of
/// the lower and of the upper half of a byte, so that two of them make any multiple. The leading
/// coefficient is left out: it takes away the one that is reduced.
struct Multiples
{
    Polynomial low[16];
    Polynomial high[16];

    explicit constexpr Multiples(int degree)
    {
        const GeneratorPolynomial generator(degree);
        for (int value = 0; value < 16; ++value) {
            for (int index = 0; index < degree; ++index) {
                const int coefficient = generator.coefficients[index];
                low[value].setCoefficient(index, field.product(value, coefficient));
                high[value].setCoefficient(index, field.product(value << 4, coefficient));
            }
        }
    }
};

/// The degrees that the version table has.
constexpr Multiples multiples[] = {
    Multiples(7),
    Multiples(10),
    Multiples(13),
    Multiples(15),
    Multiples(16),
    Multiples(17),
    Multiples(18),
    Multiples(20),
    Multiples(22),
    Multiples(24),
    Multiples(26),
    Multiples(28),
    Multiples(MaximumDegree),
};
constexpr std::int8_t multiplesOfDegree[MaximumDegree + 1] = {
    -1, -1, -1, -1, -1, -1, -1, 0,  -1, -1, 1,  -1, -1, 2,  -1, 3,
    4,  5,  6,  -1, 7,  -1, 8,  -1, 9,  -1, 10, -1, 11, -1, 12,
};

} // namespace

void correctionCodewords(const unsigned char *data, int count, int degree,
                         unsigned char *correction)
{
    const Multiples &generator = multiples[multiplesOfDegree[degree]];
    Polynomial remainder;
    for (int index = 0; index < count; ++index) {
        const int leading = data[index] ^ remainder.coefficient(0);
        remainder.advance();
        remainder.add(generator.low[leading & 15]);
        remainder.add(generator.high[leading >> 4]);
    }
    for (int index = 0; index < degree; ++index) {
        correction[index] = remainder.coefficient(index);
    }
}

void constructMessage(int level, int version, const unsigned char *data, unsigned char *message)
{
    const VersionRow &row = versionTable[version];
    const int blocks = row.blockCount(level);
    const int degree = row.correction(level);
    const int shorter = row.groups[level][0].blocks;
    const int columns = row.groups[level][0].data;

    // Each block goes down a column of its own. What the longer blocks have more stands behind all
    // full columns, then the error correction codewords.
    unsigned char *extra = message + blocks * columns;
    unsigned char *corrections = extra + (blocks - shorter);
    for (int block = 0; block < blocks; ++block) {
        const int count = columns + (block >= shorter);
        unsigned char correction[MaximumDegree];
        correctionCodewords(data, count, degree, correction);

        for (int column = 0; column < columns; ++column) {
            message[column * blocks + block] = data[column];
        }
        if (count > columns) {
            *extra++ = data[columns];
        }
        for (int index = 0; index < degree; ++index) {
            corrections[index * blocks + block] = correction[index];
        }
        data += count;
    }
}

} // namespace om::controls::qr
