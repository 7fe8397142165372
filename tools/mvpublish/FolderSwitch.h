// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/FileLock.h"

#include <QString>

/// Writes a folder beside its target and puts it in place atomically, so readers see either the old
/// or the new folder.
///
/// An unchanged file keeps its date, and with it the validators that servers send to caches; a
/// changed one gets a date at least one second later.
class FolderSwitch
{
public:
    /// `target` need not exist; its parent folder must. For a link, the folder to which it points
    /// is replaced.
    explicit FolderSwitch(const QString& target);
    /// Removes a folder that has not been put in place.
    ~FolderSwitch();
    Q_DISABLE_COPY_MOVE(FolderSwitch)

    /// Simulates a file system that cannot exchange two folders: the old one is renamed first, and
    /// for a moment the target does not exist.
    void useRenames() { m_canExchange = false; }

    /// Locks the target, of which there may be one switch at a time across all processes. Then
    /// restores the old folder if a run was killed between its two renames and the target is still
    /// free. On false see errorText().
    bool lock();
    /// Returns whether the target does not exist or is an empty folder.
    bool isFree() const;
    /// Creates the folder to write to, with the mode of the one that it replaces, and removes other
    /// remains of killed runs. Locks the target unless lock() has. On false see errorText().
    bool begin();
    /// Returns the target with links resolved.
    QString target() const { return m_target; }
    QString folder() const { return m_folder; }
    /// Returns the name of the old folder during a replacement by renames.
    QString oldFolder() const { return m_folder + QStringLiteral(".old"); }
    /// Flushes the folder to disk, puts it in place and removes the old one.
    bool commit();

    QString errorText() const { return m_error; }

private:
    QString beside(const QString& suffix) const;
    bool putBack();
    bool replace();
    bool replaceByRenames();
    bool fail(const QString& text);

    QString m_target;
    QString m_folder;
    FileLock m_lock;
    QString m_error;
    bool m_canExchange = true;
    bool m_begun = false;
};
