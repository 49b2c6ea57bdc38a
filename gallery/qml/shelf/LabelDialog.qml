// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"
import "../pages"

// Chooses the colour of a label.
ShelfDialog {
    id: dialog

    property var documents: []

    function choose(newDocuments, focusItem) {
        documents = newDocuments;
        const label = documents.length > 0 ? documents[0].label : Theme.accent;
        mapper.updateColor(label.a > 0 ? label : Theme.accent);
        ask(focusItem);
    }

    width: 420
    contentHeight: 190
    title: documents.length === 1 ? "Label for “" + Theme.oneLine(documents[0].name) + "”"
                                  : "Label for " + documents.length + " items"
    tone: mapper.color
    main: "Set label"
    other: "No label"
    onAccepted: shelf.setLabel(documents, mapper.color)
    onOtherChosen: {
        shelf.setLabel(documents, "transparent");
        reject();
    }

    ColorMapper {
        id: mapper
        onHueChanged: { square.hue = hue; strip.hue = hue; }
        onSaturationChanged: square.saturation = saturation
        onValueChanged: square.value = value
    }
    SaturationValueBox {
        id: square
        width: parent.width - 150
        height: 136
        activeFocusOnTab: true
        onSaturationChanged: mapper.updateSaturation(saturation)
        onValueChanged: mapper.updateValue(value)
        Keys.onLeftPressed: mapper.updateValue(value - 5)
        Keys.onRightPressed: mapper.updateValue(value + 5)
        Keys.onUpPressed: mapper.updateSaturation(saturation + 5)
        Keys.onDownPressed: mapper.updateSaturation(saturation - 5)
        Accessible.role: Accessible.Slider
        Accessible.name: "Saturation and value"
        Accessible.focusable: true
        crossHairDelegate: Item {
            Rectangle {
                x: -8
                y: -8
                width: 16
                height: 16
                radius: 8
                color: mapper.color
                border.width: 2
                border.color: Theme.panel
            }
        }
        Rectangle {
            anchors { fill: parent; margins: square.activeFocus ? -3 : 0 }
            color: "transparent"
            border.width: square.activeFocus ? 2 : 1
            border.color: square.activeFocus ? Theme.focus : Theme.strongLine
        }
    }
    HueBox {
        id: strip
        y: square.height + 22
        width: square.width
        height: 16
        activeFocusOnTab: true
        onHueChanged: mapper.updateHue(hue)
        Keys.onLeftPressed: mapper.updateHue(hue - 5)
        Keys.onRightPressed: mapper.updateHue(hue + 5)
        Accessible.role: Accessible.Slider
        Accessible.name: "Hue"
        Accessible.focusable: true
        sliderDelegate: StripHandle { color: Qt.hsva(strip.hue / 359, 1, 1, 1) }
        Rectangle {
            anchors { fill: parent; margins: strip.activeFocus ? -3 : 0 }
            color: "transparent"
            border.width: strip.activeFocus ? 2 : 1
            border.color: strip.activeFocus ? Theme.focus : Theme.strongLine
        }
    }
    Column {
        x: square.width + 22
        width: parent.width - x
        spacing: 12
        Rectangle {
            width: parent.width
            height: 40
            radius: 4
            color: mapper.color
            border.color: Theme.strongLine
        }
        Field {
            width: parent.width
            font.family: Theme.monoFamily
            horizontalAlignment: TextInput.AlignHCenter
            shown: mapper.hex
            validator: RegExpValidator { regExp: /[0-9A-Fa-f]{6}/ }
            valid: acceptableInput || !activeFocus
            onTextEdited: if (acceptableInput) mapper.updateHex(text)
            onEditingFinished: restore()
            Accessible.name: "Hex"
        }
        Grid {
            columns: 4
            spacing: 8
            Repeater {
                model: [UI.SecondaryBase, UI.PrimaryPress, UI.WarningBackground, UI.PasswordInsecure, UI.SecondaryPress,
                        UI.TabActive, UI.PrimaryFocusBorder, UI.MoreOptionsIcon]
                ShelfSwatch {
                    color: UI.color(modelData)
                    name: String(color).toUpperCase()
                    onChosen: mapper.updateHex(String(color).substr(1))
                }
            }
        }
    }
}
