// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Makes popups that have no handlers of their own, over an area that takes every press. The item
// that they are attached to is at (0, 0).
Item {
    id: root
    width: 400
    height: 300

    property int pressedBelow: 0
    property Component maker: Popup {
        width: 40
        height: 40
        attachedItem: target
    }
    property Component visibleFromTheStart: Item {
        Popup {
            visible: true
            open: true
        }
    }

    MouseArea {
        anchors.fill: parent
        onPressed: ++root.pressedBelow
    }
    Item {
        id: target
        objectName: "target"
        width: 20
        height: 20
    }

    function make() {
        return maker.createObject(root);
    }
}
