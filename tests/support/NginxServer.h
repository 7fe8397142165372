// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "console/PreparedProcess.h"

#include <QByteArrayList>
#include <QString>

/// A real nginx on a free loopback port that serves a folder with its own configuration, run as the
/// current user, and terminated with this object or with the program.
class NginxServer
{
public:
    NginxServer();
    ~NginxServer();
    Q_DISABLE_COPY_MOVE(NginxServer)

    /// Returns the path of nginx; empty if it is not installed.
    static QString program();

    /// Makes the server also speak HTTP/2 over TLS, on a port of its own. Takes the files of the
    /// certificate and its key. Call it before start().
    void speakHttp2(const QString& certificate, const QString& key)
    {
        m_certificate = certificate;
        m_key = key;
    }
    /// Adds a file of directives to the server's configuration. Call it before start().
    void include(const QString& file) { m_include = file; }
    /// Adds one beside the server. Call it before start().
    void includeBeside(const QString& file) { m_includeBeside = file; }

    /// Loads a dynamic module, given by its file. Call it before start().
    void load(const QString& module) { m_module = module; }

    /// Serves `tree`; writes its own files into `work`, which is created. On false see errorText().
    bool start(const QString& tree, const QString& work);
    QString errorText() const { return m_error; }

    /// Terminates the server; its port refuses connections then.
    void stop();

    /// Returns "http://127.0.0.1:PORT/".
    QString url() const;
    /// Returns the same for HTTP/2, "https://127.0.0.1:PORT/".
    QString secureUrl() const;
    /// Returns the request lines and statuses so far, "GET /a.xml HTTP/1.1 200"; nginx writes each
    /// after its answer.
    QByteArrayList requests() const;

private:
    bool startOnPorts(const QString& tree);
    QString secureDirectives() const;

    PreparedProcess m_process;
    quint16 m_port = 0;
    quint16 m_securePort = 0;
    QString m_certificate; // empty: no HTTP/2
    QString m_key;
    QString m_include;
    QString m_module;
    QString m_includeBeside;
    QString m_work;
    QString m_error;
};
