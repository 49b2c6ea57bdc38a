// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// The encoder beside two common libraries: byte mode, the same version and level, full symbols. The
// goal of the geometric mean of all rows is an eighth of the faster peer's time for the portable
// way, a 45th for the accelerated one with the instructions that every processor has, and a 70th
// with the widest. No row should take more than a third, or a twentieth where it is accelerated.

#include "benchmarks/support/SideBySide.h"
#include "qr/QrEncoder.h"
#include "qr/QrStages.h"
#include "tests/qr/Makers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#ifdef OMBREL_HAS_QRENCODE
#include <qrencode.h>
#endif
#ifdef OMBREL_HAS_QRCODEGEN
#include <qrcodegen/qrcodegen.hpp>
#endif

namespace {

using namespace om::controls;

struct Row
{
    int version;
    int level;
    std::vector<unsigned char> text;
};

/// The peer's time of this row, or less if it is the faster one.
double faster(double best, double time)
{
    return best > 0 ? std::min(best, time) : time;
}

/// One row: the faster peer's time over ours; 0 without any peer.
double measure(const Row &row, const NamedMaker &way)
{
    static unsigned char result[QrResultBytes];
    const auto *text = reinterpret_cast<const char *>(row.text.data());
    const int length = int(row.text.size());
    const auto ours = [&] { qr::encode(way.maker, row.level, row.version, text, length, result); };
    const std::string name =
        std::to_string(row.version) + "LMQH"[row.level] + std::string(" ") + way.name;
    const double goal = way.maker == qr::makeSymbol ? 1.0 / 3 : 1.0 / 20;
    benchmark::Options options;
    options.rounds = 15;
    options.calls = std::max(4, 400 / (row.version * row.version));

    double ourTime = 0;
    double peer = 0;
#ifdef OMBREL_HAS_QRENCODE
    const auto qrencode = benchmark::sideBySide(
        (name + ", libqrencode").c_str(), goal, ours,
        [&row, length] {
            constexpr QRecLevel levels[] = {QR_ECLEVEL_L, QR_ECLEVEL_M, QR_ECLEVEL_Q, QR_ECLEVEL_H};
            QRcode_free(QRcode_encodeData(length, row.text.data(), row.version, levels[row.level]));
        },
        options);
    ourTime = faster(ourTime, qrencode.ours);
    peer = faster(peer, qrencode.theirs);
#endif
#ifdef OMBREL_HAS_QRCODEGEN
    options.rounds = 5;
    const auto qrcodegen = benchmark::sideBySide(
        (name + ", libqrcodegen").c_str(), goal, ours,
        [&row] {
            using qrcodegen::QrCode;
            const QrCode::Ecc levels[] = {QrCode::Ecc::LOW, QrCode::Ecc::MEDIUM,
                                          QrCode::Ecc::QUARTILE, QrCode::Ecc::HIGH};
            QrCode::encodeSegments({qrcodegen::QrSegment::makeBytes(row.text)}, levels[row.level],
                                   row.version, row.version, -1, false);
        },
        options);
    ourTime = ourTime > 0 ? ourTime : qrcodegen.ours;
    peer = faster(peer, qrcodegen.theirs);
#endif
    return ourTime > 0 ? peer / ourTime : 0;
}

} // namespace

int main()
{
#if !defined(OMBREL_HAS_QRENCODE) && !defined(OMBREL_HAS_QRCODEGEN)
    std::printf("neither libqrencode nor libqrcodegen is installed: nothing to compare with\n");
    return 0;
#endif
    std::mt19937 random(1);
    std::vector<Row> rows;
    for (int version : {1, 2, 5, 10, 20, 40}) {
        for (int level : {0, 3}) {
            Row row{version, level, {}};
            for (int left = qr::byteCapacity(level, version); left > 0; --left) {
                row.text.push_back(static_cast<unsigned char>(random()));
            }
            rows.push_back(row);
        }
    }
    for (const NamedMaker &way : makers()) {
        double logarithms = 0;
        double lowest = 1e9;
        for (const Row &row : rows) {
            const double times = measure(row, way);
            logarithms += std::log(times);
            lowest = std::min(lowest, times);
        }
        std::printf("%s: %.1f times the faster peer (geometric mean), %.1f times at least\n",
                    way.name, std::exp(logarithms / double(rows.size())), lowest);
    }
    return 0;
}
