// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Rectangle {
    width: 240
    height: 80
    color: mapper.color

    ColorMapper {
        id: mapper
        Component.onCompleted: updateHex("70A9B8")
    }
    Text {
        anchors.centerIn: parent
        text: "#" + mapper.hex + ", hue " + mapper.hue + ", red " + mapper.red
    }
    MouseArea {
        anchors.fill: parent
        onClicked: mapper.updateHue((mapper.hue + 30) % 360)
    }
}
