// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "server/TreeServer.h"

#include <QString>
#include <QTemporaryDir>

#include <optional>

struct HostSettings;

/// The samples, served by this process, and a temporary folder for all output.
class DemoWorld
{
public:
    /// Creates the folder and starts the server. On false see errorText().
    bool start();
    QString errorText() const { return m_error; }

    /// Configures the host for the samples.
    void describe(HostSettings& settings) const;
    /// Returns the temporary folder, which is removed with this object. Call it after start().
    QString folder() const { return m_folder->path(); }

private:
    std::optional<QTemporaryDir> m_folder;
    TreeServer m_server;
    QString m_error;
};
