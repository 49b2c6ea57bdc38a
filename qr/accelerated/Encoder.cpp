// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/accelerated/Encoder.h"

#include "qr/accelerated/Stages.h"

namespace om::controls::qr::accelerated {

namespace {

/// What a call works on: storage of fixed size, overwritten by each call.
struct State
{
    unsigned char data[MaximumDataCodewords];
    unsigned char codewords[MaximumCodewords + SpreadExcess];
    Boards boards;
    MaskFeatures features;
};

State state;

template<Instructions instructions>
void makeSymbol(int level, int version, const char *text, int length, unsigned char *result)
{
    const int size = sizeOf(version);
    encodeData(level, version, text, length, state.data);
    interleave(instructions, level, version, state.data, state.codewords);

    clearBoards(size, state.boards);
    placeFunctionPatterns(version, state.boards);
    placeCodewords(instructions, size, state.codewords, versionTable[version].total, state.boards);
    cutStrips(size, state.boards);

    countFeatures(instructions, level, size, state.boards, state.features);
    applyMask(level, chooseMask(size, state.features), size, state.boards);
    pack(size, state.boards.rows, result);
}

} // namespace

bool available(Instructions instructions)
{
#if defined(__x86_64__)
    const bool avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi2")
        && __builtin_cpu_supports("popcnt");
    if (instructions == Avx2) {
        return avx2;
    }
    if (instructions == Avx512) {
        return avx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl");
    }
#endif
    return instructions == Baseline;
}

Instructions widest()
{
    return available(Avx512) ? Avx512 : available(Avx2) ? Avx2 : Baseline;
}

Maker maker(Instructions instructions)
{
    constexpr Maker makers[InstructionSets] = {makeSymbol<Baseline>, makeSymbol<Avx2>,
                                               makeSymbol<Avx512>};
    return makers[instructions];
}

} // namespace om::controls::qr::accelerated
