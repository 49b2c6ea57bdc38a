// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace om::controls {

/// The bytes of a result: one bit for each module of the largest symbol.
constexpr int QrResultBytes = 3917;

/// Encodes a text as one QR code symbol (ISO/IEC 18004, Model 2), as 8-bit bytes throughout.
///
/// \a level is the error correction, 0 to 3 for L, M, Q, H. \a version is 1 to 40, or 0 for the
/// smallest that holds the text; a larger one than needed is honoured. \a text is \a length bytes;
/// with a length below 1 it ends at its first zero byte. The mask is chosen by the penalty rules.
///
/// \a result has QrResultBytes bytes and is cleared first. The module in column x and row y of a
/// symbol of n modules a side is bit k = y * n + x, in byte k / 8 under 0x80 >> (k % 8); a set bit
/// is dark. Later bits stay 0.
///
/// Returns the number of modules a side, 21 to 177, or -1 with a cleared result: for an empty
/// text, one that does not fit, a null text, a level or version out of range.
///
/// All state is at file scope and overwritten by each call: one call at a time. Nothing is
/// allocated.
int qrEncode(int level, int version, const char *text, int length, unsigned char *result);

} // namespace om::controls
