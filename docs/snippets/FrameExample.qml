// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

Item {
    id: page

    width: 240
    height: 120

    //! [frame]
    Rectangle {
        anchors.centerIn: parent
        width: 120
        height: 60
        color: "lightgrey"
        clip: true

        // Wherever the document is loaded: the Frame is made when there is a window.
        Loader {
            anchors.fill: parent
            active: page.Window.window !== null
            sourceComponent: Frame {
                frameWidth: 6
                color: "#90C695"
            }
        }
    }
    //! [frame]
}
