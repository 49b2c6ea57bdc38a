// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A code that goes through colours; it is encoded once.
Item {
    id: piece

    property alias motion: motion

    Rectangle {
        anchors.centerIn: parent
        width: code.width + 8 * code.moduleSize
        height: width
        color: Theme.paper
        QRCode {
            id: code
            anchors.centerIn: parent
            url: "https://example.org/ombrel"
            moduleSize: 4
            lightColor: Theme.paper
            darkColor: Theme.ink
        }
    }
    SequentialAnimation {
        id: motion
        ColorAnimation { target: code; property: "darkColor"; to: Theme.accentPress; duration: 1200 }
        ColorAnimation { target: code; property: "darkColor"; to: "#3B7442"; duration: 1200 }
        ColorAnimation { target: code; property: "darkColor"; to: "#9A4A2C"; duration: 1200 }
        ColorAnimation { target: code; property: "darkColor"; to: Theme.ink; duration: 1200 }
    }
}
