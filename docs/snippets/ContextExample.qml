// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0

Item {
    width: 240
    height: 40

    Context {
        id: shelf
        onDocumentChanged: news.text = document.name + " has changed"
    }
    Document {
        id: album
        context: shelf
        name: "Holiday"
        Document { id: beach; name: "Beach" }
    }

    Text { id: news; anchors.centerIn: parent }

    // The child has no context of its own: the change reaches the album's.
    Component.onCompleted: beach.name = "Long beach"
}
