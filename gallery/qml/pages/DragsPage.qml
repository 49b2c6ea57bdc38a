// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Dragging documents"
    summary: "Documents of the open folder leave a list, one or several at once, with a card that follows the "
             + "cursor and goes away with an animation."

    DragZoneDemo {}
    DragAreaDemo {}
    DocumentDropHandlerDemo {}
}
