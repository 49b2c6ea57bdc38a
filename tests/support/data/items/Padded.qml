// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A type whose name begins like the other one's.
Item {
    property bool padded: true
}
