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

    property int sampleCount: 13
    property var before: [[12, 12, "#204060"], [20, 12, "#f0e0d0"], [12, 20, "#f0e0d0"],
                          [20, 20, "#204060"], [28, 12, "#204060"], [5, 5, "#306090"]]
    property var after: [[12, 12, "#800000"], [20, 12, "#800000"], [28, 12, "#00a000"],
                         [12, 28, "#00a000"], [28, 28, "#800000"], [45, 12, "#800000"], [5, 5, "#306090"]]
    function change() {
        box.checkerSize = 16;
        box.lightColor = "#00a000";
        box.darkColor = "#800000";
    }
    CheckerBox {
        id: box
        x: 10; y: 10; width: 100; height: 80
        lightColor: "#f0e0d0"; darkColor: "#204060"
    }
}
