// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReplacedTree.h"

#include "download/ReleasePaths.h"
#include "records/KindTable.h"
#include "tree/Editions.h"
#include "tree/FolderContent.h"

#include <QFile>
#include <QSet>
#include <QUrl>
#include <QXmlStreamReader>

namespace {

/// Returns the shared names, which only an installation's catalogue knows.
QSet<QString> sharedNames(const QString& folder)
{
    QSet<QString> names;
    QFile file(folder + QLatin1Char('/') + Editions::catalogueFolder + QLatin1Char('/')
               + Editions::configFile);
    if (!file.open(QIODevice::ReadOnly))
        return names;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd() && !reader.hasError()) { // after a failed read, the end is never reached
        if (reader.readNext() != QXmlStreamReader::StartElement
            || reader.name() != QLatin1String("Url"))
            continue;
        const QString address =
            QUrl::fromPercentEncoding(reader.readElementText().toUtf8()); // "/ThemesBgm/a.mp3"
        if (address.startsWith(QLatin1Char('/')))
            names.insert(address.section(QLatin1Char('/'), 1, 1));
    }
    return names;
}

QSet<QString> namesOfInstallation(const QString& folder)
{
    QSet<QString> names = sharedNames(folder);
    for (const SKindInfo& kind : KindTable::all())
        names.insert(kind.folder);
    return names;
}

} // namespace

QString ReplacedTree::fault(const QString& folder, bool installed)
{
    QSet<QString> names = installed
        ? namesOfInstallation(folder)
        : QSet<QString>{QStringLiteral("config"), ReleasePaths::contentFolder()};
    names += {Editions::catalogueFolder, QStringLiteral("display")};
    QStringList entries;
    QString error;
    if (!FolderContent::names(folder, entries, &error))
        return error;
    for (const QString& entry : qAsConst(entries)) {
        if (!names.contains(entry))
            return QStringLiteral("%1 holds %2, which is not part of %3")
                .arg(folder, entry,
                     installed ? QStringLiteral("an installation")
                               : QStringLiteral("a server's tree"));
    }
    return QString();
}
