// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"

// A colour picker: the mapper holds the colour, everything else shows it and writes to it.
Item {
    id: picker

    readonly property color color: mapper.color
    property color previous: "#40A1BB"
    readonly property int stripHeight: 18

    // What stands at the right of the square stands below it where there is no room.
    readonly property bool stacked: width < 640

    implicitWidth: 760
    implicitHeight: stacked ? fields.y + fields.height : Math.max(fields.height, alphaStrip.y + stripHeight)

    ColorMapper {
        id: mapper
        onHueChanged: { square.hue = hue; strip.hue = hue; }
        onSaturationChanged: square.saturation = saturation
        onValueChanged: square.value = value
        Component.onCompleted: updateColor(picker.previous)
    }

    KeyStop {
        id: squareStop
        name: "Saturation and value: " + mapper.saturation + ", " + mapper.value
        width: picker.stacked ? picker.width : Math.min(440, picker.width - 300)
        height: 260
        SaturationValueBox {
            id: square
            focus: true
            anchors.fill: parent
            onSaturationChanged: mapper.updateSaturation(saturation)
            onValueChanged: mapper.updateValue(value)
            Keys.onLeftPressed: mapper.updateValue(value - 1)
            Keys.onRightPressed: mapper.updateValue(value + 1)
            Keys.onUpPressed: mapper.updateSaturation(saturation + 1)
            Keys.onDownPressed: mapper.updateSaturation(saturation - 1)
            crossHairDelegate: Item {
                Rectangle {
                    x: -9
                    y: -9
                    width: 18
                    height: 18
                    radius: 9
                    color: "transparent"
                    border.color: Theme.ink
                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: 1
                        radius: 8
                        color: Qt.hsva(square.hue / 359, square.saturation / 255, square.value / 255, 1)
                        border.width: 2
                        border.color: Theme.paper
                    }
                }
            }
            Rectangle {
                anchors.fill: parent
                color: "transparent"
                border.color: Theme.strongLine
            }
        }
    }

    KeyStop {
        id: stripStop
        name: "Hue: " + mapper.hue
        y: squareStop.height + 20
        width: squareStop.width
        height: picker.stripHeight
        HueBox {
            id: strip
            focus: true
            anchors.fill: parent
            onHueChanged: mapper.updateHue(hue)
            Keys.onLeftPressed: mapper.updateHue(hue - 1)
            Keys.onRightPressed: mapper.updateHue(hue + 1)
            sliderDelegate: StripHandle { color: Qt.hsva(strip.hue / 359, 1, 1, 1) }
            Rectangle {
                anchors.fill: parent
                color: "transparent"
                border.color: Theme.strongLine
            }
        }
    }

    CheckerBox {
        id: alphaStrip
        y: stripStop.y + stripStop.height + 20
        width: squareStop.width
        height: picker.stripHeight
        checkerSize: 6
        lightColor: Theme.panel
        darkColor: Theme.strongLine
        Rectangle {
            id: alphaStop
            anchors.fill: parent
            border.color: Theme.strongLine
            activeFocusOnTab: true
            Keys.onLeftPressed: mapper.updateAlpha(mapper.alpha - 1)
            Keys.onRightPressed: mapper.updateAlpha(mapper.alpha + 1)
            Accessible.role: Accessible.Slider
            Accessible.name: "Alpha: " + mapper.alpha
            Accessible.focusable: true
            FocusRing { anchors.margins: -4 }
            gradient: Gradient {
                orientation: Gradient.Horizontal
                GradientStop { position: 0; color: Qt.rgba(picker.color.r, picker.color.g, picker.color.b, 0) }
                GradientStop { position: 1; color: Qt.rgba(picker.color.r, picker.color.g, picker.color.b, 1) }
            }
        }
        MouseArea {
            anchors.fill: parent
            preventStealing: true
            function take(x) { mapper.updateAlpha(Math.round(x / width * 255)); }
            onPressed: { alphaStop.forceActiveFocus(); take(mouse.x); }
            onPositionChanged: take(mouse.x)
        }
        StripHandle {
            x: alphaStrip.width * mapper.alpha / 255
            y: alphaStrip.height / 2
            color: Qt.rgba(picker.color.r, picker.color.g, picker.color.b, 1)
        }
    }

    Column {
        id: fields
        x: picker.stacked ? 0 : squareStop.width + 36
        y: picker.stacked ? alphaStrip.y + alphaStrip.height + 24 : 0
        width: picker.width - x
        spacing: 12

        // The new colour beside the previous one.
        CheckerBox {
            width: 246
            height: 72
            checkerSize: 9
            lightColor: Theme.panel
            darkColor: Theme.line
            Rectangle { width: parent.width / 2; height: parent.height; color: mapper.color }
            Rectangle {
                x: parent.width / 2
                width: parent.width / 2
                height: parent.height
                color: picker.previous
                activeFocusOnTab: true
                Keys.onSpacePressed: mapper.updateColor(picker.previous)
                Accessible.role: Accessible.Button
                Accessible.name: "Back to the previous colour"
                Accessible.focusable: true
                Accessible.onPressAction: mapper.updateColor(picker.previous)
                FocusRing {}
                MouseArea {
                    anchors.fill: parent
                    cursorShape: Qt.PointingHandCursor
                    onClicked: mapper.updateColor(picker.previous)
                }
            }
            Rectangle { anchors.fill: parent; color: "transparent"; border.color: Theme.strongLine }
        }

        Row {
            spacing: 12
            ColorPart { name: "Hue"; value: mapper.hue; last: 359; onChosen: mapper.updateHue(number) }
            ColorPart { name: "Saturation"; value: mapper.saturation; onChosen: mapper.updateSaturation(number) }
            ColorPart { name: "Value"; value: mapper.value; onChosen: mapper.updateValue(number) }
        }
        Row {
            spacing: 12
            ColorPart { name: "Red"; value: mapper.red; onChosen: mapper.updateRed(number) }
            ColorPart { name: "Green"; value: mapper.green; onChosen: mapper.updateGreen(number) }
            ColorPart { name: "Blue"; value: mapper.blue; onChosen: mapper.updateBlue(number) }
        }
        Row {
            spacing: 12
            ColorPart { name: "Alpha"; value: mapper.alpha; onChosen: mapper.updateAlpha(number) }
            Item {
                width: 160
                height: 48
                Label {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: "Hex"
                    color: Theme.softText
                    font.pixelSize: Theme.small
                }
                Field {
                    name: "Hex"
                    y: 18
                    width: parent.width
                    horizontalAlignment: TextInput.AlignHCenter
                    font.family: Theme.monoFamily
                    valid: acceptableInput || !activeFocus
                    shown: mapper.hex
                    validator: RegExpValidator { regExp: /([0-9A-Fa-f]{3}){1,2}/ }
                    onTextEdited: if (text.length === 6) mapper.updateHex(text)
                    // With Return, or when the field is left; three digits wait for it.
                    onEditingFinished: {
                        if (acceptableInput && text.toUpperCase() !== mapper.hex) mapper.updateHex(text);
                        restore();
                    }
                }
            }
        }

        Column {
            spacing: 8
            Label { text: "From the palette"; color: Theme.softText; font.pixelSize: Theme.small }
            Swatches {
                name: "From the palette"
                size: 24
                spacing: 8
                colors: [UI.SecondaryBase, UI.PrimaryPress, UI.WarningBackground, UI.SecondaryPress,
                         UI.TabActive, UI.PasswordInsecure, UI.PrimaryFocusBorder, UI.MoreOptionsIcon]
                            .map(name => UI.color(name))
                current: mapper.color
                // Keeps the alpha, as updateColor() would not.
                onPicked: mapper.updateHex(String(color).substr(1))
            }
        }
        Row {
            spacing: 8
            Button { text: "Take"; primary: true; onClicked: picker.previous = mapper.color }
            Button { text: "Back"; onClicked: mapper.updateColor(picker.previous) }
        }
    }
}
