// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QFile;

/// A file below a served folder with its HTTP metadata, which describes the opened file even if
/// another replaces it while it is sent.
class TreeFile
{
public:
    /// Opens the file named by the decoded path of an address. Doubled slashes count as one; a path
    /// that leads out of the folder, by ".." or through a link, names no file.
    TreeFile(const QString& folder, const QByteArray& address);

    bool exists() const { return m_file != nullptr; }
    /// Returns the file, open for reading; null if there is none.
    std::shared_ptr<QFile> file() const { return m_file; }
    qint64 size() const { return m_size; }

    QByteArray contentType() const;
    /// Returns a validator that changes whenever the file does.
    QByteArray entityTag() const { return m_entityTag; }
    QByteArray lastModified() const { return m_lastModified; }
    /// Returns the Cache-Control value: version files are not stored, contents named after their
    /// digest are kept for a year without asking, all others are revalidated.
    QByteArray cacheControl() const;

    /// Returns whether a client whose copy has these validators needs no body. An empty value means
    /// that the header is absent.
    bool isKnown(const QByteArray& ifNoneMatch, const QByteArray& ifModifiedSince) const;
    /// Returns whether a range may be sent to a client whose copy has this validator.
    bool isSameAs(const QByteArray& ifRange) const;

private:
    std::shared_ptr<QFile> m_file;
    QString m_path; // below the folder, with a slash in front
    qint64 m_size = 0;
    qint64 m_modified = 0; // seconds
    QByteArray m_entityTag;
    QByteArray m_lastModified;
};
