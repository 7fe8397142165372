// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// What a list knows of one of its items: the content of the marks and of what a screen reader
/// says. A value type; see mvThemelistview::stateOf().
struct SCellState
{
    /// The state of the item's files.
    enum class Files {
        OnDisk,      ///< the item can be applied
        Missing,     ///< it must be downloaded first
        Outdated,    ///< on disk, and among mvThemelistview::setUpdatable()
        Downloading, ///< by its cell
        Failed,      ///< its last download has failed, and nothing has been tried since
    };

    Files files = Files::OnDisk; ///< of the item, with all that it uses
    int percent = 0;             ///< of a running download, 0 to 100
    qint64 receivedBytes = 0;    ///< of a running download, see MVThemeItemWdg::receivedBytes()
    bool isFavourite = false;    ///< the user has marked it
    bool isNew = false;          ///< among mvThemelistview::setNew()
    bool isApplied = false;      ///< see mvThemelistview::appliedItem()

    /// Returns whether all fields are equal.
    bool operator==(const SCellState& other) const
    {
        return files == other.files && percent == other.percent
            && receivedBytes == other.receivedBytes && isFavourite == other.isFavourite
            && isNew == other.isNew && isApplied == other.isApplied;
    }
    /// Returns the opposite of ==.
    bool operator!=(const SCellState& other) const { return !(*this == other); }
};
