// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QTest>

#ifdef OMBREL_QR_ACCELERATED

#include "qr/accelerated/Encoder.h"
#include "qr/accelerated/Stages.h"
#include "tests/qr/Grids.h"
#include "tests/qr/SlowEncoder.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>

using namespace om::controls;
using namespace om::controls::qr::accelerated;

namespace {

Boards boards;

/// Fills the boards with the modules of a matrix before masking.
void fill(const slow::Matrix &matrix)
{
    clearBoards(matrix.size, boards);
    for (int x = 0; x < matrix.size; ++x) {
        for (int y = 0; y < matrix.size; ++y) {
            const std::uint64_t bit = 1ull << (63 - y % 64);
            if (matrix.at(x, y) & slow::Function)
                boards.function.words[y / 64][x] |= bit;
            if (matrix.at(x, y) & (slow::Dark | slow::Data))
                boards.modules.words[y / 64][x] |= bit;
        }
    }
    cutStrips(matrix.size, boards);
}

/// Calls \a test with each set of instructions that this processor has.
void forEachSet(const std::function<void(Instructions)> &test)
{
    for (int set = 0; set < InstructionSets; ++set) {
        if (available(Instructions(set)))
            test(Instructions(set));
    }
}

} // namespace

/// The stages of the accelerated path, with each set of instructions that this processor has.
class TestAccelerated : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void correction();
    void interleaving();
    void functionPatterns_data();
    void functionPatterns();
    void placement_data();
    void placement();
    void strips();
    void maskPatterns();
    void everyMask();
    void penaltyRules_data();
    void penaltyRules();
    void penaltyOfRandomSymbols_data();
    void penaltyOfRandomSymbols();
    void lowerMaskOnTies();
    void packing_data();
    void packing();
};

void TestAccelerated::correction()
{
    QRandomGenerator random(3);
    for (int degree : {7, 10, 13, 15, 16, 17, 18, 20, 22, 24, 26, 28, 30}) {
        for (int count = 1; count <= 123; ++count) {
            // As many blocks as show each of them computed alone and beside another.
            constexpr int blocks = 5;
            slow::Bytes data;
            slow::Bytes expected;
            for (int block = 0; block < blocks; ++block) {
                const std::string text = grids::randomText(random, count);
                data.insert(data.end(), text.begin(), text.end());
                const slow::Bytes correction =
                    slow::correction(slow::Bytes(text.begin(), text.end()), degree);
                QCOMPARE(int(correction.size()), degree);
                expected.insert(expected.end(), correction.begin(), correction.end());
                expected.resize(std::size_t(block + 1) * CorrectionStride, 0);
            }
            forEachSet([&](Instructions instructions) {
                for (int used = 0; used <= blocks; ++used) {
                    const std::size_t end = std::size_t(used) * CorrectionStride;
                    slow::Bytes result(expected.size(), 0xff);
                    correctionCodewords(instructions, data.data(), count, degree, used,
                                        result.data());
                    QVERIFY2(std::memcmp(result.data(), expected.data(), end) == 0,
                             qPrintable(QString::number(degree)));
                    QVERIFY(std::all_of(result.begin() + std::ptrdiff_t(end), result.end(),
                                        [](unsigned char byte) { return byte == 0xff; }));
                }
            });
        }
    }
}

void TestAccelerated::interleaving()
{
    QRandomGenerator random(4);
    for (int version = 1; version <= 40; ++version) {
        for (int level = 0; level < 4; ++level) {
            const std::string text =
                grids::randomText(random, qr::versionTable[version].data[level]);
            const slow::Bytes data(text.begin(), text.end());
            const slow::Bytes expected = slow::allCodewords(level, version, data);
            QCOMPARE(int(expected.size()), int(qr::versionTable[version].total));
            forEachSet([&](Instructions instructions) {
                constexpr int room = qr::MaximumCodewords + SpreadExcess;
                slow::Bytes codewords(room + 1, 0x5a);
                interleave(instructions, level, version, data.data(), codewords.data());
                QCOMPARE(std::memcmp(codewords.data(), expected.data(), expected.size()), 0);
                QVERIFY(
                    std::all_of(codewords.begin() + qr::versionTable[version].total + SpreadExcess,
                                codewords.end(), [](unsigned char byte) { return byte == 0x5a; }));
            });
        }
    }
}

void TestAccelerated::functionPatterns_data()
{
    QTest::addColumn<int>("version");
    for (int version = 1; version <= 40; ++version)
        QTest::addRow("version %d", version) << version;
}

