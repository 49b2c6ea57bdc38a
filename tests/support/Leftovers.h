// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace support {

/// What a test left behind, in words: visible windows, an override cursor. Empty when nothing is
/// left. Call it at the end of a test: QCOMPARE(support::leftovers(), QString()).
QString leftovers();

} // namespace support
