// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/PopupIncubator.h"

namespace om::controls {

PopupIncubator::PopupIncubator(QObject *owner, QQuickItem *anchor, QPointer<QQuickItem> *popupItem)
    : QQmlIncubator(Synchronous)
    , m_owner(owner)
    , m_anchor(anchor)
    , m_popupItem(popupItem)
{
}

void PopupIncubator::setInitialState(QObject *object)
{
    if (!m_owner) {
        return;
    }
    const QPointer<QQuickItem> item(qobject_cast<QQuickItem *>(object));
    *m_popupItem = item;
    if (!item) {
        return;
    }
    item->setEnabled(false);
    if (item && m_owner) {
        item->setParent(m_owner);
        item->setParentItem(m_anchor);
    }
}

} // namespace om::controls
