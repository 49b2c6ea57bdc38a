// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/Marker.h"

#include "controls/private/Logging.h"
#include "controls/support/QmlPlace.h"

#include <QQmlEngine>
#include <QQmlIncubator>

namespace om::controls {

Marker::Marker(QQuickItem *box)
    : m_box(box)
{
}

QQmlComponent *Marker::delegate() const
{
    return m_delegate;
}

QQuickItem *Marker::item() const
{
    return m_item;
}

bool Marker::take(QQmlComponent *delegate)
{
    // A destroyed component reads null while its item lives on: setting null then removes the item.
    const bool orphaned = !m_delegate && m_item;
    if (m_delegate == delegate && !orphaned) {
        return false;
    }
    if (m_item) {
        m_item->deleteLater();
        m_item = nullptr;
    }
    m_delegate = delegate;
    return true;
}

bool Marker::create(QQmlComponent *delegate, const char *warning)
{
    if (!delegate || m_delegate != delegate || m_item) {
        // A handler of the change has set another component, or this one, and its item was made.
        return false;
    }
    const QPointer<QQuickItem> box(m_box);
    // Completing, the object may destroy the component, which an incubator does not need any more.
    QQmlIncubator incubator(QQmlIncubator::Synchronous);
    delegate->create(incubator, qmlContext(m_box));
    const QPointer<QQuickItem> item(qobject_cast<QQuickItem *>(incubator.object()));
    if (!item) {
        delete incubator.object();
        QmlPlace(box).log().warning(lcControls(), "%s", warning);
        return false;
    }
    if (!box || m_delegate != delegate) {
        // Code that ran as the item was completed has deleted the box or set another component.
        item->deleteLater();
        return false;
    }
    m_item = item;
    item->setParent(box);
    item->setParentItem(box);
    if (box && item) {
        item->setY(box->height() * 0.5);
    }
    return box && item && m_item == item;
}

void Marker::placeByHue(int hue)
{
    m_item->setX(hue * m_box->width());
}

} // namespace om::controls
