// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/Marker.h"

#include "controls/private/Logging.h"

#include <QQmlEngine>

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

void Marker::setDelegate(QQmlComponent *delegate, const char *warning,
                         const std::function<void()> &changed,
                         const std::function<void(QQuickItem *)> &place)
{
    if (m_delegate == delegate) {
        return;
    }
    if (m_item) {
        m_item->deleteLater();
        m_item = nullptr;
    }
    m_delegate = delegate;
    changed();
    // A handler of that signal may have set another delegate, which then has its item already.
    if (!delegate || m_delegate != delegate) {
        return;
    }
    QObject *const object = delegate->create(qmlContext(m_box));
    auto *const item = qobject_cast<QQuickItem *>(object);
    if (!item) {
        delete object;
        qCWarning(lcControls, "%s", warning);
        return;
    }
    if (m_delegate != delegate) {
        // What the component ran while it was completed has set another one.
        item->deleteLater();
        return;
    }
    m_item = item;
    item->setParent(m_box);
    item->setParentItem(m_box);
    if (m_item) {
        place(m_item);
    }
}

} // namespace om::controls
