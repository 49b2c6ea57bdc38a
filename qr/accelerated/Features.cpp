// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/accelerated/Stages.h"

#include <cstring>

namespace om::controls::qr::accelerated {

namespace {

namespace baseline {

#define QR_TARGET
#define QR_KERNEL __attribute__((always_inline)) inline
#define QR_LANES 4
#include "qr/accelerated/FeatureKernels.inc"
#undef QR_TARGET
#undef QR_KERNEL
#undef QR_LANES

} // namespace baseline

#if defined(__x86_64__)

namespace avx2 {

#define QR_TARGET __attribute__((target("avx2")))
#define QR_KERNEL __attribute__((target("avx2"), always_inline)) inline
#define QR_LANES 8
#include "qr/accelerated/FeatureKernels.inc"
#undef QR_TARGET
#undef QR_KERNEL
#undef QR_LANES

} // namespace avx2

namespace avx512 {

// As wide, but with three-way logic and twice the registers.
#define QR_TARGET __attribute__((target("avx2,avx512f,avx512vl")))
#define QR_KERNEL __attribute__((target("avx2,avx512f,avx512vl"), always_inline)) inline
#define QR_LANES 8
#include "qr/accelerated/FeatureKernels.inc"
#undef QR_TARGET
#undef QR_KERNEL
#undef QR_LANES

} // namespace avx512

#endif

} // namespace

void countFeatures([[maybe_unused]] Instructions instructions, int level, int size,
                   const Boards &boards, MaskFeatures &features)
{
#if defined(__x86_64__)
    if (instructions == Avx512) {
        return avx512::count(level, size, boards, features);
    }
    if (instructions == Avx2) {
        return avx2::count(level, size, boards, features);
    }
#endif
    baseline::count(level, size, boards, features);
}

} // namespace om::controls::qr::accelerated
