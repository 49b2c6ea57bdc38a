// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import "../kit"

Page {
    id: page
    title: "The kit"
    summary: "What the gallery itself is drawn with: every file of gallery/qml/kit/, in each state that it can be seen "
             + "in, on one scale of type and one grid of 4."

    readonly property var states: ["normal", "hover", "pressed", "focus", "disabled"]
    readonly property var typingStates: ["normal", "hover", "focus", "disabled"]

    // The names of all colours of the palette.
    readonly property var colors: {
        const found = [];
        for (const name in Theme) {
            if (/^#[0-9a-f]{6}$/.test(String(Theme[name])))
                found.push(name);
        }
        return found;
    }

    QtObject {
        id: subject
        property bool flag: true
        property real number: 40
        property string text: "some text"
        property color tone: "#40A1BB"
        property int choice: 2
        property point spot: Qt.point(3, 4)
    }
    QtObject {
        id: picture
        readonly property string name: "sunset.svg"
        readonly property var types: ["image"]
        readonly property url url: Qt.resolvedUrl("../samples/sunset.svg")
    }

    Section {
        title: "Buttons"
        Specimen {
            of: "Button"
            states: page.states
            cellWidth: 120
            part: Component { Item { property alias pose: button.pose; Button { id: button; text: "Push" } } }
        }
        Specimen {
            of: "Button, primary"
            states: page.states
            cellWidth: 120
            part: Component { Item { property alias pose: button.pose; Button { id: button; primary: true; text: "Save" } } }
        }
        Specimen {
            of: "Button, flat"
            states: page.states
            cellWidth: 120
            part: Component { Item { property alias pose: button.pose; Button { id: button; flat: true; text: "Reset" } } }
        }
        Specimen {
            of: "Button, flat and checked"
            states: ["normal", "pressed", "focus", "disabled"]
            cellWidth: 120
            part: Component {
                Item { property alias pose: button.pose; Button { id: button; flat: true; checkable: true; checked: true; text: "QML" } }
            }
        }
        Specimen {
            of: "Button, a sign"
            states: page.states
            cellWidth: 120
            part: Component { Item { property alias pose: button.pose; Button { id: button; flat: true; sign: "close"; text: "Clear" } } }
        }
    }
    Section {
        title: "Editors"
        Specimen {
            of: "BoolEditor"
            states: page.states
            cellWidth: 120
            part: Component { BoolEditor { label: "flag"; labelWidth: 48; target: subject; property: "flag" } }
        }
        Specimen {
            of: "NumberEditor"
            states: page.states
            cellWidth: 232
            part: Component { NumberEditor { label: "number"; labelWidth: 64; target: subject; property: "number" } }
        }
        Specimen {
            of: "ChoiceEditor"
            states: page.states
            cellWidth: 232
            part: Component {
                ChoiceEditor {
                    label: "choice"; labelWidth: 64; target: subject; property: "choice"
                    options: [{ text: "One", value: 1 }, { text: "Two", value: 2 }]
                }
            }
        }
        Specimen {
            of: "ColorEditor"
            states: page.typingStates
            cellWidth: 256
            part: Component { ColorEditor { label: "tone"; labelWidth: 48; target: subject; property: "tone" } }
        }
        Specimen {
            of: "TextEditor"
            states: page.typingStates
            cellWidth: 232
            part: Component { TextEditor { label: "text"; labelWidth: 48; target: subject; property: "text" } }
        }
        Specimen {
            of: "TextEditor, with a problem"
            cellWidth: 232
            cellHeight: 56
            part: Component { TextEditor { label: "text"; labelWidth: 48; target: subject; property: "text"; problem: "This is no url" } }
        }
        Specimen {
            of: "PointEditor"
            states: page.typingStates
            cellWidth: 232
            part: Component { PointEditor { label: "spot"; labelWidth: 48; target: subject; property: "spot" } }
        }
        Specimen {
            of: "ValueRow"
            states: ["normal", "disabled"]
            cellHeight: 28
            part: Component { ValueRow { label: "number"; labelWidth: 64; target: subject; property: "number" } }
        }
        Specimen {
            of: "PropertyRow"
            states: ["normal", "disabled"]
            part: Component { PropertyRow { label: "any"; labelWidth: 64; Label { anchors.verticalCenter: parent.verticalCenter; text: "editor" } } }
        }
        Specimen {
            of: "Field"
            states: page.typingStates
            part: Component { Field { name: "A field"; placeholderText: "Nothing typed yet" } }
        }
        Specimen {
            of: "Swatches"
            states: page.typingStates
            cellHeight: 24
            part: Component { Swatches { name: "Colours"; colors: ["#222222", "#40A1BB", "#90C695"]; at: 1; current: "#222222" } }
        }
    }
    Section {
        title: "What takes the keyboard"
        Specimen {
            of: "FocusRing"
            cellWidth: 120
            part: Component { Item { FocusRing { shown: true } } }
        }
        Specimen {
            of: "KeyStop"
            states: ["normal", "focus"]
            cellWidth: 120
            part: Component { KeyStop { name: "A stop of Tab"; Surface { anchors.fill: parent } } }
        }
        Specimen {
            of: "Movable"
            states: ["normal", "focus"]
            cellWidth: 120
            cellHeight: 64
            part: Component {
                Item {
                    property alias pose: movable.pose
                    Movable {
                        id: movable
                        width: 48
                        height: 48
                        name: "A square"
                        maximumX: 72
                        minimumX: 0
                        minimumY: 0
                        maximumY: 16
                        Surface { anchors.fill: parent; sunken: true }
                    }
                }
            }
        }
        Specimen {
            of: "ScrollBar"
            states: ["normal", "hover", "pressed"]
            cellWidth: 120
            cellHeight: 96
            part: Component {
                Surface {
                    property alias pose: bar.pose
                    sunken: true
                    ScrollBar { id: bar; anchors { right: parent.right; top: parent.top; bottom: parent.bottom } orientation: Qt.Vertical; size: 0.4 }
                }
            }
        }
        Specimen {
            of: "TextPane"
            states: ["normal", "focus"]
            cellWidth: 232
            cellHeight: 64
            part: Component {
                Surface {
                    property alias pose: pane.pose
                    sunken: true
                    TextPane { id: pane; anchors.fill: parent; name: "A text"; edit.text: "To read,\nand to copy from." }
                }
            }
        }
    }
    Section {
        title: "What is shown"
        Specimen { of: "Label"; states: ["normal"]; cellHeight: 20; part: Component { Label { text: "Text in one of the styles" } } }
        Specimen {
            of: "Chip"
            cellHeight: 20
            cellWidth: 480
            part: Component { Row { spacing: 8; Repeater { model: ["folder", "image", "video", "text", "file"]; Chip { text: modelData; tone: Theme.typeColor(modelData) } } } }
        }
        Specimen {
            of: "Sign"
            cellHeight: 16
            cellWidth: 480
            part: Component {
                Row {
                    spacing: 16
                    Repeater {
                        model: ["arrow-down", "arrow-left", "arrow-right", "backspace", "check", "chevron-down", "chevron-right", "chevron-up", "close", "pointer", "search"]
                        Sign { name: modelData; size: 16 }
                    }
                }
            }
        }
        Specimen {
            of: "Thumbnail"
            cellWidth: 96
            cellHeight: 64
            part: Component { Thumbnail { document: picture } }
        }
        Specimen {
            of: "DocumentTile"
            cellHeight: 44
            part: Component { DocumentTile { document: picture } }
        }
        Specimen {
            of: "DocumentTile, inside"
            cellHeight: 44
            part: Component { DocumentTile { document: picture; inside: true } }
        }
        Specimen {
            of: "Surface"
            cellHeight: 64
            part: Component { Surface { Surface { anchors { fill: parent; margins: 12 } sunken: true } } }
        }
        Specimen {
            of: "EventLog"
            cellWidth: 480
            cellHeight: 144
            part: Component { EventLog { Component.onCompleted: { note("clicked"); note("clicked"); note("opened"); } } }
        }
        Specimen {
            of: "StepList"
            cellWidth: 480
            cellHeight: 48
            part: Component { StepList { steps: [step, done] } }
        }
        Specimen {
            of: "Step"
            cellWidth: 480
            cellHeight: 24
            part: Component { StepList { steps: [step] } }
        }
        Step { id: step; text: "Something to try." }
        Step { id: done; text: "Something that was tried."; done: true }
    }
    Section {
        title: "Cards and pages"
        Specimen {
            of: "Section"
            cellWidth: 480
            cellHeight: 0
            part: Component { Section { title: "A section"; hint: "A line on what it is about."; Label { text: "What is in it" } } }
        }
        Specimen {
            of: "Demo"
            cellWidth: page.width
            cellHeight: 0
            part: Component {
                Demo {
                    title: "Demo"
                    pictureName: ""
                    hint: "A stage, editors beside or below it, the last signals, and on request the QML."
                    stageHeight: 120
                    Label { anchors.centerIn: parent; text: "The stage" }
                    editors: [ BoolEditor { label: "flag"; target: subject; property: "flag" } ]
                }
            }
        }
        Specimen {
            of: "CodePanel"
            cellWidth: page.width
            cellHeight: 0
            part: Component { CodePanel { type: "HoverArea"; code: "import QtQuick 2.12\n\nItem {\n    width: 100\n}" } }
        }
        Specimen {
            of: "Page"
            cellWidth: 480
            cellHeight: 160
            part: Component { Page { title: "A page"; summary: "A heading, a line or two on what it is about." } }
        }
    }
    Section {
        title: "The scale of type, the grid and the colours"
        Specimen {
            of: "Theme"
            cellWidth: page.width
            cellHeight: 0
            part: Component {
                Column {
                    spacing: 8
                    Repeater {
                        model: ["tiny", "small", "medium", "normal", "large", "huge", "display"]
                        Label { text: modelData + ", " + Theme[modelData] + " pixels"; font.pixelSize: Theme[modelData] }
                    }
                    Repeater {
                        model: ["gap", "wideGap", "controlHeight", "rowHeight"]
                        Row {
                            spacing: 8
                            Rectangle { width: Theme[modelData]; height: 16; anchors.verticalCenter: parent.verticalCenter; color: Theme.accent }
                            Label { text: modelData + ", " + Theme[modelData] + " pixels" }
                        }
                    }
                }
            }
        }
        Specimen {
            of: "Palette"
            cellWidth: page.width
            cellHeight: 0
            part: Component {
                Flow {
                    spacing: 12
                    Repeater {
                        model: page.colors
                        Column {
                            width: 112
                            spacing: 4
                            Rectangle { width: parent.width; height: 32; radius: Theme.radius; color: Theme[modelData]; border.color: Theme.strongLine }
                            Label { text: modelData; font.pixelSize: Theme.small }
                        }
                    }
                }
            }
        }
    }
}
