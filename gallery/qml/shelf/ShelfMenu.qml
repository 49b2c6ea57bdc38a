// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A context menu at a point, on the side of it that has room: `openAt(x, y, entries)`, where an entry
// is { text, keys, enabled, run }.
PopupAnchorItem {
    id: menu

    property var entries: []
    property int current: -1
    // What gets the focus back.
    property Item before: null

    function openAt(x, y, newEntries, focusItem) {
        menu.x = x;
        menu.y = y;
        entries = newEntries;
        current = -1;
        before = focusItem;
        show();
        popupItem.forceActiveFocus();
    }
    function take(index) {
        const entry = entries[index];
        if (!entry || !entry.enabled)
            return;
        hide();
        entry.run();
    }
    function step(direction) {
        for (let i = 1; i <= entries.length; ++i) {
            const next = (current + direction * i + (current < 0 && direction < 0 ? 1 : 0) + 2 * entries.length) % entries.length;
            if (entries[next].enabled) {
                current = next;
                return;
            }
        }
    }
    onPopupVisibleChanged: if (!popupVisible && before) before.forceActiveFocus()

    FocusScope {
        id: popup
        readonly property bool leftwards: menu.distanceRight < width
        readonly property bool upwards: menu.distanceBottom < height && menu.distanceTop > menu.distanceBottom

        x: leftwards ? -width : 0
        y: upwards ? -Math.min(height, menu.distanceTop) : Math.min(0, menu.distanceBottom - height)
        width: 212
        height: column.height + 8
        visible: enabled
        Accessible.role: Accessible.PopupMenu
        Accessible.name: "Actions"
        Keys.onPressed: {
            if (event.key === Qt.Key_Down)
                menu.step(1);
            else if (event.key === Qt.Key_Up)
                menu.step(-1);
            else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
                menu.take(menu.current);
            // Nothing below is to hear a key while the menu is open.
            event.accepted = true;
        }
        Surface {
            anchors.fill: parent
            focus: true
            border.color: Theme.strongLine
            Column {
                id: column
                x: 4
                y: 4
                width: parent.width - 8
                Repeater {
                    model: menu.entries
                    Rectangle {
                        width: column.width
                        height: 28
                        radius: 4
                        color: menu.current === index ? Theme.accentSoft : "transparent"
                        Accessible.role: Accessible.MenuItem
                        Accessible.name: modelData.text
                        Accessible.focusable: true
                        Accessible.focused: menu.current === index
                        Accessible.onPressAction: menu.take(index)
                        Label {
                            x: 10
                            anchors.verticalCenter: parent.verticalCenter
                            text: modelData.text
                            font.pixelSize: Theme.medium
                            color: modelData.enabled ? Theme.text : Theme.disabledText
                        }
                        Label {
                            anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
                            text: modelData.keys
                            font.pixelSize: Theme.small
                            color: modelData.enabled ? Theme.faintText : Theme.disabledText
                        }
                        MouseArea {
                            anchors.fill: parent
                            hoverEnabled: true
                            onEntered: menu.current = modelData.enabled ? index : -1
                            onClicked: menu.take(index)
                        }
                    }
                }
            }
        }
    }
}
