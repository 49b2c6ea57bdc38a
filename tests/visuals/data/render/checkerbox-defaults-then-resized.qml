// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Rectangle {
    id: root
    width: 200; height: 120
    color: "#306090"

    // Squares of 8; a new size cuts the pattern or goes on with it, from the same corner.
    property int sampleCount: 11
    property var before: [[12, 12, "#a0a0a4"], [20, 12, "#c0c0c0"], [60, 12, "#a0a0a4"],
                          [72, 12, "#306090"], [12, 60, "#306090"]]
    property var after: [[12, 12, "#a0a0a4"], [20, 12, "#c0c0c0"], [20, 20, "#a0a0a4"],
                         [76, 12, "#a0a0a4"], [84, 12, "#c0c0c0"], [12, 32, "#306090"]]
    function change() { box.width = 130; box.height = 20; }
    CheckerBox { id: box; x: 10; y: 10; width: 60; height: 40 }
}
