// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/CatalogueFiles.h"
#include "support/FaultServer.h"
#include "support/NginxServer.h"
#include "TlsServer.h"

#include <QSet>

/// An nginx that speaks HTTP/2 over TLS to clients: it serves the files of a folder, and passes
/// requests below "/back" on to a FaultServer, with the number of the client's connection and its
/// protocol in fields. When the FaultServer cuts an answer, nginx resets the stream.
class Http2Front
{
public:
    /// Returns whether the server has started. `options` are directives of nginx's server block.
    bool start(const SelfSignedCertificate& certificate, const FaultServer& back,
               const QString& options = QString())
    {
        const QString folder = TestHome::path() + QStringLiteral("/nginx%1").arg(++s_count);
        const QString include = folder + QStringLiteral("/front.conf");
        m_tree = folder + QStringLiteral("/tree");
        CatalogueFiles::write(m_tree + QStringLiteral("/empty"), "");
        CatalogueFiles::write(include,
                              QStringLiteral(R"(
%2
location /back/ {
    proxy_pass http://127.0.0.1:%1;
    proxy_http_version 1.1;
    proxy_buffering off;
    proxy_set_header X-Connection $connection;
    proxy_set_header X-Protocol $server_protocol;
}
)")
                                  .arg(back.port())
                                  .arg(options)
                                  .toUtf8());
        m_nginx.speakHttp2(certificate.file(), certificate.keyFile());
        m_nginx.include(include);
        return m_nginx.start(m_tree, folder + QStringLiteral("/work"));
    }

    /// Returns the address of "/PATH".
    QString url(const QString& target) const { return m_nginx.secureUrl() + target.mid(1); }
    QString tree() const { return m_tree; }
    NginxServer& nginx() { return m_nginx; }

    /// Returns the connections and the protocols by which clients have sent requests.
    static QSet<QByteArray> values(const FaultServer& back, const QByteArray& field)
    {
        QSet<QByteArray> values;
        const QVector<HttpRequest> requests = back.requests();
        for (const HttpRequest& request : requests)
            values.insert(request.fields.value(field));
        return values;
    }
    static int connectionCount(const FaultServer& back)
    {
        return values(back, "x-connection").size();
    }
    static bool isHttp2(const FaultServer& back)
    {
        return values(back, "x-protocol") == QSet<QByteArray>{"HTTP/2.0"};
    }

private:
    inline static int s_count = 0;

    NginxServer m_nginx;
    QString m_tree;
};
