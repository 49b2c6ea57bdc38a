// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"

Demo {
    id: demo

    title: "ColorMapper"
    hint: "The signals below are those of each update, in their order."
    steps: [
        Step {
            text: "Set the saturation to 0, then the hue: a grey keeps it."
            when: mapper.saturation === 0 && log.last.startsWith("updateHue")
        },
        Step {
            text: "Then change the red: the hue of a grey made of red, green and blue is 0."
            when: log.last.startsWith("updateRed")
        }
    ]
    codeValues: ({ "Component.onCompleted": { code: 'updateHex("' + mapper.hex + '")' } })
    stageHeight: 300

    function run(method, argument) {
        demo.order = [];
        mapper[method](argument);
        log.note(method + ": " + (demo.order.length > 0 ? demo.order.join(", ") : "nothing"));
    }
    property var order: []

    ColorMapper {
        id: mapper
        onHueChanged: demo.order.push("hue")
        onSaturationChanged: demo.order.push("saturation")
        onValueChanged: demo.order.push("value")
        onRedChanged: demo.order.push("red")
        onGreenChanged: demo.order.push("green")
        onBlueChanged: demo.order.push("blue")
        onAlphaChanged: demo.order.push("alpha")
        onHexChanged: demo.order.push("hex")
        onColorChanged: demo.order.push("color")
        Component.onCompleted: updateHex("90C695")
    }
    CheckerBox {
        anchors.centerIn: parent
        width: 220
        height: 160
        lightColor: Theme.panel
        darkColor: Theme.line
        Rectangle { anchors.fill: parent; color: mapper.color; border.color: Theme.strongLine }
    }
    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        text: "#" + mapper.hex
        font.family: Theme.monoFamily
    }

    editors: [
        NumberEditor { label: "hue"; value: mapper.hue; to: 359; onEdited: demo.run("updateHue", newValue) },
        NumberEditor { label: "saturation"; value: mapper.saturation; to: 255; onEdited: demo.run("updateSaturation", newValue) },
        NumberEditor { label: "value"; value: mapper.value; to: 255; onEdited: demo.run("updateValue", newValue) },
        NumberEditor { label: "red"; value: mapper.red; to: 255; onEdited: demo.run("updateRed", newValue) },
        NumberEditor { label: "green"; value: mapper.green; to: 255; onEdited: demo.run("updateGreen", newValue) },
        NumberEditor { label: "blue"; value: mapper.blue; to: 255; onEdited: demo.run("updateBlue", newValue) },
        NumberEditor { label: "alpha"; value: mapper.alpha; to: 255; onEdited: demo.run("updateAlpha", newValue) },
        TextEditor { label: "hex"; value: mapper.hex; onEdited: demo.run("updateHex", newValue) }
    ]
}
