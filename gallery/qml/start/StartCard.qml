// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A piece of the start page: it moves for five seconds when it comes into sight, and once more with
// each press; the name of its type leads to the demo.
Surface {
    id: card

    property url piece
    property string type
    property string text
    readonly property bool moving: loader.item !== null && loader.item.motion.running

    // The demo of the type is wanted.
    signal wanted()

    function play() {
        if (loader.item)
            loader.item.motion.restart();
    }

    height: 232

    Surface {
        id: stage
        x: 12
        y: 12
        width: parent.width - 24
        height: 160
        sunken: true
        clip: true
        activeFocusOnTab: true
        Keys.onSpacePressed: card.play()
        Accessible.role: Accessible.Button
        Accessible.name: card.text + ", once more"
        Accessible.focusable: true
        Accessible.onPressAction: card.play()

        Loader {
            id: loader
            anchors.fill: parent
            source: card.piece
            // The page is made before the window has its size, and where a piece moves to depends on it.
            readonly property bool placed: item !== null && width > 0
            onPlacedChanged: if (placed) Qt.callLater(card.play)
        }
        MouseArea {
            anchors.fill: parent
            onClicked: card.play()
        }
        FocusRing {}
    }
    Label {
        anchors { left: parent.left; leftMargin: 16; right: parent.right; rightMargin: 16 }
        y: 180
        height: 20
        text: card.text
        font.weight: Font.DemiBold
    }
    Button {
        x: 8
        y: 200
        implicitHeight: 24
        flat: true
        text: card.type
        Accessible.name: "To " + card.type
        onClicked: card.wanted()
    }
}
