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

    // The ring's width is the window's, whatever the scale of the item.
    property int sampleCount: 6
    property var before: [[26, 80, "#ff8000"], [21, 80, "#ff8000"], [19, 80, "#306090"], [34, 80, "#306090"]]
    property var after: [[26, 80, "#306090"], [21, 80, "#306090"]]
    function change() { loader.visible = false; }
    Loader {
        id: loader
        active: root.Window.window !== null
        x: 80; y: 50; width: 100; height: 60
        scale: 2
        sourceComponent: Frame { frameWidth: 10; color: "#ff8000" }
    }
}
