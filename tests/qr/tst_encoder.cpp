// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrEncoder.h"
#include "qr/QrStages.h"
#include "tests/qr/Makers.h"
#include "tests/qr/SlowEncoder.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QTest>

#include <climits>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

using namespace om::controls;

namespace {

/// A result with guards around it, full of ones beforehand.
struct Result
{
    unsigned char bytes[16 + QrResultBytes + 16];

    Result() { std::memset(bytes, 0xff, sizeof bytes); }
    unsigned char *data() { return bytes + 16; }

    bool guarded() const
    {
        for (int index = 0; index < 16; ++index) {
            if (bytes[index] != 0xff || bytes[16 + QrResultBytes + index] != 0xff)
                return false;
        }
        return true;
    }

    bool clear()
    {
        for (int index = 0; index < QrResultBytes; ++index) {
            if (data()[index])
                return false;
        }
        return guarded();
    }

    bool equals(const slow::Bytes &other)
    {
        return guarded() && std::memcmp(data(), other.data(), QrResultBytes) == 0;
    }
};

std::string randomText(QRandomGenerator &random, int length)
{
    std::string text;
    for (int index = 0; index < length; ++index)
        text.push_back(static_cast<char>(random.bounded(256)));
    return text;
}

QByteArray dump(int size, const unsigned char *result)
{
    QByteArray text("\n");
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int k = y * size + x;
            text += result[k / 8] & 0x80 >> k % 8 ? '#' : '.';
        }
        text += '\n';
    }
    return text;
}

} // namespace

class TestEncoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyVersionAndLevel_data();
    void everyVersionAndLevel();
    void randomTexts();
    void automaticVersion_data();
    void automaticVersion();
    void requestedVersion_data();
    void requestedVersion();
    void nothingSurvivesACall();
    void badInput_data();
    void badInput();
    void measuresUpToTheZero();
    void measuresNoFurtherThanNeeded();
    void readsNoFurtherThanItsLength();
    void anyAddress();
    void hugeLengths();
    void laterBitsStayClear();
};

void TestEncoder::everyVersionAndLevel_data()
{
    QTest::addColumn<int>("version");
    for (int version = 1; version <= 40; ++version)
        QTest::addRow("version %d", version) << version;
}

void TestEncoder::everyVersionAndLevel()
{
    QFETCH(int, version);
    QRandomGenerator random(static_cast<quint32>(version));
    for (int level = 0; level < 4; ++level) {
        const int capacity = qr::byteCapacity(level, version);
        for (int length : {1, 1 + random.bounded(capacity), capacity}) {
            const std::string text = randomText(random, length);
            const slow::Symbol expected = slow::encode(level, version, text);
            for (const NamedMaker &way : makers()) {
                Result result;
                QCOMPARE(qr::encode(way.maker, level, version, text.data(), length, result.data()),
                         expected.size);
                QVERIFY2(result.equals(expected.result),
                         (QByteArray(way.name) + dump(expected.size, result.data())
                          + dump(expected.size, expected.result.data()))
                             .constData());
            }
        }
    }
}

void TestEncoder::randomTexts()
{
    QRandomGenerator random(42);
    for (int turn = 0; turn < 2000; ++turn) {
        const int level = random.bounded(4);
        const std::string text = randomText(random, 1 + random.bounded(turn % 10 ? 60 : 300));
        const slow::Symbol expected = slow::encode(level, 0, text);
        for (const NamedMaker &way : makers()) {
            Result result;
            QCOMPARE(qr::encode(way.maker, level, 0, text.data(), int(text.size()), result.data()),
                     expected.size);
            QVERIFY2(result.equals(expected.result), way.name);
        }
    }
}

void TestEncoder::automaticVersion_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("size");

    QTest::newRow("one byte") << 0 << 1 << 21;
    QTest::newRow("17 bytes fill version 1") << 0 << 17 << 21;
    QTest::newRow("18 bytes need version 2") << 0 << 18 << 25;
    QTest::newRow("230 bytes fill version 9") << 0 << 230 << 53;
    QTest::newRow("231 bytes need version 10") << 0 << 231 << 57;
    QTest::newRow("1367 bytes fill version 26") << 0 << 1367 << 121;
    QTest::newRow("1368 bytes need version 27") << 0 << 1368 << 125;
    QTest::newRow("2953 bytes fill version 40") << 0 << 2953 << 177;
    QTest::newRow("2954 bytes are too many") << 0 << 2954 << -1;
    QTest::newRow("M: 2331 bytes fill version 40") << 1 << 2331 << 177;
    QTest::newRow("M: 2332 bytes are too many") << 1 << 2332 << -1;
    QTest::newRow("Q: 1663 bytes fill version 40") << 2 << 1663 << 177;
    QTest::newRow("Q: 1664 bytes are too many") << 2 << 1664 << -1;
    QTest::newRow("H: 1273 bytes fill version 40") << 3 << 1273 << 177;
    QTest::newRow("H: 1274 bytes are too many") << 3 << 1274 << -1;
}

