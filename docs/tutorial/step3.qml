// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

Rectangle {
    id: page

    width: 420
    height: 300
    color: UI.color(UI.AreaEditorBackground)

    Document {
        id: library
        documentId: "library"
        name: "My documents"
        types: ["item", "folder"]
    }
    Component { id: maker; Document {} }

    function add(folder, name, types) {
        const document = maker.createObject(folder, {
            "documentId": folder.documentId + "/" + name, "name": name, "types": types
        });
        move(document, folder);
        return document;
    }
    // Assigning is how QML changes a list: what is there, and the new one behind it.
    function move(document, folder) {
        folder.children = Array.from(folder.children).concat([document]);
    }

    Component.onCompleted: {
        const holiday = add(library, "Holiday", ["item", "folder"]);
        add(holiday, "Beach", ["item"]);
        add(holiday, "Hills", ["item"]);
        add(library, "Work", ["item", "folder"]);
    }

    //! [files]
    DropZone {
        id: fileZone
        anchors.fill: parent
        FileDropHandler {
            onDropped: {
                for (const url of Array.from(drag.data))
                    page.add(library, page.fileName(url), ["item"]).url = url;
            }
        }
    }
    DashedBorder {
        x: 4.5
        y: 4.5
        width: page.width - 9
        height: page.height - 9
        visible: fileZone.containsDrag
        borderColor: UI.color(UI.SecondaryPress)
    }

    function fileName(url) {
        return decodeURIComponent(url.toString().split("/").pop());
    }
    //! [files]

    Flickable {
        id: view
        anchors.fill: parent
        anchors.margins: 12
        contentHeight: tree.height
        clip: true
        Controls.ScrollBar.vertical: Controls.ScrollBar {}

        TreeView {
            id: tree
            width: view.width
            focus: true
            rootDocuments: [library]
            childProperty: "children"

            delegate: Item {
                id: row
                readonly property QtObject shown: document
                height: 28

                Text {
                    anchors.fill: parent
                    verticalAlignment: Text.AlignVCenter
                    text: row.shown ? row.shown.name : ""
                    font.bold: row.shown && row.shown.types.includes("folder")
                }
            }
            backgroundDelegate: Rectangle {
                color: TreeView.isActiveItem ? UI.color(UI.PrimaryHover) : "transparent"
                // Without it presses would go on to what lies below the tree.
                MouseArea { anchors.fill: parent }
            }
        }
    }
}
