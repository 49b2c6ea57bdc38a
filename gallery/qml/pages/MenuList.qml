// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// Lines to pick from, by pointer or by keys, as the content of a popup. The one that is ready to be
// picked has a ground; `checked` is the text of the one that holds now.
Surface {
    id: list

    property var entries: []
    property string checked
    property int current: -1

    signal picked(string text)

    // For the keys of whoever has the focus; takes those that mean something.
    function press(event) {
        if (event.key === Qt.Key_Down)
            current = (current + 1) % entries.length;
        else if (event.key === Qt.Key_Up)
            current = (current <= 0 ? entries.length : current) - 1;
        else if (event.key === Qt.Key_Home)
            current = 0;
        else if (event.key === Qt.Key_End)
            current = entries.length - 1;
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
                 && current >= 0)
            picked(entries[current]);
        else
            return;
        event.accepted = true;
    }

    Accessible.role: Accessible.PopupMenu
    Accessible.name: "Choices"
    implicitWidth: 168
    implicitHeight: column.height + 8
    border.color: Theme.strongLine

    Column {
        id: column
        x: 4
        y: 4
        width: parent.width - 8
        Repeater {
            model: list.entries
            MenuEntry {
                width: column.width
                text: modelData
                checked: list.checked === modelData
                current: list.current === index
                onEntered: list.current = index
                onPicked: list.picked(modelData)
            }
        }
    }
}
