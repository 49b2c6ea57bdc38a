// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Collects what is dropped; only documents.
Rectangle {
    id: collection
    width: 320
    height: 200

    property var files: []

    DropZone {
        anchors.fill: parent
        FileDropHandler {
            suffixes: ["pdf", "odt", "txt"]
            onDropped: collection.files = collection.files.concat(Array.from(drag.data))
        }
    }

    Column {
        anchors.fill: parent
        anchors.margins: 16
        Text { text: collection.files.length + " documents" }
        Repeater {
            model: collection.files
            Text { text: modelData }
        }
    }
}
