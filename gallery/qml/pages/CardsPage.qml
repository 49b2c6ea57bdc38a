// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Dragging items"
    summary: "Items that are dragged themselves, told apart by a text, and at home under any parent."

    DraggableDemo {}
    DraggableDropHandlerDemo {}
}
