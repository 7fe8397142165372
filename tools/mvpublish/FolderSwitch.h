#pragma once

#include "host/FileLock.h"

#include <QString>

/// Writes a folder beside its place and puts it there in one step, so that who reads the place
/// meets the old folder or the new one and never a mixture.
///
/// A file that comes out the same keeps its date, and with it what servers tell caches of it; one
/// that differs gets a date that is later by a second at least.
class FolderSwitch
{
public:
    /// `target` need not exist; its parent folder must. Where it is a link, what it points to is
    /// switched.
    explicit FolderSwitch(const QString& target);
    /// Removes what has not been put in place.
    ~FolderSwitch();
    Q_DISABLE_COPY_MOVE(FolderSwitch)

    /// As on a file system that cannot exchange two folders: the old one is renamed first, and for
    /// a moment there is nothing in its place.
    void useRenames() { m_canExchange = false; }

    /// Takes the place for this object: one switch per target at a time, over all processes. Then
    /// puts the old folder back if a run was killed between its two renames and the place is still
    /// free. False: errorText().
    bool lock();
    /// Returns whether the place holds nothing, or an empty folder.
    bool isFree() const;
    /// Makes the folder to write to, with the mode of the one that it replaces, and removes what
    /// else runs that were killed have left. Locks the place if lock() has not. False: errorText().
    bool begin();
    /// The place, without links.
    QString target() const { return m_target; }
    QString folder() const { return m_folder; }
    /// Returns the name of the old folder while it is replaced by renames.
    QString oldFolder() const { return m_folder + QStringLiteral(".old"); }
    /// Puts the folder in place, once it is on disk, and removes the old one.
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
