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

    // Nothing is drawn for a size of 0; a negative one draws to the other side, and nothing elsewhere.
    property int sampleCount: 6
    property var before: [[51, 51, "#306090"], [101, 51, "#306090"], [151, 51, "#306090"], [201, 51, "#306090"]]
    property var after: [[120, 120, "#306090"], [290, 190, "#306090"]]
    function change() {
        for (const item of [a, b, c, d]) {
            item.width = -20;
            item.height = -20;
        }
    }
    CheckerBox { id: a; x: 50; y: 50 }
    HueBox { id: b; x: 100; y: 50; height: 20 }
    SaturationValueBox { id: c; x: 150; y: 50; width: 20 }
    DashedBorder { id: d; x: 200; y: 50; borderColor: "white" }
}
