// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

#include <functional>

namespace om::controls {

/// The marker of one of a colour picker's boxes, made from the component that the application
/// gives. The box owns the item; it may be destroyed by others at any time.
class Marker
{
public:
    explicit Marker(QQuickItem *box);

    QQmlComponent *delegate() const;
    /// The item; null without a delegate, and when the delegate makes no item.
    QQuickItem *item() const;

    /// Takes \a delegate instead of the present one: discards the item (later), calls \a changed,
    /// and makes a new item, which \a place puts where it belongs. Warns with \a warning when what
    /// the component makes is not an item.
    void setDelegate(QQmlComponent *delegate, const char *warning,
                     const std::function<void()> &changed,
                     const std::function<void(QQuickItem *)> &place);

private:
    QQuickItem *const m_box;
    QPointer<QQmlComponent> m_delegate;
    QPointer<QQuickItem> m_item;
};

} // namespace om::controls
