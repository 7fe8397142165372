// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <future>

/// The publisher in the demo: a copy of the samples' source, which mvpublish builds and signs.
/// Publishing runs on a thread of its own, all calls are one other thread's.
class DemoShop
{
public:
    /// Returns the program mvpublish beside this one; empty if the tools were not built.
    static QString program();

    /// Copies `source` into `folder`, makes a key, and publishes the first release. On false see
    /// errorText().
    bool open(const QString& source, const QString& folder);
    /// Returns the folder that a server serves.
    QString tree() const { return m_folder + QStringLiteral("/tree"); }
    QString source() const { return m_folder + QStringLiteral("/source"); }
    /// Returns the public key of the releases, for HostSettings::releaseKeys.
    QString publicKey() const;

    /// Changes the last title in the archive of a theme, which keeps its name. On false see
    /// errorText().
    bool correct(const QString& theme);
    /// Starts to publish the source again, unless that is running. Returns whether it has ended; on
    /// false see errorText(), which is empty while it runs.
    bool publish();
    QString errorText() const { return m_error; }
    /// Returns how a person publishes a change.
    QString instructions() const;

private:
    QString key() const { return m_folder + QStringLiteral("/shop.key"); }
    QString buildAndSign() const;
    static QString run(const QStringList& arguments);

    QString m_folder;
    std::future<QString> m_publishing; // the error of the running publication
    QString m_error;
};
