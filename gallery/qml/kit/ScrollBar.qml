// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A scroll bar that is seen whenever there is more than fits, with a thumb that can be held however
// much there is: `Controls.ScrollBar.vertical: ScrollBar {}`.
Controls.ScrollBar {
    id: bar

    // For the kit's own page: "hover" or "pressed" has it look so without being it.
    property string pose

    policy: size < 1 ? Controls.ScrollBar.AlwaysOn : Controls.ScrollBar.AlwaysOff
    padding: 4
    minimumSize: Math.min(1, 36 / Math.max(1, availableHeight))
    contentItem: Rectangle {
        implicitWidth: 8
        implicitHeight: 32
        radius: 4
        color: bar.pressed || bar.pose === "pressed" ? Theme.softText : bar.hovered || bar.pose === "hover" ? Theme.faintText : Theme.scrollThumb
    }
}
