// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrEncoder.h"

#include "qr/QrStages.h"

#ifdef OMBREL_QR_ACCELERATED
#include "qr/accelerated/Encoder.h"
#endif

#include <cstring>

namespace om::controls {

namespace {

/// What a call works on: storage of fixed size, overwritten by each call.
struct State
{
    unsigned char data[qr::MaximumDataCodewords];
    unsigned char message[qr::MaximumCodewords + 1];
    qr::Symbol symbol;
    qr::MaskedSymbol masked;
};

State state;

/// The length of a zero-terminated text, or \a limit when it is not shorter.
int measure(const char *text, int limit)
{
    const void *end = std::memchr(text, 0, static_cast<std::size_t>(limit));
    return end ? static_cast<int>(static_cast<const char *>(end) - text) : limit;
}

/// Sets the bits of a word in the result from bit number \a k on.
void writeBits(std::uint64_t bits, int k, unsigned char *result)
{
    unsigned char *byte = result + k / 8;
    *byte |= static_cast<unsigned char>(bits >> 56 >> k % 8);
    for (bits <<= 8 - k % 8; bits; bits <<= 8) {
        *++byte = static_cast<unsigned char>(bits >> 56);
    }
}

/// Writes the rows one behind the other.
void writeResult(const qr::MaskedSymbol &masked, unsigned char *result)
{
    for (int y = 0; y < masked.size; ++y) {
        for (int word = 0; word < qr::wordsOf(masked.size); ++word) {
            writeBits(masked.rows.first(word)[y], y * masked.size + 64 * word, result);
        }
    }
}

} // namespace

void qr::makeSymbol(int level, int version, const char *text, int length, unsigned char *result)
{
    encodeData(level, version, text, length, state.data);
    constructMessage(level, version, state.data, state.message);

    placeFunctionPatterns(version, state.symbol);
    placeCodewords(state.message, versionTable[version].total, state.symbol);
    transpose(state.symbol);

    const int mask = chooseMask(level, state.symbol, state.masked);
    applyMask(mask, state.symbol, state.masked);
    placeFormatInformation(level, mask, state.masked);
    writeResult(state.masked, result);
}

int qr::encode(Maker maker, int level, int version, const char *text, int length,
               unsigned char *result)
{
    if (!result) {
        return -1;
    }
    std::memset(result, 0, QrResultBytes);
    if (level < 0 || level >= LevelCount || version < 0 || version > MaximumVersion || !text) {
        return -1;
    }
    if (length < 1) {
        // Measured up to one byte more than fits, which is enough to refuse the text.
        length = measure(text, byteCapacity(level, version ? version : MaximumVersion) + 1);
        if (length == 0) {
            return -1;
        }
    }
    const int needed = chooseVersion(level, version, length);
    if (needed == 0 || (version && needed > version)) {
        return -1;
    }
    if (version == 0) {
        version = needed;
    }
    maker(level, version, text, length, result);
    return sizeOf(version);
}

int qrEncode(int level, int version, const char *text, int length, unsigned char *result)
{
#ifdef OMBREL_QR_ACCELERATED
    const qr::Maker maker = qr::accelerated::maker(qr::accelerated::widest());
#else
    const qr::Maker maker = qr::makeSymbol;
#endif
    return qr::encode(maker, level, version, text, length, result);
}

} // namespace om::controls
