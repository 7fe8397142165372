// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// The progress of a download; a click cancels it.
Item {
    id: ring

    property int percent: 0

    signal cancelled()

    width: 52
    height: 52

    Canvas {
        id: picture

        readonly property int percent: ring.percent

        anchors.fill: parent
        onPercentChanged: requestPaint()
        onPaint: {
            var context = getContext("2d")
            var centre = width / 2
            var radius = centre - 4
            context.reset()
            context.lineWidth = 5
            context.lineCap = "round"
            context.strokeStyle = "#40ffffff"
            context.beginPath()
            context.arc(centre, centre, radius, 0, 2 * Math.PI)
            context.stroke()
            context.strokeStyle = Look.accent
            context.beginPath()
            context.arc(centre, centre, radius, -Math.PI / 2,
                        -Math.PI / 2 + 2 * Math.PI * Math.max(percent, 1) / 100)
            context.stroke()
        }
    }
    Text {
        anchors.centerIn: parent
        visible: !pointer.containsMouse
        text: ring.percent
        color: Look.text
        font.pixelSize: Look.textSize
        font.bold: true
    }
    Mark {
        anchors.centerIn: parent
        visible: pointer.containsMouse
        shape: "cross"
    }
    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        onClicked: ring.cancelled()
    }
}
