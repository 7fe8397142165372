#pragma once

#include "server/TreeServer.h"

#include <QString>
#include <QTemporaryDir>

#include <optional>

struct HostSettings;

/// The samples, served by this process, and a temporary folder for all that is written.
class DemoWorld
{
public:
    /// Creates the folder and starts the server. False: errorText().
    bool start();
    QString errorText() const { return m_error; }

    /// Lets the host work on the samples.
    void describe(HostSettings& settings) const;
    /// The temporary folder, which goes with this object. Once it has been started.
    QString folder() const { return m_folder->path(); }

private:
    std::optional<QTemporaryDir> m_folder;
    TreeServer m_server;
    QString m_error;
};
