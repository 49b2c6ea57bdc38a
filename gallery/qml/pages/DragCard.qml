// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A card to drag. Where it is let go is up to who takes it: `settle()` in a drop's handler. A card
// that nobody took flies back to where it was.
Draggable {
    id: card

    property string text: dragData
    property Item raised: null
    property point home
    property bool taken: false

    // Becomes a child of `column`, at the place where it is seen. A new parent during a drag brings
    // the place at its start along, so the present one is asked for before and set afterwards.
    function settle(column) {
        const place = card.mapToItem(column, 0, 0);
        parent = column;
        x = Math.max(8, Math.min(column.width - width * scale - 8, place.x));
        y = Math.max(32, Math.min(column.height - height * scale - 8, place.y));
        taken = true;
    }

    width: 110
    height: 44
    dragData: "card"
    // Above its siblings by itself; above the other columns together with the column it leaves.
    onDragStarted: {
        flight.stop();
        taken = false;
        home = Qt.point(x, y);
        raised = parent;
        raised.z = 1;
    }
    onDragEnded: {
        if (taken)
            raised.z = 0;
        else
            flight.start();
    }

    ParallelAnimation {
        id: flight
        NumberAnimation { target: card; property: "x"; to: card.home.x; duration: 260; easing.type: Easing.OutCubic }
        NumberAnimation { target: card; property: "y"; to: card.home.y; duration: 260; easing.type: Easing.OutCubic }
        onFinished: card.raised.z = 0
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: card.isDragged ? Theme.accent : Theme.accentSoft
        border.color: Theme.accent
        Label {
            anchors.centerIn: parent
            text: card.text
            renderType: Text.QtRendering
            color: card.isDragged ? Theme.accentContrast : Theme.text
        }
    }
}
