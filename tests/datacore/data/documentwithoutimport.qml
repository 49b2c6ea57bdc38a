// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQml 2.12
QtObject {
    property QtObject document: folder
    property string name: folder.name
    property int count: folder.children.length
    property string first: folder.children[0].name
    property bool isImage: folder.children[0].hasType("image")
    property QtObject context: folder.context
    property string reported
    Component.onCompleted: folder.context.documentChanged.connect(function (document) {
        reported = document.name;
    })
}
