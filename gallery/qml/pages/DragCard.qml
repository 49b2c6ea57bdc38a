// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Draggable {
    id: card
    property string text: dragData
    property Item home: null
    width: 110
    height: 44
    dragData: "card"
    // Above its siblings by itself; above the other columns together with the column it leaves.
    onIsDraggedChanged: {
        if (isDragged) {
            home = parent;
            home.z = 1;
        } else if (home) {
            home.z = 0;
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: card.isDragged ? Theme.accent : Theme.accentSoft
        border.color: Theme.accent
        Label {
            anchors.centerIn: parent
            text: card.text
            color: card.isDragged ? Theme.accentContrast : Theme.text
        }
    }
}
