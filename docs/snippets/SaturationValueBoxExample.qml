// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Item {
    width: 240
    height: 160

    //! [square]
    SaturationValueBox {
        id: square
        x: 20
        y: 20
        width: 200
        height: 120
        hue: 200
        saturation: 140
        value: 200
        crossHairDelegate: Item {
            Rectangle {
                x: -6
                y: -6
                width: 12
                height: 12
                radius: 6
                border.color: "white"
                border.width: 2
                color: Qt.hsva(square.hue / 359, square.saturation / 255, square.value / 255, 1)
            }
        }
    }
    //! [square]
}
