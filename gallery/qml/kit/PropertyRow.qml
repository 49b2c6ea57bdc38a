// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A row of the editor column: a name at the left, an editor at the right. The base of all editors.
//
// With `target` and `property` the editor shows and writes that property of that object. Without,
// bind `value` and write what `edited(newValue)` brings.
Item {
    id: row

    property string label: property
    property QtObject target: null
    property string property
    property var value: target && property.length > 0 ? target[property] : undefined
    property int labelWidth: 124
    default property alias editor: slot.data

    signal edited(var newValue)

    function write(newValue) {
        if (target && property.length > 0)
            target[property] = newValue;
        edited(newValue);
    }

    width: parent ? parent.width : 0
    implicitHeight: 36
    height: implicitHeight

    Label {
        width: row.labelWidth - 8
        height: Math.min(36, row.height)
        verticalAlignment: Text.AlignVCenter
        text: row.label
        color: row.enabled ? Theme.softText : Theme.disabledText
        font.pixelSize: 13
    }
    Item {
        id: slot
        x: row.labelWidth
        width: row.width - x
        height: row.height
    }
}
