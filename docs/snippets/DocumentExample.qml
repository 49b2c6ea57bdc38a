// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0

Column {
    width: 240
    height: 80

    Document {
        id: album
        documentId: "holiday"
        name: "Holiday"
        types: ["folder", "album"]

        Document { documentId: "beach"; name: "Beach"; types: ["image"] }
        Document { documentId: "hills"; name: "Hills"; types: ["image"] }
    }

    Text { text: album.name + (album.hasType("album") ? ", an album" : "") }

    Repeater {
        model: album.children.length
        Text { text: "• " + album.children[index].name }
    }
}
