// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// A picture of a document: the image itself, or a sign for its type.
Item {
    id: thumbnail

    property QtObject document
    property bool large: false
    readonly property string type: document && document.types.length > 0 ? document.types[0] : "file"
    readonly property color tone: Theme.typeColor(type)

    Rectangle {
        anchors.fill: parent
        visible: image.status !== Image.Ready
        radius: 4
        color: Qt.rgba(thumbnail.tone.r, thumbnail.tone.g, thumbnail.tone.b, 0.16)
        Label {
            anchors.centerIn: parent
            text: ({ folder: "▤", image: "◩", video: "▶", text: "≡" })[thumbnail.type] || "◇"
            color: Qt.darker(thumbnail.tone, 1.2)
            font.family: "DejaVu Sans"
            font.pixelSize: Math.min(48, thumbnail.height / 2)
        }
    }
    Image {
        id: image
        anchors.fill: parent
        asynchronous: true
        fillMode: thumbnail.large ? Image.PreserveAspectFit : Image.PreserveAspectCrop
        sourceSize.width: thumbnail.large ? 640 : 96
        source: thumbnail.type === "image" && thumbnail.document ? thumbnail.document.url : ""
    }
}
