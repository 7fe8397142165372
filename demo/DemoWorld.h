// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "DemoShop.h"
#include "server/TreeServer.h"

#include <QString>
#include <QTemporaryDir>

#include <optional>

struct HostSettings;

/// The samples, served by this process, and a temporary folder for all output. Where mvpublish was
/// built, too, they are published as a signed release, and a new one can follow.
class DemoWorld
{
public:
    /// Creates the folder, publishes the samples and starts the server. On false see errorText().
    bool start();
    QString errorText() const { return m_error; }

    /// Configures the host for the samples.
    void describe(HostSettings& settings) const;
    /// What the server does with requests.
    enum class Server { Answers, IsSilent, IsStopped };
    /// Returns whether the server does it now; see errorText().
    bool setServer(Server state);
    /// Returns the address of the server, also while it is stopped.
    QString serverUrl() const { return m_serverUrl; }
    /// Returns the publisher; null if mvpublish was not built.
    DemoShop* shop() { return m_shop ? &*m_shop : nullptr; }
    /// Returns the temporary folder, which is removed with this object. Call it after start().
    QString folder() const { return m_folder->path(); }

private:
    bool fail(const QString& error);

    std::optional<QTemporaryDir> m_folder;
    std::optional<DemoShop> m_shop;
    TreeServer m_server;
    QString m_tree; // the folder that it serves
    QString m_serverUrl;
    QString m_error;
};
