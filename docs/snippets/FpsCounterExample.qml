// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Rectangle {
    width: 200
    height: 80
    color: "#F8F7F5"

    FpsCounter { id: counter }
    Text {
        anchors.centerIn: parent
        text: counter.currentFps + " frames per second"
    }
    Rectangle {
        width: 10
        height: 10
        color: "#40A1BB"
        NumberAnimation on x { from: 0; to: 190; duration: 1000; loops: Animation.Infinite }
    }
}
