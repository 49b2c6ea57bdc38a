// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A dialog of the shelf: a card in the middle of the window with a veil over the rest. Its content
// stands between the title and the buttons; the focus goes back to where it was.
DialogItem {
    id: dialog

    property string title
    property string text
    property string main: "OK"
    property bool mainEnabled: true
    property string other
    property color tone: Theme.accent
    property int contentHeight: 0
    property Item before: null
    default property alias content: body.data

    signal otherChosen()

    function ask(focusItem) {
        before = focusItem;
        show();
    }
    function giveFocusBack() {
        if (before)
            before.forceActiveFocus();
    }
    function takeMain() {
        if (mainEnabled)
            accept();
    }

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0
    width: 420
    height: body.y + contentHeight + 72
    opacity: open ? 1 : 0
    // Visible before the first step of the fade: with the rest of the window disabled, Qt looks for ever
    // for what comes after an invisible item when Tab is pressed.
    visible: open || opacity > 0
    Behavior on opacity { NumberAnimation { duration: 120 } }
    Accessible.role: Accessible.Dialog
    Accessible.name: title
    Accessible.description: text
    Keys.onEscapePressed: reject()
    Keys.onReturnPressed: takeMain()
    Keys.onEnterPressed: takeMain()
    onAccepted: giveFocusBack()
    onRejected: giveFocusBack()

    Rectangle {
        visible: dialog.parent !== null
        x: -dialog.x
        y: -dialog.y
        width: visible ? dialog.parent.width : 0
        height: visible ? dialog.parent.height : 0
        color: Theme.veil
    }
    Surface {
        anchors.fill: parent
        border.color: Theme.strongLine
        // Presses on the card are not for what lies below it.
        MouseArea { anchors.fill: parent }
        Rectangle {
            width: parent.width
            height: 5
            radius: 2
            color: dialog.tone
        }
        Label {
            id: heading
            x: 22
            y: 22
            width: parent.width - 44
            text: dialog.title
            font.pixelSize: Theme.large
            font.weight: Font.DemiBold
        }
        Label {
            id: words
            x: 22
            y: 52
            width: parent.width - 44
            height: visible ? implicitHeight : 0
            visible: text !== ""
            wrapMode: Text.WordWrap
            text: dialog.text
            color: Theme.softText
        }
        Item {
            id: body
            x: 22
            y: words.y + words.height + 14
            width: parent.width - 44
            height: dialog.contentHeight
        }
        Button {
            anchors { left: parent.left; bottom: parent.bottom; margins: 20 }
            visible: dialog.other !== ""
            text: dialog.other
            Accessible.name: text
            onClicked: dialog.otherChosen()
        }
        Row {
            anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
            spacing: 8
            Button {
                text: "Cancel"
                Accessible.name: text
                onClicked: dialog.reject()
            }
            Button {
                text: dialog.main
                Accessible.name: text
                primary: true
                enabled: dialog.mainEnabled
                focus: true
                onClicked: dialog.takeMain()
            }
        }
    }
}
