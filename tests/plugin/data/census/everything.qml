// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import ombrel.data.Core 1.0

// Every type of the library at work: drawn, open, with what it makes.
Item {
    id: root
    width: 400
    height: 400

    function openAll() {
        popup.open = true
        anchor.show()
        dialog.show()
        tree.toggleIndex(0)
        tree.toggleIndex(0)
    }

    Context { id: shared }
    Document {
        id: documents
        context: shared
        documentId: "root"
        name: "Root"
        types: ["folder"]
        Document { documentId: "a"; name: "A"; types: ["text"] }
        Document { documentId: "b"; name: "B"; types: ["text"] }
    }

    Text {
        objectName: "text"
        text: UI.currencyString("DE", "Sans")
    }
    DashedBorder { width: 40; height: 30; borderColor: "red" }
    Frame { x: 50; width: 40; height: 30; color: "green"; frameWidth: 3 }
    QRCode { x: 100; width: 60; height: 60; url: "https://a.example/" }
    CheckerBox { x: 170; width: 40; height: 30 }
    HueBox { x: 220; width: 60; height: 20; sliderDelegate: Rectangle { width: 4; height: 4 } }
    SaturationValueBox {
        x: 290
        width: 60
        height: 60
        crossHairDelegate: Rectangle { width: 4; height: 4 }
    }
    ColorMapper { }
    HoverArea { y: 70; width: 20; height: 20 }
    FpsCounter { }
    KeyEventSource { y: 70; x: 30; width: 20; height: 20 }
    PropertyEditor {
        y: 70
        x: 60
        width: 60
        height: 20
        document: documents
        property: "name"
        TextInput { anchors.fill: parent; text: "name" }
    }
    TreeView {
        id: tree
        y: 100
        width: 150
        childProperty: "children"
        rootDocuments: documents
        rootCanCollapse: true
        delegate: Text { text: document ? document.name : "" }
        backgroundDelegate: Rectangle { color: TreeView.isActiveItem ? "blue" : "white" }
    }
    DropZone {
        y: 200
        width: 60
        height: 40
        dropHandlers: [
            FileDropHandler { },
            ImageDropHandler { },
            VideoDropHandler { },
            DocumentDropHandler { type: "text" },
            DraggableDropHandler { }
        ]
    }
    DragArea {
        y: 200
        x: 70
        width: 40
        height: 40
        dragDocuments: documents
        dragDelegate: Rectangle { width: 10; height: 10 }
        MouseArea { anchors.fill: parent }
    }
    DragZone {
        y: 200
        x: 120
        width: 40
        height: 40
        dragDocuments: documents
        dragDelegate: Rectangle { width: 10; height: 10 }
        MouseArea { anchors.fill: parent }
    }
    Draggable { y: 200; x: 170; width: 40; height: 40; dragData: "card" }
    Popup {
        id: popup
        width: 50
        height: 20
        Rectangle { anchors.fill: parent; color: "yellow" }
    }
    PopupAnchorItem {
        id: anchor
        x: 230
        y: 200
        width: 20
        height: 20
        popup: Rectangle { width: 30; height: 20; color: "orange" }
    }
    DialogItem {
        id: dialog
        width: 60
        height: 40
        Rectangle { anchors.fill: parent; color: "grey" }
    }
}
