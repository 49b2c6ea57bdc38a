// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Stage {
    // The finder pattern in the top left corner, the same in every code: a dark square of three
    // modules in a light ring in a dark ring. A longer text makes the modules smaller. Softened,
    // modules have more than their full tone.
    expectations: ({
        url: { to: "https://example.org/a/rather/long/address", before: [[28, 28, 1, 1, "#ffffe0"]], after: [[28, 28, 1, 1, "#000080"]] },
        moduleSize: { to: 4, silent: true },
        darkColor: { to: "#00ff00", before: [[36, 36, 1, 1, "#000080"]], after: [[36, 36, 1, 1, "#00ff00"]] },
        lightColor: { to: "#ff8000", before: [[28, 28, 1, 1, "#ffffe0"]], after: [[28, 28, 1, 1, "#ff8000"]] },
        antialiasing: { to: true, before: [[26, 26, 1, 1, "#ffffe0"]], after: [[26, 26, 1, 1, "#ffffe7"]] },
        x: { to: 60, before: [[22, 22, 1, 1, "#000080"]], after: [[22, 22, 1, 1, "#306090"]] },
        width: { to: 120, before: [[125, 22, 1, 1, "#306090"]], after: [[125, 22, 1, 1, "#000080"]] },
        height: { to: 120, before: [[22, 125, 1, 1, "#306090"]], after: [[22, 125, 1, 1, "#000080"]] },
        opacity: { to: 0.5, before: [[36, 36, 1, 1, "#000080"]], after: [[36, 36, 1, 1, "#183088"]] },
        visible: { to: false, before: [[36, 36, 1, 1, "#000080"]], after: [[36, 36, 1, 1, "#306090"]] }
    })

    QRCode {
        objectName: "subject"
        x: 20; y: 20; width: 100; height: 100
        darkColor: "#000080"; lightColor: "#ffffe0"
    }
}
