// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// What is known of a file on disk, by the accepted release, the digests with which files came, and
/// the disk itself.
enum EFileState : int {
    /// The published content; also every file of the installed tree, which belongs to the
    /// application.
    eFile_Current = 0,
    /// Not on disk.
    eFile_Missing = 1,
    /// Not the published content: that of an earlier release, as far as is known.
    eFile_Outdated = 2,
    /// Changed since it came; also a theme's definition that cannot be read, if nothing is known of
    /// what it should be and the host checks content.
    eFile_Damaged = 3,
    /// The release does not name it, or there is none: what it should be is unknown.
    eFile_Unlisted = 4,
};
