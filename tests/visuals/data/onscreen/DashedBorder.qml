// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Stage {
    expectations: ({
        borderColor: { to: "#ff0000", before: [[25, 19, 20, 3, "#ffffff"]], after: [[25, 19, 20, 3, "#ff0000"]] },
        x: { to: 60.5, before: [[19, 30, 3, 20, "#ffffff"]], after: [[59, 30, 3, 20, "#ffffff"]] },
        width: { to: 120, before: [[99, 30, 3, 20, "#ffffff"]], after: [[139, 30, 3, 20, "#ffffff"]] },
        height: { to: 90, before: [[30, 79, 20, 3, "#ffffff"]], after: [[30, 109, 20, 3, "#ffffff"]] },
        opacity: { to: 0.5, before: [[25, 19, 20, 3, "#ffffff"]], after: [[25, 19, 20, 3, "#97afc7"]] },
        visible: { to: false, before: [[25, 19, 20, 3, "#ffffff"]], after: [] }
    })

    DashedBorder {
        objectName: "subject"
        x: 20.5; y: 20.5; width: 80; height: 60
        borderColor: "#ffffff"
    }
}
