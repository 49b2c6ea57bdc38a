// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    id: page
    title: "Drop zones"
    summary: "A zone asks its handlers, in their order, whether they take what is dragged over it. The first "
             + "that does gets the drag: from its entry to its drop, or until it leaves."

    FileShelf { page: page }
    DropZoneDemo {}
    FileDropHandlerDemo {}
    ImageDropHandlerDemo {}
    VideoDropHandlerDemo {}
}
