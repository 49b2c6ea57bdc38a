// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Rectangle {
    width: 240
    height: 80
    color: UI.color(UI.PrimaryBase)
    border.color: UI.color(UI.PrimaryControlBorder, 0.5)

    Text {
        anchors.centerIn: parent
        color: UI.color(UI.SecondaryFocusBorder)
        font.family: UI.fontFamily(UI.PrimaryFont)
        font.weight: UI.fontWeight(UI.PrimaryFont)
        text: "25 " + UI.currencyString("DE", font.family)
    }
}
