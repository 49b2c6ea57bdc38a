// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// What a case stands on. It is seen as it is, through a layer, or through a live effect source.
//
// A case's "expectations" say for each property: the value that it is changed "to", what is to be
// seen "before" (and not after), and what "after" (and not before). Both are lists of
// [x, y, width, height, colour, tolerance]: some pixel of the rectangle has the colour. A property
// that must not repaint is "silent" instead.
Rectangle {
    id: stage
    width: 200
    height: 140
    color: "#306090"

    property string place: "plain"
    property var expectations: ({})
    default property alias content: holder.data

    Item {
        id: holder
        anchors.fill: parent
        layer.enabled: stage.place === "in a layer"
    }
    ShaderEffectSource {
        anchors.fill: parent
        visible: stage.place === "in an effect source"
        sourceItem: visible ? holder : null
        hideSource: true
        live: true
    }
}
