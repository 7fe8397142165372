// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: items and files that nothing names.

#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "lint/NamedFiles.h"
#include "lint/XmlChecks.h"
#include "records/KindTable.h"
#include "tree/Guids.h"
#include "upload/UploadRecord.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace {

/// Marks the lists of definitions as used, although no item names them.
void useKindLists(LintContext& context)
{
    const ReadTree& tree = context.tree();
    for (const SKindInfo& kind : KindTable::all()) {
        const QString list = (tree.isInstallation() ? QString() : QStringLiteral("config/"))
            + kind.folder + QLatin1Char('/') + kind.folder + QStringLiteral(".xml");
        if (!kind.hasDefinitionList)
            continue;
        context.use(list);
        if (NamedFiles::isThere(context, list, {list, 0, QString()}))
            XmlChecks::isReadable(context, list, QString());
    }
}

void reportUnusedItems(LintContext& context)
{
    QSet<QString> shown;
    for (const DisplayCatalogue& display : context.tree().displays()) {
        if (!display.readable)
            return;
        for (const DisplayEntry& entry : display.entries)
            shown.insert(entry.guid.toUpper());
    }
    for (const SKindInfo& kind : KindTable::all()) {
        for (const ConfigEntry& entry : context.tree().config(kind.type)) {
            const QString& guid = entry.item.m_qsGUID;
            if (Guids::isProper(guid) && guid != Guids::none && !shown.contains(guid)
                && !context.dependencies.contains(guid))
                context.report("unused-item", ReadTree::catalogue(Editions::configFile), entry.line,
                               guid,
                               QStringLiteral("no display catalogue shows the %1 and no theme uses "
                                              "it")
                                   .arg(kind.word()),
                               QStringLiteral("show it, or take it away"));
        }
    }
}

} // namespace

void Checks::unused(LintContext& context)
{
    useKindLists(context);
    const ReadTree& tree = context.tree();
    // Without a version file nothing leads to a catalogue that would name anything.
    if (!tree.configReadable() || tree.displays().isEmpty())
        return;
    if (context.allThemesRead)
        reportUnusedItems(context);
    for (const DisplayCatalogue& display : tree.displays()) {
        if (!display.readable)
            return; // the names in it are unknown
    }
    const QDir root(tree.folder());
    QStringList files;
    QDirIterator it(tree.folder(), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(root.relativeFilePath(it.next()));
    files.sort();
    for (const QString& file : qAsConst(files)) {
        // Uploads leave records at their remote, of which this tree may be a copy.
        if (!context.isUsed(file) && UploadRecord::serialOf(file) == 0)
            context.report("unused-file", file, 0, QString(), QStringLiteral("nothing names it"),
                           QStringLiteral("take it away, or name it in the catalogue"));
    }
}