void TestEncoder::automaticVersion()
{
    QFETCH(int, level);
    QFETCH(int, length);
    QFETCH(int, size);
    const std::string text(static_cast<std::size_t>(length), '7');
    Result given;
    QCOMPARE(qrEncode(level, 0, text.data(), length, given.data()), size);
    Result measured;
    QCOMPARE(qrEncode(level, 0, text.c_str(), 0, measured.data()), size);
    QCOMPARE(std::memcmp(given.data(), measured.data(), QrResultBytes), 0);
    if (size < 0)
        QVERIFY(given.clear());
    else
        QVERIFY(given.equals(slow::encode(level, 0, text).result));
}

void TestEncoder::requestedVersion_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("size");

    QTest::newRow("larger than needed is honoured") << 5 << 1 << 37;
    QTest::newRow("smaller than needed fails") << 1 << 18 << -1;
    QTest::newRow("smaller than needed, in another group") << 9 << 231 << -1;
    QTest::newRow("a higher group's count width, filled") << 10 << 271 << 57;
    QTest::newRow("a higher group's count width, one more") << 10 << 272 << -1;
    QTest::newRow("one byte in the largest") << 40 << 1 << 177;
    QTest::newRow("one byte in the first of the last group") << 27 << 1 << 125;
}

void TestEncoder::requestedVersion()
{
    QFETCH(int, version);
    QFETCH(int, length);
    QFETCH(int, size);
    const std::string text(static_cast<std::size_t>(length), 'r');
    Result result;
    QCOMPARE(qrEncode(0, version, text.data(), length, result.data()), size);
    if (size < 0)
        QVERIFY(result.clear());
    else
        QVERIFY(result.equals(slow::encode(0, version, text).result));
    QVERIFY(result.guarded());
}

void TestEncoder::nothingSurvivesACall()
{
    const std::string small("small");
    const std::string large(2953, '\xff');
    Result before;
    Result after;
    Result between;
    QCOMPARE(qrEncode(3, 0, small.data(), 5, before.data()), 21);
    QCOMPARE(qrEncode(0, 0, large.data(), 2953, between.data()), 177);
    QCOMPARE(qrEncode(3, 0, large.data(), 2953, between.data()), -1);
    QCOMPARE(qrEncode(3, 0, small.data(), 5, after.data()), 21);
    QCOMPARE(std::memcmp(before.bytes, after.bytes, sizeof before.bytes), 0);
}

void TestEncoder::badInput_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("version");
    QTest::addColumn<bool>("null");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("length");

    QTest::newRow("level below") << -1 << 0 << false << QByteArray("a") << 1;
    QTest::newRow("level above") << 4 << 0 << false << QByteArray("a") << 1;
    QTest::newRow("least level") << INT_MIN << 0 << false << QByteArray("a") << 1;
    QTest::newRow("version below") << 0 << -1 << false << QByteArray("a") << 1;
    QTest::newRow("version above") << 0 << 41 << false << QByteArray("a") << 1;
    QTest::newRow("largest version") << 0 << INT_MAX << false << QByteArray("a") << 1;
    QTest::newRow("null text") << 0 << 0 << true << QByteArray() << 5;
    QTest::newRow("null text, to be measured") << 0 << 0 << true << QByteArray() << 0;
    QTest::newRow("empty text") << 0 << 0 << false << QByteArray("") << 0;
    QTest::newRow("empty text, negative length") << 0 << 0 << false << QByteArray("") << -7;
}

void TestEncoder::badInput()
{
    QFETCH(int, level);
    QFETCH(int, version);
    QFETCH(bool, null);
    QFETCH(QByteArray, text);
    QFETCH(int, length);
    Result result;
    QCOMPARE(qrEncode(level, version, null ? nullptr : text.constData(), length, result.data()),
             -1);
    QVERIFY(result.clear());
}

