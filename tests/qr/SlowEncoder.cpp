// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/qr/SlowEncoder.h"

#include "qr/QrTables.h"

#include <algorithm>
#include <cstdlib>

namespace slow {

using om::controls::qr::versionTable;

namespace {

void append(std::vector<bool> &bits, int value, int count)
{
    for (int bit = count - 1; bit >= 0; --bit)
        bits.push_back(value >> bit & 1);
}

int countWidth(int version)
{
    return version <= 9 ? 8 : 16;
}

void setFunction(Matrix &matrix, int x, int y, bool dark)
{
    matrix.at(x, y) = static_cast<unsigned char>(Function | (dark ? Dark : 0));
}

/// The code word of \a data in a BCH code: division by long hand.
int bch(int data, int dataBits, int generator, int checkBits)
{
    std::vector<int> rest;
    for (int bit = dataBits - 1; bit >= 0; --bit)
        rest.push_back(data >> bit & 1);
    rest.resize(static_cast<std::size_t>(dataBits + checkBits), 0);
    for (int first = 0; first < dataBits; ++first) {
        if (!rest[static_cast<std::size_t>(first)])
            continue;
        for (int bit = 0; bit <= checkBits; ++bit)
            rest[static_cast<std::size_t>(first + bit)] ^= generator >> (checkBits - bit) & 1;
    }
    int code = data;
    for (int bit = 0; bit < checkBits; ++bit)
        code = code * 2 + rest[static_cast<std::size_t>(dataBits + bit)];
    return code;
}

} // namespace

bool Matrix::darkOrOutside(int x, int y) const
{
    return x >= 0 && y >= 0 && x < size && y < size && dark(x, y);
}

int version(int level, int requested, const std::string &text)
{
    int first = requested >= 27 ? 27 : requested >= 10 ? 10 : 1;
    for (; first <= 40; ++first) {
        const int bits = 4 + countWidth(first) + 8 * int(text.size());
        if (bits <= 8 * versionTable[first].data[level])
            break;
    }
    if (first > 40 || (requested && first > requested))
        return 0;
    return requested ? requested : first;
}

std::vector<bool> dataBits(int level, int version, const std::string &text)
{
    std::vector<bool> bits;
    append(bits, 4, 4);
    append(bits, int(text.size()), countWidth(version));
    for (char character : text)
        append(bits, static_cast<unsigned char>(character), 8);
    const int capacity = 8 * versionTable[version].data[level];
    for (int zeros = 0; zeros < 4 && int(bits.size()) < capacity; ++zeros)
        bits.push_back(false);
    return bits;
}

Bytes dataCodewords(int level, int version, const std::string &text)
{
    const std::vector<bool> bits = dataBits(level, version, text);
    Bytes codewords;
    for (std::size_t first = 0; first < bits.size(); first += 8) {
        int codeword = 0;
        for (std::size_t bit = first; bit < first + 8; ++bit)
            codeword = 2 * codeword + (bit < bits.size() && bits[bit]);
        codewords.push_back(static_cast<unsigned char>(codeword));
    }
    for (bool first = true; codewords.size() < versionTable[version].data[level]; first = !first)
        codewords.push_back(first ? 236 : 17);
    return codewords;
}

int multiply(int a, int b)
{
    int product = 0;
    for (; b; b >>= 1) {
        if (b & 1)
            product ^= a;
        a <<= 1;
        if (a & 0x100)
            a ^= 0x11d;
    }
    return product;
}

Bytes correction(const Bytes &block, int degree)
{
    // The generator polynomial is the product of all x - 2^i.
    std::vector<int> generator{1};
    int root = 1;
    for (int factor = 0; factor < degree; ++factor) {
        std::vector<int> product(generator.size() + 1, 0);
        for (std::size_t index = 0; index < generator.size(); ++index) {
            product[index] ^= generator[index];
            product[index + 1] ^= multiply(generator[index], root);
        }
        generator = product;
        root = multiply(root, 2);
    }

    Bytes rest = block;
    rest.resize(block.size() + static_cast<std::size_t>(degree), 0);
    for (std::size_t first = 0; first < block.size(); ++first) {
        const int factor = rest[first];
        for (std::size_t index = 0; index < generator.size(); ++index)
            rest[first + index] ^= static_cast<unsigned char>(multiply(generator[index], factor));
    }
    return Bytes(rest.begin() + static_cast<long>(block.size()), rest.end());
}

Bytes allCodewords(int level, int version, const Bytes &data)
{
    std::vector<Bytes> blocks;
    std::vector<Bytes> corrections;
    auto next = data.begin();
    for (const auto &group : versionTable[version].groups[level]) {
        for (int block = 0; block < group.blocks; ++block) {
            blocks.emplace_back(next, next + group.data);
            corrections.push_back(correction(blocks.back(), group.total - group.data));
            next += group.data;
        }
    }
    Bytes codewords;
    for (const std::vector<Bytes> &parts : {blocks, corrections}) {
        for (std::size_t column = 0; column < parts.back().size(); ++column) {
            for (const Bytes &part : parts) {
                if (column < part.size())
                    codewords.push_back(part[column]);
            }
        }
    }
    return codewords;
}

void placeFunctionPatterns(int version, Matrix &matrix)
{
    const int size = matrix.size;
    for (int index = 0; index < size; ++index) {
        setFunction(matrix, 6, index, index % 2 == 0);
        setFunction(matrix, index, 6, index % 2 == 0);
    }

    std::vector<int> places{6};
    for (int index = 0; index < versionTable[version].alignmentCount; ++index)
        places.push_back(versionTable[version].alignments[index]);
    for (int centerX : places) {
        for (int centerY : places) {
            const bool left = centerX == 6;
            const bool top = centerY == 6;
            const bool right = centerX == size - 7;
            const bool bottom = centerY == size - 7;
            if ((left && top) || (left && bottom) || (right && top))
                continue;
            for (int x = -2; x <= 2; ++x) {
                for (int y = -2; y <= 2; ++y) {
                    const int ring = std::max(std::abs(x), std::abs(y));
                    setFunction(matrix, centerX + x, centerY + y, ring != 1);
                }
            }
        }
    }

    const int centers[3][2] = {{3, 3}, {size - 4, 3}, {3, size - 4}};
    for (const auto &center : centers) {
        for (int x = center[0] - 4; x <= center[0] + 4; ++x) {
            for (int y = center[1] - 4; y <= center[1] + 4; ++y) {
                if (x < 0 || y < 0 || x >= size || y >= size)
                    continue;
                const int ring = std::max(std::abs(x - center[0]), std::abs(y - center[1]));
                setFunction(matrix, x, y, ring != 2 && ring != 4);
            }
        }
    }

    for (int index = 0; index < 9; ++index) {
        if (index != 6) {
            setFunction(matrix, 8, index, false);
            setFunction(matrix, index, 8, false);
        }
    }
    for (int index = 1; index <= 8; ++index) {
        setFunction(matrix, size - index, 8, false);
        setFunction(matrix, 8, size - index, index == 8);
    }

    if (version >= 7) {
        const int information = bch(version, 6, 0x1f25, 12);
        for (int bit = 0; bit < 18; ++bit) {
            setFunction(matrix, bit / 3, size - 11 + bit % 3, information >> bit & 1);
            setFunction(matrix, size - 11 + bit % 3, bit / 3, information >> bit & 1);
        }
    }
}

void placeCodewords(const Bytes &codewords, Matrix &matrix)
{
    std::size_t position = 0;
    bool upwards = true;
    for (int right = matrix.size - 1; right > 0; right -= 2) {
        if (right == 6)
            right = 5;
        for (int step = 0; step < matrix.size; ++step) {
            const int y = upwards ? matrix.size - 1 - step : step;
            for (int x = right; x >= right - 1; --x) {
                if (matrix.at(x, y) & Function || position >= 8 * codewords.size())
                    continue;
                if (codewords[position / 8] >> (7 - position % 8) & 1)
                    matrix.at(x, y) |= Data;
                ++position;
            }
        }
        upwards = !upwards;
    }
}

bool condition(int mask, int x, int y)
{
    const int i = y;
    const int j = x;
    const bool conditions[8] = {
        (i + j) % 2 == 0,
        i % 2 == 0,
        j % 3 == 0,
        (i + j) % 3 == 0,
        (i / 2 + j / 3) % 2 == 0,
        (i * j) % 2 + (i * j) % 3 == 0,
        ((i * j) % 2 + (i * j) % 3) % 2 == 0,
        ((i + j) % 2 + (i * j) % 3) % 2 == 0,
    };
    return conditions[mask];
}

void applyMask(int mask, Matrix &matrix)
{
    for (int y = 0; y < matrix.size; ++y) {
        for (int x = 0; x < matrix.size; ++x) {
            unsigned char &flags = matrix.at(x, y);
            if (flags & Function)
                continue;
            const bool data = flags & Data;
            flags = static_cast<unsigned char>((flags & ~Masked)
                                               | (data != condition(mask, x, y) ? Masked : 0));
        }
    }
}

void placeFormat(int level, int mask, Matrix &matrix)
{
    const int codes[4] = {1, 0, 3, 2};
    const int information = bch(codes[level] * 8 + mask, 5, 0x537, 10) ^ 0x5412;
    // Where the bits 0 to 14 stand: first around the upper left finder, then along the others.
    const int size = matrix.size;
    const int first[15][2] = {{8, 0}, {8, 1}, {8, 2}, {8, 3}, {8, 4}, {8, 5}, {8, 7}, {8, 8},
                              {7, 8}, {5, 8}, {4, 8}, {3, 8}, {2, 8}, {1, 8}, {0, 8}};
    for (int bit = 0; bit < 15; ++bit) {
        const bool dark = information >> bit & 1;
        setFunction(matrix, first[bit][0], first[bit][1], dark);
        if (bit < 8)
            setFunction(matrix, size - 1 - bit, 8, dark);
        else
            setFunction(matrix, 8, size - 7 + (bit - 8), dark);
    }
}

Penalty score(const Matrix &matrix)
{
    const int size = matrix.size;
    Penalty penalty;
    for (int direction = 0; direction < 2; ++direction) {
        for (int line = 0; line < size; ++line) {
            const auto dark = [&](int position) {
                return direction ? matrix.darkOrOutside(line, position)
                                 : matrix.darkOrOutside(position, line);
            };
            for (int start = 0; start < size - 4;) {
                int length = 1;
                while (start + length < size && dark(start + length) == dark(start))
                    ++length;
                if (length >= 5)
                    penalty.runs += 3 + (length - 5);
                start += length;
            }
            for (int start = 0; start < size - 6; ++start) {
                const bool pattern = dark(start) && !dark(start + 1) && dark(start + 2)
                    && dark(start + 3) && dark(start + 4) && !dark(start + 5) && dark(start + 6);
                if (!pattern || dark(start - 1) || dark(start + 7))
                    continue;
                const bool before = !dark(start - 4) && !dark(start - 3) && !dark(start - 2);
                const bool behind = !dark(start + 8) && !dark(start + 9) && !dark(start + 10);
                if (before || behind)
                    ++penalty.finderLike;
            }
        }
    }
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (matrix.dark(x, y))
                ++penalty.darkModules;
            if (x + 1 < size && y + 1 < size) {
                const int darks = matrix.dark(x, y) + matrix.dark(x + 1, y) + matrix.dark(x, y + 1)
                    + matrix.dark(x + 1, y + 1);
                if (darks == 0 || darks == 4)
                    ++penalty.blocks;
            }
        }
    }
    const int percent = 100 * penalty.darkModules / (size * size);
    penalty.points = penalty.runs + 3 * penalty.blocks + 40 * penalty.finderLike
        + 10 * (std::abs(50 - percent) / 5);
    return penalty;
}

