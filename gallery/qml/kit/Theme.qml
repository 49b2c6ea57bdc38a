// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

pragma Singleton

import QtQuick 2.12

// Colours (see Palette), sizes and fonts of the gallery. Nothing else in it names a colour.
Palette {
    // One grid: every distance is a multiple of 4; what is at most 2 is no distance but a line.
    readonly property int gap: 8
    readonly property int wideGap: 24
    readonly property int radius: 6
    readonly property int focusWidth: 2
    readonly property int controlHeight: 28
    readonly property int rowHeight: 36

    readonly property string family: "Om_Lato"
    readonly property string monoFamily: "monospace"
    // One scale of type: every text has one of these sizes.
    readonly property int tiny: 11
    readonly property int small: 12
    readonly property int medium: 13
    readonly property int normal: 14
    readonly property int large: 18
    readonly property int huge: 30
    readonly property int display: 48

    // Pixels of the screen to one of the window: drawings are read at the size they are seen at, and
    // the system's own rendering of a font fits whole numbers only.
    property real pixelRatio: 1
    readonly property int textRendering: pixelRatio % 1 === 0 ? Text.NativeRendering : Text.QtRendering

    // A name may have line breaks, which would have it drawn over what stands below.
    function oneLine(name) { return name.replace(/[\r\n\u2028\u2029]+/g, " "); }

    function luminance(colour) {
        // A name or a number of a colour has no parts.
        const color = Qt.lighter(colour, 1);
        const part = value => value <= 0.03928 ? value / 12.92 : Math.pow((value + 0.055) / 1.055, 2.4);
        return 0.2126 * part(color.r) + 0.7152 * part(color.g) + 0.0722 * part(color.b);
    }
    // From 1, equal, to 21, black and white: how well one is told from the other.
    function contrast(color, other) {
        const values = [luminance(color), luminance(other)].sort((a, b) => b - a);
        return (values[0] + 0.05) / (values[1] + 0.05);
    }
}
