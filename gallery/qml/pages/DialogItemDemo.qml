// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    property int openDialogs: 0

    // A dialog made on the fly is put straight into the window's content item: it is to disable the
    // siblings that it has there.
    function open(type, level) {
        const dialog = card.createObject(demo.Window.contentItem,
                                         { type: type, modal: modality.value, level: level,
                                           before: demo.Window.activeFocusItem });
        dialog.accepted.connect(result => log.note("accepted(\"" + result + "\") at level " + level));
        dialog.rejected.connect(() => log.note("rejected() at level " + level));
        dialog.opened.connect(() => log.note("opened() at level " + level));
        dialog.show();
    }
    readonly property var types: [
        { text: "TypeNormal", value: DialogItem.TypeNormal },
        { text: "TypeWarning", value: DialogItem.TypeWarning },
        { text: "TypeError", value: DialogItem.TypeError },
        { text: "TypeOk", value: DialogItem.TypeOk }
    ]

    Component {
        id: card
        DialogCard {
            id: dialog
            property bool used: false
            onOpenChanged: {
                used = true;
                demo.openDialogs += open ? 1 : -1;
            }
            // Closed and faded out, it is of no use any more.
            onVisibleChanged: if (used && !visible) destroy()
            // Of the next type, so that they can be told apart.
            onAnotherWanted: demo.open({ 0: 1, 1: 2, 2: 4, 4: 0 }[type], level + 1)
        }
    }

    title: "DialogItem"
    steps: [
        Step { text: "Open a dialog, then another from inside it."; when: demo.openDialogs > 1 },
        Step {
            text: "Close the upper one with Escape: the one below has its buttons back, and the focus is where it was."
            when: /^rejected.*[2-9]$/.test(log.last)
        },
        Step {
            text: "Switch “modal” off: the page stays usable behind a dialog, which is dragged by its ground."
            when: !modality.value && demo.openDialogs > 0
        }
    ]
    codeValues: ({ modal: modality.value })
    stageHeight: 250

    Grid {
        anchors.centerIn: parent
        columns: 2
        spacing: 12
        Repeater {
            model: demo.types
            Controls.AbstractButton {
                id: choice
                width: 170
                height: 64
                text: modelData.text
                Accessible.role: Accessible.Button
                Accessible.name: "Open a dialog of " + text
                onClicked: demo.open(modelData.value, demo.openDialogs + 1)
                background: Rectangle {
                    radius: Theme.radius
                    color: choice.down || choice.hovered ? Theme.accentSoft : Theme.panel
                    border.width: choice.visualFocus ? Theme.focusWidth : 1
                    border.color: choice.visualFocus ? Theme.focus : Theme.line
                }
                contentItem: Item {
                    Rectangle {
                        x: 12
                        anchors.verticalCenter: parent.verticalCenter
                        width: 6
                        height: 36
                        radius: 3
                        color: [Theme.accent, Theme.warning, Theme.error, Theme.positive][index]
                    }
                    Label {
                        x: 32
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        text: choice.text
                    }
                }
            }
        }
    }

    editors: [
        BoolEditor { id: modality; label: "modal"; value: true; onEdited: value = newValue },
        ValueRow { label: "open dialogs"; value: demo.openDialogs }
    ]
}
