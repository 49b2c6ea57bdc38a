// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Hovering shows the hint; the click goes to the button below the area.
Rectangle {
    width: 200
    height: 80
    color: area.hovered ? "#E7F1F4" : "#F8F7F5"

    MouseArea {
        anchors.fill: parent
        onClicked: text.text = "Clicked"
    }
    Text {
        id: text
        anchors.centerIn: parent
        text: area.hovered ? "Click me" : "Come here"
    }
    //! [area]
    HoverArea {
        id: area
        anchors.fill: parent
    }
    //! [area]
}
