// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0
import "../kit"

Demo {
    id: demo
    title: "Context"
    hint: "The album has a context, and its pictures are in it too."
    steps: [
        Step {
            text: "Rename the album or one of its pictures: the context reports it."
            when: log.last.startsWith("documentChanged")
        },
        Step {
            text: "Take a picture out and rename it again: only documents of the context are reported."
            when: album.children.length < 2
        }
    ]
    codeType: "Document"
    codeValues: ({ name: album.name })
    stageHeight: 230

    Context {
        id: shelf
        onDocumentChanged: log.note("documentChanged(" + document.name + ")")
    }
    Document {
        id: album
        name: "Holiday"
        context: inContext.value ? shelf : null
        Document { id: beach; name: "Beach" }
        Document { id: hills; name: "Hills" }
    }

    Column {
        anchors.centerIn: parent
        spacing: 8

        DocumentTile { document: album; inside: album.context === shelf; width: 300 }
        Repeater {
            model: [beach, hills]
            Row {
                x: 28
                spacing: 8
                DocumentTile { document: modelData; inside: modelData.context === shelf; width: 190 }
                Button {
                    anchors.verticalCenter: parent.verticalCenter
                    readonly property bool listed: {
                        for (let i = 0; i < album.children.length; ++i) {
                            if (album.children[i] === modelData)
                                return true;
                        }
                        return false;
                    }
                    text: listed ? "Take out" : "Put in"
                    width: 76
                    onClicked: {
                        const rest = [];
                        for (let i = 0; i < album.children.length; ++i) {
                            if (album.children[i] !== modelData)
                                rest.push(album.children[i]);
                        }
                        album.children = listed ? rest : rest.concat([modelData]);
                    }
                }
            }
        }
    }

    editors: [
        BoolEditor { id: inContext; label: "album in context"; value: true; onEdited: value = newValue },
        TextEditor { label: "album.name"; target: album; property: "name" },
        TextEditor { label: "beach.name"; target: beach; property: "name" },
        TextEditor { label: "hills.name"; target: hills; property: "name" }
    ]
}
