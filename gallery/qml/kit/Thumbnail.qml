// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A picture of a document: the image itself, or a sign for its type.
Item {
    id: thumbnail

    property QtObject document
    property bool large: false
    readonly property string type: document && document.types.length > 0 ? document.types[0] : "file"
    readonly property bool locked: type === "folder" && document.readable === false
    readonly property string sign: locked ? "locked" : ["folder", "image", "video", "text"].includes(type) ? type : "file"

    Image {
        anchors.centerIn: parent
        visible: image.status !== Image.Ready
        width: Math.min(48, parent.width, parent.height)
        height: width
        sourceSize: Qt.size(width, height)
        source: "types/" + thumbnail.sign + ".svg"
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
