// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DavServer.h"

#include "support/CatalogueFiles.h"

#include <QDir>
#include <QUrl>

namespace {

const char directives[] = R"(client_max_body_size 0;
create_full_put_path on;
dav_methods PUT DELETE MKCOL COPY MOVE;
dav_ext_methods PROPFIND OPTIONS;
)";

} // namespace

bool DavServer::start(const QString& folder, const QString& work)
{
    const QString include = work + QStringLiteral("/dav.conf");
    CatalogueFiles::write(include, directives);
    m_nginx.load(QStringLiteral("/usr/lib/nginx/modules/ngx_http_dav_ext_module.so"));
    m_nginx.include(include);
    return QDir().mkpath(folder) && m_nginx.start(folder, work);
}

quint16 DavServer::port() const
{
    return static_cast<quint16>(QUrl(m_nginx.url()).port());
}

QString DavServer::remote() const
{
    return QStringLiteral(":webdav,url='%1':").arg(m_nginx.url());
}
