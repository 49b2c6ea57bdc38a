// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12

// A window that destroys itself at the moment it is told.
Window {
    id: window
    width: 100
    height: 100

    property alias moment: doomed.moment

    Doomed {
        id: doomed
        onDoom: window.destroy()
    }
}
