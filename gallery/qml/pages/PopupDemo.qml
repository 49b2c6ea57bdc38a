// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    property string season: "Summer"

    // Below the box, or above it where the window ends.
    function openList() {
        const bottom = box.mapToItem(null, 0, 38 + list.height).y;
        const upwards = bottom > Window.height && box.mapToItem(null, 0, -4 - list.height).y >= 0;
        if (upwards !== (list.hotspot.y > 0)) {
            list.offset = Qt.point(0, upwards ? -4 : 38);
            list.hotspot = Qt.point(0, upwards ? list.height : 0);
        }
        seasons.current = seasons.entries.indexOf(season);
        list.open = true;
    }
    // With a corner at the pointer: the one that leaves the menu inside the window.
    function openMenu(x, y) {
        const place = canvas.mapToItem(null, x, y);
        menu.offset = Qt.point(x, y);
        menu.hotspot = Qt.point(place.x + menu.width > Window.width ? menu.width : 0,
                                place.y + menu.height > Window.height ? Math.min(menu.height, place.y) : 0);
        actions.current = -1;
        menu.show();
    }

    title: "Popup"
    steps: [
        Step { text: "Open the combo box and pick by pointer or arrow keys."; when: log.last.startsWith("accepted") },
        Step {
            text: "Open it again and press outside, or Escape: that press is spent on closing."
            when: log.last === "rejected()"
        },
        Step {
            text: "Press the right mouse button on the blue area: the menu opens on the side that has room."
            when: menu.open
        }
    ]
    subject: list
    stageHeight: 300

    Label {
        x: 36
        y: 30
        text: "Combo box"
        color: Theme.faintText
        font.pixelSize: Theme.small
    }
    Rectangle {
        id: box
        x: 36 + travel.value
        y: 52
        width: 200
        height: 34
        radius: 4
        color: Theme.panel
        border.width: activeFocus ? Theme.focusWidth : 1
        Accessible.role: Accessible.ComboBox
        Accessible.name: "Season"
        Accessible.focusable: true
        Accessible.onPressAction: demo.openList()
        border.color: list.open || activeFocus ? Theme.focus : Theme.strongLine

        Label {
            x: 12
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: demo.season
        }
        Sign {
            name: "chevron-down"
            anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        }
        activeFocusOnTab: true
        Keys.onSpacePressed: demo.openList()
        Keys.onDownPressed: demo.openList()
        MouseArea {
            anchors.fill: parent
            onPressed: box.forceActiveFocus()
            onClicked: list.open ? list.open = false : demo.openList()
        }

        Popup {
            id: list
            attachedItem: box
            offset: Qt.point(0, 38)
            width: box.width
            height: seasons.height
            onOpenChanged: {
                log.note("openChanged(" + open + ")");
                if (!open)
                    box.forceActiveFocus();
            }
            onAccepted: {
                demo.season = result;
                log.note("accepted(\"" + result + "\")");
            }
            onRejected: log.note("rejected()")
            onAnimationFinished: log.note("animationFinished()")
            Keys.onPressed: seasons.press(event)

            MenuList {
                id: seasons
                width: parent.width
                height: implicitHeight
                entries: ["Spring", "Summer", "Autumn", "Winter"]
                checked: demo.season
                onPicked: list.accept(text)
            }
        }
    }

    Rectangle {
        id: canvas
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 24
        width: parent.width / 2
        height: 150
        radius: Theme.radius
        color: Theme.accentSoft
        activeFocusOnTab: true
        Keys.onSpacePressed: demo.openMenu(width / 2, height / 2)
        Keys.onMenuPressed: demo.openMenu(width / 2, height / 2)
        Accessible.role: Accessible.Button
        Accessible.name: "Area with a context menu"
        Accessible.focusable: true
        Accessible.onPressAction: demo.openMenu(width / 2, height / 2)
        FocusRing {}

        Label {
            anchors.centerIn: parent
            width: parent.width - 30
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: "Press the right button here"
            color: Theme.accentText
        }
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.RightButton
            onPressed: demo.openMenu(mouse.x, mouse.y)
        }

        Popup {
            id: menu
            attachedItem: canvas
            width: 168
            height: actions.height
            onAccepted: log.note("menu accepted(\"" + result + "\")")
            onRejected: log.note("menu rejected()")
            onOpenChanged: if (!open) canvas.forceActiveFocus()
            Keys.onPressed: actions.press(event)

            MenuList {
                id: actions
                width: parent.width
                height: implicitHeight
                entries: ["Cut", "Copy", "Paste", "Dismiss"]
                onPicked: text === "Dismiss" ? menu.reject() : menu.accept(text)
            }
        }
    }

    editors: [
        BoolEditor { target: list; property: "open" },
        BoolEditor { target: list; property: "persistent" },
        PointEditor { target: list; property: "hotspot" },
        PointEditor { target: list; property: "offset" },
        BoolEditor {
            label: "attachedItem set"
            value: list.attachedItem !== null
            onEdited: list.attachedItem = newValue ? box : null
        },
        NumberEditor { id: travel; label: "move the box"; from: 0; to: 150; value: 0; onEdited: value = newValue },
        ValueRow { target: list; property: "x" },
        ValueRow { target: list; property: "y" }
    ]
}
