// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A slider and a field for a number. The field takes numbers outside the slider's range too, so
// that a property's own clamping can be seen.
PropertyRow {
    id: row

    property real from: 0
    property real to: 100
    property real stepSize: 1
    property int decimals: stepSize >= 1 ? 0 : stepSize >= 0.1 ? 1 : 2

    Controls.Slider {
        id: slider
        anchors { left: parent.left; right: field.left; rightMargin: 12 }
        anchors.verticalCenter: parent.verticalCenter
        padding: 0
        from: row.from
        to: row.to
        stepSize: row.stepSize
        onMoved: row.write(value)
        Accessible.role: Accessible.Slider
        Accessible.name: row.label
        background: Rectangle {
            x: 0
            y: (slider.height - height) / 2
            width: slider.width
            height: 4
            radius: 2
            color: Theme.line
            Rectangle {
                width: slider.handle.x + slider.handle.width / 2
                height: parent.height
                radius: 2
                color: row.enabled ? Theme.accentHover : Theme.off
            }
        }
        handle: Rectangle {
            x: slider.visualPosition * (slider.width - width)
            y: (slider.height - height) / 2
            width: 16
            height: 16
            radius: 8
            readonly property bool focused: slider.activeFocus || row.pose === "focus"
            color: slider.pressed || row.pose === "pressed" ? Theme.accentSoft : Theme.panel
            border.width: focused ? Theme.focusWidth : 1
            border.color: focused ? Theme.focus
                        : slider.pressed || slider.hovered || row.pose === "hover" || row.pose === "pressed"
                          ? Theme.accent : Theme.strongLine
        }
        // Not a plain binding, which the first drag of the handle would end.
        readonly property real shown: row.value === undefined ? row.from : row.value
        function restore() {
            if (!pressed)
                value = shown;
        }
        onShownChanged: restore()
        onPressedChanged: restore()
        Component.onCompleted: restore()
    }
    Field {
        id: field
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: 64
        name: row.label
        pose: row.pose
        horizontalAlignment: TextInput.AlignRight
        shown: row.value === undefined ? "" : Number(row.value).toFixed(row.decimals)
        validator: DoubleValidator { notation: DoubleValidator.StandardNotation; locale: "C" }
        onEditingFinished: {
            const number = Number(text);
            if (text.length > 0 && number !== row.value)
                row.write(number);
            restore();
        }
    }
}
