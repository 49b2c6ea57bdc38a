// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

pragma Singleton

import QtQuick 2.12

// Colours, sizes and fonts of the gallery. Nothing else in it names a colour.
QtObject {
    readonly property color window: "#F8F7F5"
    readonly property color panel: "#FFFFFF"
    readonly property color sunken: "#FBFAF9"
    readonly property color line: "#EAE8E2"
    readonly property color strongLine: "#D8D7D1"

    readonly property color scrollThumb: "#8B8A83"

    readonly property color text: "#222222"
    readonly property color softText: "#555555"
    readonly property color faintText: "#696963"
    readonly property color disabledText: "#BBBBBB"

    readonly property color accent: "#2F7D93"
    readonly property color accentHover: "#286E82"
    readonly property color accentPress: "#205A6B"
    readonly property color accentSoft: "#E7F1F4"
    readonly property color accentText: "#2C6F81"
    readonly property color accentContrast: "#FFFFFF"
    readonly property color positive: "#4F9257"
    readonly property color positiveSoft: "#E9F4EA"
    readonly property color positiveText: "#3B7442"
    readonly property color warning: "#ECD284"
    readonly property color warningSoft: "#FBF6E4"
    readonly property color error: "#C8643C"
    readonly property color errorSoft: "#F4E6DF"
    readonly property color errorText: "#9A4A2C"
    readonly property color off: "#86857E"
    readonly property color focus: "#2A8098"

    readonly property int radius: 6
    readonly property int gap: 8
    readonly property int wideGap: 24

    readonly property string family: "Om_Lato"
    readonly property string monoFamily: "monospace"
    readonly property int small: 12
    readonly property int normal: 14
    readonly property int large: 18
    readonly property int huge: 30

    // For a text on a light tone of a colour.
    function textOnTone(tone) { return Qt.darker(tone, 2.1); }

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

    // A colour for each type of document of the opened folder.
    function typeColor(type) {
        switch (type) {
        case "folder": return "#6AA0AF";
        case "image": return "#81B286";
        case "video": return "#B08FB8";
        case "text": return "#C9A94B";
        }
        return "#979790";
    }
}
