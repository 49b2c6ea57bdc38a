// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/DropHandler.h"

#include <QQmlListProperty>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An item that accepts drags and hands each of them to exactly one of its handlers: the first, in
/// the order of the list, that takes its MIME data.
///
/// Handlers are neither owned nor re-parented. One that is destroyed leaves the list.
class DropZone : public QQuickItem
{
    Q_OBJECT
    /// The handlers in the order in which they are asked; the default property.
    Q_PROPERTY(QQmlListProperty<om::controls::DropHandler> dropHandlers READ dropHandlers NOTIFY
                   dropHandlersChanged)
    /// True while a drag that one of the handlers takes is over the zone.
    Q_PROPERTY(bool containsDrag READ containsDrag NOTIFY containsDragChanged)
    Q_CLASSINFO("DefaultProperty", "dropHandlers")

public:
    explicit DropZone(QQuickItem *parent = nullptr);
    ~DropZone() override;

    QQmlListProperty<DropHandler> dropHandlers();
    bool containsDrag() const;

Q_SIGNALS:
    void dropHandlersChanged();
    void containsDragChanged();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
