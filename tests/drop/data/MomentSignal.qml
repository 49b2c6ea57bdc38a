// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Emits reached() in the signal handler that "moment" names.
Item {
    id: root
    width: 100
    height: 100

    property string moment
    signal reached()

    DropZone {
        objectName: "zone"
        anchors.fill: parent
        onContainsDragChanged: if (root.moment === "containsDrag") root.reached()

        FileDropHandler {
            objectName: "handler"
            onEntered: if (root.moment === "entered") root.reached()
            onPositionChanged: if (root.moment === "positionChanged") root.reached()
            onExited: if (root.moment === "exited") root.reached()
            onDropped: if (root.moment === "dropped") root.reached()
        }
    }
}
