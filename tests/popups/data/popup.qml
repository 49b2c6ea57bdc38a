// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A popup attached to an item at (100, 50) of the window, over an area that takes every press.
Item {
    id: root
    width: 400
    height: 300

    property int pressedBelow: 0
    property int pressedInTarget: 0
    property int pressedInPopup: 0
    property string typed

    MouseArea {
        anchors.fill: parent
        onPressed: ++root.pressedBelow
    }
    Item {
        objectName: "place"
        x: 60
        y: 30
        Rectangle {
            id: target
            objectName: "target"
            x: 40
            y: 20
            width: 80
            height: 30
            color: "steelblue"
            MouseArea {
                anchors.fill: parent
                onPressed: ++root.pressedInTarget
            }
            Popup {
                id: popup
                objectName: "popup"
                width: 100
                height: 60
                attachedItem: target
                offset: Qt.point(0, 30)
                hotspot: Qt.point(10, 0)
                Keys.onPressed: root.typed += event.text
                Rectangle {
                    anchors.fill: parent
                    color: "orange"
                }
                MouseArea {
                    anchors.fill: parent
                    onPressed: ++root.pressedInPopup
                }
            }
        }
    }
}
