// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Rectangle {
    id: root
    width: 400; height: 120
    color: "#306090"

    property int sampleCount: 13
    property var before: [[20, 20, "#ff0000", 8], [80, 20, "#ffff00", 8], [140, 20, "#00ff00", 8],
                          [200, 20, "#00ffff", 8], [260, 20, "#0000ff", 8], [320, 20, "#ff00ff", 8],
                          [379, 20, "#ff0000", 8], [5, 20, "#306090"], [20, 45, "#306090"]]
    property var after: [[20, 45, "#ff0000", 8], [50, 45, "#ffff00", 16], [80, 45, "#00ff00", 16],
                         [220, 45, "#306090"]]
    function change() { strip.width = 180; strip.height = 50; }
    HueBox { id: strip; x: 20; y: 10; width: 360; height: 20 }
}
