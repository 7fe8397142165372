// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QSize>
#include <QString>

/// A headless X display that runs for the lifetime of this object.
class VirtualDisplay
{
public:
    explicit VirtualDisplay(const QSize& size = {1280, 1024});
    ~VirtualDisplay();
    Q_DISABLE_COPY_MOVE(VirtualDisplay)

    /// Returns the display name, such as ":7"; empty if the server could not be started.
    QString name() const { return m_name; }

private:
    QProcess m_server;
    QString m_name;
};
