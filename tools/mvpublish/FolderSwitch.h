#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

/// Writes a folder beside its place and puts it there in one step, so that who reads the place
/// meets the old folder or the new one and never a mixture.
///
/// A file that comes out the same keeps its date, and with it what servers tell caches of it; one
/// that differs gets a date that is later by a second at least.
class FolderSwitch
{
public:
    /// `target` need not exist; its parent folder must.
    explicit FolderSwitch(const QString& target);
    /// Removes what has not been put in place.
    ~FolderSwitch();
    Q_DISABLE_COPY_MOVE(FolderSwitch)

    /// As on a file system that cannot exchange two folders: the old one is renamed first, and for
    /// a moment there is nothing in its place.
    void useRenames() { m_canExchange = false; }

    /// Makes the folder to write to, with the mode of the one that it replaces. Puts right what a
    /// run that was killed has left. False: errorText(). One switch per target at a time.
    bool begin();
    QString folder() const { return m_folder; }
    /// Where the old folder waits while it is replaced by renames.
    QString oldFolder() const { return m_folder + QStringLiteral(".old"); }
    /// Puts the folder in place, once it is on disk, and removes the old one.
    bool commit();

    QString errorText() const { return m_error; }

private:
    bool restore();
    bool replace();
    bool replaceByRenames();
    bool fail(const QString& text);

    QString m_target;
    QString m_folder;
    std::unique_ptr<QLockFile> m_lock;
    QString m_error;
    bool m_canExchange = true;
    bool m_begun = false;
};
