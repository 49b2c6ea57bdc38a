// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

class QDrag;

namespace om::controls {

/// Runs the platform's loop for \a drag, with \a actions on offer. Afterwards the drag is scheduled
/// for deletion, or will be once another process has fetched what was dropped on it.
///
/// While the loop of another drag runs, of a source around or inside this one for example, Qt
/// refuses with a warning of its own, and this returns at once.
void runDragLoop(QDrag *drag, Qt::DropActions actions);

} // namespace om::controls
