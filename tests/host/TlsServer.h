// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestMain.h"

#include <QDir>
#include <QProcess>

#include <thread>

#include <httplib.h>

/// A self-signed certificate with its key, in the home of the test.
class SelfSignedCertificate
{
public:
    /// `name` is as in a certificate: "IP:127.0.0.1" or "DNS:files.example".
    explicit SelfSignedCertificate(const QString& name)
        : m_folder(TestHome::path() + QStringLiteral("/certificate-")
                   + QString(name).replace(QLatin1Char(':'), QLatin1Char('-')))
    {
        QDir().mkpath(m_folder);
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-nodes"),
                       QStringLiteral("-newkey"), QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                       QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-days"),
                       QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=test"),
                       QStringLiteral("-addext"), QStringLiteral("subjectAltName=") + name,
                       QStringLiteral("-keyout"), keyFile(), QStringLiteral("-out"), file()});
        if (!openssl.waitForFinished() || openssl.exitCode() != 0)
            qFatal("openssl makes no certificate: %s", openssl.readAllStandardError().constData());
    }

    QString file() const { return m_folder + QStringLiteral("/certificate.pem"); }
    QString keyFile() const { return m_folder + QStringLiteral("/key.pem"); }

private:
    QString m_folder;
};

/// An HTTPS server on loopback with one file, "/file", and a redirect, "/moved?to=ADDRESS".
class TlsServer
{
public:
    explicit TlsServer(const SelfSignedCertificate& certificate)
        : m_server(QFile::encodeName(certificate.file()).constData(),
                   QFile::encodeName(certificate.keyFile()).constData())
    {
        m_server.set_keep_alive_timeout(1);
        m_server.Get("/file", [this](const httplib::Request&, httplib::Response& response) {
            ++m_requests;
            response.set_content("the secret file", "application/octet-stream");
        });
        m_server.Get("/moved",
                     [this](const httplib::Request& request, httplib::Response& response) {
                         ++m_requests;
                         response.set_redirect(request.get_param_value("to"));
                     });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        while (!m_server.is_running())
            std::this_thread::yield();
    }

    ~TlsServer()
    {
        m_server.stop();
        m_thread.join();
    }
    Q_DISABLE_COPY_MOVE(TlsServer)

    QString url(const QString& target) const
    {
        return QStringLiteral("https://127.0.0.1:%1%2").arg(m_port).arg(target);
    }
    int port() const { return m_port; }
    int requestCount() const { return m_requests; }

private:
    httplib::SSLServer m_server;
    std::atomic<int> m_requests{0};
    int m_port = 0;
    std::thread m_thread;
};
