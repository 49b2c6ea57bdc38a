// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Item {
    width: 300
    height: 200

    property var notes: []
    // A marker that writes down each place it is put to.
    property Component noted: Component {
        Item {
            onXChanged: notes.push("x " + Math.round(x))
            onYChanged: notes.push("y " + Math.round(y))
        }
    }

    // Markers that change the box from inside the step before the last.
    property Component hueSetter: Component {
        Item { onYChanged: strip.hue = 2 }
    }
    property Component saturationSetter: Component {
        Item { onXChanged: square.saturation = 51 }
    }
    property Component plain: Component {
        Item {}
    }

    HueBox { id: strip; objectName: "strip"; x: 20; y: 20; width: 180; height: 20; hue: 30 }
    SaturationValueBox {
        id: square
        objectName: "square"
        x: 20; y: 60; width: 100; height: 80
        hue: 20; value: 102; saturation: 204
    }
}
