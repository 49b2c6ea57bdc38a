// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// A whole number of the colour picker, with its name above it.
Item {
    id: part

    property string name
    property int value
    property int last: 255

    signal chosen(int number)

    width: 74
    height: 48

    Label {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: part.name
        color: Theme.softText
        font.pixelSize: Theme.small
    }
    Field {
        name: part.name
        y: 18
        width: parent.width
        horizontalAlignment: TextInput.AlignHCenter
        inputMethodHints: Qt.ImhDigitsOnly
        shown: part.value
        valid: acceptableInput || !activeFocus
        validator: IntValidator { bottom: 0; top: part.last }
        onTextEdited: if (acceptableInput) part.chosen(Number(text))
        onEditingFinished: restore()
        Keys.onUpPressed: { part.chosen(part.value + 1); restore(); }
        Keys.onDownPressed: { part.chosen(part.value - 1); restore(); }
    }
}
