// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import Mv.Resources 1.0

// One item: its thumbnail, the animated preview under the pointer, and what can be done with it.
Item {
    id: cell

    property string name
    property url thumbnail
    property url preview
    property int itemState: ResourceModel.Unknown
    property bool usable: false
    property bool favourite: false
    property bool busy: false
    property int progress: 0
    property string errorText
    property bool applied: false
    property bool current: false ///< by the keyboard
    property bool previewWanted: false ///< by the keyboard

    readonly property bool playing: pointer.containsMouse || previewWanted
    readonly property bool outdated: itemState === ResourceModel.Outdated
                                     || itemState === ResourceModel.Damaged

    signal activated()
    signal cancelled()
    signal updateWanted()
    signal favouriteToggled()

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: errorText
    Accessible.onPressAction: activated()

    Rectangle {
        anchors.fill: parent
        anchors.margins: Look.gap / 2
        radius: 8
        color: pointer.containsMouse || cell.current ? Look.cardUnderPointer : Look.card
        border.width: cell.applied || cell.current ? 2 : 1
        border.color: cell.applied ? Look.accent : cell.current ? Look.text : Look.line

        MouseArea {
            id: pointer

            anchors.fill: parent
            hoverEnabled: true
            onClicked: cell.activated()
        }
        Item {
            id: frame

            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 6 }
            height: width * 9 / 16
            clip: true

            Rectangle {
                anchors.fill: parent
                color: Look.line
            }
            Image {
                objectName: "thumbnail"
                anchors.fill: parent
                source: cell.thumbnail
                sourceSize.width: 320
                asynchronous: true
                fillMode: Image.PreserveAspectCrop
                opacity: cell.usable || cell.playing ? 1 : 0.72
            }
            AnimatedImage {
                objectName: "preview"
                anchors.fill: parent
                // Its file is open only while it plays.
                source: cell.playing ? cell.preview : ""
                playing: cell.playing
                fillMode: Image.PreserveAspectCrop
            }
            Rectangle {
                anchors.fill: parent
                visible: cell.busy
                color: Look.shade
            }
            ProgressRing {
                objectName: "ring"
                anchors.centerIn: parent
                visible: cell.busy
                percent: cell.progress
                onCancelled: cell.cancelled()
            }
            Rectangle {
                anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
                height: error.implicitHeight + 8
                visible: cell.errorText !== "" && !cell.busy
                color: Look.shade

                Text {
                    id: error

                    anchors { fill: parent; leftMargin: 6; rightMargin: 6 }
                    verticalAlignment: Text.AlignVCenter
                    text: cell.errorText
                    color: Look.failure
                    font.pixelSize: Look.textSize - 2
                    elide: Text.ElideRight
                }
            }
        }
        Text {
            anchors { left: parent.left; leftMargin: 10; right: marks.left; rightMargin: 8 }
            anchors { top: frame.bottom; bottom: parent.bottom }
            verticalAlignment: Text.AlignVCenter
            text: cell.name
            color: Look.text
            font.pixelSize: Look.textSize
            elide: Text.ElideRight
        }
        Row {
            id: marks

            anchors { right: parent.right; rightMargin: 10 }
            anchors { top: frame.bottom; bottom: parent.bottom }
            spacing: 8

            Mark {
                anchors.verticalCenter: parent.verticalCenter
                visible: cell.applied
                shape: "tick"
                colour: Look.accent
                onClicked: cell.activated()
            }
            Mark {
                objectName: "download"
                anchors.verticalCenter: parent.verticalCenter
                visible: !cell.busy && (!cell.usable || cell.outdated)
                shape: "arrow"
                colour: cell.outdated ? Look.accent : Look.faintText
                onClicked: cell.outdated ? cell.updateWanted() : cell.activated()
            }
            Mark {
                objectName: "favourite"
                anchors.verticalCenter: parent.verticalCenter
                shape: "heart"
                filled: cell.favourite
                colour: cell.favourite ? Look.favourite : Look.faintText
                onClicked: cell.favouriteToggled()
            }
        }
    }
}