int bestMask(int level, Matrix &matrix)
{
    int best = -1;
    int lowest = 0;
    for (int mask = 0; mask < 8; ++mask) {
        applyMask(mask, matrix);
        placeFormat(level, mask, matrix);
        const int points = score(matrix).points;
        if (best < 0 || points < lowest) {
            best = mask;
            lowest = points;
        }
    }
    return best;
}

Bytes packed(const Matrix &matrix)
{
    Bytes result(3917, 0);
    for (int y = 0; y < matrix.size; ++y) {
        for (int x = 0; x < matrix.size; ++x) {
            const int k = y * matrix.size + x;
            if (matrix.dark(x, y))
                result[static_cast<std::size_t>(k / 8)] |=
                    static_cast<unsigned char>(0x80 >> k % 8);
        }
    }
    return result;
}

Symbol encode(int level, int requested, const std::string &text)
{
    Symbol symbol;
    const int chosen = text.empty() ? 0 : version(level, requested, text);
    if (!chosen)
        return symbol;
    Matrix matrix(4 * chosen + 17);
    placeFunctionPatterns(chosen, matrix);
    placeCodewords(allCodewords(level, chosen, dataCodewords(level, chosen, text)), matrix);
    symbol.size = matrix.size;
    symbol.mask = bestMask(level, matrix);
    applyMask(symbol.mask, matrix);
    placeFormat(level, symbol.mask, matrix);
    symbol.result = packed(matrix);
    return symbol;
}

} // namespace slow
