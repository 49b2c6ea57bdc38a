// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/Dependence.h"

#include "controls/popups/Follower.h"

#include <QQuickItem>
#include <QVarLengthArray>

namespace om::controls {

bool dependsOn(const QQuickItem *item, const QQuickItem *overlay)
{
    // Each item is added once: in a circle of followers the loop would otherwise not end.
    QVarLengthArray<const QQuickItem *, 8> starts;
    starts.append(item);
    for (int i = 0; i < starts.size(); ++i) {
        for (const QQuickItem *at = starts.at(i); at; at = at->parentItem()) {
            if (at == overlay) {
                return true;
            }
            const auto *const follower = dynamic_cast<const Follower *>(at);
            const QQuickItem *const followed = follower ? follower->followedItem() : nullptr;
            if (followed && !starts.contains(followed)) {
                starts.append(followed);
            }
        }
    }
    return false;
}

} // namespace om::controls
