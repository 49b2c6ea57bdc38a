// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

class QQuickItem;

namespace om::controls {

/// Whether \a item moves when \a overlay does: it lies in the overlay, or in another one that
/// follows something for which that holds, and so on. A popup follows its attached item, the popup
/// of a PopupAnchorItem follows that item. What depends on an overlay cannot be followed by it: the
/// two would run from each other with every frame.
bool dependsOn(const QQuickItem *item, const QQuickItem *overlay);

} // namespace om::controls
