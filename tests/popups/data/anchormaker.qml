// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Makes anchor items that have no handlers of their own, over an area that takes every press.
Item {
    id: root
    width: 600
    height: 500

    property int pressedBelow: 0
    property bool made: false
    property Component maker: PopupAnchorItem {
        id: anchor
        Item {
            width: 40
            height: 40
        }
    }
    // A popup that tells of itself before it is complete.
    property Component announcing: Item {
        property bool announced: root.made = true
    }

    MouseArea {
        anchors.fill: parent
        onPressed: ++root.pressedBelow
    }
    Item {
        id: place
        objectName: "place"
    }

    function make() {
        return maker.createObject(place);
    }
}
