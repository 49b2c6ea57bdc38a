// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12

// Shows the item whose file is the last argument until some frames have been drawn, and ends.
Window {
    id: shell

    property int frames: 0

    function show(file) {
        const component = Qt.createComponent("file://" + file);
        if (component.status === Component.Ready) {
            component.createObject(shell.contentItem);
        } else {
            console.error(component.errorString());
        }
    }

    visible: true
    width: 400
    height: 400
    Component.onCompleted: show(Qt.application.arguments[Qt.application.arguments.length - 1])
    onFrameSwapped: {
        ++frames;
        if (frames === 3) {
            Qt.quit();
        } else {
            update();
        }
    }
}
