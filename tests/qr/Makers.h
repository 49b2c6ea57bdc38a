// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "qr/QrStages.h"

#ifdef OMBREL_QR_ACCELERATED
#include "qr/accelerated/Encoder.h"
#endif

#include <vector>

/// A way to make symbols, to be compared with the others.
struct NamedMaker
{
    const char *name;
    om::controls::qr::Maker maker;
};

/// All ways that this build has and this processor can go.
inline std::vector<NamedMaker> makers()
{
    std::vector<NamedMaker> all{{"portable", om::controls::qr::makeSymbol}};
#ifdef OMBREL_QR_ACCELERATED
    using namespace om::controls::qr::accelerated;
    constexpr const char *names[InstructionSets] = {"accelerated", "AVX2", "AVX-512"};
    for (int set = 0; set < InstructionSets; ++set) {
        const auto instructions = Instructions(set);
        if (available(instructions))
            all.push_back({names[set], maker(instructions)});
    }
#endif
    return all;
}
