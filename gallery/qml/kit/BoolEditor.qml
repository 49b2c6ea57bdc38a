// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A switch for a boolean property.
PropertyRow {
    id: row

    Controls.AbstractButton {
        id: button
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 36
        implicitHeight: 20
        checkable: false
        onClicked: row.write(!row.value)
        background: Rectangle {
            radius: height / 2
            color: row.value ? Theme.positive : Theme.off
            opacity: row.enabled ? 1 : 0.5
            border.width: button.visualFocus ? 2 : 0
            border.color: Theme.focus
        }
        contentItem: Item {
            Rectangle {
                x: row.value ? parent.width - width - 2 : 2
                y: 2
                width: parent.height - 4
                height: width
                radius: height / 2
                color: Theme.panel
                Behavior on x { NumberAnimation { duration: 90 } }
            }
        }
    }
}
