// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 320
    height: 240

    Rectangle {
        anchors.centerIn: parent
        width: 80
        height: 80
        color: "steelblue"
        RotationAnimation on rotation {
            from: 0
            to: 360
            duration: 8000
            loops: Animation.Infinite
        }
        MouseArea {
            anchors.fill: parent
            onClicked: anchor.show()
        }

        PopupAnchorItem {
            id: anchor
            anchors.horizontalCenter: parent.right
            anchors.verticalCenter: parent.verticalCenter

            Rectangle {
                // To the right of the place, or to its left where the window ends.
                x: anchor.distanceRight < width + 10 ? -width - 10 : 10
                y: -height / 2
                width: 90
                height: 40
                visible: enabled
                color: "wheat"
                Text {
                    anchors.centerIn: parent
                    text: anchor.distanceRight + " px"
                }
            }
        }
    }
}
