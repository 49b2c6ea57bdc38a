// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Input helpers"
    summary: "Editing in place, keys without a keyboard, hovering that takes no clicks, and how quickly "
             + "the window draws."
    PropertyEditorDemo {}
    KeyEventSourceDemo {}
    HoverAreaDemo {}
    FpsCounterDemo {}
}
