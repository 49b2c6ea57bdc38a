// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    title: "PopupAnchorItem"
    steps: [
        Step { text: "Press the disc: the flyout keeps to its edge."; when: anchor.popupVisible },
        Step {
            text: "Switch on “turning” and press the disc: the flyout turns along, and changes sides where the window ends."
            when: turn.value && anchor.popupVisible
        },
        Step {
            text: "Press outside: it hides, and the press still does what it is meant for. “persistent” leaves it open."
            when: anchor.justHidden || anchor.persistent
        }
    ]
    subject: anchor
    stageHeight: 340

    Item {
        id: board
        anchors.centerIn: parent
        width: 140
        height: 140
        rotation: angle.value

        RotationAnimation on rotation {
            id: turning
            running: turn.value
            from: angle.value
            to: angle.value + 360
            duration: 12000
            loops: Animation.Infinite
            onStopped: board.rotation = Qt.binding(() => angle.value)
        }

        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: Theme.accent
            border.color: Theme.accentHover
            border.width: 6
            activeFocusOnTab: true
            Keys.onSpacePressed: anchor.popupVisible = !anchor.popupVisible
            Accessible.role: Accessible.Button
            Accessible.name: anchor.popupVisible ? "Hide the flyout" : "Show the flyout"
            Accessible.focusable: true
            Accessible.onPressAction: anchor.popupVisible = !anchor.popupVisible
            FocusRing {
                anchors.margins: -4
                radius: width / 2
            }
        }
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            y: 14
            width: 8
            height: 8
            radius: 4
            color: Theme.accentContrast
        }
        Label {
            anchors.centerIn: parent
            text: anchor.popupVisible ? "Hide" : "Show"
            color: Theme.accentContrast
            font.weight: Font.DemiBold
        }
        MouseArea {
            anchors.fill: parent
            // A press on the disc is a press outside the flyout: it has hidden it by now, and the
            // click is not to show it again.
            property bool hides: false
            onPressed: {
                hides = anchor.justHidden;
                log.note("the disc was pressed");
            }
            onClicked: anchor.popupVisible = !anchor.popupVisible && !hides
        }

        PopupAnchorItem {
            id: anchor
            anchors.horizontalCenter: parent.right
            anchors.verticalCenter: parent.verticalCenter
            property bool justHidden: false
            onPopupVisibleChanged: {
                justHidden = !popupVisible;
                Qt.callLater(() => justHidden = false);
                log.note("popupVisibleChanged()");
            }
            onPopupItemChanged: log.note("popupItemChanged()")

            Item {
                id: flyout

                readonly property int room: 190
                // On the right of the place unless the window ends there, and then on its left.
                readonly property bool leftwards: anchor.distanceRight < room
                // Where the window ends below, it grows upwards, unless there is no room either.
                readonly property bool upwards: anchor.distanceBottom < room && anchor.distanceTop > room

                x: leftwards ? -width - 14 : 14
                y: upwards ? -height + 24 : -24
                width: 176
                height: 84
                opacity: enabled ? 1 : 0
                visible: opacity > 0
                Behavior on opacity { NumberAnimation { duration: 120 } }

                Rectangle {
                    x: flyout.leftwards ? flyout.width - 6 : -6
                    y: flyout.upwards ? flyout.height - 30 : 18
                    width: 12
                    height: 12
                    rotation: 45
                    color: Theme.text
                }
                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radius
                    color: Theme.text
                    Label {
                        anchors.centerIn: parent
                        horizontalAlignment: Text.AlignHCenter
                        color: Theme.panel
                        font.pixelSize: Theme.medium
                        lineHeight: 1.25
                        text: "top " + anchor.distanceTop + "\nbottom " + anchor.distanceBottom
                              + "\nright " + anchor.distanceRight
                    }
                }
            }
        }
    }

    editors: [
        BoolEditor { target: anchor; property: "popupVisible" },
        BoolEditor { target: anchor; property: "persistent" },
        NumberEditor { id: angle; label: "angle"; from: -180; to: 180; value: 0; onEdited: value = newValue },
        BoolEditor { id: turn; label: "turning"; value: false; onEdited: value = newValue },
        ValueRow { target: anchor; property: "distanceTop" },
        ValueRow { target: anchor; property: "distanceBottom" },
        ValueRow { target: anchor; property: "distanceRight" },
        ValueRow { label: "popupItem"; value: anchor.popupItem ? "made" : "none yet" }
    ]
}
