// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragVisualIncubator.h"

#include "controls/drag/DragVisualHost.h"

namespace om::controls {

DragVisualIncubator::DragVisualIncubator(DragVisualHost *host)
    : QQmlIncubator(Asynchronous)
    , m_host(host)
{
}

DragVisualIncubator::~DragVisualIncubator() = default;

void DragVisualIncubator::setInitialState(QObject *object)
{
    m_host->adoptVisual(object);
}

} // namespace om::controls
