// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointF>

#include <memory>

namespace om::controls {

class DragArea;
class DragVisual;

/// The attached `DragArea` of a drag visual: what its root knows of the drag, and asks of it.
class DragAreaAttachedObject : public QObject
{
    Q_OBJECT
    /// The source that made the visual; null on any other object.
    Q_PROPERTY(om::controls::DragArea *area READ area CONSTANT)
    /// True while the cursor is outside the window.
    Q_PROPERTY(bool isOutside READ isOutside NOTIFY outsideChanged)
    /// True once the drag has ended, dropped or not, for a visual that asked for delayed removal.
    Q_PROPERTY(bool isDropped READ isDropped NOTIFY droppedChanged)
    /// While true when the drag ends, the visual stays until this changes: time for an animation.
    Q_PROPERTY(bool delayRemove READ delayRemove WRITE setDelayRemove NOTIFY delayRemoveChanged)
    /// The point of the visual under the cursor, in its own coordinates; (0, 0) by default.
    Q_PROPERTY(QPointF hotspot READ hotspot WRITE setHotspot NOTIFY hotspotChanged)

public:
    explicit DragAreaAttachedObject(QObject *object);
    ~DragAreaAttachedObject() override;

    /// The attached object of \a object, made when it is first asked for.
    static DragAreaAttachedObject *of(QObject *object);

    DragArea *area() const;
    void setArea(DragArea *area);
    bool isOutside() const;
    bool isDropped() const;
    bool delayRemove() const;
    void setDelayRemove(bool delay);
    QPointF hotspot() const;
    void setHotspot(const QPointF &hotspot);

    /// The state behind the properties, for the source of the drag.
    DragVisual *visual() const;

Q_SIGNALS:
    void outsideChanged(bool outside);
    void droppedChanged(bool dropped);
    void delayRemoveChanged(bool delay);
    void hotspotChanged(QPointF hotspot);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
