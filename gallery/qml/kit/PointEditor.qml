// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Two fields for a point.
PropertyRow {
    id: row

    Row {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        spacing: 8
        Repeater {
            model: ["x", "y"]
            Item {
                width: (parent.width - 8) / 2
                height: 28
                Label {
                    width: 16
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: modelData
                    color: Theme.faintText
                    font.pixelSize: Theme.medium
                    Accessible.ignored: true
                }
                Field {
                    x: 20
                    width: parent.width - x
                    name: row.label + " " + modelData
                    pose: index === 0 ? row.pose : ""
                    horizontalAlignment: TextInput.AlignRight
                    shown: row.value === undefined ? ""
                                                   : String(Math.round(row.value[modelData] * 100) / 100)
                    validator: DoubleValidator { notation: DoubleValidator.StandardNotation; locale: "C" }
                    onEditingFinished: {
                        const number = Number(text);
                        if (text.length > 0 && number !== row.value[modelData])
                            row.write(modelData === "x" ? Qt.point(number, row.value.y)
                                                        : Qt.point(row.value.x, number));
                        restore();
                    }
                }
            }
        }
    }
}
