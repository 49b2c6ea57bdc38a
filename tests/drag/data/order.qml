// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A zone and a card, both at work on the record of the test: what a visual does as it is made is told
// by itself, as nobody else can look at it so early. The tests put an area into the zone's place by
// its names.
Item {
    id: page
    width: 300; height: 300

    DragZone {
        objectName: "source"
        x: 10; y: 10; width: 100; height: 100
        dragDelegate: Component {
            Item {
                objectName: "visual"
                width: 40; height: 20
                onParentChanged: record.note("visual.parent")
                onZChanged: record.note("visual.z = " + z)
                Component.onCompleted: {
                    record.note("visual completed, of " + DragZone.dragZone.objectName);
                    DragZone.hotspot = Qt.point(5, 6);
                    DragZone.delayRemove = true;
                }
            }
        }
        MouseArea { anchors.fill: parent }
    }

    Draggable {
        objectName: "card"
        x: 10; y: 150; z: 3; width: 100; height: 50
    }

    Item { objectName: "other"; x: 200; scale: 2; transformOrigin: Item.TopLeft }
}
