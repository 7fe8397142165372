// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// A word that the user can switch on.
Rectangle {
    id: choice

    property string text
    property bool chosen: false

    signal clicked()

    width: label.implicitWidth + 22
    height: 28
    radius: height / 2
    color: chosen ? Look.accent : "transparent"
    border.color: chosen ? Look.accent : Look.line

    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.checked: chosen
    Accessible.onPressAction: clicked()

    Text {
        id: label

        anchors.centerIn: parent
        text: choice.text
        color: choice.chosen ? "white" : Look.text
        font.pixelSize: Look.textSize
    }
    MouseArea {
        anchors.fill: parent
        onClicked: choice.clicked()
    }
}
