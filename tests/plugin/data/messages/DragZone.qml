// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

DragZone {
    width: 100
    height: 100
    dragDocuments: Document {}
    MouseArea { anchors.fill: parent }
}
