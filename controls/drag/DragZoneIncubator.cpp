// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragZoneIncubator.h"

#include "controls/drag/DragZone.h"
#include "controls/drag/DragZoneAttachedObject.h"

namespace om::controls {

DragZoneIncubator::DragZoneIncubator(DragZone *dragZone)
    : QQmlIncubator(Asynchronous)
    , m_dragZone(dragZone)
{
}

DragZoneIncubator::~DragZoneIncubator() = default;

void DragZoneIncubator::setInitialState(QObject *object)
{
    if (auto *const attached = DragZoneAttachedObject::of(object)) {
        attached->setDragZone(m_dragZone);
    }
    m_dragZone->adoptVisual(object);
}

} // namespace om::controls
