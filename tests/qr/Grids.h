// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "qr/QrTables.h"
#include "tests/qr/SlowEncoder.h"

#include <QRandomGenerator>
#include <QString>
#include <QTest>

#include <functional>
#include <string>

/// What the tests of the stages share: symbols made the slow way, and grids to compare.
namespace grids {

inline std::string randomText(QRandomGenerator &random, int length)
{
    std::string text;
    for (int index = 0; index < length; ++index)
        text.push_back(static_cast<char>(random.bounded(256)));
    return text;
}

inline slow::Matrix functionPatterns(int version)
{
    slow::Matrix matrix(om::controls::qr::sizeOf(version));
    slow::placeFunctionPatterns(version, matrix);
    return matrix;
}

/// The function patterns, with \a percent of the data modules dark.
inline slow::Matrix randomlyFilled(int version, int percent, QRandomGenerator &random)
{
    slow::Matrix matrix = functionPatterns(version);
    for (unsigned char &flags : matrix.flags) {
        if (!(flags & slow::Function) && random.bounded(100) < percent)
            flags |= slow::Data;
    }
    return matrix;
}

/// The symbol before masking, the slow way.
inline slow::Matrix unmasked(int level, int version, const std::string &text)
{
    slow::Matrix matrix = functionPatterns(version);
    slow::placeCodewords(
        slow::allCodewords(level, version, slow::dataCodewords(level, version, text)), matrix);
    return matrix;
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
inline slow::Matrix drawn(int size, const std::function<bool(int, int)> &dark)
{
    slow::Matrix matrix(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            matrix.at(x, y) = dark(x, y) ? slow::Function | slow::Dark : slow::Function;
    }
    return matrix;
}

/// Rows for a test of the penalty rules, each to be drawn on a checkerboard.
inline void addPenaltyRows()
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

/// A checkerboard, which has no runs, blocks or patterns, crossed by a line with the modules of
/// \a row from its place \a first on, along a row or along a column. What lies beside them goes on
/// alternating from their ends.
inline slow::Matrix crossed(int size, const QString &row, int first, bool across)
{
    return drawn(size, [&](int x, int y) {
        const int position = across ? x : y;
        const int other = across ? y : x;
        const int index = position - first;
        const int behind = index - row.size() + 1;
        if (other != size / 2)
            return (x + y) % 2 == 0;
        if (index < 0)
            return (row[0] == QLatin1Char('1')) != bool(-index % 2);
        if (behind > 0)
            return (row[row.size() - 1] == QLatin1Char('1')) != bool(behind % 2);
        return row[index] == QLatin1Char('1');
    });
}

#define COMPARE_GRIDS(size, actual, expected) \
    do { \
        const QString text = grids::difference(size, actual, expected); \
        QVERIFY2(text.isEmpty(), qPrintable(QLatin1Char('\n') + text)); \
    } while (false)

} // namespace grids
