#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

/// Writes a folder beside its place and puts it there in one step, so that who reads the place
/// meets the old folder or the new one and never a mixture.
///
/// A file that comes out the same keeps its date, and with it what servers tell caches of it.
class FolderSwitch
{
public:
    /// `target` need not exist; its parent folder must.
    explicit FolderSwitch(const QString& target);
    /// Removes what has not been put in place.
    ~FolderSwitch();
    Q_DISABLE_COPY_MOVE(FolderSwitch)

    /// Makes the folder to write to. False: errorText(). One switch per target at a time.
    bool begin();
    QString folder() const { return m_folder; }
    /// Puts the folder in place and removes the old one.
    bool commit();

    QString errorText() const { return m_error; }

private:
    bool exchange();
    bool fail(const QString& text);

    QString m_target;
    QString m_folder;
    std::unique_ptr<QLockFile> m_lock;
    QString m_error;
    bool m_begun = false;
};
