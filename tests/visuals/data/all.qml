// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

// Every drawn type once, side by side, none over another. Frames come when there is a window.
Rectangle {
    id: root
    width: 320
    height: 160
    color: "#306090"

    function change() {
        checker.checkerSize = 20;
        checker.lightColor = "white";
        border.borderColor = "red";
        square.hue = 200;
        strip.height = 30;
        if (loader.item)
            loader.item.color = "green";
    }

    CheckerBox { id: checker; objectName: "checker"; x: 10; y: 10; width: 60; height: 60 }
    DashedBorder {
        id: border; objectName: "border"; borderColor: "#ffffff"
        x: 90.5; y: 10.5; width: 60; height: 60
    }
    HueBox { id: strip; objectName: "strip"; x: 170; y: 10; width: 120; height: 20 }
    SaturationValueBox { id: square; objectName: "square"; x: 170; y: 50; width: 120; height: 100 }
    Loader {
        id: loader
        objectName: "loader"
        active: root.Window.window !== null
        x: 20
        y: 100
        width: 60
        height: 40
        sourceComponent: Frame { objectName: "frame"; frameWidth: 5; color: "#ff8000" }
    }
}
