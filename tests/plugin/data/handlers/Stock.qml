// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0
import handlers 1.0

// What the scenes are in, and what is written into the properties of their subjects.
Item {
    id: stock
    objectName: "stock"
    width: 200
    height: 200

    property list<Component> components: [
        Component { Told { objectName: "made" } },
        Component { Item { objectName: "madeToo" } }
    ]
    property list<Item> items: [
        Item { objectName: "other"; parent: stock; x: 120; width: 50; height: 50 }
    ]
    property list<Document> documents: [
        AskedDocument { objectName: "one"; documentId: "one"; types: ["", "text"] },
        AskedDocument { objectName: "two"; documentId: "two"; types: ["", "text"] }
    ]
    property list<DropHandler> handlers: [FileDropHandler { }]
    property QtObject textDocuments: edit ? edit.textDocument : null
    property list<DragZone> zones: [
        DragZone { objectName: "zone"; parent: stock; dragDocuments: stock.documents[1] }
    ]
    TextEdit {
        id: edit
        objectName: "edit"
        y: 150
        text: "a\nb"
    }
}
