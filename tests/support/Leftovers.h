// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace support {

/// What a test left behind, in words; empty when nothing is left. Call it at the end of a test,
/// after all that the test owns has gone: QCOMPARE(support::leftovers(), QString()).
///
/// Sends the deferred deletions first. Then counts: visible windows, an override cursor, objects,
/// textures and scene-graph nodes made in this test, event filters, active timers, running
/// animations (see ObjectCensus), dialogs that count as open.
QString leftovers();

/// How many dialogs of the process the library counts as open; 0 where the test does not load the
/// plugin.
int openDialogs();

} // namespace support
