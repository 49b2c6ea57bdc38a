// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"
#include "tests/qr/SlowEncoder.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>

using namespace om::controls;

namespace {

qr::Boards boards;

std::string randomText(QRandomGenerator &random, int length)
{
    std::string text;
    for (int index = 0; index < length; ++index)
        text.push_back(static_cast<char>(random.bounded(256)));
    return text;
}

slow::Matrix functionPatterns(int version)
{
    slow::Matrix matrix(qr::sizeOf(version));
    slow::placeFunctionPatterns(version, matrix);
    return matrix;
}

/// The symbol before masking, the slow way.
slow::Matrix unmasked(int level, int version, const std::string &text)
{
    slow::Matrix matrix = functionPatterns(version);
    slow::placeCodewords(
        slow::allCodewords(level, version, slow::dataCodewords(level, version, text)), matrix);
    return matrix;
}

/// Fills the boards with the modules of a matrix before masking.
void fill(const slow::Matrix &matrix)
{
    qr::clearBoards(matrix.size, boards);
    for (int x = 0; x < matrix.size; ++x) {
        for (int y = 0; y < matrix.size; ++y) {
            const std::uint64_t bit = 1ull << (63 - y % 64);
            if (matrix.at(x, y) & slow::Function)
                boards.function.words[y / 64][x] |= bit;
            if (matrix.at(x, y) & (slow::Dark | slow::Data))
                boards.modules.words[y / 64][x] |= bit;
        }
    }
    qr::cutStrips(matrix.size, boards);
}

/// Both grids side by side, where they differ; empty when they do not.
template<typename Actual, typename Expected>
QString difference(int size, Actual actual, Expected expected)
{
    QString text;
    bool same = true;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            text += QLatin1Char(actual(x, y) ? '#' : '.');
        text += QLatin1Char(' ');
        for (int x = 0; x < size; ++x) {
            const bool equal = actual(x, y) == expected(x, y);
            same = same && equal;
            text += QLatin1Char(equal ? (expected(x, y) ? '#' : '.') : 'X');
        }
        text += QLatin1Char('\n');
    }
    return same ? QString() : text;
}

/// A matrix from a drawing: '#' is dark. All modules are data, as if nothing were a function.
slow::Matrix drawn(int size, const std::function<bool(int, int)> &dark)
{
    slow::Matrix matrix(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            matrix.at(x, y) = dark(x, y) ? slow::Function | slow::Dark : slow::Function;
    }
    return matrix;
}

/// Calls \a test with each set of instructions that this processor has.
void forEachSet(const std::function<void(qr::Instructions)> &test)
{
    for (int set = 0; set < qr::InstructionSets; ++set) {
        if (qr::available(qr::Instructions(set)))
            test(qr::Instructions(set));
    }
}

#define COMPARE_GRIDS(size, actual, expected) \
    do { \
        const QString text = difference(size, actual, expected); \
        QVERIFY2(text.isEmpty(), qPrintable(QLatin1Char('\n') + text)); \
    } while (false)

} // namespace

class TestStages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesAreConsistent();
    void tablesOfTheStandard();
    void alphanumericValues();
    void segmentLengths();
    void bitStreamAppends();
    void bitStreamOverflows();
    void bitStreamTakesManyBytes();
    void versionChoice_data();
    void versionChoice();
    void data_data();
    void data();
    void dataOfEveryVersion();
    void correction();
    void correctionOfKnownBlock();
    void interleaving();
    void formatInformation();
    void versionInformation();
    void functionPatterns_data();
    void functionPatterns();
    void functionAreaIsSymmetric();
    void placement_data();
    void placement();
    void strips();
    void maskPatterns();
    void everyMask();
    void penaltyRules_data();
    void penaltyRules();
    void penaltyOfRandomSymbols_data();
    void penaltyOfRandomSymbols();
    void balanceFloorsFirst();
    void lowerMaskOnTies();
    void packing_data();
    void packing();
};

