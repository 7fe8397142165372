// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/CheckFixture.h"
#include "download/SRelease.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <atomic>
#include <functional>

/// A key pair in the format of minisign, made from a number.
class SigningKey
{
public:
    explicit SigningKey(char seed);

    /// Returns the line for HostSettings::releaseKeys.
    QString publicKey() const;
    /// Returns the signature file of a content.
    QByteArray sign(const QByteArray& content) const;

private:
    QByteArray m_id;
    QByteArray m_public;
    QByteArray m_secret;
};

/// A server that publishes releases, and the trees of one installation.
class ReleaseWorld : public CheckWorld
{
public:
    /// Resets all, installs catalogue 1.0.2, and sets the policy eRelease_Use.
    void freshRelease();

    /// Publishes a file under its name, and in the next release.
    void put(const QString& path, const QByteArray& content);
    /// Puts catalogue files and the version file with their checksums.
    void putCatalogue(const QByteArray& display, const QByteArray& config);
    /// Withdraws a file from the next release; its name is still served.
    void unlist(const QString& path) { m_files.remove(path); }

    /// Publishes a release of the files put so far: their contents, the list and the release, with
    /// an entity tag, and a signature if there is a key. `change` (may be empty) alters the release
    /// before that.
    void publishRelease(qint64 serial, const SigningKey* key = nullptr,
                        const std::function<void(SRelease&)>& change = {});
    /// Does the same with this list instead of the files'.
    void publishList(qint64 serial, const QByteArray& list, const SigningKey* key = nullptr);
    /// Serves release.json with an entity tag; with 304 where it is known.
    void serveRelease(const QByteArray& text);

    /// Returns the targets of the present release.
    static QByteArray releaseTarget() { return "/ResourceConfig/release.json"; }
    QByteArray signatureTarget() const;
    static QByteArray contentTarget(const QByteArray& content);
    QByteArray list() const { return m_list; }
    const QByteArray& release() const { return m_release; }

    /// Runs one check; returns how it ended, and its reason in `reason` (may be null).
    static ECatalogueCheckEnd check(QString* reason = nullptr);
    /// Returns the number of release.json's bodies that have been sent.
    int bodies() const { return m_bodies; }
    /// Returns all files of the download root with their contents.
    QMap<QString, QByteArray> tree() const;

private:
    QMap<QString, QByteArray> m_files; // by path below the server root
    QByteArray m_list;
    QByteArray m_release;
    std::atomic<int> m_bodies{0};
};
