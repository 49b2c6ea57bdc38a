// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Stage {
    property Component marker: Component { Rectangle { width: 6; height: 6; color: "#ffffff" } }

    // The hue itself is not drawn: only a slider would show it.
    expectations: ({
        hue: { to: 120, silent: true },
        sliderDelegate: { to: marker, before: [], after: [[22, 42, 1, 1, "#ffffff"]] },
        x: { to: 60, before: [[150, 30, 1, 1, "#306090"]], after: [[25, 30, 1, 1, "#306090"]] },
        width: { to: 160, before: [[100, 30, 1, 1, "#0600ff", 3]], after: [[100, 30, 1, 1, "#00faff", 3]] },
        height: { to: 80, before: [[80, 90, 1, 1, "#306090"]], after: [[80, 90, 1, 1, "#00f9ff", 3]] },
        opacity: { to: 0.5, before: [[80, 30, 1, 1, "#00f9ff", 3]], after: [[80, 30, 1, 1, "#18acc7", 3]] },
        visible: { to: false, before: [[80, 30, 1, 1, "#00f9ff", 3]], after: [[80, 30, 1, 1, "#306090"]] }
    })

    HueBox { objectName: "subject"; x: 20; y: 20; width: 120; height: 40 }
}
