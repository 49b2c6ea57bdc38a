// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Something to try in a demo. It is done once `when` has been true, or when `done` is set.
QtObject {
    property string text
    property bool when: false
    property bool done: false

    onWhenChanged: if (when) done = true
}
