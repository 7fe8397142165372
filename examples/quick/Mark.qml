// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// A small picture on a cell, drawn in one colour: "heart", "arrow", "tick" or "cross".
Canvas {
    id: mark

    property string shape: "heart"
    property color colour: Look.text
    property bool filled: true

    signal clicked()

    width: 18
    height: 18
    onShapeChanged: requestPaint()
    onColourChanged: requestPaint()
    onFilledChanged: requestPaint()
    onPaint: {
        var context = getContext("2d")
        context.reset()
        context.scale(width / 18, height / 18)
        context.strokeStyle = colour
        context.fillStyle = colour
        context.lineWidth = 1.8
        context.lineCap = "round"
        context.lineJoin = "round"
        context.beginPath()
        if (shape === "heart") {
            context.moveTo(9, 15.5)
            context.bezierCurveTo(-1.5, 8.5, 3, 1, 9, 5.6)
            context.bezierCurveTo(15, 1, 19.5, 8.5, 9, 15.5)
            context.closePath()
        } else if (shape === "arrow") {
            context.moveTo(9, 3)
            context.lineTo(9, 12)
            context.moveTo(5, 8.5)
            context.lineTo(9, 12.5)
            context.lineTo(13, 8.5)
            context.moveTo(4, 15.5)
            context.lineTo(14, 15.5)
        } else if (shape === "tick") {
            context.moveTo(4, 9.5)
            context.lineTo(7.5, 13)
            context.lineTo(14, 5.5)
        } else {
            context.moveTo(5, 5)
            context.lineTo(13, 13)
            context.moveTo(13, 5)
            context.lineTo(5, 13)
        }
        if (shape === "heart" && filled)
            context.fill()
        context.stroke()
    }

    MouseArea {
        anchors.fill: parent
        anchors.margins: -6
        onClicked: mark.clicked()
    }
}
