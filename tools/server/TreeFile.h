#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QFile;

/// A file below a served folder, and what HTTP says of it: of the file that was opened, also when
/// another takes its place while it is sent.
class TreeFile
{
public:
    /// The file that the decoded path of an address names. Doubled slashes count as one; a path
    /// that leads out of the folder, by ".." or through a link, names nothing.
    TreeFile(const QString& folder, const QByteArray& address);

    bool exists() const { return m_file != nullptr; }
    /// Open for reading; null if there is no such file.
    std::shared_ptr<QFile> file() const { return m_file; }
    qint64 size() const { return m_size; }

    QByteArray contentType() const;
    /// Changes whenever the file does.
    QByteArray entityTag() const { return m_entityTag; }
    QByteArray lastModified() const { return m_lastModified; }
    /// Returns the Cache-Control value: version files are not stored, all others are revalidated.
    QByteArray cacheControl() const;

    /// Returns whether a client whose copy has these validators needs no body. Empty: no such
    /// header.
    bool isKnown(const QByteArray& ifNoneMatch, const QByteArray& ifModifiedSince) const;
    /// Returns whether a part may be sent to a client whose copy has this validator.
    bool isSameAs(const QByteArray& ifRange) const;

private:
    std::shared_ptr<QFile> m_file;
    qint64 m_size = 0;
    qint64 m_modified = 0; // seconds
    QByteArray m_entityTag;
    QByteArray m_lastModified;
};
