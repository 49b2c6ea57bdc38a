// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragLoop.h"

#include <QDrag>
#include <QPointer>

#include <memory>

namespace om::controls {

void runDragLoop(QDrag *drag, Qt::DropActions actions)
{
    const QPointer<QDrag> alive(drag);
    // Qt says neither that it refuses a drag nor does it delete one then. A loop delivers what was
    // posted before it.
    const auto hasRun = std::make_shared<bool>(false);
    QMetaObject::invokeMethod(
        drag, [hasRun] { *hasRun = true; }, Qt::QueuedConnection);
    drag->exec(actions);
    if (alive && !*hasRun) {
        alive->deleteLater();
    }
}

} // namespace om::controls
