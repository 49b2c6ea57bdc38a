// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// What can be dragged about its parent, and moved by the arrow keys once Tab has come to it.
Item {
    id: movable

    property string name
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose
    // How far outside the sign of the focus is.
    property real ringMargin: 4
    property real minimumX: -Infinity
    property real maximumX: Infinity
    property real minimumY: -Infinity
    property real maximumY: Infinity
    readonly property alias dragged: mouse.drag.active

    signal moved()

    function step(dx, dy) {
        x = Math.max(minimumX, Math.min(maximumX, x + dx));
        y = Math.max(minimumY, Math.min(maximumY, y + dy));
        moved();
    }

    activeFocusOnTab: true
    Keys.onLeftPressed: step(-8, 0)
    Keys.onRightPressed: step(8, 0)
    Keys.onUpPressed: step(0, -8)
    Keys.onDownPressed: step(0, 8)
    Accessible.role: Accessible.Graphic
    Accessible.name: name + ", to be moved with the arrow keys"
    Accessible.focusable: true

    FocusRing {
        anchors.margins: -movable.ringMargin
        shown: movable.activeFocus || movable.pose === "focus"
    }
    MouseArea {
        id: mouse
        anchors.fill: parent
        cursorShape: Qt.SizeAllCursor
        drag.target: movable
        drag.minimumX: movable.minimumX
        drag.maximumX: movable.maximumX
        drag.minimumY: movable.minimumY
        drag.maximumY: movable.maximumY
        onPressed: movable.forceActiveFocus(Qt.MouseFocusReason)
        onPositionChanged: if (drag.active) movable.moved()
    }
}
