// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Borders and frames"
    summary: "An outline whose dashes belong to the window, and a ring that no ancestor clips and no sibling covers."

    FrameDemo {}
    DashedBorderDemo {}
}
