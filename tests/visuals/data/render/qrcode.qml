// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Rectangle {
    id: root
    width: 200; height: 120
    color: "#306090"

    // The finder pattern in the corner: dark ring, light ring, dark square. A longer text has
    // smaller modules: the dark square begins where the light ring was.
    property int sampleCount: 8
    property var before: [[12, 12, "#000080"], [18, 18, "#ffffe0"], [26, 26, "#000080"], [115, 60, "#306090"]]
    property var after: [[12, 12, "#004000"], [16, 16, "#ffff00"], [18, 18, "#004000"], [115, 60, "#306090"]]
    function change() {
        code.url = "https://example.org/a/rather/long/address";
        code.darkColor = "#004000";
        code.lightColor = "#ffff00";
    }
    QRCode { id: code; x: 10; y: 10; width: 100; height: 100; darkColor: "#000080"; lightColor: "#ffffe0" }
}
