// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A code with the light margin of four modules that scanners want.
//! [margin]
Rectangle {
    width: code.width + 8 * code.moduleSize
    height: code.height + 8 * code.moduleSize
    color: code.lightColor

    QRCode {
        id: code
        anchors.centerIn: parent
        url: "https://example.org/catalogue?item=4711"
        moduleSize: 6
        darkColor: "#102a43"
        antialiasing: true
    }
}
//! [margin]
