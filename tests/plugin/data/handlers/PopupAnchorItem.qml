// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Stock {
    PopupAnchorItem {
        objectName: "subject"
        x: 20
        y: 20
        width: 80
        height: 80
        Told {
            objectName: "popup"
            role: "popup"
            width: 30
            height: 30
        }
    }
}
