// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A list to choose from, for enumerations and other fixed sets of values. `options` is a list of
// { text, value }, or of plain values.
PropertyRow {
    id: row

    property var options: []

    function textOf(option) { return option !== null && typeof option === "object" ? option.text : String(option); }
    function valueOf(option) { return option !== null && typeof option === "object" ? option.value : option; }

    Controls.ComboBox {
        id: box
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: Theme.controlHeight
        font.family: Theme.family
        font.pixelSize: Theme.medium
        Accessible.role: Accessible.ComboBox
        Accessible.name: row.label
        model: row.options.map(row.textOf)
        currentIndex: row.options.findIndex(option => row.valueOf(option) === row.value)
        onActivated: {
            row.write(row.valueOf(row.options[index]));
            currentIndex = Qt.binding(() => row.options.findIndex(option => row.valueOf(option) === row.value));
        }
        contentItem: Label {
            Accessible.ignored: true
            leftPadding: 8
            rightPadding: 24
            verticalAlignment: Text.AlignVCenter
            text: box.currentIndex < 0 ? "–" : box.displayText
            font: box.font
            color: box.enabled ? Theme.text : Theme.disabledText
        }
        indicator: Sign {
            name: "chevron-down"
            opacity: box.enabled ? 1 : 0.4
            x: box.width - width - 8
            y: (box.height - height) / 2
        }
        background: Rectangle {
            radius: 4
            readonly property bool focused: box.activeFocus || row.pose === "focus"
            color: !box.enabled ? Theme.sunken : box.pressed || row.pose === "pressed" ? Theme.hover : Theme.panel
            border.width: focused ? Theme.focusWidth : 1
            border.color: focused ? Theme.focus
                        : box.hovered || row.pose === "hover" ? Theme.strongLine : Theme.line
        }
        delegate: Controls.ItemDelegate {
            id: option
            width: box.width - 8
            height: 28
            highlighted: box.highlightedIndex === index
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData
            contentItem: Label {
                verticalAlignment: Text.AlignVCenter
                text: modelData
                font.pixelSize: Theme.medium
            }
            topPadding: 0
            bottomPadding: 0
            leftPadding: 8
            background: Rectangle {
                radius: 4
                color: option.highlighted ? Theme.accentSoft : "transparent"
            }
        }
        popup: Controls.Popup {
            y: box.height + 2
            width: box.width
            padding: 4
            contentItem: ListView {
                clip: true
                implicitHeight: Math.min(contentHeight, 280)
                model: box.delegateModel
                currentIndex: box.highlightedIndex
            }
            background: Surface { border.color: Theme.strongLine }
        }
    }
}
