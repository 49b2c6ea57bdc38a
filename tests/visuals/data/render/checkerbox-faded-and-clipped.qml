// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Rectangle {
    id: root
    width: 200; height: 120
    color: "#000000"

    property int sampleCount: 7
    property var before: [[12, 12, "#800000"], [20, 12, "#008000"], [45, 12, "#000000"]]
    property var after: [[12, 12, "#ff0000"], [20, 12, "#00ff00"], [45, 12, "#000000"], [12, 45, "#000000"]]
    function change() { box.opacity = 1; }
    Item {
        x: 10; y: 10; width: 30; height: 30
        clip: true
        CheckerBox { id: box; width: 80; height: 80; lightColor: "#00ff00"; darkColor: "#ff0000"; opacity: 0.5 }
    }
}
