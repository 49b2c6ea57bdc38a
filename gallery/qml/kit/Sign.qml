// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A sign of the interface, drawn: as text it looks as whatever font happens to have it makes it look.
Image {
    property string name
    property int size: 14

    width: size
    height: size
    sourceSize: Qt.size(size * Theme.pixelRatio, size * Theme.pixelRatio)
    source: name === "" ? "" : "signs/" + name + (Theme.dark ? "-on-dark" : "") + ".svg"
}
