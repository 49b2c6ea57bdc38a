// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <cstring>

namespace om::controls::qr {

namespace {

/// The conditions of the masks as words, for the lines of a period.
struct MaskPatterns
{
    std::uint64_t columns[MaskCount][BitMatrix::Words][MaskPeriod] = {};
    std::uint64_t rows[MaskCount][BitMatrix::Words][MaskPeriod] = {};

    constexpr MaskPatterns()
    {
        for (int mask = 0; mask < MaskCount; ++mask) {
            for (int place = 0; place < 64 * BitMatrix::Words; ++place) {
                const std::uint64_t bit = 1ull << 63 >> place % 64;
                for (int line = 0; line < MaskPeriod; ++line) {
                    if (maskCondition(mask, line, place)) {
                        columns[mask][place / 64][line] |= bit;
                    }
                    if (maskCondition(mask, place, line)) {
                        rows[mask][place / 64][line] |= bit;
                    }
                }
            }
        }
    }
};

constexpr MaskPatterns maskPatterns;

/// Inverts where the pattern says so, but for the function modules.
void invert(int size, const BitMatrix &modules, const BitMatrix &function,
            const std::uint64_t (&pattern)[BitMatrix::Words][MaskPeriod], BitMatrix &masked)
{
    for (int word = 0; word < wordsOf(size); ++word) {
        const std::uint64_t inside = firstPlaces(size - 64 * word);
        int phase = 0;
        for (int line = 0; line < size; ++line) {
            const std::uint64_t data = inside & ~function.first(word)[line];
            masked.first(word)[line] = modules.first(word)[line] ^ (data & pattern[word][phase]);
            phase = phase + 1 < MaskPeriod ? phase + 1 : 0;
        }
        std::memset(masked.first(word) + size, 0, BitMatrix::Margin * sizeof(std::uint64_t));
    }
}

/// In each four bits of a word, how many of them are set.
std::uint64_t countInFours(std::uint64_t bits)
{
    bits -= bits >> 1 & 0x5555555555555555;
    return (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
}

/// The sum of all fours of bits, each up to 15.
int addFours(std::uint64_t counts)
{
    const std::uint64_t bytes = (counts & 0x0f0f0f0f0f0f0f0f) + (counts >> 4 & 0x0f0f0f0f0f0f0f0f);
    return static_cast<int>(bytes * 0x0101010101010101 >> 56);
}

/// How many bits are set.
int countBits(std::uint64_t bits)
{
    return addFours(countInFours(bits));
}

/// 64 places of all lines beside one another: what a rule finds from line to line in one place is
/// counted in all 64 at once. Lines count from the first of the symbol; those around it are light.
class Band
{
public:
    /// Takes the places of one word.
    void read(int size, const BitMatrix &matrix, int word);

    /// Points for runs: of n modules, n - 2 when n is 5 or more. Such a run holds n - 4 windows of
    /// five modules, which give one each; the first of them gives two more.
    int runs() const
    {
        int points = 0;
        std::uint64_t before = 0;
        for (int line = 0; line < m_size - 4; ++line) {
            const std::uint64_t windows = plain(line) & plain(line + 1) & m_places;
            const std::uint64_t begins = windows & ~before;
            points += addFours(countInFours(windows) + 2 * countInFours(begins));
            before = windows;
        }
        return points;
    }

    /// Dark, light, three dark, light, dark, with light before and behind, and three more light
    /// modules before or behind: from line to line that is three changes, twice the same, three
    /// changes, and on one side three times the same.
    int finderLike() const
    {
        int patterns = 0;
        for (int line = 0; line < m_size - 6; ++line) {
            const std::uint64_t middle = m_lines[line + 3] & ~change(line + 2) & ~change(line + 3);
            std::uint64_t found = middle & alternating(line - 1) & alternating(line + 4)
                & (plain(line - 4) | plain(line + 7));
            for (; found; found &= found - 1) { // Rarely more than one.
                ++patterns;
            }
        }
        return patterns;
    }

    /// Squares of 2 x 2 modules of one colour. \a next are the places that follow, if any.
    int blocks(const std::uint64_t *next) const
    {
        // The last place of the symbol begins no square.
        const std::uint64_t places = next ? m_places : m_places & m_places << 1;
        int squares = 0;
        std::uint64_t across = changeAcross(0, next);
        for (int line = 0; line < m_size - 1; ++line) {
            const std::uint64_t acrossNext = changeAcross(line + 1, next);
            squares += countBits(places & ~(change(line) | across | acrossNext));
            across = acrossNext;
        }
        return squares;
    }

    int dark() const
    {
        int modules = 0;
        for (int line = 0; line < m_size; ++line) {
            modules += countBits(m_lines[line]);
        }
        return modules;
    }

private:
    static constexpr int Lines = BitMatrix::Margin + MaximumSize + BitMatrix::Margin;

    /// Where a line differs from the next.
    std::uint64_t change(int line) const { return m_changes[BitMatrix::Margin + line]; }
    /// Where four lines are alike.
    std::uint64_t plain(int line) const { return m_plains[BitMatrix::Margin + line]; }
    /// Where each of four lines differs from the next.
    std::uint64_t alternating(int line) const { return m_alternatings[BitMatrix::Margin + line]; }

    /// Where a line differs from one place to the next.
    std::uint64_t changeAcross(int line, const std::uint64_t *next) const
    {
        return m_lines[line] ^ (m_lines[line] << 1 | (next ? next[line] >> 63 : 0));
    }

    int m_size;
    std::uint64_t m_places; ///< Those that lie in the symbol.
    const std::uint64_t *m_lines;
    std::uint64_t m_changes[Lines];
    std::uint64_t m_plains[Lines];
    std::uint64_t m_alternatings[Lines];
};

void Band::read(int size, const BitMatrix &matrix, int word)
{
    m_size = size;
    m_places = firstPlaces(size - 64 * word);
    m_lines = matrix.first(word);

    // The lines in front of the symbol are alike.
    std::uint64_t first = 0;
    std::uint64_t second = 0;
    for (int index = 2; index < size + 2 * BitMatrix::Margin - 1; ++index) {
        const std::uint64_t *line = m_lines + (index - BitMatrix::Margin);
        const std::uint64_t third = line[0] ^ line[1];
        m_changes[index] = third;
        m_plains[index - 2] = ~(first | second | third);
        m_alternatings[index - 2] = first & second & third;
        first = second;
        second = third;
    }
}

/// Scratch of countFeatures().
Band band;

} // namespace

void applyMask(int mask, const Symbol &symbol, MaskedSymbol &masked)
{
    masked.size = symbol.size;
    invert(symbol.size, symbol.columns, symbol.function, maskPatterns.columns[mask],
           masked.columns);
    invert(symbol.size, symbol.rows, symbol.function, maskPatterns.rows[mask], masked.rows);
}

void placeFormatInformation(int level, int mask, MaskedSymbol &masked)
{
    const int information = formatInformation(level, mask);
    for (int bit = 0; bit < FormatBits; ++bit) {
        if (!(information >> bit & 1)) {
            continue;
        }
        for (const Place &place : formatPlaces(bit, masked.size)) {
            masked.columns.set(place.x, place.y);
            masked.rows.set(place.y, place.x);
        }
    }
}

Features countFeatures(const MaskedSymbol &masked)
{
    Features features = {};
    const int words = wordsOf(masked.size);
    for (int word = 0; word < words; ++word) {
        // Columns, from one to the next, read along the rows.
        band.read(masked.size, masked.columns, word);
        features.runs += band.runs();
        features.finderLike += band.finderLike();
        // Rows read along the columns.
        band.read(masked.size, masked.rows, word);
        features.runs += band.runs();
        features.finderLike += band.finderLike();
        // These have no direction.
        features.blocks += band.blocks(word + 1 < words ? masked.rows.first(word + 1) : nullptr);
        features.dark += band.dark();
    }
    return features;
}

int chooseMask(int level, const Symbol &symbol, MaskedSymbol &masked)
{
    int penalties[MaskCount];
    for (int mask = 0; mask < MaskCount; ++mask) {
        applyMask(mask, symbol, masked);
        placeFormatInformation(level, mask, masked);
        penalties[mask] = penalty(symbol.size, countFeatures(masked));
    }
    return lowestPenalty(penalties);
}

} // namespace om::controls::qr
