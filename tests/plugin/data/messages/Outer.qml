// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// The code is declared in its own file, and used here.
Item {
    width: 100
    height: 100
    Inner {}
}
