// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Swatches and a field (#RRGGBB, #AARRGGBB or a colour's name) for a colour property.
PropertyRow {
    id: row

    property alias swatches: palette.colors
    readonly property color current: value === undefined ? "transparent" : value

    Swatches {
        id: palette
        anchors.verticalCenter: parent.verticalCenter
        name: row.label
        pose: row.pose
        colors: ["#000000", "#40A1BB", "#90C695", "#ECD284", "#C97B63"]
        current: row.current
        onPicked: row.write(color)
    }
    Field {
        anchors { left: palette.right; leftMargin: 8; right: parent.right }
        anchors.verticalCenter: parent.verticalCenter
        font.family: Theme.monoFamily
        font.pixelSize: Theme.tiny
        leftPadding: 4
        rightPadding: 4
        maximumLength: 20
        name: row.label
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
