// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Popups and menus"
    summary: "What opens above everything else of the window: attached to an item that it follows with every "
             + "frame, or anchored to a place that tells how much room there is on each side."

    PopupDemo {}
    PopupAnchorItemDemo {}
}