void TestStages::tablesAreConsistent()
{
    for (int version = 1; version <= 40; ++version) {
        const qr::VersionRow &row = qr::versionTable[version];
        QCOMPARE(int(row.version), version);
        for (int level = 0; level < 4; ++level) {
            const qr::BlockGroup *groups = row.groups[level];
            QCOMPARE(groups[0].blocks * groups[0].total + groups[1].blocks * groups[1].total,
                     int(row.total));
            QCOMPARE(groups[0].blocks * groups[0].data + groups[1].blocks * groups[1].data,
                     int(row.data[level]));
            if (groups[1].blocks) {
                QCOMPARE(int(groups[1].data), groups[0].data + 1);
                QCOMPARE(int(groups[1].total), groups[0].total + 1);
            }
        }
        if (row.alignmentCount)
            QCOMPARE(int(row.alignments[row.alignmentCount - 1]), qr::sizeOf(version) - 7);

        // What is no function module holds the codewords and less than one more.
        const slow::Matrix matrix = ::functionPatterns(version);
        int free = 0;
        for (unsigned char flags : matrix.flags)
            free += !(flags & slow::Function);
        QCOMPARE(free / 8, int(row.total));
    }
    QCOMPARE(int(qr::versionTable[0].total), 0);
}

void TestStages::tablesOfTheStandard()
{
    const qr::VersionRow &first = qr::versionTable[1];
    QCOMPARE(int(first.total), 26);
    QCOMPARE(int(first.data[0]), 19);
    QCOMPARE(int(first.data[1]), 16);
    QCOMPARE(int(first.data[2]), 13);
    QCOMPARE(int(first.data[3]), 9);
    const qr::VersionRow &last = qr::versionTable[40];
    QCOMPARE(int(last.total), 3706);
    QCOMPARE(int(last.data[0]), 2956);
    QCOMPARE(int(last.data[1]), 2334);
    QCOMPARE(int(last.data[2]), 1666);
    QCOMPARE(int(last.data[3]), 1276);
    QCOMPARE(int(last.groups[0][0].blocks), 19);
    QCOMPARE(int(last.groups[0][0].total), 148);
    QCOMPARE(int(last.groups[0][0].data), 118);
    QCOMPARE(int(last.groups[0][1].blocks), 6);
    const int places[6] = {30, 58, 86, 114, 142, 170};
    for (int index = 0; index < 6; ++index)
        QCOMPARE(int(last.alignments[index]), places[index]);
    QCOMPARE(int(qr::versionTable[2].alignments[0]), 18);
    QCOMPARE(int(qr::versionTable[7].alignments[0]), 22);
    QCOMPARE(int(qr::versionTable[7].alignments[1]), 38);
    QCOMPARE(int(qr::versionTable[32].alignments[0]), 34);
    QCOMPARE(int(qr::versionTable[32].alignments[1]), 60);
}

void TestStages::alphanumericValues()
{
    const QByteArray characters("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%*+-./:");
    for (int index = 0; index < characters.size(); ++index)
        QCOMPARE(qr::alphanumericValue(characters[index]), index);
    QCOMPARE(qr::alphanumericValue('a'), 44);
    QCOMPARE(qr::alphanumericValue('\0'), 44);
    QCOMPARE(qr::alphanumericValue('\xff'), 44);
}

void TestStages::segmentLengths()
{
    QCOMPARE(qr::segmentBits(qr::Numeric, 3, 0), 24LL);
    QCOMPARE(qr::segmentBits(qr::Numeric, 4, 1), 30LL);
    QCOMPARE(qr::segmentBits(qr::Numeric, 5, 2), 35LL);
    QCOMPARE(qr::segmentBits(qr::Alphanumeric, 2, 0), 24LL);
    QCOMPARE(qr::segmentBits(qr::Alphanumeric, 3, 2), 34LL);
    QCOMPARE(qr::segmentBits(qr::EightBit, 17, 0), 148LL);
    QCOMPARE(qr::segmentBits(qr::EightBit, 17, 1), 156LL);
    QCOMPARE(qr::segmentBits(qr::Kanji, 4, 2), 42LL);
    QCOMPARE(qr::segmentBits(qr::EightBit, 0x7fffffff, 2), 17179869196LL);
}

