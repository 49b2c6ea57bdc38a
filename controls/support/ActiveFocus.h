// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QQuickItem>

namespace om::controls {

/// Gives \a item the active focus. Returns false when a handler of the focus has destroyed it.
///
/// QQuickItem::forceActiveFocus() begins with setFocus(true) and goes on with the item, although a
/// handler may have destroyed it there. Called a second time, setFocus(true) does nothing.
inline bool takeActiveFocus(QQuickItem *item)
{
    const QPointer<QQuickItem> alive(item);
    item->setFocus(true);
    if (alive) {
        alive->forceActiveFocus();
    }
    return !alive.isNull();
}

} // namespace om::controls
