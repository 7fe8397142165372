// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/CatalogueFiles.h"

#include "host/FileLink.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QByteArray element(const char* tag, const QString& text)
{
    return QByteArray("<") + tag + '>' + text.toHtmlEscaped().toUtf8() + "</" + tag + ">\n";
}

QByteArray wrapped(const QString& tag, const QByteArray& content)
{
    return '<' + tag.toUtf8() + ">\n" + content + "</" + tag.toUtf8() + ">\n";
}

QByteArray displayItem(const CatalogueFiles::DisplayItem& item, bool withGif)
{
    QByteArray content =
        element("GUID", item.guid) + element("Name", item.name) + element("UrlThumb", item.thumb);
    if (withGif)
        content += element("UrlGif", item.gif);
    if (!item.isText.isEmpty())
        content += element("IsText", item.isText);
    return wrapped(QStringLiteral("Item"), content);
}

} // namespace

QString CatalogueFiles::guid(int number)
{
    return QStringLiteral("{ABCDEF01-2345-4789-ABCD-%1}")
        .arg(number, 12, 16, QLatin1Char('0'))
        .toUpper();
}

QVector<CatalogueFiles::CfgItem> CatalogueFiles::cfgItems(int count)
{
    QVector<CfgItem> items;
    for (int number = 0; number < count; ++number)
        items.append({guid(number), QString(), {}});
    return items;
}

QVector<CatalogueFiles::DisplayItem> CatalogueFiles::displayItems(int count)
{
    QVector<DisplayItem> items;
    for (int number = 0; number < count; ++number)
        items.append({guid(number), QString::number(number), QString()});
    return items;
}

QByteArray CatalogueFiles::cfgGroup(const QString& name, const QVector<CfgItem>& items)
{
    QByteArray content;
    for (const CfgItem& item : items) {
        QByteArray urls;
        for (const QString& url : item.resources)
            urls += element("Url", url);
        QByteArray fields = element("GUID", item.guid) + element("UrlCnf", item.urlCnf);
        if (!urls.isEmpty())
            fields += wrapped(QStringLiteral("UrlResource"), urls);
        content += wrapped(QStringLiteral("Item"), fields);
    }
    return wrapped(name, content);
}

QByteArray CatalogueFiles::displayCategory(const QString& name, const QVector<DisplayItem>& items)
{
    QByteArray content;
    for (const DisplayItem& item : items)
        content += displayItem(item, false);
    return wrapped(name, content);
}

QByteArray CatalogueFiles::displayThemes(const QVector<ThemeGroup>& groups)
{
    QByteArray content;
    for (const ThemeGroup& group : groups) {
        content += "<Group Type=\"" + group.type.toHtmlEscaped().toUtf8() + "\">\n";
        for (const DisplayItem& item : group.items)
            content += displayItem(item, true);
        content += "</Group>\n";
    }
    return wrapped(QStringLiteral("Theme"), content);
}

QByteArray CatalogueFiles::document(const QByteArray& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Resource>\n" + content + "</Resource>\n";
}

void CatalogueFiles::write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray CatalogueFiles::read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList CatalogueFiles::filesBelow(const QString& folder)
{
    const QDir::Filters all = QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QStringList files = QDir(folder).entryList(QDir::Files | all);
    const QFileInfoList folders = QDir(folder).entryInfoList(QDir::Dirs | all);
    for (const QFileInfo& inner : folders) {
        if (FileLink::isLink(inner))
            continue;
        const QStringList below = filesBelow(inner.filePath());
        for (const QString& file : below)
            files.append(inner.fileName() + QLatin1Char('/') + file);
    }
    files.sort();
    return files;
}
