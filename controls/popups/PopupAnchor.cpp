// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/PopupAnchor.h"

namespace om::controls {

const QQuickItem *PopupAnchor::followedItem() const
{
    return qobject_cast<const QQuickItem *>(parent());
}

} // namespace om::controls
