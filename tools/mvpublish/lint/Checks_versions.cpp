// Checks: version files and whether the catalogues can be read.

#include "host/Utils.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "lint/NamedFiles.h"

#include "catalogue/MVThemeMgr.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

const QString rebuild = QStringLiteral("build the tree anew");

void checkSum(LintContext& context, const VersionFile& version, const QString& announced,
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

bool hasVersion(const VersionFile& version)
{
    static const QRegularExpression dotted(QStringLiteral("\\A[0-9]+(\\.[0-9]+)*\\z"));
    return dotted.match(version.version).hasMatch();
}

void checkContent(LintContext& context, const VersionFile& version)
{
    if (!hasVersion(version))
        context.report("version", version.file, 0, QString(),
                       QStringLiteral("\"%1\" is no version").arg(version.version),
                       QStringLiteral("give the root element a value of numbers with dots, the one "
                                      "of the installed catalogue"));
    if (version.displaySum.isEmpty() || version.configSum.isEmpty())
        context.report("version", version.file, 0, QString(),
                       QStringLiteral("announces no sum for a catalogue, so checks end there"),
                       QStringLiteral("it needs the elements \"dislplay\" (spelled so) and "
                                      "\"config\", each with a value"));
}

/// Reports a catalogue file that is missing, that lies elsewhere or that no reader accepts.
bool checkCatalogue(LintContext& context, const QString& file)
{
    if (NamedFiles::isThere(context, file, {file, 0, QString()}))
        return Checks::isReadable(context, file, QString());
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
    const VersionFile* first = nullptr;
    for (const VersionFile& version : tree.versions()) {
        context.use(version.file);
        const bool isXml = checkCatalogue(context, version.file);
        if (isXml && !version.readable)
            context.report("version", version.file, 0, QString(),
                           QStringLiteral("is too large for a version file"), rebuild);
        if (!version.readable)
            continue;
        checkContent(context, version);
        checkSum(context, version, version.displaySum, version.displayFile);
        checkSum(context, version, version.configSum, config);
        if (!hasVersion(version))
            continue;
        if (!first)
            first = &version;
        if (version.version != first->version)
            context.report("editions", version.file, 0, QString(),
                           QStringLiteral("has the version %1, but %2 has %3")
                               .arg(version.version, first->file, first->version),
                           QStringLiteral("the editions share one config catalogue; ") + rebuild);
    }
    if (tree.versions().isEmpty())
        context.report("missing-file", Editions::catalogueFolder, 0, QString(),
                       QStringLiteral("holds no version file of any edition"),
                       QStringLiteral("without one no client looks at the catalogues; ") + rebuild);
}

bool Checks::isReadable(LintContext& context, const QString& file, const QString& item)
{
    QDomDocument doc;
    const QString path = context.tree().absolute(file);
    if (ReadTree::library().checkXml(path, doc))
        return true;
    // A reader that says where it stopped, and that no document can exhaust.
    QFile in(path);
    const bool open = in.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&in);
    while (open && !reader.atEnd() && !reader.hasError())
        reader.readNext();
    const bool malformed = !open || reader.hasError();
    context.report(
        "malformed", file, malformed ? static_cast<int>(reader.lineNumber()) : 0, item,
        malformed
            ? QStringLiteral("is no XML: %1").arg(open ? reader.errorString() : in.errorString())
            : QStringLiteral("is refused by the library"),
        malformed ? QStringLiteral("put it right where the line says")
                  : QStringLiteral("it is larger than 64 MiB, nested deeper than 64 "
                                   "elements, or declares entities"));
    return false;
}
