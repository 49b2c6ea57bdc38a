// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A small coloured word.
Rectangle {
    id: chip

    property string text
    property color tone: Theme.accent

    implicitWidth: label.implicitWidth + 14
    implicitHeight: 20
    radius: 10
    color: Qt.rgba(tone.r, tone.g, tone.b, 0.16)

    Label {
        id: label
        anchors.centerIn: parent
        text: chip.text
        color: Theme.textOnTone(chip.tone)
        font.pixelSize: Theme.small
    }
}
