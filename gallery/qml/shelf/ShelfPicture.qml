// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import "../kit"

// The picture of a document: the image itself, made elsewhere and kept, or a sign for what it is.
Item {
    id: picture

    property QtObject document
    property bool whole: false
    readonly property string type: document && document.types.length > 0 ? document.types[0] : "file"
    readonly property bool locked: document !== null && !document.readable
    readonly property string problem: image.status === Image.Ready && document ? shelf.pictureProblem(document)
                                    : locked ? "cannot be read" : ""
    readonly property string sign: locked ? "locked" : problem !== "" ? "broken"
                                 : ["folder", "image", "video", "text"].includes(type) ? type : "file"
    readonly property bool shown: image.status === Image.Ready && problem === ""

    Image {
        anchors.centerIn: parent
        visible: !picture.shown
        width: Math.min(48, parent.width, parent.height)
        height: width
        sourceSize: Qt.size(width, height)
        source: "../kit/types/" + picture.sign + ".svg"
    }
    Image {
        id: image
        anchors.fill: parent
        visible: picture.shown
        asynchronous: true
        fillMode: picture.whole ? Image.PreserveAspectFit : Image.PreserveAspectCrop
        // Twice the logical pixels on a sharp screen. One size whatever the window's: another one
        // would have every picture made anew while the window is resized.
        sourceSize: Qt.size((picture.whole ? 320 : 160) * Screen.devicePixelRatio,
                            (picture.whole ? 240 : 120) * Screen.devicePixelRatio)
        source: picture.document ? shelf.pictureSource(picture.document, picture.whole) : ""
    }
}