void TestStages::bitStreamAppends()
{
    unsigned char buffer[qr::MaximumDataCodewords];
    std::memset(buffer, 0xff, sizeof buffer);
    qr::BitStream stream(buffer);
    QVERIFY(stream.append(0xffff, 0));
    QCOMPARE(stream.bits(), 0);
    QVERIFY(stream.append(0xf4, 4)); // Higher bits are not looked at.
    QVERIFY(stream.append(0x123, 9));
    QVERIFY(stream.append(0x8001, 16));
    QCOMPARE(stream.bits(), 29);
    // 0100 1 0010 0011 1000 0000 0000 0001, the rest of the last byte is zero.
    QCOMPARE(int(buffer[0]), 0x49);
    QCOMPARE(int(buffer[1]), 0x1c);
    QCOMPARE(int(buffer[2]), 0x00);
    QCOMPARE(int(buffer[3]), 0x08);
    QCOMPARE(int(buffer[4]), 0xff);
}

void TestStages::bitStreamOverflows()
{
    unsigned char buffer[qr::MaximumDataCodewords + 1] = {};
    buffer[qr::MaximumDataCodewords] = 0xa5;
    qr::BitStream stream(buffer);
    for (int index = 0; index < 1477; ++index)
        QVERIFY(stream.append(0xffff, 16));
    QVERIFY(stream.append(0x7f, 7));
    QCOMPARE(stream.bits(), 23639);
    QVERIFY(!stream.append(0, 10));
    QCOMPARE(stream.bits(), 23639);
    QVERIFY2(!stream.append(0, 1), "a stream that has failed takes nothing more");
    QVERIFY(!stream.appendBytes("a", 1));

    qr::BitStream full(buffer);
    const std::string text(qr::MaximumDataCodewords, 'x');
    QVERIFY(full.appendBytes(text.data(), qr::MaximumDataCodewords));
    QCOMPARE(full.bits(), 23648);
    QVERIFY(full.append(0, 0));
    QVERIFY(!full.append(0, 1));
    qr::BitStream shifted(buffer);
    QVERIFY(shifted.append(0, 4));
    QVERIFY(!shifted.appendBytes(text.data(), qr::MaximumDataCodewords));
    QCOMPARE(int(buffer[qr::MaximumDataCodewords]), 0xa5);
}

void TestStages::bitStreamTakesManyBytes()
{
    QRandomGenerator random(1);
    for (int used = 0; used < 8; ++used) {
        for (int length : {0, 1, 7, 8, 9, 15, 16, 17, 100, 2953}) {
            const std::string text = randomText(random, length);
            unsigned char one[qr::MaximumDataCodewords] = {};
            unsigned char many[qr::MaximumDataCodewords] = {};
            qr::BitStream first(one);
            qr::BitStream second(many);
            QVERIFY(first.append(0x55, used));
            QVERIFY(second.append(0x55, used));
            for (char character : text)
                QVERIFY(first.append(static_cast<unsigned char>(character), 8));
            QVERIFY(second.appendBytes(text.data(), length));
            QCOMPARE(second.bits(), first.bits());
            QCOMPARE(std::memcmp(one, many, sizeof one), 0);
        }
    }
}

void TestStages::versionChoice_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("requested");
    QTest::addColumn<qint64>("length");
    QTest::addColumn<int>("version");

    QTest::newRow("one byte") << 0 << 0 << 1LL << 1;
    QTest::newRow("17 bytes fill version 1") << 0 << 0 << 17LL << 1;
    QTest::newRow("18 bytes need version 2") << 0 << 0 << 18LL << 2;
    QTest::newRow("7 bytes fill version 1 at H") << 3 << 0 << 7LL << 1;
    QTest::newRow("230 bytes fill version 9") << 0 << 0 << 230LL << 9;
    QTest::newRow("231 bytes go on to the next group") << 0 << 0 << 231LL << 10;
    QTest::newRow("271 bytes fill version 10, count of 16 bits") << 0 << 0 << 271LL << 10;
    QTest::newRow("272 bytes need version 11") << 0 << 0 << 272LL << 11;
    QTest::newRow("2953 bytes fill version 40") << 0 << 0 << 2953LL << 40;
    QTest::newRow("2954 bytes fit nowhere") << 0 << 0 << 2954LL << 0;
    QTest::newRow("1273 bytes fill version 40 at H") << 3 << 0 << 1273LL << 40;
    QTest::newRow("1274 bytes fit nowhere at H") << 3 << 0 << 1274LL << 0;
    QTest::newRow("a requested version begins at its group") << 0 << 15 << 1LL << 10;
    QTest::newRow("the last group") << 0 << 40 << 1LL << 27;
    QTest::newRow("more than requested: the next group") << 0 << 5 << 231LL << 10;
    QTest::newRow("all that an int can say") << 0 << 0 << 0x7fffffffLL << 0;
    QTest::newRow("8 x length passes 32 bits") << 0 << 0 << 0x20000001LL << 0;
}

