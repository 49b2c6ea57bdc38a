// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drag/DragVisualState.h"

#include <QObject>

#include <memory>

namespace om::controls {

class DragArea;

/// The attached `DragArea` of a drag visual: what its root knows of the drag, and asks of it.
class DragAreaAttachedObject
    : public QObject
    , public DragVisualState
{
    Q_OBJECT
    /// The source that made the visual; null on any other object, and once the source is gone.
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

    DragArea *area() const;
    /// Called by the source; with null when it goes.
    void setSource(DragArea *source);

Q_SIGNALS:
    void outsideChanged(bool outside);
    void droppedChanged(bool dropped);
    void delayRemoveChanged(bool delay);
    void hotspotChanged(QPointF hotspot);

private:
    void announceOutside(bool outside) override;
    void announceDropped(bool dropped) override;
    void announceDelayRemove(bool delay) override;
    void announceHotspot(const QPointF &hotspot) override;

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
