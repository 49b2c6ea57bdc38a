// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Stage {
    expectations: ({
        checkerSize: { to: 20, before: [[32, 24, 1, 1, "#f0f0f0"]], after: [[32, 24, 1, 1, "#404040"]] },
        lightColor: { to: "#ff8000", before: [[32, 24, 1, 1, "#f0f0f0"]], after: [[32, 24, 1, 1, "#ff8000"]] },
        darkColor: { to: "#00ff00", before: [[24, 24, 1, 1, "#404040"]], after: [[24, 24, 1, 1, "#00ff00"]] },
        x: { to: 60, before: [[24, 24, 1, 1, "#404040"]], after: [[24, 24, 1, 1, "#306090"]] },
        width: { to: 120, before: [[125, 24, 1, 1, "#306090"]], after: [[125, 24, 1, 1, "#f0f0f0"]] },
        height: { to: 90, before: [[24, 95, 1, 1, "#306090"]], after: [[24, 95, 1, 1, "#f0f0f0"]] },
        opacity: { to: 0.5, before: [[24, 24, 1, 1, "#404040"]], after: [[24, 24, 1, 1, "#385068"]] },
        visible: { to: false, before: [[24, 24, 1, 1, "#404040"]], after: [[24, 24, 1, 1, "#306090"]] }
    })

    CheckerBox {
        objectName: "subject"
        x: 20; y: 20; width: 80; height: 60
        lightColor: "#f0f0f0"; darkColor: "#404040"
    }
}
