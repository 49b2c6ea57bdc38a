// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

// A place at (30.7, 40.9) of the window, over an area that takes every press.
Window {
    id: window
    width: 800
    height: 600
    flags: Qt.FramelessWindowHint

    property int pressedBelow: 0
    property int pressedInPopup: 0
    property int closings: 0
    property var log: []
    onClosing: ++closings

    property Component other: Rectangle {
        objectName: "other"
        width: 10
        height: 10
    }
    property Component noItem: QtObject {
        objectName: "noItem"
    }

    Item {
        id: outer
        objectName: "outer"
        width: 800
        height: 600
        focus: true
        Keys.onPressed: window.log.push("key " + event.key)

        MouseArea {
            anchors.fill: parent
            onPressed: ++window.pressedBelow
        }
        Item {
            id: inner
            objectName: "inner"
            x: 30
            y: 40
            PopupAnchorItem {
                id: anchor
                objectName: "anchor"
                x: 0.7
                y: 0.9
                Rectangle {
                    objectName: "popup"
                    width: 120
                    height: 80
                    color: enabled ? "orange" : "grey"
                    property bool seenOnCompletion
                    property var states: []
                    property string atFirst: enabled + " " + (parent !== null) + " " + (anchor.popupItem !== null)
                    onEnabledChanged: states.push(enabled)
                    Component.onCompleted: {
                        seenOnCompletion = true;
                        window.log.push("completed");
                    }
                    MouseArea {
                        anchors.fill: parent
                        onPressed: ++window.pressedInPopup
                    }
                }
            }
        }
    }
}
