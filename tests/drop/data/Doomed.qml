// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Asks for the end of something at the moment it is told.
Item {
    id: root
    width: 100
    height: 100

    property string moment
    signal doom()

    DropZone {
        objectName: "zone"
        anchors.fill: parent
        onContainsDragChanged: if (root.moment === "containsDrag") root.doom()

        FileDropHandler {
            objectName: "handler"
            onEntered: if (root.moment === "entered") root.doom()
            onPositionChanged: if (root.moment === "positionChanged") root.doom()
            onExited: if (root.moment === "exited") root.doom()
            onDropped: if (root.moment === "dropped") root.doom()
        }
    }
}
