// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// The opened folder as a shelf of pictures, films and texts that can be put in order.
Item {
    id: view

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 80, 520)
        spacing: 8
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "Shelf"
            font.pixelSize: Theme.huge
            font.weight: Font.Light
        }
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: shelf.count + " files and folders of “" + Theme.oneLine(gallery.folder.name) + "”"
            color: Theme.softText
        }
    }

    Component.onCompleted: shelf.open(gallery.folder.url)
}
