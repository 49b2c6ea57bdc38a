// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A place for documents of one type, and the names of those dropped last.
Rectangle {
    id: pad

    property alias handler: handler
    property alias zone: zone
    property string received
    signal happened(string what)

    radius: Theme.radius
    color: zone.containsDrag ? Theme.accentSoft : Theme.panel
    border.color: zone.containsDrag ? Theme.accent : Theme.line
    Column {
        anchors.centerIn: parent
        width: parent.width - 24
        spacing: 4
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: handler.type === "" ? "no type" : handler.type
            font.weight: Font.DemiBold
        }
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: refusal.over ? "Would not take this" : pad.received === "" ? "Drop here" : pad.received
            color: refusal.over ? Theme.errorText : Theme.faintText
            elide: Text.ElideRight
        }
    }
    Refusal {
        id: refusal
        anchors.fill: parent
    }
    DropZone {
        id: zone
        anchors.fill: parent
        DocumentDropHandler {
            id: handler
            onEntered: pad.happened(type + ": entered")
            onExited: pad.happened(type + ": exited")
            onDropped: {
                pad.received = Array.from(drag.source.dragDocuments).map(document => Theme.oneLine(document.name)).join(", ");
                pad.happened(type + ": dropped");
            }
        }
    }
}
