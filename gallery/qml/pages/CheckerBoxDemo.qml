// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"

Demo {
    title: "CheckerBox"
    steps: [
        Step {
            text: "Change the width: the pattern is cut, not scaled, and stays with the top left corner."
            when: box.width !== 300
        },
        Step { text: "Type 500 as the size of the squares: they have 2 to 128 pixels."; when: box.checkerSize === 128 }
    ]
    subject: box
    stageHeight: 260

    CheckerBox {
        id: box
        x: 30
        y: 30
        width: 300
        height: 180
        onCheckerSizeChanged: log.note("checkerSizeChanged " + checkerSize)
        onLightColorChanged: log.note("lightColorChanged " + lightColor)
        onDarkColorChanged: log.note("darkColorChanged " + darkColor)
    }

    editors: [
        NumberEditor { target: box; property: "checkerSize"; from: 2; to: 128 },
        ColorEditor {
            target: box
            property: "lightColor"
            swatches: ["#FFFFFF", "#C0C0C0", "#E3F1E4", "#FAF3DA", "#F4E2DB"]
        },
        ColorEditor { target: box; property: "darkColor" },
        NumberEditor { target: box; property: "width"; from: 0; to: 360 },
        NumberEditor { target: box; property: "height"; from: 0; to: 200 },
        NumberEditor { target: box; property: "opacity"; from: 0; to: 1; stepSize: 0.05 }
    ]
}
