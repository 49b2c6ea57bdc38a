// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

// The arithmetic of the error correction, computed by the compiler: tables are made of it.

#include <cstdint>

namespace om::controls::qr {

/// The field GF(256) whose elements are polynomials modulo x^8 + x^4 + x^3 + x^2 + 1.
struct GaloisField
{
    std::uint8_t power[510] = {}; ///< Of 2, twice over, so that two logarithms can be added.
    std::uint8_t logarithm[256] = {}; ///< To the base 2; that of 0 is not used.

    constexpr GaloisField()
    {
        constexpr int polynomial = 0x11d;
        int value = 1;
        for (int exponent = 0; exponent < 255; ++exponent) {
            power[exponent] = static_cast<std::uint8_t>(value);
            power[exponent + 255] = static_cast<std::uint8_t>(value);
            logarithm[value] = static_cast<std::uint8_t>(exponent);
            value = value & 0x80 ? value << 1 ^ polynomial : value << 1;
        }
    }

    constexpr std::uint8_t product(int a, int b) const
    {
        return a && b ? power[logarithm[a] + logarithm[b]] : std::uint8_t(0);
    }
};

constexpr GaloisField field;

/// Of the generator polynomials that the version table needs.
constexpr int MaximumDegree = 30;

/// The product of x - 2^i for all i below the degree. The leading coefficient is 1 and is left
/// out; then the highest comes first.
struct GeneratorPolynomial
{
    std::uint8_t coefficients[MaximumDegree] = {};

    explicit constexpr GeneratorPolynomial(int degree)
    {
        coefficients[degree - 1] = 1;
        for (int root = 0; root < degree; ++root) {
            for (int index = 0; index < degree; ++index) {
                const int next = index + 1 < degree ? coefficients[index + 1] : 0;
                coefficients[index] = static_cast<std::uint8_t>(
                    field.product(coefficients[index], field.power[root]) ^ next);
            }
        }
    }
};

} // namespace om::controls::qr
