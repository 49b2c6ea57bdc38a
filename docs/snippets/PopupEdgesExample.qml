// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

// A menu for the right button, with that corner at the pointer which leaves it inside the window.
MouseArea {
    id: area
    width: 320
    height: 240
    acceptedButtons: Qt.RightButton

    //! [place]
    onPressed: {
        const place = area.mapToItem(null, mouse.x, mouse.y);
        menu.offset = place;
        menu.hotspot = Qt.point(place.x + menu.width > Window.width ? menu.width : 0,
                                place.y + menu.height > Window.height ? menu.height : 0);
        menu.show();
    }
    //! [place]

    Popup {
        id: menu
        width: 120
        height: 84

        Rectangle {
            anchors.fill: parent
            border.color: "grey"
        }
        Column {
            Repeater {
                model: ["Cut", "Copy", "Paste"]
                Text {
                    width: menu.width
                    height: 28
                    leftPadding: 10
                    verticalAlignment: Text.AlignVCenter
                    text: modelData
                    MouseArea {
                        anchors.fill: parent
                        onClicked: menu.accept(modelData)
                    }
                }
            }
        }
    }
}
