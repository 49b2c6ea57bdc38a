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
    readonly property string problem: image.status === Image.Ready && document
                                      ? gallery.pictureProblem(document.url) : ""
    readonly property string sign: problem !== "" ? "broken" : locked ? "locked" : ["folder", "image", "video", "text"].includes(type) ? type : "file"

    Image {
        anchors.centerIn: parent
        visible: image.status !== Image.Ready || thumbnail.problem !== ""
        width: Math.min(48, parent.width, parent.height)
        height: width
        sourceSize: Qt.size(width, height)
        source: "types/" + thumbnail.sign + ".svg"
    }
    Image {
        id: image
        visible: thumbnail.problem === ""
        anchors.fill: parent
        asynchronous: true
        fillMode: thumbnail.large ? Image.PreserveAspectFit : Image.PreserveAspectCrop
        sourceSize.width: thumbnail.large ? 640 : 96
        source: thumbnail.type === "image" && thumbnail.document
                ? gallery.pictureSource(thumbnail.document.url) : ""
    }
    Label {
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 12 }
        visible: thumbnail.large && thumbnail.problem !== ""
        text: "The file " + thumbnail.problem
        color: Theme.errorText
        font.pixelSize: Theme.small
    }
}
