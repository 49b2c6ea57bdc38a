// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Rectangle {
    id: root
    width: 200; height: 120
    color: "#306090"

    // Nine samples and the centre weigh 1.075: in the middle of a light module the colour goes on
    // by as much beyond the light one.
    property int sampleCount: 6
    property var before: [[16, 16, "#ffffe7"], [26, 26, "#000080"], [115, 60, "#306090"]]
    property var after: [[16, 16, "#ffffe0"], [26, 26, "#000080"], [115, 60, "#306090"]]
    function change() { code.antialiasing = false; }
    QRCode {
        id: code
        x: 10; y: 10; width: 100; height: 100
        antialiasing: true
        darkColor: "#000080"; lightColor: "#ffffe0"
    }
}
