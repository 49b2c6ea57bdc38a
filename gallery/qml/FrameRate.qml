// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0

// The rate of the frames of the window that it is in. A frame counts once for each item around a
// counter, so the counter is made in the window's content item, which has none around it.
Item {
    id: rate

    property FpsCounter counter: null
    readonly property int value: counter ? counter.currentFps : 0

    function count() {
        if (!counter && Window.contentItem)
            counter = maker.createObject(Window.contentItem);
    }

    Window.onContentItemChanged: count()
    Component.onCompleted: count()
    Component.onDestruction: {
        if (counter)
            counter.destroy();
    }

    Component {
        id: maker
        FpsCounter {}
    }
}
