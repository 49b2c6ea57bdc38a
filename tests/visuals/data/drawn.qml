// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

// Every drawn type side by side, each with a rectangle that has nothing but the ground's colour where
// the type is not drawn. "own" are those with shaders of the library's own.
Rectangle {
    id: root
    width: 240
    height: 180
    color: "#306090"

    readonly property var own: [Qt.rect(10, 10, 60, 60), Qt.rect(88, 28, 65, 45), Qt.rect(170, 10, 60, 60)]
    readonly property var others: [Qt.rect(80, 90, 60, 60), Qt.rect(160, 90, 60, 60), Qt.rect(15, 95, 50, 50)]

    function change() {
        checker.checkerSize = 20;
        border.borderColor = "red";
        code.url = "https://example.org/";
        square.hue = 200;
        strip.width = 59;
    }

    CheckerBox { id: checker; x: 10; y: 10; width: 60; height: 60 }
    DashedBorder { id: border; x: 90.5; y: 30.5; width: 60; height: 40; borderColor: "white" }
    QRCode { id: code; x: 170; y: 10; width: 60; height: 60; darkColor: "black"; lightColor: "white" }
    HueBox { id: strip; objectName: "strip"; x: 80; y: 90; width: 60; height: 60 }
    SaturationValueBox { id: square; x: 160; y: 90; width: 60; height: 60 }
    Loader {
        active: root.Window.window !== null
        x: 20; y: 100; width: 40; height: 40
        sourceComponent: Frame { frameWidth: 5; color: "#ff8000" }
    }
}
