// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

// A square without a cross-hair yet, and one that notes each place it is put to.
Item {
    id: page
    property var log: []
    property Component marker: Item {
        onXChanged: page.log.push("x " + x)
        onYChanged: page.log.push("y " + y)
    }

    width: 200
    height: 200

    SaturationValueBox {
        objectName: "box"
        width: 100
        height: 80
        hue: 3
        saturation: 255
        value: 51
    }
}
