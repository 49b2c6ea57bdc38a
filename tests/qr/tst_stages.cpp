// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"
#include "tests/qr/Grids.h"
#include "tests/qr/SlowEncoder.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstring>
#include <string>

using namespace om::controls;
using grids::randomText;

namespace {

qr::Symbol symbol;
qr::MaskedSymbol masked;

/// Fills the symbol with the modules of a matrix before masking.
void fill(const slow::Matrix &matrix)
{
    symbol.size = matrix.size;
    symbol.function.clear(matrix.size);
    symbol.columns.clear(matrix.size);
    for (int x = 0; x < matrix.size; ++x) {
        for (int y = 0; y < matrix.size; ++y) {
            if (matrix.at(x, y) & slow::Function)
                symbol.function.set(x, y);
            if (matrix.at(x, y) & (slow::Dark | slow::Data))
                symbol.columns.set(x, y);
        }
    }
    qr::transpose(symbol);
}

/// Fills the masked symbol with the dark modules of a matrix.
void fillMasked(const slow::Matrix &matrix)
{
    masked.size = matrix.size;
    masked.columns.clear(matrix.size);
    masked.rows.clear(matrix.size);
    for (int x = 0; x < matrix.size; ++x) {
        for (int y = 0; y < matrix.size; ++y) {
            if (matrix.dark(x, y)) {
                masked.columns.set(x, y);
                masked.rows.set(y, x);
            }
        }
    }
}

} // namespace

/// The stages of the plain path, and what both paths share.
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
    void finalMessage();
    void formatInformation();
    void versionInformation();
    void functionPatterns_data();
    void functionPatterns();
    void functionAreaIsSymmetric();
    void formatPlaces();
    void placement_data();
    void placement();
    void remainderStaysLight();
    void maskConditions();
    void everyMask();
    void penaltyRules_data();
    void penaltyRules();
    void penaltyOfRandomSymbols_data();
    void penaltyOfRandomSymbols();
    void balanceFloorsFirst();
    void lowerMaskOnTies();
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
        const slow::Matrix matrix = grids::functionPatterns(version);
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
            const std::string text = randomText(random, count);
            const slow::Bytes data(text.begin(), text.end());
            slow::Bytes result(std::size_t(degree + 1), 0xff);
            qr::correctionCodewords(data.data(), count, degree, result.data());
            QCOMPARE(int(result.back()), 0xff);
            result.pop_back();
            QVERIFY2(result == slow::correction(data, degree), qPrintable(QString::number(degree)));
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
    unsigned char result[7];
    qr::correctionCodewords(&one, 1, 7, result);
    const int exponents[7] = {87, 229, 146, 149, 238, 102, 21};
    for (int index = 0; index < 7; ++index)
        QCOMPARE(int(result[index]), powers[exponents[index]]);
}

void TestStages::finalMessage()
{
    QRandomGenerator random(4);
    for (int version = 1; version <= 40; ++version) {
        for (int level = 0; level < 4; ++level) {
            const std::string text = randomText(random, qr::versionTable[version].data[level]);
            const slow::Bytes data(text.begin(), text.end());
            slow::Bytes message(std::size_t(qr::versionTable[version].total + 1), 0x5a);
            qr::constructMessage(level, version, data.data(), message.data());
            QCOMPARE(int(message.back()), 0x5a);
            message.pop_back();
            QVERIFY(message == slow::allCodewords(level, version, data));
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
    const slow::Matrix matrix = grids::functionPatterns(version);
    // What an earlier symbol left behind must not matter.
    std::memset(static_cast<void *>(&symbol), 0xff, sizeof symbol);
    qr::placeFunctionPatterns(version, symbol);
    QCOMPARE(symbol.size, matrix.size);
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return symbol.function.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & slow::Function) != 0; });
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return symbol.columns.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & slow::Dark) != 0; });
}

void TestStages::functionAreaIsSymmetric()
{
    // Both paths use one matrix of the function modules for rows and for columns.
    for (int version = 1; version <= 40; ++version) {
        const slow::Matrix matrix = grids::functionPatterns(version);
        for (int x = 0; x < matrix.size; ++x) {
            for (int y = 0; y < x; ++y)
                QCOMPARE(matrix.at(x, y) & slow::Function, matrix.at(y, x) & slow::Function);
        }
    }
}

void TestStages::formatPlaces()
{
    // The lowest bit and the highest, and where the timing patterns are stepped over.
    const auto check = [](int bit, qr::Place first, qr::Place second) {
        const auto places = qr::formatPlaces(bit, 21);
        QCOMPARE(places[0].x, first.x);
        QCOMPARE(places[0].y, first.y);
        QCOMPARE(places[1].x, second.x);
        QCOMPARE(places[1].y, second.y);
    };
    check(0, {8, 0}, {20, 8});
    check(5, {8, 5}, {15, 8});
    check(6, {8, 7}, {14, 8});
    check(7, {8, 8}, {13, 8});
    check(8, {7, 8}, {8, 14});
    check(9, {5, 8}, {8, 15});
    check(14, {0, 8}, {8, 20});
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
    slow::Matrix matrix = grids::functionPatterns(version);
    slow::placeCodewords(codewords, matrix);

    std::memset(static_cast<void *>(&symbol), 0xff, sizeof symbol);
    qr::placeFunctionPatterns(version, symbol);
    qr::placeCodewords(codewords.data(), count, symbol);
    qr::transpose(symbol);
    const auto dark = [&](int x, int y) {
        return (matrix.at(x, y) & (slow::Dark | slow::Data)) != 0;
    };
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return symbol.columns.at(x, y); }, dark);
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return symbol.rows.at(y, x); }, dark);
}

