// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "qr/QrStages.h"

namespace om::controls::qr::accelerated {

/// The sets of instructions to choose from, from the one that runs everywhere to the widest.
enum Instructions {
    Baseline,
    Avx2,
    Avx512,
    InstructionSets
};

/// Whether this processor has them.
bool available(Instructions instructions);

/// The widest that it has.
Instructions widest();

/// What makes a symbol with these instructions, which are available.
Maker maker(Instructions instructions);

} // namespace om::controls::qr::accelerated
