// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

/// Files without a name, where the system has them: nobody else sees them, and they vanish with
/// their last handle, also when the process is killed. Internal to the library; stateless, any
/// thread.
class UnnamedFile
{
public:
    UnnamedFile() = delete;

    /// Returns a new name in a folder, which ends with a slash or is empty.
    using NameMaker = QByteArray (*)(const QByteArray& folder);

    /// Creates a file for reading and writing on the file system of `folder`, which ends with a
    /// slash or is empty. It has the permissions of a file that SystemFile::create() makes there.
    /// Returns its handle, or -1: a file with a name has to be created instead, which may succeed,
    /// or else tells the reason.
    ///
    /// The first call of a process tries, under a name of `trialName`, whether setName() works.
    /// A process in which the system, or one of its file systems, does not support it creates files
    /// with names from then on.
    static int create(const QByteArray& folder, NameMaker trialName);

    /// Gives the file its first name, in the folder for which it was created. Fails with EEXIST if
    /// the name is taken.
    static bool setName(int handle, const QByteArray& name);
};
