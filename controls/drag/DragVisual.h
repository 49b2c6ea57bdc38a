// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointF>

namespace om::controls {

/// What a drag visual knows of its drag, the state behind both attached types. The attached type
/// says how each change is announced.
class DragVisual
{
public:
    virtual ~DragVisual();

    /// True while the cursor is outside the window.
    bool isOutside() const { return m_outside; }
    void setOutside(bool outside);
    /// True once the drag has ended and the visual delays its removal; never reset.
    bool isDropped() const { return m_dropped; }
    void setDropped(bool dropped);
    /// True while the visual wants to stay after the drag, until this changes again.
    bool delayRemove() const { return m_delayRemove; }
    void setDelayRemove(bool delay);
    /// The point of the visual that lies under the cursor, in its own coordinates.
    QPointF hotspot() const { return m_hotspot; }
    /// Points that are fuzzily equal are the same.
    void setHotspot(const QPointF &hotspot);

protected:
    virtual void announceOutside(bool outside) = 0;
    virtual void announceDropped(bool dropped) = 0;
    virtual void announceDelayRemove(bool delay) = 0;
    virtual void announceHotspot(const QPointF &hotspot) = 0;

private:
    bool m_outside = false;
    bool m_dropped = false;
    bool m_delayRemove = false;
    QPointF m_hotspot;
};

} // namespace om::controls
