// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragAreaIncubator.h"

#include "controls/drag/DragArea.h"
#include "controls/drag/DragAreaAttachedObject.h"

namespace om::controls {

DragAreaIncubator::DragAreaIncubator(DragArea *area)
    : QQmlIncubator(Asynchronous)
    , m_area(area)
{
}

DragAreaIncubator::~DragAreaIncubator() = default;

void DragAreaIncubator::setInitialState(QObject *object)
{
    if (auto *const attached = DragAreaAttachedObject::of(object)) {
        attached->setArea(m_area);
    }
    m_area->adoptVisual(object);
}

} // namespace om::controls
