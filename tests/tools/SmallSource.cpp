// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SmallSource.h"

#include "host/Skins.h"
#include "support/CatalogueFiles.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QJsonObject use(const QString& item, const QJsonObject& attributes)
{
    return {{QStringLiteral("item"), item}, {QStringLiteral("attributes"), attributes}};
}

QJsonObject text(const QString& content)
{
    return {{QStringLiteral("Text"),
             use(QStringLiteral("text/title"), {{QStringLiteral("Content"), content}})}};
}

QJsonObject film()
{
    const QJsonObject scene{
        {QStringLiteral("Filter"),
         use(SmallSource::guid(QStringLiteral("look")),
             {{QStringLiteral("Strength"), QStringLiteral("0.5")}})},
        {QStringLiteral("Element"), use(QStringLiteral("look"), {})},
        {QStringLiteral("Transition"), use(QStringLiteral("fade"), {})},
        {QStringLiteral("ImageMotion"), use(QStringLiteral("zoom"), {})},
    };
    return {{QStringLiteral("type"), QStringLiteral("travel")},
            {QStringLiteral("animation"), QStringLiteral("film.gif")},
            {QStringLiteral("shared"), QJsonArray{QStringLiteral("ThemesBgm/Slow Song.mp3")}},
            {QStringLiteral("scenes"), QJsonArray{scene, QJsonObject()}},
            {QStringLiteral("start"), text(QStringLiteral("Hello & <you>"))},
            {QStringLiteral("end"), text(QStringLiteral("Bye"))},
            {QStringLiteral("mask"),
             QJsonObject{{QStringLiteral("Filter"), use(QStringLiteral("look"), {})}}}};
}

} // namespace

SmallSource::SmallSource(const QString& folder)
    : m_folder(folder)
{
    QDir(folder).removeRecursively();
    setManifest(QString(), {{QStringLiteral("version"), QStringLiteral("1.2.0")}});
    writeItem(QStringLiteral("look"), QStringLiteral("filter"),
              {{QStringLiteral("family"), QStringLiteral("look")},
               {QStringLiteral("parameters"),
                QJsonObject{{QStringLiteral("Tone"), QStringLiteral("0.8")}}}});
    writeItem(QStringLiteral("title"), QStringLiteral("filter"), {{QStringLiteral("text"), true}});
    writeItem(QStringLiteral("fade"), QStringLiteral("transition"));
    writeItem(QStringLiteral("zoom"), QStringLiteral("motion"));
    writeItem(QStringLiteral("paper"), QStringLiteral("bgmaterial"));
    CatalogueFiles::write(file(QStringLiteral("shared/ThemesBgm/Slow Song.mp3")), "a slow song");
    writeItem(QStringLiteral("film"), QStringLiteral("theme"), film());
    CatalogueFiles::write(file(QStringLiteral("film/film.gif")), animation());
}

void SmallSource::writeItem(const QString& name, const QString& kind, QJsonObject more) const
{
    more.insert(QStringLiteral("guid"), guid(name));
    more.insert(QStringLiteral("kind"), kind);
    more.insert(QStringLiteral("name"), QStringLiteral("My ") + name);
    more.insert(QStringLiteral("thumbnail"), name + QStringLiteral(" 1.png"));
    more.insert(QStringLiteral("files"),
                QJsonArray{QStringLiteral("pack.zip"), QStringLiteral("notes/read me.txt")});
    setManifest(name, more);
    const QString folder = QFileInfo(manifestFile(name)).path() + QLatin1Char('/');
    CatalogueFiles::write(folder + name + QStringLiteral(" 1.png"), thumbnail());
    CatalogueFiles::write(folder + QStringLiteral("pack/b/settings.json"), "{}");
    CatalogueFiles::write(folder + QStringLiteral("pack/a.txt"), name.toUtf8().repeated(100));
    CatalogueFiles::write(folder + QStringLiteral("notes/read me.txt"),
                          "Notes on " + name.toUtf8());
}

QString SmallSource::manifestFile(const QString& item) const
{
    if (item.isEmpty())
        return file(QStringLiteral("catalogue.json"));
    // Items may be at any depth.
    const QString folder = item == QLatin1String("title") ? QStringLiteral("text/title") : item;
    return file(folder + QStringLiteral("/item.json"));
}

QJsonObject SmallSource::manifest(const QString& item) const
{
    return QJsonDocument::fromJson(CatalogueFiles::read(manifestFile(item))).object();
}

void SmallSource::setManifest(const QString& item, const QJsonObject& manifest) const
{
    CatalogueFiles::write(manifestFile(item), QJsonDocument(manifest).toJson());
}

void SmallSource::set(const QString& item, const char* key, const QJsonValue& value) const
{
    QJsonObject object = manifest(item);
    if (value.isUndefined())
        object.remove(QLatin1String(key));
    else
        object.insert(QLatin1String(key), value);
    setManifest(item, object);
}

QString SmallSource::addWork() const
{
    constexpr int bytes = 1 << 20; // a repetition after so many is too far away to be packed
    constexpr int times = 32;
    QByteArray noise(bytes, '\0');
    quint32 state = 1;
    for (char& byte : noise) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    QString name = file(QStringLiteral("zoom/pack/noise.bin"));
    CatalogueFiles::write(name, noise.repeated(times));
    return name;
}

QString SmallSource::guid(const QString& item)
{
    const QStringList items{QStringLiteral("look"),  QStringLiteral("title"),
                            QStringLiteral("fade"),  QStringLiteral("zoom"),
                            QStringLiteral("paper"), QStringLiteral("film")};
    return CatalogueFiles::guid(items.indexOf(item) + 1);
}

QByteArray SmallSource::thumbnail()
{
    return CatalogueFiles::read(QStringLiteral(MV_SAMPLES "/server/display/VideoFilters/None.png"));
}

QByteArray SmallSource::animation()
{
    return CatalogueFiles::read(
        QStringLiteral(MV_SAMPLES "/server/display/Themes/alpine-journey.gif"));
}

QByteArray SmallSource::jpeg()
{
    return CatalogueFiles::read(
        QStringLiteral(MV_SAMPLES "/server/display/Themes/alpine-journey.jpg"));
}

QByteArray SmallSource::bitmap()
{
    constexpr quint32 width = 192;
    constexpr quint32 height = 108;
    constexpr quint32 header = 54;
    constexpr quint32 pixels = width * height * 3;
    constexpr quint16 planes = 1;
    constexpr quint16 bits = 24;
    QByteArray bytes("BM");
    QDataStream out(&bytes, QIODevice::Append);
    out.setByteOrder(QDataStream::LittleEndian);
    out << header + pixels << quint32(0) << header;
    out << header - 14 << width << height << planes << bits;
    for (int unused = 0; unused < 6; ++unused)
        out << quint32(0);
    return bytes + QByteArray(pixels, 'p');
}

QStringList SmallSource::nonePictures()
{
    QStringList names{QStringLiteral("None.png")};
    for (const SSkin& skin : allSkins)
        names.append(QString::fromLatin1(skin.nonePicture));
    names.removeDuplicates();
    return names;
}

void SmallSource::addNonePicturesBut(const QString& name) const
{
    QStringList names = nonePictures();
    names.removeAll(name);
    for (const QString& other : std::as_const(names))
        CatalogueFiles::write(file(QStringLiteral("none/") + other), thumbnail());
}