void TestStages::versionChoice()
{
    QFETCH(int, level);
    QFETCH(int, requested);
    QFETCH(qint64, length);
    QTEST(qr::chooseVersion(level, requested, length), "version");
}

void TestStages::data_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("codewords");

    QTest::newRow("padding") << 1 << QByteArray("A")
                             << QByteArray::fromHex("40141 0ec11ec11ec11ec11ec11ec11ec11ec11");
    QTest::newRow("digits are bytes")
        << 1 << QByteArray("12345678901234567")
        << QByteArray::fromHex("41131323334353637383930313233343536370");
    QTest::newRow("one codeword of padding")
        << 1 << QByteArray("1234567890123456")
        << QByteArray::fromHex("410 31323334353637383930313233343536 0ec");
    QTest::newRow("count of 16 bits")
        << 10 << QByteArray("\xff") << QByteArray::fromHex("40001ff0ec11ec11");
}

void TestStages::data()
{
    QFETCH(int, version);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, codewords);
    unsigned char buffer[qr::MaximumDataCodewords] = {};
    qr::encodeData(0, version, text.constData(), text.size(), buffer);
    QCOMPARE(QByteArray(reinterpret_cast<char *>(buffer), codewords.size()).toHex(),
             codewords.toHex());
}

void TestStages::dataOfEveryVersion()
{
    QRandomGenerator random(2);
    for (int version = 1; version <= 40; ++version) {
        for (int level = 0; level < 4; ++level) {
            const int capacity = qr::byteCapacity(level, version);
            for (int length : {1, capacity / 2, capacity - 2, capacity - 1, capacity}) {
                const std::string text = randomText(random, std::max(1, length));
                const slow::Bytes expected = slow::dataCodewords(level, version, text);
                QCOMPARE(expected.size(), std::size_t(qr::versionTable[version].data[level]));
                unsigned char buffer[qr::MaximumDataCodewords] = {};
                qr::encodeData(level, version, text.data(), int(text.size()), buffer);
                QCOMPARE(std::memcmp(buffer, expected.data(), expected.size()), 0);
            }
        }
    }
}

