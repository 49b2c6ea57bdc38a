// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Rectangle {
    id: root
    width: 200; height: 120
    color: "#306090"

    // Seven of ten pixels are dashes, counted as x and y from the lower left corner of the window:
    // a border that moves by a pixel moves below them.
    property int sampleCount: 16
    property var before: [[20, 10, "#f0e0d0"], [26, 10, "#f0e0d0"], [27, 10, "#306090"], [29, 10, "#306090"],
                          [30, 10, "#f0e0d0"], [10, 30, "#f0e0d0"], [11, 30, "#306090"], [40, 30, "#306090"]]
    property var after: [[20, 10, "#ff0000"], [26, 10, "#ff0000"], [27, 10, "#306090"], [29, 10, "#306090"],
                         [30, 10, "#ff0000"], [10, 30, "#306090"], [11, 30, "#ff0000"], [40, 30, "#306090"]]
    function change() { border.borderColor = "#ff0000"; border.x = 11.5; }
    DashedBorder { id: border; x: 10.5; y: 10.5; width: 60; height: 40; borderColor: "#f0e0d0" }
}
