// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0

Item {
    width: 300
    height: 200

    property int objectsMade: 0
    property int objectsGone: 0
    property Component markers: Component { Item { property int boxHue: strip.hue } }
    property Component otherMarkers: Component { Item { objectName: "other" } }
    property int changingItsMindMade: 0
    property int changingItsMindGone: 0
    property Component changingItsMind: Component {
        Item {
            Component.onCompleted: {
                ++changingItsMindMade;
                if (strip.sliderDelegate === changingItsMind)
                    strip.sliderDelegate = otherMarkers;
                if (square.crossHairDelegate === changingItsMind)
                    square.crossHairDelegate = otherMarkers;
            }
            Component.onDestruction: ++changingItsMindGone
        }
    }
    property Component objects: Component {
        QtObject {
            Component.onCompleted: ++objectsMade
            Component.onDestruction: ++objectsGone
        }
    }

    HueBox { id: strip; objectName: "strip"; x: 20; y: 20; width: 180; height: 20 }
    SaturationValueBox { id: square; objectName: "square"; x: 20; y: 60; width: 100; height: 80 }
}
