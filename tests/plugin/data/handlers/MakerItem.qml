// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import handlers 1.0

Stock {
    MakerItem {
        objectName: "subject"
        x: 20
        y: 20
        width: 80
        height: 80
        delegate: Told { role: "delegate" }
    }
    HastyMakerItem {
        delegate: Told { role: "hasty" }
    }
}
