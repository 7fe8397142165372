#include "CheckWorld.h"

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"

#include <QCryptographicHash>
#include <QDir>

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
    const QString tree = m_folder + QStringLiteral("/tree");
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
    if (!m_server.start(tree, m_folder + QStringLiteral("/nginx")))
        return false;
    hostSettings().productParams = {{QStringLiteral("url_themeRootDir"), m_server.url()},
                                    {QStringLiteral("hasMV"), QStringLiteral("1")}};
    return true;
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
        result << m_server.url() + QStringLiteral("ResourceConfig/") + QString::fromLatin1(file);
    for (int theme = 0; theme < m_themes; ++theme) {
        for (const char* suffix : suffixes)
            result << m_server.url() + QStringLiteral("display/Themes/") + name(theme, suffix);
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
