// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A file by its URL: the picture when it is one, else a sign for what it is; its name below.
Item {
    id: tile

    property url url
    readonly property string name: {
        const path = url.toString().replace(/\/+$/, "");
        const last = path.substring(path.lastIndexOf("/") + 1);
        try {
            return decodeURIComponent(last);
        } catch (error) {
            // Broken percent-encoding: shown as it came.
            return last;
        }
    }
    readonly property string suffix: name.includes(".") ? name.substring(name.lastIndexOf(".") + 1)
                                                                .toLowerCase() : ""
    readonly property string type:
        ["png", "jpg", "jpeg", "gif", "bmp", "svg", "webp", "ico", "pbm", "pgm", "ppm", "xbm", "xpm"]
            .includes(suffix) ? "image"
        : ["avi", "flv", "mkv", "mp4", "webm", "mov"].includes(suffix) ? "video"
        : ["txt", "md", "pdf", "qml", "html", "cpp", "h", "json"].includes(suffix) ? "text" : "file"
    readonly property string problem: image.status === Image.Ready ? gallery.pictureProblem(url) : ""
    readonly property bool pictured: image.status === Image.Ready && problem === ""
    readonly property color tone: problem !== "" ? Theme.errorText : Theme.typeColor(type)

    implicitWidth: 92
    implicitHeight: 92

    Rectangle {
        id: frame
        width: parent.width
        height: parent.height - 22
        radius: 5
        color: tile.pictured ? Theme.panel
                             : Qt.rgba(tile.tone.r, tile.tone.g, tile.tone.b, 0.14)
        border.color: tile.pictured ? Theme.line
                                    : Qt.rgba(tile.tone.r, tile.tone.g, tile.tone.b, 0.35)

        Label {
            anchors.centerIn: parent
            width: parent.width - 12
            horizontalAlignment: Text.AlignHCenter
            visible: !tile.pictured
            text: tile.problem !== "" ? tile.problem : tile.suffix.length > 0 ? tile.suffix : "file"
            color: tile.problem !== "" ? tile.tone : Theme.textOnTone(tile.tone)
            wrapMode: Text.WordWrap
            maximumLineCount: 3
            font.pixelSize: tile.problem !== "" ? Theme.small : Theme.large
            font.weight: Font.DemiBold
            font.capitalization: tile.problem !== "" ? Font.MixedCase : Font.AllUppercase
        }
        Image {
            id: image
            anchors.fill: parent
            anchors.margins: 4
            visible: tile.problem === ""
            asynchronous: true
            fillMode: Image.PreserveAspectCrop
            sourceSize.width: 184
            source: tile.type === "image" ? gallery.pictureSource(tile.url) : ""
        }
    }
    Label {
        anchors.bottom: parent.bottom
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: Theme.oneLine(tile.name)
        color: Theme.softText
        font.pixelSize: Theme.small
        elide: Text.ElideMiddle
    }
}