void TestAccelerated::functionPatterns()
{
    QFETCH(int, version);
    const slow::Matrix matrix = grids::functionPatterns(version);
    clearBoards(matrix.size, boards);
    placeFunctionPatterns(version, boards);
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return boards.function.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & slow::Function) != 0; });
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return boards.modules.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & slow::Dark) != 0; });
}

void TestAccelerated::placement_data()
{
    functionPatterns_data();
}

void TestAccelerated::placement()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(version));
    const int count = qr::versionTable[version].total;
    const std::string bytes = grids::randomText(random, count);
    const slow::Bytes codewords(bytes.begin(), bytes.end());
    slow::Matrix matrix = grids::functionPatterns(version);
    slow::placeCodewords(codewords, matrix);

    forEachSet([&](Instructions instructions) {
        clearBoards(matrix.size, boards);
        placeFunctionPatterns(version, boards);
        placeCodewords(instructions, matrix.size, codewords.data(), count, boards);
        COMPARE_GRIDS(
            matrix.size, [](int x, int y) { return boards.modules.at(x, y); },
            [&](int x, int y) { return (matrix.at(x, y) & (slow::Dark | slow::Data)) != 0; });
    });
}

void TestAccelerated::strips()
{
    for (int version : {1, 2, 3, 4, 12, 27, 28, 40}) {
        QRandomGenerator random(5);
        const slow::Matrix matrix = grids::unmasked(1, version, grids::randomText(random, 10));
        // What an earlier symbol left behind must not matter.
        std::memset(&boards, 0xff, sizeof boards);
        fill(matrix);
        const auto dark = [&](int x, int y) {
            return (matrix.at(x, y) & (slow::Dark | slow::Data)) != 0;
        };
        COMPARE_GRIDS(
            matrix.size, [](int x, int y) { return boards.columns.at(x, y); }, dark);
        COMPARE_GRIDS(
            matrix.size, [](int x, int y) { return boards.rows.at(y, x); }, dark);
        COMPARE_GRIDS(
            matrix.size, [](int x, int y) { return boards.free.at(x, y); },
            [&](int x, int y) { return !(matrix.at(x, y) & slow::Function); });

        // A narrow last strip: by rows in the upper half of a word, by columns in the lower.
        const int first = matrix.size - matrix.size % StripWidth;
        QCOMPARE(isShared(matrix.size, first / StripWidth), matrix.size - first < 16);
        if (matrix.size - first >= 16)
            continue;
        const auto bit = [](const std::uint32_t *lines, int line, int place) {
            return (lines[line] >> (31 - place) & 1) != 0;
        };
        const auto isIn = [&](int place) { return place < matrix.size - first; };
        for (int line = 0; line < matrix.size; ++line) {
            for (int place = 0; place < 16; ++place) {
                const int other = first + place;
                const std::uint32_t *modules = boards.shared.modules;
                QCOMPARE(bit(modules, line, place), isIn(place) && dark(other, line));
                QCOMPARE(bit(modules, line, 16 + place), isIn(place) && dark(line, other));
                const bool free = isIn(place) && !(matrix.at(other, line) & slow::Function);
                QCOMPARE(bit(boards.shared.free, line, place), free);
                QCOMPARE(bit(boards.shared.free, line, 16 + place), free);
            }
        }
    }
}

void TestAccelerated::maskPatterns()
{
    for (int mask = 0; mask < 8; ++mask) {
        for (int y = 0; y < 177; ++y) {
            for (int x = 0; x < 177; ++x) {
                const bool expected = slow::condition(mask, x, y);
                QCOMPARE(qr::maskCondition(mask, x, y), expected);
                const auto at = [&](bool byRows, int line, int position) {
                    const int strip = position / StripWidth;
                    return (maskPattern(byRows, strip).lines[line % qr::MaskPeriod][mask]
                                >> (31 - position % StripWidth)
                            & 1)
                        != 0;
                };
                QCOMPARE(at(true, y, x), expected);
                QCOMPARE(at(false, x, y), expected);

                const auto atShared = [&](int line, int position, int shift) {
                    const int strip = position / StripWidth;
                    return (sharedMaskPattern(strip).lines[line % qr::MaskPeriod][mask]
                                >> (31 - shift - position % StripWidth)
                            & 1)
                        != 0;
                };
                if (x % StripWidth < 16)
                    QCOMPARE(atShared(y, x, 0), expected);
                if (y % StripWidth < 16)
                    QCOMPARE(atShared(x, y, 16), expected);
            }
        }
    }
}

