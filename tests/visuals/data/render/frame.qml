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

    // Around the outside of the item, which itself stays as it is.
    property int sampleCount: 16
    property var before: [[49, 49, "#ff8000"], [47, 80, "#ff8000"], [52, 80, "#306090"], [44, 80, "#306090"],
                          [151, 80, "#ff8000"], [100, 112, "#ff8000"], [100, 80, "#306090"], [155, 80, "#306090"]]
    property var after: [[47, 80, "#306090"], [87, 80, "#00a000"], [82, 80, "#00a000"], [79, 80, "#306090"],
                         [95, 80, "#306090"], [195, 80, "#00a000"], [201, 80, "#306090"], [140, 118, "#00a000"]]
    function change() {
        loader.x = 90;
        loader.item.frameWidth = 10;
        loader.item.color = "#00a000";
    }
    Loader {
        id: loader
        active: root.Window.window !== null
        x: 50; y: 50; width: 100; height: 60
        sourceComponent: Frame { frameWidth: 5; color: "#ff8000" }
    }
}