void TestStages::correction()
{
    QRandomGenerator random(3);
    for (int degree : {7, 10, 13, 15, 16, 17, 18, 20, 22, 24, 26, 28, 30}) {
        for (int count = 1; count <= 123; ++count) {
            // As many blocks as show each of them computed alone and beside another.
            constexpr int blocks = 5;
            slow::Bytes data;
            slow::Bytes expected;
            for (int block = 0; block < blocks; ++block) {
                const std::string text = randomText(random, count);
                data.insert(data.end(), text.begin(), text.end());
                const slow::Bytes correction =
                    slow::correction(slow::Bytes(text.begin(), text.end()), degree);
                QCOMPARE(int(correction.size()), degree);
                expected.insert(expected.end(), correction.begin(), correction.end());
                expected.resize(std::size_t(block + 1) * qr::CorrectionStride, 0);
            }
            forEachSet([&](qr::Instructions instructions) {
                for (int used = 0; used <= blocks; ++used) {
                    const std::size_t end = std::size_t(used) * qr::CorrectionStride;
                    slow::Bytes result(expected.size(), 0xff);
                    qr::correctionCodewords(instructions, data.data(), count, degree, used,
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

void TestStages::correctionOfKnownBlock()
{
    // The block of one, 2^0, leaves the generator polynomial itself: for degree 7, in powers of
    // two, 87, 229, 146, 149, 238, 102, 21.
    int powers[256] = {1};
    for (int index = 1; index < 256; ++index)
        powers[index] = slow::multiply(powers[index - 1], 2);
    const unsigned char one = 1;
    unsigned char result[qr::CorrectionStride];
    qr::correctionCodewords(qr::Baseline, &one, 1, 7, 1, result);
    const int exponents[7] = {87, 229, 146, 149, 238, 102, 21};
    for (int index = 0; index < 7; ++index)
        QCOMPARE(int(result[index]), powers[exponents[index]]);
}

void TestStages::interleaving()
{
    QRandomGenerator random(4);
    for (int version = 1; version <= 40; ++version) {
        for (int level = 0; level < 4; ++level) {
            const std::string text = randomText(random, qr::versionTable[version].data[level]);
            const slow::Bytes data(text.begin(), text.end());
            const slow::Bytes expected = slow::allCodewords(level, version, data);
            QCOMPARE(int(expected.size()), int(qr::versionTable[version].total));
            forEachSet([&](qr::Instructions instructions) {
                constexpr int room = qr::MaximumCodewords + qr::SpreadExcess;
                slow::Bytes codewords(room + 1, 0x5a);
                qr::interleave(instructions, level, version, data.data(), codewords.data());
                QCOMPARE(std::memcmp(codewords.data(), expected.data(), expected.size()), 0);
                QVERIFY(std::all_of(
                    codewords.begin() + qr::versionTable[version].total + qr::SpreadExcess,
                    codewords.end(), [](unsigned char byte) { return byte == 0x5a; }));
            });
        }
    }
}

void TestStages::formatInformation()
{
    // The example of the standard: M, mask 5.
    QCOMPARE(qr::formatInformation(1, 5), 0x40ce);
    QCOMPARE(qr::formatInformation(1, 0), 0x5412);
    QCOMPARE(qr::formatInformation(0, 0), 0x77c4);
    QCOMPARE(qr::formatInformation(3, 7), 0x083b);
}

void TestStages::versionInformation()
{
    QCOMPARE(qr::versionInformation(7), 0x07c94);
    QCOMPARE(qr::versionInformation(40), 0x28c69);
}

void TestStages::functionPatterns_data()
{
    QTest::addColumn<int>("version");
    for (int version = 1; version <= 40; ++version)
        QTest::addRow("version %d", version) << version;
}

void TestStages::functionPatterns()
{
    QFETCH(int, version);
    const slow::Matrix matrix = ::functionPatterns(version);
    qr::clearBoards(matrix.size, boards);
    qr::placeFunctionPatterns(version, boards);
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return boards.function.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & slow::Function) != 0; });
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return boards.modules.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & slow::Dark) != 0; });
}

void TestStages::functionAreaIsSymmetric()
{
    // One set of strips says for both boards what is free.
    for (int version = 1; version <= 40; ++version) {
        const slow::Matrix matrix = ::functionPatterns(version);
        for (int x = 0; x < matrix.size; ++x) {
            for (int y = 0; y < x; ++y)
                QCOMPARE(matrix.at(x, y) & slow::Function, matrix.at(y, x) & slow::Function);
        }
    }
}

void TestStages::placement_data()
{
    functionPatterns_data();
}

void TestStages::placement()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(version));
    const int count = qr::versionTable[version].total;
    const std::string bytes = randomText(random, count);
    const slow::Bytes codewords(bytes.begin(), bytes.end());
    slow::Matrix matrix = ::functionPatterns(version);
    slow::placeCodewords(codewords, matrix);

    forEachSet([&](qr::Instructions instructions) {
        qr::clearBoards(matrix.size, boards);
        qr::placeFunctionPatterns(version, boards);
        qr::placeCodewords(instructions, matrix.size, codewords.data(), count, boards);
        COMPARE_GRIDS(
            matrix.size, [](int x, int y) { return boards.modules.at(x, y); },
            [&](int x, int y) { return (matrix.at(x, y) & (slow::Dark | slow::Data)) != 0; });
    });
}

