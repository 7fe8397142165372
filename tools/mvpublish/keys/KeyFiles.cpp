// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/KeyFiles.h"

#include "keys/SecretKey.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t ownerOnly = 0600;
constexpr mode_t readable = 0644;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// A complete file without its final name yet; removed with the object unless it gets one.
class NewFile
{
public:
    explicit NewFile(const QString& target)
        : m_target(QFile::encodeName(target))
        , m_name(m_target + ".XXXXXX")
    {
    }
    ~NewFile()
    {
        if (m_isThere)
            ::unlink(m_name.constData());
    }
    Q_DISABLE_COPY_MOVE(NewFile)

    /// Writes and flushes it, readable by its owner only until it is complete.
    bool write(const char* bytes, std::size_t size, mode_t mode)
    {
        const int handle = ::mkostemp(m_name.data(), O_CLOEXEC);
        if (handle < 0)
            return false;
        m_isThere = true;
        std::size_t written = 0;
        while (written < size) {
            const ssize_t count = ::write(handle, bytes + written, size - written);
            if (count < 0 && errno != EINTR)
                break;
            written += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
        const bool isStored =
            written == size && ::fchmod(handle, mode) == 0 && ::fsync(handle) == 0;
        const int reason = errno;
        const bool isClosed = ::close(handle) == 0;
        if (!isStored)
            errno = reason;
        return isStored && isClosed;
    }

    /// Gives it its name. Without `overwrite` an existing file is kept, with EEXIST.
    bool place(bool overwrite)
    {
        const unsigned flags = overwrite ? 0 : RENAME_NOREPLACE;
        if (::renameat2(AT_FDCWD, m_name.constData(), AT_FDCWD, m_target.constData(), flags) == 0) {
            m_isThere = false;
            return true;
        }
        // Some file systems cannot rename without replacing, but they can link.
        return !overwrite && (errno == EINVAL || errno == ENOSYS)
            && ::link(m_name.constData(), m_target.constData()) == 0;
    }

    /// Takes the name back.
    void remove() const { ::unlink(m_target.constData()); }

private:
    QByteArray m_target;
    QByteArray m_name;
    bool m_isThere = false;
};

bool flushFolder(const QString& file)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(file).absolutePath());
    const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool isFlushed = ::fsync(handle) == 0;
    const int reason = errno;
    ::close(handle);
    errno = reason;
    return isFlushed;
}

bool fail(QString* error, const QString& file)
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
    if (!secretFile.write(secret.text(), secret.size(), ownerOnly))
        return fail(error, file);
    if (!publicKey.write(publicText.constData(), static_cast<std::size_t>(publicText.size()),
                         readable))
        return fail(error, publicName);
    if (!secretFile.place(overwrite))
        return fail(error, file);
    if (!publicKey.place(overwrite)) {
        fail(error, publicName);
        if (!overwrite)
            secretFile.remove();
        return false;
    }
    return flushFolder(file) || fail(error, file);
}

bool KeyFiles::readSecret(const QString& file, SecretBytes& secret, QString* error)
{
    // Not QFile, whose buffer would keep a copy.
    const int handle =
        ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    SecretBytes content(SecretKey::maxFileBytes);
    std::size_t length = 0;
    ssize_t count = handle < 0 ? -1 : 1;
    while (count > 0 && length < content.size()) {
        count = ::read(handle, content.data() + length, content.size() - length);
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    const bool isRead = count >= 0;
    if (!isRead)
        *error = QStringLiteral("%1 cannot be read: %2").arg(file, systemError());
    if (handle >= 0)
        ::close(handle);
    content.truncate(length);
    secret = std::move(content);
    return isRead;
}
