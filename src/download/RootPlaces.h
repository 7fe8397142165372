// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Places in the download root that belong to the library. Internal; any thread.
class RootPlaces
{
public:
    RootPlaces() = delete;

    /// Returns the download root, without a trailing slash.
    static QString root();
    /// Returns the folder of the downloaded catalogue, where release, ledger, arriving and removed
    /// files are, too; without a trailing slash.
    static QString catalogueFolder();
    /// Returns the folder in which the files of updates arrive, with its trailing slash.
    static QString arrivals();
    /// Returns the folder of removed files, with its trailing slash.
    static QString removed();
    /// Returns the file that updates lock while they work, see FileLock.
    static QString updatesLock();
};
