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

    property int sampleCount: 10
    property var before: [[4, 4, "#204060"], [12, 4, "#f0e0d0"], [4, 12, "#f0e0d0"],
                          [100, 84, "#204060"], [196, 116, "#204060"]]
    property var after: [[4, 4, "#204060"], [12, 4, "#f0e0d0"], [12, 12, "#204060"], [22, 4, "#306090"],
                         [4, 22, "#306090"]]
    function change() { box.width = 20; box.height = 20; }
    CheckerBox { id: box; width: 1e9; height: 1e9; lightColor: "#f0e0d0"; darkColor: "#204060" }
}
