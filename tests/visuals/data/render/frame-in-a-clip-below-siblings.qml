// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Rectangle {
    id: root
    width: 300; height: 200
    color: "#306090"

    property int sampleCount: 6
    property var before: [[47, 80, "#ff8000"], [100, 112, "#ff8000"], [60, 60, "#900090"]]
    property var after: [[47, 80, "#c84048", 3], [100, 112, "#c84048", 3], [60, 60, "#900090"]]
    function change() { loader.item.opacity = 0.5; cover.color = "#900090"; }
    Item {
        x: 50; y: 50; width: 100; height: 60
        clip: true
        Loader {
            id: loader
            active: root.Window.window !== null
            anchors.fill: parent
            sourceComponent: Frame { frameWidth: 5; color: "#ff8000" }
        }
    }
    Rectangle { id: cover; x: 40; y: 40; width: 120; height: 100; z: 9; color: "#900090" }
}
