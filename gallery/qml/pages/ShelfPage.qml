// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../shelf"

// A small application made of the library: a folder to be put in order. It fills its place.
ShelfView {
    // What it needs at least: it takes what there is.
    readonly property real contentHeight: 480
}
