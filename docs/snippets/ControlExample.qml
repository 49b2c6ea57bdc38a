// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: panel

    property int handleEdge: Control.RightEdge

    width: 200
    height: 80

    Rectangle {
        x: panel.handleEdge === Control.RightEdge ? panel.width - width : 0
        width: 4
        height: panel.height
        color: "steelblue"
    }
    Text {
        anchors.centerIn: parent
        font.family: Control.fontFamilyForWeight(Font.Light)
        text: "Drawn by a light family"
    }
}
