// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Text in one of the gallery's styles.
Text {
    color: Theme.text
    font.family: Theme.family
    font.pixelSize: Theme.normal
    elide: wrapMode === Text.NoWrap ? Text.ElideRight : Text.ElideNone
    renderType: Theme.textRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""
}
