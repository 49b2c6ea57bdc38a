// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

class QQuickItem;

namespace om::controls {

/// Whether \a item moves when \a overlay does: it lies in the overlay, or in a Follower of
/// something that lies in the overlay, and so on. An overlay must not follow an item that depends
/// on it: each frame would move both, and none would ever be the last.
bool dependsOn(const QQuickItem *item, const QQuickItem *overlay);

} // namespace om::controls
