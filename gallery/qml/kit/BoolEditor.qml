// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A switch for a boolean property.
PropertyRow {
    id: row

    Controls.CheckBox {
        id: button
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 36
        implicitHeight: 20
        padding: 0
        indicator: null
        // It shows what the property is, whatever a click asked for.
        checkState: row.value ? Qt.Checked : Qt.Unchecked
        nextCheckState: () => row.value ? Qt.Unchecked : Qt.Checked
        onClicked: {
            row.write(!row.value);
            checkState = Qt.binding(() => row.value ? Qt.Checked : Qt.Unchecked);
        }
        Accessible.name: row.label
        background: Rectangle {
            radius: height / 2
            color: row.value ? Theme.positive : Theme.off
            opacity: row.enabled ? 1 : 0.5
            // Around it, where it stands on the card's ground and not on a green or grey one.
            Rectangle {
                anchors.fill: parent
                anchors.margins: -4
                visible: button.visualFocus || row.pose === "focus"
                radius: height / 2
                color: "transparent"
                border.width: Theme.focusWidth
                border.color: Theme.focus
            }
        }
        contentItem: Item {
            Rectangle {
                x: row.value ? parent.width - width - 2 : 2
                y: 2
                width: parent.height - 4
                height: width
                radius: height / 2
                color: button.down || row.pose === "pressed" ? Theme.line
                     : button.hovered || row.pose === "hover" ? Theme.accentSoft : Theme.panel
                // Only for who switches it: a page shows its values at once.
                Behavior on x {
                    enabled: button.hovered || button.activeFocus
                    NumberAnimation { duration: 90 }
                }
            }
        }
    }
}
