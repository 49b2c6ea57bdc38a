// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Colour picker"
    summary: "A square, a strip and a checkerboard drawn by shaders and vertex colours, and a mapper that keeps "
             + "every view of the colour in step. Put together in QML, they are a colour picker."

    Section {
        title: "Put together"
        pictureName: "ColorPicker"
        hint: "Drag in the square and the strips, type into any field, or take a colour of the palette. With a "
              + "click in the square or the hue strip, the arrow keys move by single steps."
        ColorPicker { id: picker; width: parent.width }
    }
    SaturationValueBoxDemo {}
    HueBoxDemo {}
    CheckerBoxDemo {}
    ColorMapperDemo {}
}
