// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ".."
import "../kit"

Demo {
    id: demo

    title: "FpsCounter"
    steps: [
        Step { text: "Switch the animation on and wait for 60 frames."; when: frames.value > 0 },
        Step {
            text: "Switch it off: the window rests, and the counter does not wake it."
            when: frames.value > 0 && !animated.value
        }
    ]
    stageHeight: 200

    FrameRate {
        id: frames
        onValueChanged: log.note("currentFpsChanged: " + value)
    }
    Column {
        anchors.centerIn: parent
        spacing: 16
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 12
            Label {
                id: rate
                text: frames.value
                font.pixelSize: Theme.display
                font.weight: Font.Light
            }
            Label {
                anchors.baseline: rate.baseline
                text: "frames per second"
                color: Theme.softText
            }
        }
        Rectangle {
            width: 280
            height: 8
            radius: 4
            color: Theme.line
            Rectangle {
                width: 40
                height: 8
                radius: 4
                color: Theme.accent
                SequentialAnimation on x {
                    running: animated.value
                    loops: Animation.Infinite
                    NumberAnimation { to: 240; duration: 900; easing.type: Easing.InOutSine }
                    NumberAnimation { to: 0; duration: 900; easing.type: Easing.InOutSine }
                }
            }
        }
    }

    editors: [
        BoolEditor { id: animated; label: "animation"; value: false; onEdited: value = newValue },
        ValueRow { target: frames.counter; property: "currentFps" }
    ]
}
