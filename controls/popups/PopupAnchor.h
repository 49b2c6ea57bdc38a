// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/popups/Follower.h"

#include <QQuickItem>

namespace om::controls {

/// The item at the top of the window in which the popup of a PopupAnchorItem lies. It follows that
/// item, which is its QObject parent.
class PopupAnchor
    : public QQuickItem
    , public Follower
{
    // No Q_OBJECT: to QML it is a plain Item.
public:
    const QQuickItem *followedItem() const override;
};

} // namespace om::controls
