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

    property int sampleCount: 4
    property var before: [[49, 80, "#ff8000"], [51, 80, "#306090"]]
    property var after: [[49, 80, "#306090"], [50, 80, "#306090"]]
    function change() { loader.item.frameWidth = -3; }
    Loader {
        id: loader
        active: root.Window.window !== null
        x: 50; y: 50; width: 100; height: 60
        sourceComponent: Frame { frameWidth: 2; color: "#ff8000" }
    }
}
