// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Says which files it would take.
Rectangle {
    width: 320
    height: 120

    DropZone {
        anchors.fill: parent
        VideoDropHandler {
            id: videos
            onDropped: text.text = "To play: " + drag.data[0]
        }
    }

    Text {
        id: text
        anchors.centerIn: parent
        width: parent.width - 32
        horizontalAlignment: Text.AlignHCenter
        text: "Drop a film: " + Array.from(videos.suffixes).join(", ")
        wrapMode: Text.Wrap
    }
}
