// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Stock {
    HueBox {
        objectName: "subject"
        x: 20
        y: 20
        width: 80
        height: 80
        sliderDelegate: Told {
            objectName: "marker"
            role: "sliderDelegate"
            width: 4
            height: 4
        }
    }
}
