// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string>
#include <vector>

/// A second way to the same symbols, made to be obviously right: a byte a module, a bit a time,
/// every rule as it is worded. It shares nothing with the encoder but the table of versions.
namespace slow {

using Bytes = std::vector<unsigned char>;

/// What a byte of the matrix says about its module.
enum Flag {
    Masked = 0x01, ///< A data module that is dark after masking.
    Data = 0x02, ///< The bit that a data module shows before masking.
    Dark = 0x10, ///< A dark function module.
    Function = 0x20, ///< A module that masking never touches.
};

/// A symbol as bytes of flags.
struct Matrix
{
    int size = 0;
    Bytes flags;

    explicit Matrix(int modules)
        : size(modules)
        , flags(static_cast<std::size_t>(modules * modules), 0)
    {
    }

    unsigned char &at(int x, int y) { return flags[static_cast<std::size_t>(y * size + x)]; }
    unsigned char at(int x, int y) const { return flags[static_cast<std::size_t>(y * size + x)]; }
    bool dark(int x, int y) const { return at(x, y) & (Dark | Masked); }
    /// Light outside.
    bool darkOrOutside(int x, int y) const;
};

struct Penalty
{
    int runs = 0; ///< In points.
    int blocks = 0; ///< How many.
    int finderLike = 0; ///< How many.
    int darkModules = 0;
    int points = 0; ///< All rules together.
};

/// 0 when the text does not fit.
int version(int level, int requested, const std::string &text);
std::vector<bool> dataBits(int level, int version, const std::string &text);
Bytes dataCodewords(int level, int version, const std::string &text);
int multiply(int a, int b);
Bytes correction(const Bytes &block, int degree);
Bytes allCodewords(int level, int version, const Bytes &data);
void placeFunctionPatterns(int version, Matrix &matrix);
void placeCodewords(const Bytes &codewords, Matrix &matrix);
bool condition(int mask, int x, int y);
void applyMask(int mask, Matrix &matrix);
void placeFormat(int level, int mask, Matrix &matrix);
Penalty score(const Matrix &matrix);
int bestMask(int level, Matrix &matrix);
Bytes packed(const Matrix &matrix);

/// A whole symbol; size 0 when the text does not fit.
struct Symbol
{
    int size = 0;
    int mask = -1;
    Bytes result;
};

Symbol encode(int level, int requested, const std::string &text);

} // namespace slow
