// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// What a dialog of an application may look like: a card in the middle of the window, a colour for
// each type, a veil over the rest when it is modal.
DialogItem {
    id: dialog

    property int level: 1
    // What had the focus before: closing leaves it to nobody.
    property Item before: null
    signal anotherWanted()

    function giveFocusBack() {
        if (before)
            before.forceActiveFocus();
    }
    function takeMain() { accept(isQuestion ? field.text : look.main); }

    readonly property bool isQuestion: type === DialogItem.TypeNormal
    readonly property var look: {
        switch (type) {
        case DialogItem.TypeWarning: return { word: "Warning", tone: Theme.warning, main: "Overwrite", cancel: true,
                                            text: "“Draft” was changed by another program. What it wrote there is lost when you overwrite it." };
        case DialogItem.TypeError: return { word: "Error", tone: Theme.error, main: "Try again", cancel: true,
                                          text: "“Draft” could not be written: there is no space left on the disk. Nothing was lost." };
        case DialogItem.TypeOk: return { word: "Done", tone: Theme.positive, main: "OK", cancel: false, text: "“Draft” has been written." };
        }
        return { word: "Question", tone: Theme.accent, main: "Save", cancel: true, text: "Which name should the file have?" };
    }

    // Each a step below the one before, and from the top again where the window ends.
    readonly property int room: parent ? Math.max(0, Math.min(parent.width - width, parent.height - height) / 2 - 8) : 0
    readonly property int stepOff: room > 28 ? (level - 1) * 28 % room : 0
    x: parent ? Math.round((parent.width - width) / 2) + stepOff : 0
    y: parent ? Math.round((parent.height - height) / 2) + stepOff : 0
    width: 380
    height: isQuestion ? 196 : 164
    opacity: open ? 1 : 0
    // Visible before the first step of the fade: with the rest of the window disabled, Qt looks for ever
    // for what comes after an invisible item when Tab is pressed.
    visible: open || opacity > 0
    Behavior on opacity { NumberAnimation { duration: 120 } }
    Accessible.role: Accessible.Dialog
    Accessible.name: look.word
    Keys.onEscapePressed: reject()
    Keys.onReturnPressed: takeMain()
    Keys.onEnterPressed: takeMain()
    onAccepted: giveFocusBack()
    onRejected: giveFocusBack()

    Rectangle {
        visible: dialog.modal && dialog.parent
        x: -dialog.x
        y: -dialog.y
        width: visible ? dialog.parent.width : 0
        height: visible ? dialog.parent.height : 0
        color: Theme.veil
    }
    Surface {
        anchors.fill: parent
        border.color: Theme.strongLine

        // Presses on the card are not for what lies below it; it can be moved by its ground.
        MouseArea {
            anchors.fill: parent
            drag.target: dialog
        }
        Rectangle {
            width: parent.width
            height: 5
            radius: 2
            color: dialog.look.tone
        }
        Label {
            x: 22
            y: 22
            text: dialog.look.word + (dialog.level > 1 ? ", level " + dialog.level : "")
            font.pixelSize: Theme.large
            font.weight: Font.DemiBold
        }
        Label {
            x: 22
            y: 52
            width: parent.width - 44
            wrapMode: Text.WordWrap
            text: dialog.look.text
            color: Theme.softText
        }
        Field {
            id: field
            name: "Name of the file"
            x: 22
            y: 86
            width: parent.width - 44
            implicitHeight: 32
            visible: dialog.isQuestion
            focus: dialog.isQuestion
            font.pixelSize: Theme.normal
            text: "Draft " + dialog.level
        }
        // Not of the dialog's business: it shows how dialogs lie above one another.
        Button {
            x: 20
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 20
            text: "Another…"
            onClicked: dialog.anotherWanted()
        }
        Row {
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 20
            spacing: 8
            Button {
                visible: dialog.look.cancel
                text: "Cancel"
                onClicked: dialog.reject()
            }
            Button {
                text: dialog.look.main
                primary: true
                focus: !dialog.isQuestion
                onClicked: dialog.takeMain()
            }
        }
    }
}
