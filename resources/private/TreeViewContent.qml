// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.2

Item {
    width: parent ? parent.width : 0
    height: childrenRect.height
}
