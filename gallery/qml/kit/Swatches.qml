// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Colours to pick from, by pointer or by keys: Tab comes to the row, the arrow keys walk along it, and
// Space or Return picks.
Row {
    id: row

    property var colors: []
    property color current
    property string name
    property int size: 16
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose
    // Where the keyboard is.
    property int at: 0

    signal picked(color color)

    function step(distance) { at = Math.max(0, Math.min(colors.length - 1, at + distance)); }

    spacing: 8
    activeFocusOnTab: true
    onActiveFocusChanged: {
        const held = colors.findIndex(color => Qt.colorEqual(color, current));
        if (activeFocus && held >= 0)
            at = held;
    }
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onSpacePressed: picked(colors[at])
    Keys.onReturnPressed: picked(colors[at])
    Accessible.role: Accessible.List
    Accessible.name: name
    Accessible.focusable: true

    Repeater {
        model: row.colors
        Rectangle {
            id: swatch
            readonly property bool held: Qt.colorEqual(row.current, modelData)
            readonly property bool focused: (row.activeFocus || row.pose === "focus") && row.at === index
            width: row.size
            height: row.size
            radius: Math.ceil(row.size / 2)
            color: modelData
            opacity: row.enabled ? 1 : 0.4
            border.width: held ? 2 : 1
            border.color: held ? Theme.focus : mouse.containsMouse || (row.pose === "hover" && row.at === index) ? Theme.text : Theme.strongLine
            Accessible.role: Accessible.RadioButton
            Accessible.name: String(color)
            Accessible.checkable: true
            Accessible.checked: held
            Accessible.onPressAction: row.picked(modelData)
            // Outside, for a colour may be like the ring's.
            Rectangle {
                anchors.fill: parent
                anchors.margins: -4
                visible: swatch.focused
                radius: width / 2
                color: "transparent"
                border.width: Theme.focusWidth
                border.color: Theme.focus
            }
            MouseArea {
                id: mouse
                anchors.fill: parent
                anchors.margins: -2
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                onClicked: row.picked(modelData)
            }
        }
    }
}
