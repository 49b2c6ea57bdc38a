// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrStages.h"

#include <cstring>

namespace om::controls::qr {

namespace baseline {

#define QR_TARGET
#define QR_KERNEL __attribute__((always_inline)) inline
#define QR_LANES 4
#include "qr/QrFeatureKernels.inc"
#undef QR_TARGET
#undef QR_KERNEL
#undef QR_LANES

} // namespace baseline

#if defined(__x86_64__)

namespace avx2 {

#define QR_TARGET __attribute__((target("avx2")))
#define QR_KERNEL __attribute__((target("avx2"), always_inline)) inline
#define QR_LANES 8
#include "qr/QrFeatureKernels.inc"
#undef QR_TARGET
#undef QR_KERNEL
#undef QR_LANES

} // namespace avx2

namespace avx512 {

// As wide, but with three-way logic and twice the registers.
#define QR_TARGET __attribute__((target("avx2,avx512f,avx512vl")))
#define QR_KERNEL __attribute__((target("avx2,avx512f,avx512vl"), always_inline)) inline
#define QR_LANES 8
#include "qr/QrFeatureKernels.inc"
#undef QR_TARGET
#undef QR_KERNEL
#undef QR_LANES

} // namespace avx512

bool available(Instructions instructions)
{
    switch (instructions) {
    case Baseline:
        return true;
    case Avx2:
        return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi2")
            && __builtin_cpu_supports("popcnt");
    case Avx512:
        return available(Avx2) && __builtin_cpu_supports("avx512f")
            && __builtin_cpu_supports("avx512vl");
    default:
        return false;
    }
}

#else

bool available(Instructions instructions)
{
    return instructions == Baseline;
}

#endif

Instructions widest()
{
    return available(Avx512) ? Avx512 : available(Avx2) ? Avx2 : Baseline;
}

void countFeatures(Instructions instructions, int level, int size, const Boards &boards,
                   Features &features)
{
#if defined(__x86_64__)
    if (instructions == Avx512)
        return avx512::count(level, size, boards, features);
    if (instructions == Avx2)
        return avx2::count(level, size, boards, features);
#endif
    (void)instructions;
    baseline::count(level, size, boards, features);
}

} // namespace om::controls::qr
