// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFloor.h"

#include "CatalogueWorld.h"

#include <QDomDocument>
#include <QFile>

namespace {

QDomElement parse(const QString& path, QDomDocument& doc)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !doc.setContent(file.readAll()))
        qFatal("cannot read %s", qPrintable(path));
    return doc.documentElement();
}

QString childText(const QDomElement& parent, const QString& tag)
{
    return parent.firstChildElement(tag).text();
}

} // namespace

CatalogueFloor::CatalogueFloor(const CatalogueWorld& world)
    : m_configFile(world.configFile())
    , m_displayFile(world.displayFile())
    , m_downloaded(world.downloadedPreviews() + QLatin1Char('/'))
    , m_installed(world.installedPreviews() + QLatin1Char('/'))
{
}

int CatalogueFloor::read()
{
    m_texts.clear();
    readConfig();
    return readDisplay();
}

void CatalogueFloor::parseOnly() const
{
    for (const QString& file : {m_configFile, m_displayFile}) {
        QDomDocument doc;
        parse(file, doc);
    }
}

void CatalogueFloor::readConfig()
{
    QDomDocument doc;
    const QDomElement group = parse(m_configFile, doc).firstChildElement(QStringLiteral("Theme"));
    const QString itemTag = QStringLiteral("Item");
    const QString urlTag = QStringLiteral("Url");
    for (QDomElement item = group.firstChildElement(itemTag); !item.isNull();
         item = item.nextSiblingElement(itemTag)) {
        m_texts << childText(item, QStringLiteral("GUID"))
                << childText(item, QStringLiteral("UrlCnf"));
        const QDomElement urls = item.firstChildElement(QStringLiteral("UrlResource"));
        for (QDomElement url = urls.firstChildElement(urlTag); !url.isNull();
             url = url.nextSiblingElement(urlTag))
            m_texts << url.text();
    }
}

int CatalogueFloor::readDisplay()
{
    QDomDocument doc;
    const QDomElement category =
        parse(m_displayFile, doc).firstChildElement(QStringLiteral("Theme"));
    const QString groupTag = QStringLiteral("Group");
    const QString itemTag = QStringLiteral("Item");
    int present = 0;
    for (QDomElement group = category.firstChildElement(groupTag); !group.isNull();
         group = group.nextSiblingElement(groupTag)) {
        m_texts << group.attribute(QStringLiteral("Type"));
        for (QDomElement item = group.firstChildElement(itemTag); !item.isNull();
             item = item.nextSiblingElement(itemTag)) {
            m_texts << childText(item, QStringLiteral("GUID"))
                    << childText(item, QStringLiteral("Name"));
            for (const QString& tag : {QStringLiteral("UrlThumb"), QStringLiteral("UrlGif")}) {
                const QString name = childText(item, tag);
                const bool downloaded = QFile::exists(m_downloaded + name);
                const bool installed = QFile::exists(m_installed + name);
                present += downloaded || installed ? 1 : 0;
                m_texts << name;
            }
        }
    }
    return present;
}
