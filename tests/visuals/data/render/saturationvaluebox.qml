// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Rectangle {
    id: root
    width: 300; height: 160
    color: "#306090"

    // Value to the right, saturation upwards.
    property int sampleCount: 11
    property var before: [[10, 10, "#000000", 4], [209, 10, "#ff0000", 4], [10, 109, "#000000", 4],
                          [209, 109, "#ffffff", 4], [110, 109, "#808080", 4], [209, 60, "#ff8080", 4],
                          [215, 60, "#306090"]]
    property var after: [[209, 10, "#00ff00", 6], [209, 109, "#ffffff", 4], [10, 10, "#000000", 4],
                         [209, 60, "#80ff80", 6]]
    function change() { square.hue = 120; }
    SaturationValueBox { id: square; x: 10; y: 10; width: 200; height: 100 }
}
