// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

DialogItem {
    id: root

    property var values: [DialogItem.TypeNormal, DialogItem.TypeWarning, DialogItem.TypeError, DialogItem.TypeOk]

    type: (DialogItem.TypeWarning | DialogItem.TypeError)
}
