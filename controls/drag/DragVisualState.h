// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointF>

#include <memory>

namespace om::controls {

/// The state of a drag visual: the body of both attached types, which emit its signals. Not a
/// QObject: the attached types derive from QObject directly, as QML shows the direct superclass of
/// a type.
class DragVisualState
{
public:
    virtual ~DragVisualState();

    /// True while the cursor is outside the window.
    bool isOutside() const;
    /// True once the drag has ended and the visual delays its removal; never reset.
    bool isDropped() const;
    /// True while the visual wants to stay after the drag, until this changes again.
    bool delayRemove() const;
    void setDelayRemove(bool delay);
    /// The point of the visual that lies under the cursor, in its own coordinates.
    QPointF hotspot() const;
    /// Points that are fuzzily equal are the same.
    void setHotspot(const QPointF &hotspot);

    // For the source of the drag.
    void setOutside(bool outside);
    void setDropped(bool dropped);

protected:
    DragVisualState();

    virtual void announceOutside(bool outside) = 0;
    virtual void announceDropped(bool dropped) = 0;
    virtual void announceDelayRemove(bool delay) = 0;
    virtual void announceHotspot(const QPointF &hotspot) = 0;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
