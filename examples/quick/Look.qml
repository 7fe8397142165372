// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

pragma Singleton
import QtQuick 2.15

// Colours and sizes of the window.
QtObject {
    readonly property color window: "#1b1e23"
    readonly property color bar: "#22262d"
    readonly property color card: "#272c34"
    readonly property color cardUnderPointer: "#303641"
    readonly property color line: "#3a414d"
    readonly property color text: "#eceff3"
    readonly property color faintText: "#9aa3af"
    readonly property color accent: "#4c9ffe"
    readonly property color favourite: "#ff5d73"
    readonly property color failure: "#ff8a73"
    readonly property color shade: "#b3101317"

    readonly property int gap: 12
    readonly property int cellWidth: 208
    readonly property int nameHeight: 34
    readonly property int textSize: 13
}