void TestStages::remainderStaysLight()
{
    // Version 2 has seven modules more than bits; what lies behind the message is not for them.
    const int count = qr::versionTable[2].total;
    const slow::Bytes ones(std::size_t(count + 8), 0xff);
    slow::Matrix matrix = grids::functionPatterns(2);
    slow::placeCodewords(slow::Bytes(ones.begin(), ones.begin() + count), matrix);
    qr::placeFunctionPatterns(2, symbol);
    qr::placeCodewords(ones.data(), count, symbol);
    int light = 0;
    for (int x = 0; x < symbol.size; ++x) {
        for (int y = 0; y < symbol.size; ++y)
            light += !symbol.function.at(x, y) && !symbol.columns.at(x, y);
    }
    QCOMPARE(light, 7);
    COMPARE_GRIDS(
        matrix.size, [](int x, int y) { return symbol.columns.at(x, y); },
        [&](int x, int y) { return (matrix.at(x, y) & (slow::Dark | slow::Data)) != 0; });
}

void TestStages::maskConditions()
{
    for (int mask = 0; mask < 8; ++mask) {
        for (int y = 0; y < 177; ++y) {
            for (int x = 0; x < 177; ++x)
                QCOMPARE(qr::maskCondition(mask, x, y), slow::condition(mask, x, y));
        }
    }
}

void TestStages::everyMask()
{
    // The largest first: what it leaves behind must not matter to the others.
    for (int version : {40, 28, 22, 12, 11, 7, 5, 4, 1}) {
        for (int mask = 0; mask < 8; ++mask) {
            QRandomGenerator random(6);
            slow::Matrix matrix = grids::unmasked(2, version, randomText(random, 9));
            fill(matrix);
            qr::applyMask(mask, symbol, masked);
            qr::placeFormatInformation(2, mask, masked);
            slow::applyMask(mask, matrix);
            slow::placeFormat(2, mask, matrix);
            const auto dark = [&](int x, int y) { return matrix.dark(x, y); };
            QCOMPARE(masked.size, matrix.size);
            COMPARE_GRIDS(
                matrix.size, [](int x, int y) { return masked.columns.at(x, y); }, dark);
            COMPARE_GRIDS(
                matrix.size, [](int x, int y) { return masked.rows.at(y, x); }, dark);
            const qr::Features features = qr::countFeatures(masked);
            QCOMPARE(qr::penalty(matrix.size, features), slow::score(matrix).points);
        }
    }
}

void TestStages::penaltyRules_data()
{
    grids::addPenaltyRows();
}

void TestStages::penaltyRules()
{
    QFETCH(QString, row);
    QFETCH(int, runs);
    QFETCH(int, finderLike);
    // At places that lie in one word and at places that span two.
    for (int size : {21, 49, 97, 177}) {
        for (int first : {0, 3, 27, 58, 120, size - row.size()}) {
            if (first + row.size() > size)
                continue;
            for (bool across : {true, false}) {
                const slow::Matrix matrix = grids::crossed(size, row, first, across);
                const slow::Penalty expected = slow::score(matrix);
                if (first == 27) {
                    // The slow way itself finds what the row's name says.
                    QCOMPARE(expected.runs, runs);
                    QCOMPARE(expected.finderLike, finderLike);
                }
                fillMasked(matrix);
                const qr::Features features = qr::countFeatures(masked);
                QCOMPARE(features.runs, expected.runs);
                QCOMPARE(features.blocks, expected.blocks);
                QCOMPARE(features.finderLike, expected.finderLike);
                QCOMPARE(features.dark, expected.darkModules);
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
    // Every density: sparse and dense symbols have long runs, many blocks and patterns.
    for (int percent : {0, 10, 30, 50, 80, 100}) {
        slow::Matrix matrix = grids::randomlyFilled(version, percent, random);
        const int level = random.bounded(4);
        fill(matrix);
        for (int mask = 0; mask < 8; ++mask) {
            slow::applyMask(mask, matrix);
            slow::placeFormat(level, mask, matrix);
            const slow::Penalty expected = slow::score(matrix);
            qr::applyMask(mask, symbol, masked);
            qr::placeFormatInformation(level, mask, masked);
            const qr::Features features = qr::countFeatures(masked);
            QCOMPARE(features.runs, expected.runs);
            QCOMPARE(features.blocks, expected.blocks);
            QCOMPARE(features.finderLike, expected.finderLike);
            QCOMPARE(features.dark, expected.darkModules);
            QCOMPARE(qr::penalty(size, features), expected.points);
        }
        QCOMPARE(qr::chooseMask(level, symbol, masked), slow::bestMask(level, matrix));
    }
}

void TestStages::balanceFloorsFirst()
{
    const auto points = [&](int dark) { return qr::penalty(21, {0, 0, 0, dark}); };
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
    QCOMPARE(qr::lowestPenalty({7, 7, 7, 7, 7, 7, 7, 7}), 0);
    QCOMPARE(qr::lowestPenalty({7, 6, 6, 7, 7, 7, 7, 6}), 1);
    QCOMPARE(qr::lowestPenalty({7, 8, 8, 7, 9, 6, 6, 9}), 5);
    QCOMPARE(qr::lowestPenalty({7, 7, 7, 7, 7, 7, 7, 6}), 7);
}

QTEST_GUILESS_MAIN(TestStages)
#include "tst_stages.moc"
