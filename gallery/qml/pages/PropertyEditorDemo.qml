// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0
import "../kit"

Demo {
    id: demo

    readonly property Document shown: gallery.folder.children.length > 0 ? gallery.folder.children[0]
                                                                         : gallery.folder

    title: "PropertyEditor"
    steps: [
        Step {
            text: "Click the text and type; Return or Tab writes it to the document."
            when: log.last === "enterPressed" || log.last === "tabPressed"
        },
        Step { text: "Click again: Escape, or a press elsewhere, gives up."; when: log.last === "escapePressed" }
    ]
    subject: editor
    stageHeight: 300

    Column {
        anchors.centerIn: parent
        width: parent.width - 80
        spacing: 16

        Rectangle {
            width: parent.width
            height: 44
            radius: Theme.radius
            color: Theme.panel
            border.width: editor.editing ? Theme.focusWidth : 1
            border.color: editor.editing ? Theme.focus : Theme.strongLine
            Accessible.role: Accessible.EditableText
            Accessible.name: "The document's " + editor.property
            Accessible.focusable: true

            PropertyEditor {
                id: editor

                property bool editing: false

                function commit() {
                    if (document)
                        document[property] = field.text;
                    focus = false;
                }
                // The keyboard goes on from here.
                function goOn(forward) {
                    const next = (forward ? field : editor).nextItemInFocusChain(forward);
                    commit();
                    // The window has a say about the key, too.
                    Qt.callLater(() => next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason));
                }

                anchors.fill: parent
                document: demo.shown
                property: "name"
                onBeginEdit: {
                    editing = true;
                    field.text = document && document[property] !== undefined ? document[property] : "";
                    field.forceActiveFocus();
                    field.selectAll();
                    log.note("beginEdit");
                }
                onEndEdit: { editing = false; log.note("endEdit"); }
                onEnterPressed: { log.note("enterPressed"); commit(); }
                onTabPressed: { log.note("tabPressed"); goOn(true); }
                onBackTabPressed: { log.note("backTabPressed"); goOn(false); }
                onEscapePressed: { log.note("escapePressed"); focus = false; }
                onSpacePressed: log.note("spacePressed")

                Label {
                    anchors { fill: parent; leftMargin: 16; rightMargin: 16 }
                    verticalAlignment: Text.AlignVCenter
                    visible: !editor.editing
                    text: editor.document && editor.document[editor.property] !== undefined
                          ? editor.document[editor.property] : ""
                }
                TextInput {
                    id: field
                    anchors { fill: parent; leftMargin: 16; rightMargin: 16 }
                    verticalAlignment: TextInput.AlignVCenter
                    focus: true
                    opacity: editor.editing ? 1 : 0
                    clip: true
                    selectByMouse: true
                    color: Theme.text
                    selectionColor: Theme.accent
                    selectedTextColor: Theme.accentContrast
                    font.family: Theme.family
                    font.pixelSize: Theme.normal
                }
                MouseArea {
                    anchors.fill: parent
                    enabled: !editor.editing
                    cursorShape: Qt.IBeamCursor
                    onClicked: editor.forceActiveFocus()
                }
            }
        }
        Label {
            text: editor.editing ? "editing" : "idle"
            color: editor.editing ? Theme.accentText : Theme.faintText
            font.pixelSize: Theme.small
        }
        TextEdit {
            id: paragraphs
            width: parent.width
            readOnly: true
            Accessible.role: Accessible.StaticText
            Accessible.name: "Three paragraphs"
            textFormat: TextEdit.RichText
            text: "<p style='margin:0'>Three paragraphs</p><p style='margin:0'>whose lines stand</p>"
                  + "<p style='margin:0'>as far apart as you like</p>"
            color: Theme.softText
            font.family: Theme.family
            font.pixelSize: Theme.normal
        }
    }

    editors: [
        TextEditor { target: editor; property: "property" },
        ValueRow { label: "document"; value: editor.document ? editor.document.name : "none" },
        ValueRow { label: "editing"; value: editor.editing },
        NumberEditor {
            label: "setLineHeight(…)"
            value: 1
            from: 0.5
            to: 3
            stepSize: 0.05
            decimals: 2
            onEdited: {
                value = newValue;
                editor.setLineHeight(paragraphs.textDocument, newValue);
            }
        }
    ]
}
