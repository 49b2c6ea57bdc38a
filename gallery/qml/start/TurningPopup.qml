// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A disc turns, and the popup at its edge turns along. Nothing clips a popup: it is short enough to stay
// on the stage.
Item {
    id: piece

    property alias motion: motion

    Item {
        id: disc
        anchors.centerIn: parent
        width: 56
        height: 56
        Rectangle {
            anchors.fill: parent
            radius: 28
            color: Theme.accent
            border.color: Theme.accentHover
            border.width: 4
        }
        PopupAnchorItem {
            id: anchor
            x: 60
            y: 28
            persistent: true
            Rectangle {
                y: -12
                width: 44
                height: 24
                radius: Theme.radius
                color: Theme.text
                visible: enabled
                Label {
                    anchors.centerIn: parent
                    text: "flyout"
                    color: Theme.panel
                    font.pixelSize: Theme.small
                    renderType: Text.QtRendering
                }
            }
        }
    }
    SequentialAnimation {
        id: motion
        ScriptAction { script: anchor.popupVisible = true }
        RotationAnimation { target: disc; property: "rotation"; from: 0; to: 360; duration: 4600; easing.type: Easing.InOutQuad }
        ScriptAction { script: anchor.popupVisible = false }
    }
}
