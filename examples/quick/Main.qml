// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Window 2.15
import Mv.Resources 1.0

// The themes in a grid of animated cells. A click downloads a theme if necessary, and applies it.
// Keyboard: arrows move, Enter applies, Escape cancels, F marks, Space plays the preview.
Window {
    id: window

    property string downloadFolder
    property string appliedGuid

    width: 900
    height: 620
    visible: true
    title: "Themes"

    Component.onCompleted: {
        catalogue.open(downloadFolder)
        catalogue.checkSpread()
        grid.forceActiveFocus()
    }

    ResourceCatalogue {
        id: catalogue

        property string problem

        onBusyChanged: problem = ""
        onCheckEnded: function(outcome, reason) { problem = reason }
    }
    ResourceModel {
        id: themes

        kind: ResourceModel.Theme
        onApplied: function(guid) { window.appliedGuid = guid } // here an editor applies it
    }
    ResourceFilterModel {
        id: shown

        sourceModel: themes
        searchText: search.text
    }

    Rectangle {
        anchors.fill: parent
        color: Look.window
    }
    Rectangle {
        id: bar

        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: 52
        color: Look.bar

        Rectangle {
            id: searchField

            anchors { left: parent.left; leftMargin: Look.gap; verticalCenter: parent.verticalCenter }
            width: 190
            height: 30
            radius: 6
            color: Look.window
            border.color: search.activeFocus ? Look.accent : Look.line

            TextInput {
                id: search

                objectName: "search"
                anchors { fill: parent; leftMargin: 10; rightMargin: 10 }
                verticalAlignment: TextInput.AlignVCenter
                color: Look.text
                font.pixelSize: Look.textSize
                selectByMouse: true
                clip: true
                Accessible.name: "Search"
                Keys.onEscapePressed: {
                    text = ""
                    grid.forceActiveFocus()
                }
                Keys.onDownPressed: grid.forceActiveFocus()
            }
            Text {
                anchors { fill: search }
                verticalAlignment: Text.AlignVCenter
                visible: search.text === "" && !search.activeFocus
                text: "Search"
                color: Look.faintText
                font.pixelSize: Look.textSize
            }
        }
        Row {
            anchors { left: searchField.right; leftMargin: Look.gap }
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            Repeater {
                // The codes are those of SCfg_Item::m_nThemeType.
                model: [
                    { "name": "All", "type": ResourceFilterModel.AllThemeTypes },
                    { "name": "Festivals", "type": 2 },
                    { "name": "Travel", "type": 3 },
                    { "name": "Banquets", "type": 4 },
                    { "name": "Others", "type": 0 }
                ]

                Choice {
                    text: modelData.name
                    chosen: shown.themeType === modelData.type
                    onClicked: shown.themeType = modelData.type
                }
            }
        }
        Row {
            anchors { right: parent.right; rightMargin: Look.gap; verticalCenter: parent.verticalCenter }
            spacing: 6

            Choice {
                text: "Favourites"
                chosen: shown.favouritesOnly
                onClicked: shown.favouritesOnly = !shown.favouritesOnly
            }
            Choice {
                text: "By name"
                chosen: shown.order === ResourceFilterModel.Name
                onClicked: shown.order = chosen ? ResourceFilterModel.Published
                                                : ResourceFilterModel.Name
            }
        }
    }

    GridView {
        id: grid

        readonly property int columns: Math.max(1, Math.floor(width / Look.cellWidth))

        objectName: "grid"
        anchors { fill: parent; margins: Look.gap / 2 }
        anchors { topMargin: bar.height + Look.gap / 2; bottomMargin: foot.height + Look.gap / 2 }
        clip: true
        focus: true
        boundsBehavior: Flickable.StopAtBounds
        cellWidth: Math.floor(width / columns)
        cellHeight: (cellWidth - Look.gap - 12) * 9 / 16 + Look.nameHeight + Look.gap + 6
        model: shown
        delegate: ResourceCell {
            objectName: "cell " + model.name
            width: grid.cellWidth
            height: grid.cellHeight
            name: model.name
            thumbnail: model.thumbnail
            preview: model.preview
            itemState: model.state
            usable: model.usable
            favourite: model.favourite
            busy: model.busy
            progress: model.progress
            errorText: model.errorText
            applied: model.guid === window.appliedGuid
            current: GridView.isCurrentItem && grid.activeFocus && grid.byKeyboard
            previewWanted: current && grid.previewWanted
            onActivated: themes.apply(model.guid)
            onCancelled: themes.cancel(model.guid)
            onUpdateWanted: themes.update(model.guid)
            onFavouriteToggled: themes.setFavourite(model.guid, !model.favourite)
        }

        property bool byKeyboard: false
        property bool previewWanted: false

        Keys.onPressed: function(event) {
            byKeyboard = true
            if (!currentItem)
                return
            event.accepted = true
            if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                currentItem.activated()
            else if (event.key === Qt.Key_Escape)
                currentItem.cancelled()
            else if (event.key === Qt.Key_F)
                currentItem.favouriteToggled()
            else if (event.key === Qt.Key_Space)
                previewWanted = !previewWanted
            else
                event.accepted = false
        }
        onCurrentIndexChanged: previewWanted = false

        // The previews of what is visible are fetched first.
        onContentYChanged: tellShown.start()
        onCountChanged: tellShown.start()
        onHeightChanged: tellShown.start()

        Timer {
            id: tellShown

            interval: 50
            onTriggered: {
                var first = Math.floor(grid.contentY / grid.cellHeight) * grid.columns
                var rows = Math.ceil(grid.height / grid.cellHeight) + 1
                shown.showRows(first, rows * grid.columns)
            }
        }
    }
    Text {
        anchors.centerIn: grid
        visible: grid.count === 0
        text: catalogue.busy ? "Fetching the catalogue…" : "No themes"
        color: Look.faintText
        font.pixelSize: Look.textSize + 2
    }

    Rectangle {
        id: foot

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 30
        color: Look.bar

        Text {
            objectName: "status"
            anchors { fill: parent; leftMargin: Look.gap; rightMargin: Look.gap }
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            color: catalogue.problem === "" ? Look.faintText : Look.failure
            font.pixelSize: Look.textSize - 1
            text: {
                if (catalogue.phase === ResourceCatalogue.Checking)
                    return "Looking for new themes…"
                if (catalogue.phase === ResourceCatalogue.FetchingPreviews)
                    return "Fetching previews… " + Math.max(0, catalogue.progress) + " %"
                return catalogue.problem !== "" ? catalogue.problem : grid.count + " themes"
            }
        }
    }
}