void TestStages::strips()
{
    for (int version : {1, 2, 3, 4, 12, 27, 28, 40}) {
        QRandomGenerator random(5);
        const slow::Matrix matrix = unmasked(1, version, randomText(random, 10));
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
        const int first = matrix.size - matrix.size % qr::StripWidth;
        QCOMPARE(qr::isShared(matrix.size, first / qr::StripWidth), matrix.size - first < 16);
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

void TestStages::maskPatterns()
{
    for (int mask = 0; mask < 8; ++mask) {
        for (int y = 0; y < 177; ++y) {
            for (int x = 0; x < 177; ++x) {
                const bool expected = slow::condition(mask, x, y);
                QCOMPARE(qr::maskCondition(mask, x, y), expected);
                const auto at = [&](bool byRows, int line, int position) {
                    const int strip = position / qr::StripWidth;
                    return (qr::maskPattern(byRows, strip).lines[line % qr::MaskPeriod][mask]
                                >> (31 - position % qr::StripWidth)
                            & 1)
                        != 0;
                };
                QCOMPARE(at(true, y, x), expected);
                QCOMPARE(at(false, x, y), expected);

                const auto atShared = [&](int line, int position, int shift) {
                    const int strip = position / qr::StripWidth;
                    return (qr::sharedMaskPattern(strip).lines[line % qr::MaskPeriod][mask]
                                >> (31 - shift - position % qr::StripWidth)
                            & 1)
                        != 0;
                };
                if (x % qr::StripWidth < 16)
                    QCOMPARE(atShared(y, x, 0), expected);
                if (y % qr::StripWidth < 16)
                    QCOMPARE(atShared(x, y, 16), expected);
            }
        }
    }
}

void TestStages::everyMask()
{
    for (int version : {1, 4, 5, 7, 22, 40}) {
        for (int mask = 0; mask < 8; ++mask) {
            QRandomGenerator random(6);
            slow::Matrix matrix = unmasked(2, version, randomText(random, 9));
            fill(matrix);
            qr::applyMask(2, mask, matrix.size, boards);
            slow::applyMask(mask, matrix);
            slow::placeFormat(2, mask, matrix);
            COMPARE_GRIDS(
                matrix.size, [](int x, int y) { return boards.rows.at(y, x); },
                [&](int x, int y) { return matrix.dark(x, y); });
        }
    }
}

void TestStages::penaltyRules_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("runs");
    QTest::addColumn<int>("finderLike");

    // A row of otherwise alternating modules, in columns 9 on, read by both ways of counting.
    QTest::newRow("a run of four") << "1111" << 0 << 0;
    QTest::newRow("a run of five") << "11111" << 3 << 0;
    QTest::newRow("a run of five light ones") << "00000" << 3 << 0;
    QTest::newRow("a run of six") << "111111" << 4 << 0;
    QTest::newRow("two runs") << "1111100000" << 6 << 0;
    QTest::newRow("finder-like, light before") << "00001011101011" << 0 << 1;
    QTest::newRow("finder-like, light behind") << "101011101000011" << 0 << 1;
    QTest::newRow("finder-like, light on both sides counts once") << "0000101110100001" << 0 << 1;
    QTest::newRow("three light ones before are not enough") << "100010111010110" << 0 << 0;
    QTest::newRow("dark neighbour before") << "110111010000" << 0 << 0;
    QTest::newRow("dark neighbour behind") << "00001011101101" << 0 << 0;
    QTest::newRow("two that share a dark module") << "00001011101011101000011" << 0 << 2;
}

void TestStages::penaltyRules()
{
    QFETCH(QString, row);
    QFETCH(int, runs);
    QFETCH(int, finderLike);

    // A checkerboard has no runs, blocks or patterns. The tested line crosses it alone, along a row
    // and along a column, at places that lie in one strip and at places that span two.
    for (int size : {21, 49, 97, 177}) {
        for (int first : {0, 3, 27, size - row.size()}) {
            if (first + row.size() > size)
                continue;
            for (bool across : {true, false}) {
                const int line = size / 2;
                const auto dark = [&](int x, int y) {
                    const int position = across ? x : y;
                    const int other = across ? y : x;
                    const int index = position - first;
                    if (other == line && index >= 0 && index < row.size())
                        return row[index] == QLatin1Char('1');
                    // What lies beside the drawing goes on alternating from its ends.
                    if (other == line && index < 0)
                        return (row[0] == QLatin1Char('1')) != bool(-index % 2);
                    if (other == line) {
                        const int behind = index - row.size() + 1;
                        return (row[row.size() - 1] == QLatin1Char('1')) != bool(behind % 2);
                    }
                    return (x + y) % 2 == 0;
                };
                slow::Matrix matrix = drawn(size, dark);
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
                for (int set = 0; set < qr::InstructionSets; ++set) {
                    if (!qr::available(qr::Instructions(set)))
                        continue;
                    qr::Features features;
                    qr::countFeatures(qr::Instructions(set), 0, size, boards, features);
                    slow::Matrix masked = matrix;
                    slow::placeFormat(0, 0, masked);
                    const slow::Penalty expected = slow::score(masked);
                    QCOMPARE(int(features.runs[0]), expected.runs);
                    QCOMPARE(int(features.blocks[0]), expected.blocks);
                    QCOMPARE(int(features.finderLike[0]), expected.finderLike);
                    QCOMPARE(int(features.dark[0]), expected.darkModules);
                }
            }
        }
    }
}

void TestStages::penaltyOfRandomSymbols_data()
{
    functionPatterns_data();
}

void TestStages::penaltyOfRandomSymbols()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(100 + version));
    const int size = qr::sizeOf(version);
    // Every density: sparse and dense boards have long runs, many blocks and patterns.
    for (int percent : {0, 10, 30, 50, 80, 100}) {
        slow::Matrix matrix = ::functionPatterns(version);
        for (unsigned char &flags : matrix.flags) {
            if (!(flags & slow::Function) && random.bounded(100) < percent)
                flags |= slow::Data;
        }
        const int level = random.bounded(4);
        fill(matrix);
        for (int set = 0; set < qr::InstructionSets; ++set) {
            if (!qr::available(qr::Instructions(set)))
                continue;
            qr::Features features;
            qr::countFeatures(qr::Instructions(set), level, size, boards, features);
            for (int mask = 0; mask < 8; ++mask) {
                slow::applyMask(mask, matrix);
                slow::placeFormat(level, mask, matrix);
                const slow::Penalty expected = slow::score(matrix);
                QCOMPARE(int(features.runs[mask]), expected.runs);
                QCOMPARE(int(features.blocks[mask]), expected.blocks);
                QCOMPARE(int(features.finderLike[mask]), expected.finderLike);
                QCOMPARE(int(features.dark[mask]), expected.darkModules);
                QCOMPARE(qr::penalty(size, features, mask), expected.points);
            }
        }
    }
}

