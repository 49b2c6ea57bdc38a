// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 320
    height: 240

    // A combo box of the simplest kind.
    //! [box]
    Rectangle {
        id: box
        property string choice: "Summer"
        x: 40
        y: 30
        width: 160
        height: 30
        border.color: "grey"

        Text {
            anchors.centerIn: parent
            text: box.choice
        }
        MouseArea {
            anchors.fill: parent
            // A press in the attached item leaves an open popup alone: closing it is up to us.
            onClicked: list.open = !list.open
        }
        Popup {
            id: list
            attachedItem: box
            offset: Qt.point(0, box.height + 4)
            width: box.width
            height: seasons.height
            onAccepted: box.choice = result

            Rectangle {
                anchors.fill: parent
                border.color: "grey"
            }
            Column {
                id: seasons
                Repeater {
                    model: ["Spring", "Summer", "Autumn", "Winter"]
                    Text {
                        width: list.width
                        height: 28
                        leftPadding: 10
                        verticalAlignment: Text.AlignVCenter
                        text: modelData
                        MouseArea {
                            anchors.fill: parent
                            onClicked: list.accept(modelData)
                        }
                    }
                }
            }
        }
    }
    //! [box]
}
