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
    // Whether it writes at all; a row that only shows does not.
    property bool writes: true
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose
    default property alias editor: slot.data

    signal edited(var newValue)

    function write(newValue) {
        if (target && property.length > 0)
            target[property] = newValue;
        edited(newValue);
    }

    // What the property was when the page came up: Demo's "Reset" writes it again.
    property var initial
    property bool remembers: false
    function remember() {
        initial = copyOf(value);
        remembers = true;
    }
    function reset() {
        if (writes && remembers && JSON.stringify(copyOf(value)) !== JSON.stringify(initial))
            write(initial);
    }
    // Points and colours stand for a property as long as it is read: their texts and parts do not.
    function copyOf(value) {
        if (value === undefined || value === null || typeof value !== "object")
            return value;
        if (value.x !== undefined && value.y !== undefined)
            return Qt.point(value.x, value.y);
        return value.length !== undefined ? Array.from(value) : String(value);
    }

    width: parent ? parent.width : 0
    implicitHeight: Theme.rowHeight
    height: implicitHeight

    Label {
        Accessible.ignored: row.writes
        width: row.labelWidth - 8
        height: Math.min(Theme.rowHeight, row.height)
        verticalAlignment: Text.AlignVCenter
        text: row.label
        color: row.enabled ? Theme.softText : Theme.disabledText
        font.pixelSize: Theme.medium
    }
    Item {
        id: slot
        x: row.labelWidth
        width: row.width - x
        height: row.height
    }
}
