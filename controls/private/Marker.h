// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

namespace om::controls {

/// The marker of one of a colour picker's boxes, made from the component that the application
/// gives. The box owns the item; it may be destroyed by others at any time.
///
/// A box that gets another component calls take(), emits the change, and calls create(). The signal
/// and create() run the application's code, which may delete the box and this object with it.
class Marker
{
public:
    explicit Marker(QQuickItem *box);

    /// The component; null once it was destroyed.
    QQmlComponent *delegate() const;
    /// The item; null without a delegate, and when the delegate makes no item.
    QQuickItem *item() const;

    /// Stores \a delegate instead of the present component and discards the item (later). Returns
    /// false, and changes nothing, when \a delegate is the present one.
    bool take(QQmlComponent *delegate);

    /// Makes the item, in the box and at half its height, unless the box's component is another
    /// than \a delegate by now, or has its item. Warns with \a warning when what the component
    /// makes is not an item. Returns true when the box is still there and has got the item.
    bool create(QQmlComponent *delegate, const char *warning);

    /// Sets the item's x to \a hue times the width of the box. The hue is not divided by 359, so x
    /// lies outside the box for any hue but 0. There has to be an item.
    void placeByHue(int hue);

private:
    QQuickItem *const m_box;
    QPointer<QQmlComponent> m_delegate;
    QPointer<QQuickItem> m_item;
};

} // namespace om::controls
