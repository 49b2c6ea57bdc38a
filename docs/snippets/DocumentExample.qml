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

    // A binding hears of a change of the types, not of one in what hasType() answers: name both.
    Text { text: album.name + (album.types.length > 0 && album.hasType("album") ? ", an album" : "") }

    Repeater {
        model: album.children.length
        Text { text: "• " + album.children[index].name }
    }
}
