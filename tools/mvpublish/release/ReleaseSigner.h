// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SRelease.h"

#include <QDateTime>
#include <QString>

class SecretKey;

/// Signs the release of a tree.
class ReleaseSigner
{
public:
    explicit ReleaseSigner(const QString& tree);

    /// Reads the release, before anybody is asked for a password. Returns false, see errorText(),
    /// if there is none, its list is another one, or it has expired by `now`.
    bool open(const QDateTime& now);
    const SRelease& release() const { return m_release; }

    /// Writes the signature where clients fetch it and where minisign looks for it, each file
    /// atomically and flushed to disk. On false see errorText().
    bool sign(const SecretKey& key, const QDateTime& now);

    QString errorText() const { return m_error; }

private:
    bool store(const QString& name, const QByteArray& signature);
    bool fail(const QString& text);

    QString m_tree;
    QByteArray m_bytes; // of release.json
    SRelease m_release;
    QString m_error;
};
