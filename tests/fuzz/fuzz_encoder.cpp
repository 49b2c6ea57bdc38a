// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrEncoder.h"
#include "qr/QrStages.h"
#include "tests/fuzz/Bytes.h"
#include "tests/qr/SlowEncoder.h"

#ifdef OMBREL_QR_ACCELERATED
#include "qr/accelerated/Encoder.h"
#endif

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>
#include <zbar.h>

using namespace om::controls;

namespace {

using Result = unsigned char[QrResultBytes];

bool same(const Result &one, const Result &other)
{
    return std::memcmp(one, other, QrResultBytes) == 0;
}

/// What somebody else's decoder reads, as bytes; empty when it finds no symbol.
std::string decoded(int size, const Result &result)
{
    constexpr int modulePixels = 3;
    constexpr int quietZone = 4;
    const int side = (size + 2 * quietZone) * modulePixels;
    std::vector<unsigned char> pixels(static_cast<std::size_t>(side * side), 255);
    for (int y = 0; y < size * modulePixels; ++y) {
        for (int x = 0; x < size * modulePixels; ++x) {
            const int k = y / modulePixels * size + x / modulePixels;
            if (result[k / 8] & 0x80 >> k % 8) {
                const int margin = quietZone * modulePixels;
                pixels[static_cast<std::size_t>((y + margin) * side + x + margin)] = 0;
            }
        }
    }
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    scanner.set_config(zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_ENABLE, 1);
    scanner.set_config(zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_BINARY, 1);
    const auto extent = static_cast<unsigned>(side);
    zbar::Image image(extent, extent, "Y800", pixels.data(), pixels.size());
    scanner.scan(image);
    const auto symbol = image.symbol_begin();
    return symbol == image.symbol_end() ? std::string() : symbol->get_data();
}

} // namespace

/// The first byte is the level, the second the version, both now and then out of range; the rest is
/// the text. Every way to make a symbol makes the same one, which is also that of the slow encoder,
/// and of a sample another's decoder reads the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::Bytes bytes(data, size);
    const int level = bytes.byte() % 6 - 1;
    const int version = bytes.byte() % 44 - 1;
    const std::string text(bytes.rest(), static_cast<std::size_t>(bytes.restSize()));
    const int length = static_cast<int>(text.size());

    Result result;
    std::memset(result, 0xaa, sizeof result);
    const int modules = qrEncode(level, version, text.c_str(), length, result);

    Result again;
    fuzz::expect(qr::encode(qr::makeSymbol, level, version, text.c_str(), length, again) == modules
                     && same(again, result),
                 "the portable encoder makes the same symbol");
#ifdef OMBREL_QR_ACCELERATED
    for (int set = 0; set < qr::accelerated::InstructionSets; ++set) {
        const auto instructions = static_cast<qr::accelerated::Instructions>(set);
        if (qr::accelerated::available(instructions)) {
            fuzz::expect(qr::encode(qr::accelerated::maker(instructions), level, version,
                                    text.c_str(), length, again)
                                 == modules
                             && same(again, result),
                         "every set of instructions makes the same symbol");
        }
    }
#endif

    // What has no symbol leaves a cleared result.
    const bool inRange = level >= 0 && level < 4 && version >= 0 && version <= 40;
    if (modules == -1) {
        fuzz::expect(
            std::all_of(result, result + QrResultBytes, [](unsigned char c) { return !c; }),
            "a refused text clears the result");
    }
    // A length of 0 stands for the length up to the first zero byte, and here there is none.
    if (!inRange || text.empty()) {
        fuzz::expect(modules == -1, "what is out of range is refused");
        return 0;
    }

    // The slow ways take milliseconds for a large symbol: of those, a sample.
    const bool sample = (static_cast<unsigned char>(text.back()) + length) % 32 == 0;
    if (modules <= 45 || sample) {
        const slow::Symbol expected = slow::encode(level, version, text);
        fuzz::expect(modules == (expected.size ? expected.size : -1), "the size is right");
        fuzz::expect(modules == -1
                         || std::equal(expected.result.cbegin(), expected.result.cend(), result),
                     "the symbol is right");
    }
    if (modules != -1 && sample) {
        fuzz::expect(decoded(modules, result) == text, "a decoder reads the text");
    }
    return 0;
}
