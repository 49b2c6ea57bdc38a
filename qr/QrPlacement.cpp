// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <algorithm>

namespace om::controls::qr {

namespace {

/// The bits of the message, most significant first, and zeros behind them.
class MessageBits
{
public:
    MessageBits(const unsigned char *message, int count)
        : m_next(message)
        , m_end(message + count)
    {
    }

    /// The next one, 0 or 1.
    std::uint64_t take()
    {
        if (m_left == 0) {
            load();
        }
        --m_left;
        const std::uint64_t bit = m_bits >> 63;
        m_bits <<= 1;
        return bit;
    }

private:
    void load()
    {
        for (int byte = 0; byte < 8; ++byte) {
            m_bits = m_bits << 8 | (m_next < m_end ? *m_next++ : 0u);
        }
        m_left = 64;
    }

    const unsigned char *m_next;
    const unsigned char *m_end;
    std::uint64_t m_bits = 0; ///< The next ones, of which m_left are not taken.
    int m_left = 0;
};

/// Fills one word of a pair of columns, row by row: the module of the right one, then of the left.
/// The words given are those of the right one; those of the left lie in front of them.
void placeInPair(MessageBits &bits, bool upwards, int rows, const std::uint64_t *function,
                 std::uint64_t *columns)
{
    MessageBits next = bits; // A copy that the processor's registers can hold.
    const std::uint64_t functionRight = function[0];
    const std::uint64_t functionLeft = function[-1];
    std::uint64_t right = 0;
    std::uint64_t left = 0;
    int shift = upwards ? 64 - rows : 63;
    const int step = upwards ? 1 : -1;
    for (int row = 0; row < rows; ++row, shift += step) {
        if (!(functionRight >> shift & 1)) {
            right |= next.take() << shift;
        }
        if (!(functionLeft >> shift & 1)) {
            left |= next.take() << shift;
        }
    }
    columns[0] |= right;
    columns[-1] |= left;
    bits = next;
}

/// Exchanges, in all squares of twice as many modules a side, the upper right and the lower left
/// quarter of \a distance modules a side. \a left has the left halves of all squares set.
void exchangeQuarters(std::uint64_t (&lines)[64], int distance, std::uint64_t left)
{
    for (int line = 0; line < 64; ++line) {
        if (line & distance) {
            continue;
        }
        const std::uint64_t changed = (lines[line] << distance ^ lines[line + distance]) & left;
        lines[line] ^= changed >> distance;
        lines[line + distance] ^= changed;
    }
}

} // namespace

void placeCodewords(const unsigned char *message, int count, Symbol &symbol)
{
    MessageBits bits(message, count);
    const int words = wordsOf(symbol.size);
    bool upwards = true;
    for (int right = symbol.size - 1; right > 0; right -= 2, upwards = !upwards) {
        if (right == TimingLine) { // The pairs step over it.
            --right;
        }
        for (int step = 0; step < words; ++step) {
            const int word = upwards ? words - 1 - step : step;
            const int rows = std::min(symbol.size - 64 * word, 64);
            placeInPair(bits, upwards, rows, symbol.function.first(word) + right,
                        symbol.columns.first(word) + right);
        }
    }
}

void transpose(Symbol &symbol)
{
    const int words = wordsOf(symbol.size);
    for (int across = 0; across < words; ++across) {
        for (int down = 0; down < words; ++down) {
            // A square of 64 x 64 modules. The margin and, in the last square, what lies behind it
            // is 0 or overwritten.
            std::uint64_t lines[64];
            for (int line = 0; line < 64; ++line) {
                const int x = 64 * across + line;
                lines[line] = x < symbol.size ? symbol.columns.first(down)[x] : 0;
            }
            exchangeQuarters(lines, 32, 0xffffffff00000000);
            exchangeQuarters(lines, 16, 0xffff0000ffff0000);
            exchangeQuarters(lines, 8, 0xff00ff00ff00ff00);
            exchangeQuarters(lines, 4, 0xf0f0f0f0f0f0f0f0);
            exchangeQuarters(lines, 2, 0xcccccccccccccccc);
            exchangeQuarters(lines, 1, 0xaaaaaaaaaaaaaaaa);
            for (int line = 0; line < 64 && 64 * down + line < symbol.size; ++line) {
                symbol.rows.first(across)[64 * down + line] = lines[line];
            }
        }
    }
}

} // namespace om::controls::qr
