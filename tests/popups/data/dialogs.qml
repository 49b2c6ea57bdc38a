// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

// Siblings in a window, one of them disabled from the start, and two dialogs; one is declared deep
// inside the tree.
Window {
    id: window
    objectName: "window"
    width: 400
    height: 300
    flags: Qt.FramelessWindowHint

    property int pressedBelow: 0
    property var log: []

    Item {
        id: first
        objectName: "first"
        anchors.fill: parent
        onEnabledChanged: window.log.push("first " + enabled)
        MouseArea {
            anchors.fill: parent
            onPressed: ++window.pressedBelow
        }
    }
    Item {
        id: already
        objectName: "already"
        enabled: false
        onEnabledChanged: window.log.push("already " + enabled)
    }
    Item {
        id: last
        objectName: "last"
        onEnabledChanged: window.log.push("last " + enabled)
        Item {
            objectName: "deep"
            DialogItem {
                id: dialog
                objectName: "dialog"
                width: 100
                height: 60
                onEnabledChanged: window.log.push("dialog " + enabled)
            }
        }
    }
    DialogItem {
        id: second
        objectName: "second"
        onEnabledChanged: window.log.push("second " + enabled)
    }
}
