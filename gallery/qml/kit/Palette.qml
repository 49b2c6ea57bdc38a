// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// The colours of the gallery, light and dark, one line each. tests/gallery/tst_theme.qml holds their
// contrasts: texts at least 4.5 : 1, focus and states at least 3 : 1, in both appearances.
QtObject {
    property bool dark: false

    // Grounds, from the lowest up, and the lines between them.
    readonly property color window: dark ? "#1B1C1E" : "#F8F7F5"
    readonly property color sunken: dark ? "#1F2123" : "#FBFAF9"
    readonly property color panel: dark ? "#26282A" : "#FFFFFF"
    // A panel's part under the pointer.
    readonly property color hover: dark ? "#2D3032" : "#F4F3EF"
    readonly property color line: dark ? "#35383A" : "#EAE8E2"
    readonly property color strongLine: dark ? "#4C5052" : "#D8D7D1"
    readonly property color scrollThumb: dark ? "#85898B" : "#8B8A83"

    readonly property color text: dark ? "#ECEBE8" : "#222222"
    readonly property color softText: dark ? "#BEBEBA" : "#555555"
    readonly property color faintText: dark ? "#A8A9A4" : "#696963"
    readonly property color disabledText: dark ? "#6A6C6B" : "#BBBBBB"

    // What is active or matters most; `contrast` for a text on it, `soft` for a ground of its kind.
    readonly property color accent: dark ? "#307F95" : "#2F7D93"
    readonly property color accentHover: "#286E82"
    readonly property color accentPress: "#205A6B"
    readonly property color accentSoft: dark ? "#203A42" : "#E7F1F4"
    readonly property color accentText: dark ? "#7CC3D6" : "#2C6F81"
    readonly property color accentContrast: "#FFFFFF"

    readonly property color positive: dark ? "#5BA864" : "#4F9257"
    readonly property color positiveSoft: dark ? "#213526" : "#E9F4EA"
    readonly property color positiveText: dark ? "#86CB8D" : "#3B7442"
    readonly property color warning: "#ECD284"
    readonly property color warningSoft: dark ? "#3A3524" : "#FBF6E4"
    readonly property color error: dark ? "#D9764F" : "#C8643C"
    readonly property color errorSoft: dark ? "#42291F" : "#F4E6DF"
    readonly property color errorText: dark ? "#F0A184" : "#9A4A2C"
    readonly property color off: dark ? "#85898B" : "#86857E"
    readonly property color focus: dark ? "#5FB7CF" : "#2A8098"

    // Over what a modal dialog disables: darker than it in both.
    readonly property color veil: dark ? "#80000000" : "#2E222222"

    // The same in both: for pictures that are made for a light or for a dark ground.
    readonly property color paper: "#FFFFFF"
    readonly property color ink: "#222222"

    // For a text on a light tone of a colour.
    function textOnTone(tone) { return dark ? Qt.lighter(tone, 1.45) : Qt.darker(tone, 2.1); }

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
