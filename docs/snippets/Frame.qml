// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

Window {
    width: 240
    height: 120

    Rectangle {
        anchors.centerIn: parent
        width: 120
        height: 60
        color: "lightgrey"
        clip: true

        Frame {
            anchors.fill: parent
            frameWidth: 6
            color: "#90C695"
        }
    }
}
