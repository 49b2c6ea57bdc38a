// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A property that is only shown: what the object answers.
PropertyRow {
    id: row

    readonly property string shownText: {
        if (value === undefined)
            return "–";
        if (value === null)
            return "null";
        if (typeof value === "string")
            return value.length > 0 ? value : "“”";
        if (typeof value === "number")
            return String(Math.round(value * 1000) / 1000);
        return String(value);
    }

    writes: false
    implicitHeight: 28
    Label {
        anchors.fill: parent
        verticalAlignment: Text.AlignVCenter
        text: row.shownText
        font.pixelSize: Theme.medium
        color: row.value === true ? Theme.positiveText : Theme.text
        elide: Text.ElideMiddle
    }
}
