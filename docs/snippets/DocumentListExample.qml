// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0

// A list of documents that one adds to, sorts by hand, and takes from.
Column {
    id: page
    width: 280
    height: 160

    Document { id: shelf; name: "Shelf" }
    Component { id: maker; Document {} }

    //! [change]
    function add(name) {
        const document = maker.createObject(shelf, { "name": name });
        shelf.children = Array.from(shelf.children).concat([document]);
    }
    // From one place to another; both counted from 0.
    function reorder(from, to) {
        const documents = Array.from(shelf.children);
        if (to < 0 || to >= documents.length)
            return;
        documents.splice(to, 0, documents.splice(from, 1)[0]);
        shelf.children = documents;
    }
    // Into another folder: put there, it leaves the shelf.
    function move(document, folder) {
        folder.children = Array.from(folder.children).concat([document]);
    }
    // Out of the list, and alive: it can be put back.
    function takeOut(document) {
        shelf.children = Array.from(shelf.children).filter(other => other !== document);
    }
    // For good. Only what createObject() made can be destroyed.
    function remove(document) {
        document.destroy();
    }
    //! [change]

    Component.onCompleted: ["Letter", "Portrait", "Sunset"].forEach(add)

    Repeater {
        model: shelf.children.length
        Row {
            id: line
            readonly property QtObject shown: shelf.children[index]
            spacing: 12
            height: 28
            Text { width: 140; text: line.shown ? line.shown.name : "" }
            Repeater {
                model: ["up", "down", "remove"]
                Text {
                    text: modelData
                    color: "#40A1BB"
                    MouseArea {
                        anchors.fill: parent
                        onClicked: {
                            const place = Array.from(shelf.children).indexOf(line.shown);
                            if (modelData === "remove")
                                page.remove(line.shown);
                            else
                                page.reorder(place, place + (modelData === "up" ? -1 : 1));
                        }
                    }
                }
            }
        }
    }
}
