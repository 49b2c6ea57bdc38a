// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A panel with a shadow, an icon, and the sprite that turns while something is loading.
Item {
    width: 240
    height: 140

    //! [shadow]
    BorderImage {
        anchors.fill: parent
        source: "qrc:/controls/images/dialog-shadow.png"
        border { left: 36; right: 36; top: 36; bottom: 36 }
    }
    //! [shadow]
    Rectangle {
        anchors.fill: parent
        anchors.margins: 18
        color: "white"
    }
    Row {
        anchors.centerIn: parent
        spacing: 16

        Image {
            anchors.verticalCenter: parent.verticalCenter
            source: "qrc:/controls/icons/settings.png"
        }
        AnimatedSprite {
            width: 64
            height: 64
            source: "qrc:/controls/images/loading-sprite.png"
            frameCount: 12
            frameWidth: 64
            frameHeight: 64
            frameDuration: 75
        }
    }
}
