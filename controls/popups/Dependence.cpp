// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/Dependence.h"

#include "controls/popups/Popup.h"
#include "controls/popups/PopupAnchorItem.h"

#include <QVarLengthArray>

namespace om::controls {

namespace {

/// What \a item is kept at by an overlay's own means; null when only its parent item moves it.
const QQuickItem *followedBy(const QQuickItem *item)
{
    if (const auto *const popup = qobject_cast<const Popup *>(item)) {
        return popup->attachedItem();
    }
    // The item at the top of the window that holds the popup is a QObject child of its place.
    return qobject_cast<const PopupAnchorItem *>(item->parent());
}

} // namespace

bool dependsOn(const QQuickItem *item, const QQuickItem *overlay)
{
    // Each item is looked at once, so that a circle which the overlay is no part of ends, too.
    QVarLengthArray<const QQuickItem *, 8> starts;
    starts.append(item);
    for (int i = 0; i < starts.size(); ++i) {
        for (const QQuickItem *at = starts.at(i); at; at = at->parentItem()) {
            if (at == overlay) {
                return true;
            }
            const QQuickItem *const followed = followedBy(at);
            if (followed && !starts.contains(followed)) {
                starts.append(followed);
            }
        }
    }
    return false;
}

} // namespace om::controls
