// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// The sign of the keyboard's focus, around the item that it is declared in: `FocusRing { shown: … }`.
Rectangle {
    property bool shown: parent.activeFocus

    anchors.fill: parent
    z: 1
    visible: shown
    color: "transparent"
    radius: Theme.radius
    border.width: Theme.focusWidth
    border.color: Theme.focus
}
