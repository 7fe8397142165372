// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/KeyFiles.h"

#include "host/SystemFile.h"
#include "keys/SecretKey.h"
#include "SystemError.h"

#include <QByteArray>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>

namespace {

/// A complete file without its final name yet; removed with the object unless it gets one.
class NewFile
{
public:
    explicit NewFile(const QString& target)
        : m_target(SystemFile::encodedName(target))
    {
    }
    ~NewFile()
    {
        if (!m_name.isEmpty())
            SystemFile::remove(m_name);
    }
    Q_DISABLE_COPY_MOVE(NewFile)

    /// Writes and flushes it.
    bool write(const char* bytes, std::size_t size, SystemFile::Readers readers)
    {
        const int handle = create(readers);
        if (handle < 0)
            return false;
        const bool isStored = SystemFile::writeAt(handle, bytes, static_cast<qint64>(size), 0)
            && SystemFile::flush(handle) && SystemFile::hasTakenAllBytes(handle);
        const int reason = errno;
        SystemFile::close(handle);
        errno = reason;
        return isStored;
    }

    /// Gives it its name. Without `overwrite` an existing file is kept, with EEXIST.
    bool place(bool overwrite)
    {
        if (overwrite ? SystemFile::rename(m_name, m_target)
                      : SystemFile::renameToNew(m_name, m_target)) {
            m_name.clear();
            return true;
        }
        // Some file systems cannot rename without replacing, but they can link.
        return !overwrite && (errno == EINVAL || errno == ENOSYS)
            && SystemFile::link(m_name, m_target);
    }

    /// Takes the name back.
    void remove() const { SystemFile::remove(m_target); }

private:
    /// Creates it beside the target, under a name that nobody has.
    int create(SystemFile::Readers readers)
    {
        constexpr int hexadecimal = 16;
        int handle = -1;
        do {
            const quint64 number = QRandomGenerator::system()->generate64();
            m_name = m_target + '.' + QByteArray::number(number, hexadecimal);
            handle = SystemFile::create(m_name, readers);
        } while (handle < 0 && errno == EEXIST);
        if (handle < 0)
            m_name.clear();
        return handle;
    }

    QByteArray m_target;
    QByteArray m_name; // empty unless the file is there
};

bool flushFolder(const QString& file)
{
    return SystemFile::flushFolder(SystemFile::encodedName(QFileInfo(file).absolutePath()));
}

bool failToWrite(QString* error, const QString& file)
{
    *error = QStringLiteral("%1 cannot be written: %2").arg(file, systemError());
    return false;
}

} // namespace

QString KeyFiles::publicFile(const QString& file)
{
    return file + QStringLiteral(".pub");
}

QString KeyFiles::conflict(const QString& file)
{
    for (const QString& name : {file, publicFile(file)}) {
        const QFileInfo entry(name);
        if (entry.exists() || entry.isSymLink())
            return QStringLiteral("%1 exists; --force replaces it").arg(name);
    }
    return QString();
}

bool KeyFiles::write(const QString& file, const SecretBytes& secret, const QByteArray& publicText,
                     bool overwrite, QString* error)
{
    const QString publicName = publicFile(file);
    NewFile secretFile(file);
    NewFile publicKey(publicName);
    if (!secretFile.write(secret.text(), secret.size(), SystemFile::Readers::Owner))
        return failToWrite(error, file);
    if (!publicKey.write(publicText.constData(), static_cast<std::size_t>(publicText.size()),
                         SystemFile::Readers::Everyone))
        return failToWrite(error, publicName);
    if (!secretFile.place(overwrite))
        return failToWrite(error, file);
    if (!publicKey.place(overwrite)) {
        failToWrite(error, publicName);
        if (!overwrite)
            secretFile.remove();
        return false;
    }
    return flushFolder(file) || failToWrite(error, file);
}

bool KeyFiles::readSecret(const QString& file, SecretBytes& secret, QString* error)
{
    // Not QFile, whose buffer would keep a copy.
    const int handle =
        SystemFile::openRegular(SystemFile::encodedName(file), SystemFile::Access::Read);
    SecretBytes content(SecretKey::maxFileBytes);
    qint64 length = 0;
    qint64 count = handle < 0 ? -1 : 1;
    while (count > 0 && length < static_cast<qint64>(content.size())) {
        count = SystemFile::readAt(handle, content.text() + length,
                                   static_cast<qint64>(content.size()) - length, length);
        length += count > 0 ? count : 0;
    }
    const bool isRead = count >= 0;
    if (!isRead)
        *error = QStringLiteral("%1 cannot be read: %2")
                     .arg(file, errno == 0 ? QStringLiteral("not a regular file") : systemError());
    if (handle >= 0)
        SystemFile::close(handle);
    content.truncate(static_cast<std::size_t>(length));
    secret = std::move(content);
    return isRead;
}
