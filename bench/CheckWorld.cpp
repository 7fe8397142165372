// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CheckWorld.h"

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QProcess>
#include <QUrl>

namespace {

constexpr int thumbnailSize = 15 * 1000;
constexpr int previewSize = 60 * 1000;

const char* const catalogueFiles[] = {"resource_version_v3.xml", "resource_display.xml",
                                      "resource_config.xml"};
const char* const suffixes[] = {"jpg", "gif"};

QString name(int theme, const char* suffix)
{
    return QStringLiteral("%1.%2").arg(theme).arg(QString::fromLatin1(suffix));
}

QByteArray version(const QByteArray& display, const QByteArray& config)
{
    return "<V value=\"1.0.0\"><dislplay value=\"" + display + "\"/><config value=\"" + config
        + "\"/></V>";
}

QByteArray md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

} // namespace

CheckWorld::CheckWorld(const QString& folder)
    : m_folder(folder)
{
}

bool CheckWorld::publish(int themes)
{
    m_themes = themes;
    const QString tree = this->tree();
    QVector<CatalogueFiles::CfgItem> config;
    CatalogueFiles::ThemeGroup group{QStringLiteral("others"), {}};
    for (int theme = 0; theme < themes; ++theme) {
        const QString guid = CatalogueFiles::guid(theme);
        config.append({guid, QString(), {}});
        group.items.append({guid, QStringLiteral("Theme"), name(theme, "jpg"), name(theme, "gif")});
        const QString previews = tree + QStringLiteral("/display/Themes/");
        CatalogueFiles::write(previews + name(theme, "jpg"), QByteArray(thumbnailSize, 'j'));
        CatalogueFiles::write(previews + name(theme, "gif"), QByteArray(previewSize, 'g'));
    }
    const QByteArray configXml =
        CatalogueFiles::document(CatalogueFiles::cfgGroup(QStringLiteral("Theme"), config));
    const QByteArray displayXml = CatalogueFiles::document(CatalogueFiles::displayThemes({group}));
    const QByteArray contents[] = {version(md5(displayXml), md5(configXml)), displayXml, configXml};
    for (int i = 0; i < 3; ++i) {
        CatalogueFiles::write(tree + QStringLiteral("/ResourceConfig/")
                                  + QString::fromLatin1(catalogueFiles[i]),
                              contents[i]);
    }
    CatalogueFiles::write(hostSettings().resourcesPath
                              + QStringLiteral("/Resource/ResourceConfig/resource_version.xml"),
                          version("none", "none"));
    if (!configureHttp2() || !m_server.start(tree, m_folder + QStringLiteral("/nginx")))
        return false;
    setAddress(m_server.url());
    return true;
}

/// Makes the server also speak HTTP/2 over TLS, on a port of its own.
bool CheckWorld::configureHttp2()
{
    const QString key = m_folder + QStringLiteral("/key.pem");
    const QString include = m_folder + QStringLiteral("/http2.conf");
    CatalogueFiles::write(include, "http2_max_concurrent_streams 128;\n");
    m_server.include(include);
    m_server.speakHttp2(certificate(), key);
    QProcess openssl;
    openssl.start(
        QStringLiteral("openssl"),
        QStringLiteral("req -x509 -nodes -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 "
                       "-days 2 -subj /CN=bench -addext subjectAltName=IP:127.0.0.1 "
                       "-keyout")
                .split(QLatin1Char(' '))
            << key << QStringLiteral("-out") << certificate());
    return openssl.waitForFinished() && openssl.exitCode() == 0;
}

void CheckWorld::setAddress(const QString& root)
{
    m_root = root;
    hostSettings().productParams = {{QStringLiteral("url_themeRootDir"), root},
                                    {QStringLiteral("hasMV"), QStringLiteral("1")}};
}

quint16 CheckWorld::port() const
{
    return static_cast<quint16>(QUrl(m_server.url()).port());
}

QStringList CheckWorld::secureUrls() const
{
    QStringList result;
    for (int theme = 0; theme < m_themes; ++theme) {
        result << m_server.secureUrl() + QStringLiteral("display/Themes/") + name(theme, "jpg");
    }
    return result;
}

void CheckWorld::forget() const
{
    QDir(download()).removeRecursively();
    QDir(hostSettings().appDataPath).removeRecursively();
    MVThemeMgr::init()->setResourceSaveRootPath(download());
}

QStringList CheckWorld::urls() const
{
    QStringList result;
    for (const char* file : catalogueFiles)
        result << m_root + QStringLiteral("ResourceConfig/") + QString::fromLatin1(file);
    for (int theme = 0; theme < m_themes; ++theme) {
        for (const char* suffix : suffixes)
            result << m_root + QStringLiteral("display/Themes/") + name(theme, suffix);
    }
    return result;
}

QStringList CheckWorld::files() const
{
    QStringList result;
    for (const char* file : catalogueFiles)
        result << QString::fromLatin1(file);
    for (int theme = 0; theme < m_themes; ++theme) {
        for (const char* suffix : suffixes) {
            result << QStringLiteral("Themes/display/PQD/Download/Themes/") + name(theme, suffix);
        }
    }
    return result;
}