void TestEncoder::measuresUpToTheZero()
{
    const char text[] = "http\0hidden";
    for (int length : {0, -1, INT_MIN}) {
        Result result;
        QCOMPARE(qrEncode(1, 0, text, length, result.data()), 21);
        QVERIFY(result.equals(slow::encode(1, 0, "http").result));
    }
    // A length that is given takes the zeros too.
    Result result;
    QCOMPARE(qrEncode(1, 0, text, 11, result.data()), 21);
    QVERIFY(result.equals(slow::encode(1, 0, std::string(text, 11)).result));
}

void TestEncoder::measuresNoFurtherThanNeeded()
{
    // Behind the readable page nothing may be touched.
    const long page = sysconf(_SC_PAGESIZE);
    char *pages =
        static_cast<char *>(mmap(nullptr, static_cast<std::size_t>(2 * page),
                                 PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    QVERIFY(pages != MAP_FAILED);
    QCOMPARE(mprotect(pages + page, static_cast<std::size_t>(page), PROT_NONE), 0);
    std::memset(pages, 'x', static_cast<std::size_t>(page));
    Result result;
    QCOMPARE(qrEncode(0, 0, pages + page - 2954, 0, result.data()), -1);
    QVERIFY(result.clear());
    QCOMPARE(qrEncode(0, 1, pages + page - 18, 0, result.data()), -1);
    QCOMPARE(qrEncode(3, 0, pages + page - 1274, 0, result.data()), -1);
    munmap(pages, static_cast<std::size_t>(2 * page));
}

void TestEncoder::readsNoFurtherThanItsLength()
{
    const long page = sysconf(_SC_PAGESIZE);
    char *pages =
        static_cast<char *>(mmap(nullptr, static_cast<std::size_t>(3 * page),
                                 PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    QVERIFY(pages != MAP_FAILED);
    QCOMPARE(mprotect(pages, static_cast<std::size_t>(page), PROT_NONE), 0);
    QCOMPARE(mprotect(pages + 2 * page, static_cast<std::size_t>(page), PROT_NONE), 0);
    std::memset(pages + page, 'x', static_cast<std::size_t>(page));
    for (int length : {1, 7, 8, 9, 16, 17, 100, 2953}) {
        const slow::Symbol expected =
            slow::encode(0, 0, std::string(static_cast<std::size_t>(length), 'x'));
        Result atEnd;
        QCOMPARE(qrEncode(0, 0, pages + 2 * page - length, length, atEnd.data()), expected.size);
        QVERIFY(atEnd.equals(expected.result));
        Result atStart;
        QCOMPARE(qrEncode(0, 0, pages + page, length, atStart.data()), expected.size);
        QVERIFY(atStart.equals(expected.result));
    }
    munmap(pages, static_cast<std::size_t>(3 * page));
}

void TestEncoder::anyAddress()
{
    QRandomGenerator random(9);
    for (int offset = 0; offset < 40; ++offset) {
        const std::string text = randomText(random, 200);
        std::string moved(static_cast<std::size_t>(offset), 'z');
        moved += text;
        unsigned char results[QrResultBytes + 80];
        std::memset(results, 0xff, sizeof results);
        QCOMPARE(qrEncode(2, 0, moved.data() + offset, 200, results + offset),
                 slow::encode(2, 0, text).size);
        QCOMPARE(
            std::memcmp(results + offset, slow::encode(2, 0, text).result.data(), QrResultBytes),
            0);
        QCOMPARE(int(results[offset + QrResultBytes]), 0xff);
    }
}

void TestEncoder::hugeLengths()
{
    const char text[] = "text";
    for (int length : {2954, 1 << 28, (1 << 28) + 1, (1 << 29) + 1, INT_MAX - 1, INT_MAX}) {
        Result result;
        QCOMPARE(qrEncode(0, 0, text, length, result.data()), -1);
        QVERIFY(result.clear());
        QCOMPARE(qrEncode(0, 40, text, length, result.data()), -1);
    }
}

void TestEncoder::laterBitsStayClear()
{
    for (int version = 1; version <= 40; ++version) {
        Result result;
        const int size = qrEncode(0, version, "later", 5, result.data());
        QCOMPARE(size, 4 * version + 17);
        for (int k = size * size; k < 8 * QrResultBytes; ++k)
            QVERIFY(!(result.data()[k / 8] & 0x80 >> k % 8));
        QVERIFY(result.guarded());
    }
}

QTEST_GUILESS_MAIN(TestEncoder)
#include "tst_encoder.moc"
