// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Stage {
    property Component marker: Component { Rectangle { width: 6; height: 6; color: "#ffffff" } }

    // Of the three numbers only the hue is drawn: a cross-hair would show the others.
    expectations: ({
        hue: { to: 120, before: [[118, 22, 1, 1, "#fb0808", 8]], after: [[118, 22, 1, 1, "#08fb08", 8]] },
        saturation: { to: 100, silent: true },
        value: { to: 100, silent: true },
        crossHairDelegate: { to: marker, before: [[122, 22, 1, 1, "#306090"]], after: [[122, 22, 1, 1, "#ffffff"]] },
        x: { to: 60, before: [[150, 30, 1, 1, "#306090"]], after: [[25, 30, 1, 1, "#306090"]] },
        width: { to: 140, before: [[150, 30, 1, 1, "#306090"]], after: [] },
        height: { to: 100, before: [[60, 110, 1, 1, "#306090"]], after: [] },
        opacity: { to: 0.5, before: [[118, 22, 1, 1, "#fb0808", 8]], after: [[118, 22, 1, 1, "#95344c", 8]] },
        visible: { to: false, before: [[118, 22, 1, 1, "#fb0808", 8]], after: [[118, 22, 1, 1, "#306090"]] }
    })

    SaturationValueBox { objectName: "subject"; x: 20; y: 20; width: 100; height: 80 }
}
