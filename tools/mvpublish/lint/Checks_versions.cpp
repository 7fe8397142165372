// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: version files and whether the catalogues can be read.

#include "host/Utils.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "lint/NamedFiles.h"
#include "lint/XmlChecks.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

const QString rebuild = QStringLiteral("rebuild the tree");

void checkSum(LintContext& context, const PublishedVersion& version, const QString& announced,
              const QString& catalogue)
{
    const QString actual = Utils::getMD5(context.tree().absolute(catalogue));
    if (announced.isEmpty() || actual.isEmpty() || announced == actual)
        return;
    context.report("checksum", version.file, 0, QString(),
                   QStringLiteral("announces the sum %1 for %2, which has %3")
                       .arg(announced, catalogue, actual),
                   QStringLiteral("clients refuse the catalogue until they agree; ") + rebuild);
}

bool hasVersion(const PublishedVersion& version)
{
    static const QRegularExpression dotted(QStringLiteral("\\A[0-9]+(\\.[0-9]+)*\\z"));
    return dotted.match(version.content.m_qsVersion).hasMatch();
}

void checkContent(LintContext& context, const PublishedVersion& version)
{
    if (!hasVersion(version))
        context.report("version", version.file, 0, QString(),
                       QStringLiteral("\"%1\" is not a version").arg(version.content.m_qsVersion),
                       QStringLiteral("give the root element a value of numbers with dots, the one "
                                      "of the installed catalogue"));
    if (version.content.m_qsVer_Display.isEmpty() || version.content.m_qsVer_config.isEmpty())
        context.report("version", version.file, 0, QString(),
                       QStringLiteral("announces no sum for a catalogue, so checks end there"),
                       QStringLiteral("it needs the elements \"dislplay\" (spelled so) and "
                                      "\"config\", each with a value"));
}

/// Reports a catalogue file that is missing, outside the tree or unreadable.
bool checkCatalogue(LintContext& context, const QString& file)
{
    if (NamedFiles::isThere(context, file, {file, 0, QString()}))
        return XmlChecks::isReadable(context, file, QString());
    if (QFileInfo(context.tree().absolute(file)).isFile())
        return false;
    context.report("missing-file", file, 0, QString(), QStringLiteral("is missing"), rebuild);
    return false;
}

} // namespace

void Checks::versions(LintContext& context)
{
    const ReadTree& tree = context.tree();
    const QString config = ReadTree::catalogue(Editions::configFile);
    context.use(config);
    checkCatalogue(context, config);
    for (const DisplayCatalogue& display : tree.displays()) {
        context.use(display.file);
        checkCatalogue(context, display.file);
    }
    const PublishedVersion* first = nullptr;
    for (const PublishedVersion& version : tree.versions()) {
        context.use(version.file);
        const bool isXml = checkCatalogue(context, version.file);
        if (isXml && !version.content.bLoadXMLOK)
            context.report("version", version.file, 0, QString(),
                           QStringLiteral("is too large for a version file"), rebuild);
        if (!version.content.bLoadXMLOK)
            continue;
        checkContent(context, version);
        checkSum(context, version, version.content.m_qsVer_Display, version.displayFile);
        checkSum(context, version, version.content.m_qsVer_config, config);
        if (!hasVersion(version))
            continue;
        if (!first)
            first = &version;
        if (version.content.m_qsVersion != first->content.m_qsVersion)
            context.report(
                "editions", version.file, 0, QString(),
                QStringLiteral("has the version %1, but %2 has %3")
                    .arg(version.content.m_qsVersion, first->file, first->content.m_qsVersion),
                QStringLiteral("the editions share one config catalogue; ") + rebuild);
    }
    if (tree.versions().isEmpty())
        context.report("missing-file", Editions::catalogueFolder, 0, QString(),
                       QStringLiteral("holds no version file of any edition"),
                       QStringLiteral("without one no client looks at the catalogues; ") + rebuild);
}
