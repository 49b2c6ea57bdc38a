// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    property string season: "Summer"

    title: "Popup"
    hint: "Open the combo box and pick, press Escape, or press outside: that press is spent on closing. The "
          + "right mouse button opens the menu where the pointer is. The editors change the combo box's popup."
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
        border.color: list.open ? Theme.focus : Theme.strongLine

        Label {
            x: 12
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: demo.season
        }
        Label {
            anchors.right: parent.right
            anchors.rightMargin: 12
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: "▾"
            color: Theme.softText
            font.pixelSize: 12
        }
        MouseArea {
            anchors.fill: parent
            onClicked: list.open = !list.open
        }

        Popup {
            id: list
            attachedItem: box
            offset: Qt.point(0, 38)
            width: box.width
            height: seasons.height + 8
            onOpenChanged: log.note("openChanged(" + open + ")")
            onAccepted: {
                demo.season = result;
                log.note("accepted(\"" + result + "\")");
            }
            onRejected: log.note("rejected()")
            onAnimationFinished: log.note("animationFinished()")

            Surface {
                anchors.fill: parent
                border.color: Theme.strongLine
                Column {
                    id: seasons
                    x: 4
                    y: 4
                    width: parent.width - 8
                    Repeater {
                        model: ["Spring", "Summer", "Autumn", "Winter"]
                        MenuEntry {
                            width: seasons.width
                            text: modelData
                            checked: demo.season === modelData
                            onPicked: list.accept(modelData)
                        }
                    }
                }
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
            onPressed: {
                menu.offset = Qt.point(mouse.x, mouse.y);
                menu.show();
            }
        }

        Popup {
            id: menu
            attachedItem: canvas
            width: 168
            height: actions.height + 8
            onAccepted: log.note("menu accepted(\"" + result + "\")")
            onRejected: log.note("menu rejected()")

            Surface {
                anchors.fill: parent
                border.color: Theme.strongLine
                Column {
                    id: actions
                    x: 4
                    y: 4
                    width: parent.width - 8
                    Repeater {
                        model: ["Cut", "Copy", "Paste"]
                        MenuEntry {
                            width: actions.width
                            text: modelData
                            onPicked: menu.accept(modelData)
                        }
                    }
                    MenuEntry {
                        width: actions.width
                        text: "Dismiss"
                        onPicked: menu.reject()
                    }
                }
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
        ValueRow { target: list; property: "y" },
        EventLog { id: log }
    ]
}
