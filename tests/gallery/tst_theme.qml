// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtTest 1.12
import "../../gallery/qml/kit"

// Every text can be told from its ground, and every sign of focus and state from what it stands on.
TestCase {
    name: "Theme"

    // Rows are asked for before a test runs: they carry the appearance, and colours are looked up in it.
    readonly property var appearances: [{ name: "light", dark: false }, { name: "dark", dark: true }]
    function cleanup() { Theme.dark = false; }

    function test_luminance() {
        compare(Theme.contrast("#000000", "#FFFFFF"), 21);
        compare(Theme.contrast("#FFFFFF", "#000000"), 21);
        compare(Theme.contrast("#40A1BB", "#40A1BB"), 1);
        // A well known pair: the lightest grey that is readable on white.
        verify(Math.abs(Theme.contrast("#767676", "#FFFFFF") - 4.54) < 0.01);
    }

    function test_textOnGround_data() {
        const rows = [];
        const add = (text, ground) => {
            for (const appearance of appearances)
                rows.push({ tag: appearance.name + ": " + text + " on " + ground, dark: appearance.dark, text: text, ground: ground });
        };
        for (const text of ["text", "softText", "faintText", "accentText", "errorText"]) {
            for (const ground of ["window", "panel", "sunken"])
                add(text, ground);
        }
        for (const ground of ["accentSoft", "positiveSoft", "warningSoft", "hover"]) {
            add("text", ground);
            add("softText", ground);
        }
        for (const pair of [["accentText", "accentSoft"], ["accentText", "hover"], ["accentText", "line"], ["faintText", "accentSoft"], ["positiveText", "positiveSoft"],
                            ["positiveText", "panel"], ["positiveText", "sunken"], ["errorText", "errorSoft"],
                            ["accentContrast", "accent"], ["accentContrast", "accentHover"],
                            ["accentContrast", "accentPress"], ["panel", "text"]])
            add(pair[0], pair[1]);
        return rows;
    }
    function test_textOnGround(row) {
        Theme.dark = row.dark;
        const contrast = Theme.contrast(Theme[row.text], Theme[row.ground]);
        verify(contrast >= 4.5, contrast.toFixed(2) + " : 1");
    }

    // A type's name stands on a light tone of the type's colour.
    function test_typesOnTheirTone_data() {
        const rows = [];
        for (const type of ["folder", "image", "video", "text", "file"]) {
            for (const appearance of appearances)
                rows.push({ tag: appearance.name + ": " + type, dark: appearance.dark, tone: Qt.lighter(Theme.typeColor(type), 1) });
        }
        return rows;
    }
    function test_typesOnTheirTone(row) {
        Theme.dark = row.dark;
        for (const ground of [Theme.panel, Theme.sunken, Theme.accentSoft]) {
            const share = 0.16;
            const mix = part => ground[part] * (1 - share) + row.tone[part] * share;
            const contrast = Theme.contrast(Theme.textOnTone(row.tone), Qt.rgba(mix("r"), mix("g"), mix("b"), 1));
            verify(contrast >= 4.5, contrast.toFixed(2) + " : 1");
        }
    }

    function test_stateOnGround_data() {
        const rows = [];
        for (const state of ["focus", "positive", "off", "error", "accent", "scrollThumb"]) {
            for (const ground of ["window", "panel", "sunken"]) {
                for (const appearance of appearances)
                    rows.push({ tag: appearance.name + ": " + state + " on " + ground, dark: appearance.dark, state: state, ground: ground });
            }
        }
        return rows;
    }
    function test_stateOnGround(row) {
        Theme.dark = row.dark;
        const contrast = Theme.contrast(Theme[row.state], Theme[row.ground]);
        verify(contrast >= 3, contrast.toFixed(2) + " : 1");
    }

    // What lies below a modal dialog steps back: it becomes darker, in the dark, too.
    function test_veilDarkens_data() { return appearances.map(appearance => ({ tag: appearance.name, dark: appearance.dark })); }
    function test_veilDarkens(row) {
        Theme.dark = row.dark;
        for (const ground of [Theme.window, Theme.panel, Theme.sunken]) {
            const mix = part => ground[part] * (1 - Theme.veil.a) + Theme.veil[part] * Theme.veil.a;
            const veiled = Theme.luminance(Qt.rgba(mix("r"), mix("g"), mix("b"), 1));
            verify(veiled < 0.8 * Theme.luminance(ground), veiled + " of " + Theme.luminance(ground));
        }
    }
}
