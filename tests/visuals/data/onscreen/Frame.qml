// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

Stage {
    id: stage

    expectations: ({
        frameWidth: { to: 10, before: [[32, 60, 1, 1, "#306090"]], after: [[32, 60, 1, 1, "#ff8000"]] },
        color: { to: "#00ff00", before: [[38, 60, 1, 1, "#ff8000"]], after: [[38, 60, 1, 1, "#00ff00"]] },
        x: { to: 40, before: [[38, 60, 1, 1, "#ff8000"]], after: [[78, 60, 1, 1, "#ff8000"]] },
        width: { to: 100, before: [[102, 60, 1, 1, "#ff8000"]], after: [[142, 60, 1, 1, "#ff8000"]] },
        height: { to: 60, before: [[60, 82, 1, 1, "#ff8000"]], after: [[60, 102, 1, 1, "#ff8000"]] },
        opacity: { to: 0.5, before: [[38, 60, 1, 1, "#ff8000"]], after: [[38, 60, 1, 1, "#977048"]] },
        visible: { to: false, before: [[38, 60, 1, 1, "#ff8000"]], after: [[38, 60, 1, 1, "#306090"]] }
    })

    // A Frame needs a window when it is completed.
    Loader {
        active: stage.Window.window !== null
        x: 40; y: 40; width: 60; height: 40
        sourceComponent: Item {
            Frame {
                objectName: "subject"
                width: 60; height: 40
                frameWidth: 4
                color: "#ff8000"
            }
        }
    }
}
