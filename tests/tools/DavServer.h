// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/NginxServer.h"

#include <QString>
#include <QtGlobal>

/// A web space: a real nginx that takes uploads by WebDAV into a folder, and serves it. A file that
/// arrives replaces another one of its name atomically.
class DavServer
{
public:
    /// Serves `folder`, which is created; writes its own files into `work`. On false see
    /// errorText().
    bool start(const QString& folder, const QString& work);
    QString errorText() const { return m_nginx.errorText(); }

    quint16 port() const;
    /// Returns the root of the folder as rclone understands it.
    QString remote() const;

private:
    NginxServer m_nginx;
};
