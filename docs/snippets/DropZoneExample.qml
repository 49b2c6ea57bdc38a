// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Pictures and films go their own ways, other files a third.
Rectangle {
    width: 320
    height: 200
    color: zone.containsDrag ? "#E7F1F4" : "#F8F7F5"

    //! [zone]
    DropZone {
        id: zone
        anchors.fill: parent

        ImageDropHandler {
            onEntered: text.text = "Let go to add " + drag.data.length + " pictures"
            onExited: text.text = "Drop something"
            onDropped: text.text = "Pictures: " + drag.data.join(", ")
        }
        VideoDropHandler {
            onDropped: text.text = "Films: " + drag.data.join(", ")
        }
        FileDropHandler {
            onDropped: text.text = "Files: " + drag.data.join(", ")
        }
    }
    //! [zone]

    Text {
        id: text
        anchors.fill: parent
        anchors.margins: 16
        text: "Drop something"
        wrapMode: Text.Wrap
    }
}