void TestStages::balanceFloorsFirst()
{
    qr::Features features = {};
    const auto points = [&](unsigned dark) {
        features.dark[0] = dark;
        return qr::penalty(21, features, 0);
    };
    QCOMPARE(points(0), 100);
    QCOMPARE(points(441), 100);
    QCOMPARE(points(221), 0);
    QCOMPARE(points(203), 0); // 46.0 %
    QCOMPARE(points(202), 10); // 45.8 % counts as 45.
    QCOMPARE(points(242), 0); // 54.9 % counts as 54.
    QCOMPARE(points(243), 10); // 55.1 % counts as 55.
}

void TestStages::lowerMaskOnTies()
{
    qr::Features features = {};
    for (unsigned &dark : features.dark)
        dark = 221;
    QCOMPARE(qr::chooseMask(21, features), 0);
    features.runs[0] = 3;
    QCOMPARE(qr::chooseMask(21, features), 1);
    for (int mask = 1; mask < 8; ++mask)
        features.blocks[mask] = 1;
    QCOMPARE(qr::chooseMask(21, features), 0);
    features.blocks[5] = features.blocks[6] = 0;
    QCOMPARE(qr::chooseMask(21, features), 5);
    features.finderLike[5] = 1;
    QCOMPARE(qr::chooseMask(21, features), 6);
}

void TestStages::packing_data()
{
    functionPatterns_data();
}

void TestStages::packing()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(version));
    const int size = qr::sizeOf(version);
    const slow::Matrix matrix = drawn(size, [&](int, int) { return random.bounded(2) == 1; });
    fill(matrix);
    slow::Bytes result(3917, 0);
    qr::pack(size, boards.rows, result.data());
    QVERIFY(result == slow::packed(matrix));
}

QTEST_GUILESS_MAIN(TestStages)
#include "tst_stages.moc"
