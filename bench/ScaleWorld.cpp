// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ScaleWorld.h"

#include "support/CatalogueFiles.h"

#include <QBuffer>
#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QUrl>

namespace {

constexpr int themes = 300;
constexpr int filters = 60;
constexpr int transitions = 20;
constexpr int motions = 20;
constexpr int nonePictures = 1; // of the filters, published by mvpublish
constexpr int changingTheme = 7;
constexpr int scenes = 4;
constexpr int pictureWidth = 160;
constexpr int pictureHeight = 90;
constexpr int thumbnailBytes = 15 * 1000;
constexpr int animationBytes = 60 * 1000;
constexpr int archiveBytes = 100 * 1000;
constexpr int partBytes = 20 * 1000; // of a filter, transition or motion
constexpr quint32 changedSeed = 1000000;

/// Returns bytes that compress no better than an archive, the same for every run.
QByteArray noise(int bytes, quint32 seed)
{
    QRandomGenerator random(seed);
    QByteArray result(bytes, '\0');
    for (char& byte : result)
        byte = static_cast<char>(random.bounded(256));
    return result;
}

/// Decoders ignore what follows the end of a picture.
QByteArray padded(const QByteArray& picture, int bytes, quint32 seed)
{
    return picture + noise(bytes - picture.size(), seed);
}

QByteArray thumbnail(quint32 seed)
{
    QImage image(pictureWidth, pictureHeight, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(static_cast<int>(seed % 360), 200, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return padded(bytes, thumbnailBytes, seed);
}

QByteArray animation(quint32 seed)
{
    return padded(CatalogueFiles::read(QStringLiteral(MV_ANIMATION)), animationBytes, seed);
}

struct Kind
{
    const char* word;
    int first; // number of its first item, of all kinds
    int count;
    bool hasThumbnail;
};

constexpr Kind themeKind{"theme", 0, themes, true};
constexpr Kind filterKind{"filter", themes, filters, true};
constexpr Kind transitionKind{"transition", themes + filters, transitions, false};
constexpr Kind motionKind{"motion", themes + filters + transitions, motions, false};

QString folderOf(const Kind& kind, int number)
{
    return QStringLiteral("%1-%2").arg(QLatin1String(kind.word)).arg(number % kind.count);
}

QJsonObject use(const Kind& kind, int number)
{
    return {{QStringLiteral("item"), folderOf(kind, number)},
            {QStringLiteral("attributes"),
             QJsonObject{{QStringLiteral("Duration"), QStringLiteral("1.5")}}}};
}

QJsonArray scenesOf(int theme)
{
    QJsonArray result;
    for (int scene = 0; scene < scenes; ++scene) {
        const int number = theme * scenes + scene;
        result.append(QJsonObject{{QStringLiteral("Filter"), use(filterKind, number)},
                                  {QStringLiteral("Transition"), use(transitionKind, number)},
                                  {QStringLiteral("ImageMotion"), use(motionKind, number)}});
    }
    return result;
}

} // namespace

ScaleWorld::ScaleWorld(const QString& folder)
    : m_folder(folder)
    , m_serverLog(path("server.traffic"))
    , m_cacheLog(path("cache.traffic"))
{
}

QString ScaleWorld::theme()
{
    return CatalogueFiles::guid(changingTheme + 1);
}

int ScaleWorld::pictures()
{
    return 2 * themes + filters + nonePictures;
}

qint64 ScaleWorld::pictureBytes()
{
    return qint64{thumbnailBytes} * (themes + filters) + qint64{animationBytes} * themes;
}

int ScaleWorld::changedFiles()
{
    return 2;
}

qint64 ScaleWorld::changedBytes()
{
    return archiveBytes + thumbnailBytes;
}

qint64 ScaleWorld::listBytes() const
{
    return QFileInfo(path("tree/ResourceConfig/files.txt")).size();
}

qint64 ScaleWorld::catalogueBytes() const
{
    qint64 bytes = 0;
    const QDir folder(path("tree/ResourceConfig"));
    const QFileInfoList files = folder.entryInfoList({QStringLiteral("*.xml")}, QDir::Files);
    for (const QFileInfo& file : files)
        bytes += file.size();
    return bytes;
}

QString ScaleWorld::key() const
{
    const QByteArrayList lines = CatalogueFiles::read(path("key.pub")).split('\n');
    return QString::fromLatin1(lines.value(1));
}

void ScaleWorld::writeSource() const
{
    CatalogueFiles::write(path("source/catalogue.json"), "{\"version\": \"1.0.0\"}");
    for (const Kind& kind : {themeKind, filterKind, transitionKind, motionKind}) {
        for (int i = 0; i < kind.count; ++i) {
            const int number = kind.first + i;
            const auto seed = static_cast<quint32>(number);
            const QString name = folderOf(kind, i);
            const QString folder = path("source/") + name + QLatin1Char('/');
            QJsonObject item{{QStringLiteral("guid"), CatalogueFiles::guid(number + 1)},
                             {QStringLiteral("kind"), QLatin1String(kind.word)},
                             {QStringLiteral("name"), name},
                             {QStringLiteral("files"), QJsonArray{QStringLiteral("data.bin")}}};
            const bool isTheme = kind.first == themeKind.first;
            CatalogueFiles::write(folder + QStringLiteral("data.bin"),
                                  noise(isTheme ? archiveBytes : partBytes, seed));
            if (kind.hasThumbnail) {
                item.insert(QStringLiteral("thumbnail"), name + QStringLiteral(".png"));
                CatalogueFiles::write(folder + name + QStringLiteral(".png"), thumbnail(seed));
            }
            if (isTheme) {
                item.insert(QStringLiteral("type"), QStringLiteral("travel"));
                item.insert(QStringLiteral("scenes"), scenesOf(i));
                item.insert(QStringLiteral("animation"), name + QStringLiteral(".gif"));
                CatalogueFiles::write(folder + name + QStringLiteral(".gif"), animation(seed));
            }
            CatalogueFiles::write(folder + QStringLiteral("item.json"),
                                  QJsonDocument(item).toJson());
        }
    }
}

bool ScaleWorld::publish()
{
    CatalogueFiles::write(
        installed() + QStringLiteral("/Resource/ResourceConfig/resource_version.xml"),
        "<V value=\"1.0.0\"><dislplay value=\"none\"/><config value=\"none\"/></V>");
    writeSource();
    return mvpublish({QStringLiteral("keygen"), path("key"), QStringLiteral("--no-password")})
        && release() && start();
}

bool ScaleWorld::changeTheme()
{
    const QString name = folderOf(themeKind, changingTheme);
    const QString folder = path("source/") + name + QLatin1Char('/');
    CatalogueFiles::write(folder + QStringLiteral("data.bin"), noise(archiveBytes, changedSeed));
    CatalogueFiles::write(folder + name + QStringLiteral(".png"), thumbnail(changedSeed));
    return release();
}

bool ScaleWorld::release()
{
    return mvpublish({QStringLiteral("build"), path("source"), path("tree")})
        && mvpublish({QStringLiteral("sign"), path("tree"), QStringLiteral("--key"), path("key")});
}

bool ScaleWorld::start()
{
    const QString deploy = QStringLiteral(MV_DEPLOY);
    CatalogueFiles::write(path("server.conf"), m_serverLog.directives());
    m_server.includeBeside(path("server.conf"));
    m_server.include(deploy + QStringLiteral("/nginx.conf"));
    m_error = QStringLiteral("nginx does not run: ");
    if (!m_server.start(path("tree"), path("server"))) {
        m_error += m_server.errorText();
        return false;
    }
    CatalogueFiles::write(path("cache.conf"),
                          m_cacheLog.directives()
                              + QStringLiteral("proxy_cache_path %1 keys_zone=mv:10m "
                                               "use_temp_path=off;\n"
                                               "upstream mv_origin { server 127.0.0.1:%2; "
                                               "keepalive 16; }\n")
                                    .arg(path("kept"))
                                    .arg(QUrl(m_server.url()).port())
                                    .toUtf8());
    m_cache.includeBeside(path("cache.conf"));
    m_cache.include(deploy + QStringLiteral("/nginx-cache.conf"));
    if (!m_cache.start(path("installed"), path("cache"))) {
        m_error += m_cache.errorText();
        return false;
    }
    return true;
}

bool ScaleWorld::mvpublish(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(MV_PUBLISH), arguments);
    if (process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0)
        return true;
    m_error =
        QStringLiteral("mvpublish %1: %2")
            .arg(arguments.constFirst(), QString::fromLocal8Bit(process.readAllStandardError()));
    return false;
}
