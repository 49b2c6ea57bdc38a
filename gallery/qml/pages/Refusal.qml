// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Lies below a drop zone: the drags that come through to it are those that the zone refuses. It takes
// none either, the cursor says so, and `over` does.
DropArea {
    readonly property bool over: containsDrag

    onEntered: drag.accept(Qt.IgnoreAction)
    onPositionChanged: drag.accept(Qt.IgnoreAction)
    onDropped: drop.accepted = false
}
