// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A panel with a hairline around it; `sunken` for areas inside another one.
Rectangle {
    property bool sunken: false

    radius: Theme.radius
    color: sunken ? Theme.sunken : Theme.panel
    border.color: Theme.line
}
