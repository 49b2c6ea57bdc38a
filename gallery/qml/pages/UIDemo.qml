// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
import "../kit"

Demo {
    id: demo

    title: "UI"
    steps: [
        Step { text: "Point at a colour for its number."; when: demo.pointed >= 0 },
        Step { text: "Change the alpha to see the colours over a checkerboard."; when: alphaEditor.value !== 1 },
        Step {
            text: "Find MenuEditorBackground: it is the warning yellow."
            when: demo.names[demo.pointed] === "MenuEditorBackground"
        }
    ]
    logs: false
    stageHeight: grid.height + 32
    grows: false

    // Enumeration values of a singleton are not listed by for…in: the names stand here.
    readonly property var names: [
        "PrimaryBase", "SecondaryBase", "PrimaryHover", "SecondaryHover", "PrimaryPress", "SecondaryPress",
        "NoFocusSelection", "PrimaryControlBorder", "SecondaryControlBorder", "ControlBorderHover",
        "ControlBorderPress", "DisabledBorder", "PrimaryFocusBorder", "SecondaryFocusBorder",
        "PrimarySeparationLine", "SecondarySeparationLine", "TertiarySeparationLine", "FocusSeparationLine",
        "PrimaryTextColor", "SecondaryTextColor", "TertiaryTextColor", "DisabledText", "SelectedTextColor",
        "TextSelection", "WarningBackground", "DialogHeader", "DialogHeaderText", "DisabledButton",
        "TabButtonBorder", "TabActive", "DisabledTabText", "LinkBaseColor", "LinkPressColor", "LinkLineColor",
        "ScrollViewBorder", "ScrollView", "SearchBarDisabledText", "NavigationBarBottom",
        "NavigationBarSeparators", "PasswordAcceptable", "PasswordInsecure", "PasswordAlertArea", "GroupHover",
        "GroupActive", "ThumbOverlayAndBorder", "LanguagesOverlay", "CheckBoxRadioButtonBorderPress",
        "CheckBoxRadioButtonBorderHover", "CalendarIcon", "CalendarNavIcon", "DropdownIndicatorIcon",
        "MoreOptionsIcon", "ProgressBarBackground", "ImageBoxBackground", "VideoBoxBackground",
        "ThumbPreviewBackground", "AreaEditorBackground", "MenuEditorBackground", "NotificationBarBackground",
        "NotificationText", "LoadIndicator", "VideoProgressBarBackground", "VideoProgressBarForeground",
        "ToggleOff", "ToggleOnDateRestricted", "ToggleOn"
    ]
    property int pointed: -1

    FocusRing {
        anchors.fill: grid
        anchors.margins: -8
        shown: grid.activeFocus
    }
    Flow {
        id: grid
        function step(distance) { demo.pointed = Math.max(0, Math.min(demo.names.length - 1, demo.pointed + distance)); }
        activeFocusOnTab: true
        onActiveFocusChanged: if (activeFocus && demo.pointed < 0) demo.pointed = 0
        Keys.onLeftPressed: step(-1)
        Keys.onRightPressed: step(1)
        Keys.onUpPressed: step(-columns)
        Keys.onDownPressed: step(columns)
        Accessible.role: Accessible.List
        Accessible.name: "Colours by purpose"
        Accessible.focusable: true
        readonly property int columns: Math.max(2, Math.floor((width + 8) / 150))
        x: 16
        y: 16
        width: parent.width - 32
        spacing: 8
        Repeater {
            model: demo.names
            Item {
                width: (grid.width - (grid.columns - 1) * 8) / grid.columns
                height: 52
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData
                Accessible.selectable: true
                Accessible.selected: demo.pointed === index
                CheckerBox {
                    width: parent.width
                    height: 32
                    lightColor: Theme.panel
                    darkColor: Theme.line
                    Rectangle {
                        anchors.fill: parent
                        color: UI.color(UI[modelData], alphaEditor.value)
                        border.color: shown ? Theme.focus : Theme.strongLine
                        border.width: shown ? Theme.focusWidth : 1
                        readonly property bool shown: demo.pointed === index && (mouse.containsMouse || grid.activeFocus)
                    }
                }
                Label {
                    y: 34
                    width: parent.width
                    text: modelData
                    font.pixelSize: Theme.tiny
                    color: Theme.softText
                    elide: Text.ElideMiddle
                    Accessible.ignored: true
                }
                MouseArea {
                    id: mouse
                    anchors.fill: parent
                    hoverEnabled: true
                    onEntered: demo.pointed = index
                }
            }
        }
    }

    editors: [
        NumberEditor { id: alphaEditor; label: "alpha"; value: 1; from: 0; to: 1; stepSize: 0.05; onEdited: value = newValue },
        ValueRow { label: "pointed at"; value: demo.pointed < 0 ? undefined : demo.names[demo.pointed] },
        ValueRow { label: "number"; value: demo.pointed < 0 ? undefined : UI[demo.names[demo.pointed]] },
        ValueRow {
            label: "color(…)"
            value: demo.pointed < 0 ? undefined : String(UI.color(demo.pointed, alphaEditor.value)).toUpperCase()
        },
        ValueRow { label: "fontFamily"; value: UI.fontFamily(UI.PrimaryFont) },
        ValueRow { label: "fontWeight"; value: UI.fontWeight(UI.PrimaryFont) + " and " + UI.fontWeight(UI.SecondaryFont) },
        TextEditor { id: countryEditor; label: "country"; value: "DE"; onEdited: value = newValue },
        TextEditor { id: familyEditor; label: "in the font"; value: UI.fontFamily(UI.PrimaryFont); onEdited: value = newValue },
        ValueRow { label: "currencyString"; value: UI.currencyString(countryEditor.value, familyEditor.value) }
    ]
}
