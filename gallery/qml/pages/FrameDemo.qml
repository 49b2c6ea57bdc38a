// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    title: "Frame"
    steps: [
        Step {
            text: "Drag the photo below the panel and out of the clipped area: the ring stays whole and on top."
            when: photo.y !== 60
        },
        Step { text: "Scale and turn it: the ring keeps its width."; when: photo.scale !== 1 || photo.rotation !== 0 },
        Step { text: "Fade or hide the ring."; when: frame.opacity < 1 || !frame.visible }
    ]
    subject: frame
    stageHeight: 380

    Surface {
        id: area
        x: 30
        y: 30
        width: parent.width - 60
        height: parent.height - 110
        color: Theme.panel
        clip: clipEditor.value

        Label {
            x: 12
            y: 10
            text: clipEditor.value ? "This area clips" : "This area does not clip"
            color: Theme.faintText
            font.pixelSize: Theme.small
        }
        Movable {
            id: photo
            name: "Photo"
            ringMargin: frame.frameWidth + 4
            minimumX: -60
            maximumX: area.width - 60
            minimumY: -50
            maximumY: area.height - 40
            x: 70
            y: 60
            width: 150
            height: 100
            Rectangle {
                anchors.fill: parent
                gradient: Gradient {
                    GradientStop { position: 0; color: Theme.accent }
                    GradientStop { position: 1; color: Theme.accentPress }
                }
            }
            Label { anchors.centerIn: parent; text: "Drag me"; color: Theme.accentContrast; font.weight: Font.DemiBold }
            Frame {
                id: frame
                anchors.fill: parent
                frameWidth: 6
                color: "#ECD284"
                onFrameWidthChanged: log.note("frameWidthChanged " + frameWidth)
                onColorChanged: log.note("colorChanged " + color)
            }
        }
    }
    Surface {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 12 }
        height: 84
        color: Theme.warningSoft
        Label {
            anchors.centerIn: parent
            text: "A panel above: it covers the photo, not the ring"
            color: Theme.softText
        }
    }

    editors: [
        NumberEditor { target: frame; property: "frameWidth"; from: 0; to: 30 },
        ColorEditor { target: frame; property: "color" },
        BoolEditor { id: clipEditor; label: "clipped area"; value: true; onEdited: value = newValue },
        NumberEditor { target: photo; property: "scale"; from: 0.3; to: 2; stepSize: 0.05 },
        NumberEditor { target: photo; property: "rotation"; from: -45; to: 45 },
        NumberEditor { target: frame; property: "opacity"; from: 0; to: 1; stepSize: 0.05 },
        BoolEditor { target: frame; property: "visible" }
    ]
}
