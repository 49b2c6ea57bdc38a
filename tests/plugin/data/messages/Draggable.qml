// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 100
    height: 100
    Draggable {
        objectName: "subject"
        width: 50
        height: 50
    }
}
