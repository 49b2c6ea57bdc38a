// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrEncoder.h"

#include "qr/QrStages.h"

#include <cstring>

namespace om::controls {

namespace {

/// The state of the call in progress: storage of fixed size, overwritten by each call.
struct State
{
    int level;
    int version;
    int mask; ///< -1 while it is not chosen.
    int size;
    unsigned char data[qr::MaximumDataCodewords];
    unsigned char codewords[qr::MaximumCodewords + qr::SpreadExcess];
    qr::Boards boards;
    qr::Features features;
};

State state;

/// The length of a zero-terminated text, or \a limit when it is not shorter.
int measure(const char *text, int limit)
{
    const void *end = std::memchr(text, 0, static_cast<std::size_t>(limit));
    return end ? static_cast<int>(static_cast<const char *>(end) - text) : limit;
}

} // namespace

int qr::encode(Instructions instructions, int level, int version, const char *text, int length,
               unsigned char *result)
{
    if (!result)
        return -1;
    std::memset(result, 0, QrResultBytes);
    if (level < 0 || level >= qr::LevelCount || version < 0 || version > qr::MaximumVersion
        || !text)
        return -1;

    state.level = level;
    state.mask = -1;
    if (length < 1) {
        // One byte more than fits tells enough.
        length = measure(text, qr::byteCapacity(level, version ? version : qr::MaximumVersion) + 1);
        if (length == 0)
            return -1;
    }
    const int needed = qr::chooseVersion(level, version, length);
    if (needed == 0 || (version && needed > version))
        return -1;
    state.version = version ? version : needed;
    state.size = qr::sizeOf(state.version);

    qr::encodeData(level, state.version, text, length, state.data);
    qr::interleave(instructions, level, state.version, state.data, state.codewords);

    qr::clearBoards(state.size, state.boards);
    qr::placeFunctionPatterns(state.version, state.boards);
    qr::placeCodewords(instructions, state.size, state.codewords,
                       qr::versionTable[state.version].total, state.boards);
    qr::cutStrips(state.size, state.boards);

    qr::countFeatures(instructions, level, state.size, state.boards, state.features);
    state.mask = qr::chooseMask(state.size, state.features);
    qr::applyMask(level, state.mask, state.size, state.boards);
    qr::pack(state.size, state.boards.rows, result);
    return state.size;
}

int qrEncode(int level, int version, const char *text, int length, unsigned char *result)
{
    return qr::encode(qr::widest(), level, version, text, length, result);
}

} // namespace om::controls
