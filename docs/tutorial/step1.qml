// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Rectangle {
    id: page

    width: 420
    height: 300
    color: UI.color(UI.AreaEditorBackground)

    Text {
        anchors.centerIn: parent
        text: "My documents"
        color: UI.color(UI.PrimaryTextColor)
        font.family: Control.fontFamilyForWeight(Font.Light)
        font.pixelSize: 24
    }
}
