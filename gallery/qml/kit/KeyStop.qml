// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A stop of Tab around an item, with a name and a ring of focus. Declare the item inside with
// `focus: true`, and its keys on it.
FocusScope {
    id: stop

    property string name
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose

    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: name
    Accessible.focusable: true
    Accessible.focused: activeFocus
    // From the item inside, the stop before is the scope itself.
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    FocusRing {
        anchors.margins: -4
        shown: stop.activeFocus || stop.pose === "focus"
    }
}
