// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Swatches and a field (#RRGGBB, #AARRGGBB or a colour's name) for a colour property.
PropertyRow {
    id: row

    property var swatches: ["#000000", "#40A1BB", "#90C695", "#ECD284", "#C97B63"]
    readonly property color current: value === undefined ? "transparent" : value

    Row {
        id: row0
        anchors.verticalCenter: parent.verticalCenter
        spacing: 5
        Repeater {
            model: row.swatches
            Rectangle {
                width: 17
                height: 17
                radius: 9
                color: modelData
                border.width: Qt.colorEqual(row.current, modelData) ? 2 : 1
                border.color: Qt.colorEqual(row.current, modelData) ? Theme.focus : Qt.darker(color, 1.12)
                MouseArea {
                    anchors.fill: parent
                    anchors.margins: -2
                    cursorShape: Qt.PointingHandCursor
                    onClicked: row.write(modelData)
                }
            }
        }
    }
    Field {
        anchors { left: row0.right; leftMargin: 8; right: parent.right }
        anchors.verticalCenter: parent.verticalCenter
        font.family: Theme.monoFamily
        font.pixelSize: 11
        leftPadding: 5
        rightPadding: 3
        maximumLength: 20
        shown: String(row.current).toUpperCase()
        onEditingFinished: {
            try {
                // Throws for a text that is no colour.
                if (!Qt.colorEqual(text, row.current))
                    row.write(text);
            } catch (error) {
            }
            restore();
        }
    }
}
