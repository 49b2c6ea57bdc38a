// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A visual that tells of its life.
Item {
    property int evaluated: { notes.note("evaluated"); return 1; }
    Component.onCompleted: notes.note("completed")
}
