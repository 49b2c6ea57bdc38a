// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QQmlIncubator>
#include <QQuickItem>

namespace om::controls {

/// Makes the popup of a PopupAnchorItem: disabled, owned by that item and inside its anchor before
/// the popup's own bindings run.
class PopupIncubator : public QQmlIncubator
{
public:
    /// The popup belongs to \a owner, lies in \a anchor and is recorded in \a popupItem as soon as
    /// it exists. An object that is not an item is recorded as null and left to the caller.
    PopupIncubator(QObject *owner, QQuickItem *anchor, QPointer<QQuickItem> *popupItem);

protected:
    void setInitialState(QObject *object) override;

private:
    const QPointer<QObject> m_owner;
    const QPointer<QQuickItem> m_anchor;
    QPointer<QQuickItem> *const m_popupItem;
};

} // namespace om::controls
