// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Nothing but Qt, of about the same size: what grows here is Qt's or the driver's.
Item {
    id: root
    width: 400
    height: 400

    function openAll() { many.model = 24 }

    Repeater {
        id: many
        model: 20
        Rectangle {
            x: index * 15
            width: 40
            height: 30
            color: "red"
            Text { text: "a" + index }
            MouseArea { anchors.fill: parent }
        }
    }
    Item {
        z: 5
        width: 50
        height: 50
        NumberAnimation on opacity { from: 0; to: 1; duration: 100 }
        TextInput { text: "name" }
    }
}