void TestAccelerated::everyMask()
{
    for (int version : {1, 4, 5, 7, 22, 40}) {
        for (int mask = 0; mask < 8; ++mask) {
            QRandomGenerator random(6);
            slow::Matrix matrix = grids::unmasked(2, version, grids::randomText(random, 9));
            fill(matrix);
            applyMask(2, mask, matrix.size, boards);
            slow::applyMask(mask, matrix);
            slow::placeFormat(2, mask, matrix);
            COMPARE_GRIDS(
                matrix.size, [](int x, int y) { return boards.rows.at(y, x); },
                [&](int x, int y) { return matrix.dark(x, y); });
        }
    }
}

void TestAccelerated::penaltyRules_data()
{
    grids::addPenaltyRows();
}

void TestAccelerated::penaltyRules()
{
    QFETCH(QString, row);
    QFETCH(int, runs);
    QFETCH(int, finderLike);

    // At places that lie in one strip and at places that span two.
    for (int size : {21, 49, 97, 177}) {
        for (int first : {0, 3, 27, size - row.size()}) {
            if (first + row.size() > size)
                continue;
            for (bool across : {true, false}) {
                slow::Matrix matrix = grids::crossed(size, row, first, across);
                if (first == 27 && size == 97) {
                    // The slow way itself finds what the row's name says.
                    const slow::Penalty alone = slow::score(matrix);
                    QCOMPARE(alone.runs, runs);
                    QCOMPARE(alone.finderLike, finderLike);
                }
                // The format information is placed on light modules.
                slow::Matrix format(size);
                slow::placeFormat(0, 0, format);
                for (int x = 0; x < size; ++x) {
                    for (int y = 0; y < size; ++y) {
                        if (format.at(x, y))
                            matrix.at(x, y) = slow::Function;
                    }
                }
                fill(matrix);
                slow::Matrix masked = matrix;
                slow::placeFormat(0, 0, masked);
                const slow::Penalty expected = slow::score(masked);
                forEachSet([&](Instructions instructions) {
                    MaskFeatures features;
                    countFeatures(instructions, 0, size, boards, features);
                    QCOMPARE(int(features.runs[0]), expected.runs);
                    QCOMPARE(int(features.blocks[0]), expected.blocks);
                    QCOMPARE(int(features.finderLike[0]), expected.finderLike);
                    QCOMPARE(int(features.dark[0]), expected.darkModules);
                });
            }
        }
    }
}

void TestAccelerated::penaltyOfRandomSymbols_data()
{
    functionPatterns_data();
}

void TestAccelerated::penaltyOfRandomSymbols()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(100 + version));
    const int size = qr::sizeOf(version);
    // Every density: sparse and dense boards have long runs, many blocks and patterns.
    for (int percent : {0, 10, 30, 50, 80, 100}) {
        slow::Matrix matrix = grids::randomlyFilled(version, percent, random);
        const int level = random.bounded(4);
        fill(matrix);
        forEachSet([&](Instructions instructions) {
            MaskFeatures features;
            countFeatures(instructions, level, size, boards, features);
            for (int mask = 0; mask < 8; ++mask) {
                slow::applyMask(mask, matrix);
                slow::placeFormat(level, mask, matrix);
                const slow::Penalty expected = slow::score(matrix);
                QCOMPARE(int(features.runs[mask]), expected.runs);
                QCOMPARE(int(features.blocks[mask]), expected.blocks);
                QCOMPARE(int(features.finderLike[mask]), expected.finderLike);
                QCOMPARE(int(features.dark[mask]), expected.darkModules);
            }
        });
    }
}

void TestAccelerated::lowerMaskOnTies()
{
    MaskFeatures features = {};
    for (unsigned &dark : features.dark)
        dark = 221;
    QCOMPARE(chooseMask(21, features), 0);
    features.runs[0] = 3;
    QCOMPARE(chooseMask(21, features), 1);
    for (int mask = 1; mask < 8; ++mask)
        features.blocks[mask] = 1;
    QCOMPARE(chooseMask(21, features), 0);
    features.blocks[5] = features.blocks[6] = 0;
    QCOMPARE(chooseMask(21, features), 5);
    features.finderLike[5] = 1;
    QCOMPARE(chooseMask(21, features), 6);
}

void TestAccelerated::packing_data()
{
    functionPatterns_data();
}

void TestAccelerated::packing()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(version));
    const int size = qr::sizeOf(version);
    const slow::Matrix matrix =
        grids::drawn(size, [&](int, int) { return random.bounded(2) == 1; });
    fill(matrix);
    slow::Bytes result(3917, 0);
    pack(size, boards.rows, result.data());
    QVERIFY(result == slow::packed(matrix));
}

#else

class TestAccelerated : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isLeftOut() { QSKIP("this build has the portable way only"); }
};

#endif

QTEST_GUILESS_MAIN(TestAccelerated)
#include "tst_accelerated.moc"
