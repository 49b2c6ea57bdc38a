// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12

// A window that destroys itself in the signal handler that "moment" names.
Window {
    id: window
    width: 100
    height: 100

    property alias moment: zone.moment

    MomentSignal {
        id: zone
        onReached: window.destroy()
    }
}
