// Checks: the files that items name, and those that nobody names.

#include "Archive.h"
#include "catalogue/MVThemeMgr.h"
#include "Guids.h"
#include "host/HostSettings.h"
#include "Kinds.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "lint/Picture.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUrl>

namespace {

/// The catalogue entry that names a file.
struct NamedBy
{
    QString catalogue;
    int line;
    QString item;
};

bool isAddress(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([A-Za-z0-9\\-._~!$&'()*+,;=:@/]|%[0-9A-Fa-f]{2})*\\z"));
    return form.match(text).hasMatch();
}

/// The name under which a file is looked for must be the one that the server is asked for.
bool isAddressRight(LintContext& context, const SFileInfo& info, const NamedBy& by)
{
    const QString& name = info.m_qsUrl;
    if (!isAddress(ReadTree::addressOf(info))) {
        context.report("encoding", by.catalogue, by.line, by.item,
                       QStringLiteral("the name %1 cannot stand in an address").arg(name),
                       QStringLiteral("write %1")
                           .arg(QString::fromLatin1(QUrl::toPercentEncoding(
                               QUrl::fromPercentEncoding(name.toUtf8()), "/"))));
        return false;
    }
    if (context.tree().addressLeadsToFile(info))
        return true;
    context.report("address", by.catalogue, by.line, by.item,
                   QStringLiteral("the name %1 is fetched from %2 and looked for elsewhere")
                       .arg(name, ReadTree::addressOf(info)),
                   info.m_bThumbDir
                       ? QStringLiteral("name previews without a slash in front")
                       : QStringLiteral("begin the name with one slash and encode all of it, or "
                                        "nothing of it"));
    return false;
}

/// The file that a record names, if it is there; else an empty text and, if it has to be, a
/// finding.
QString existing(LintContext& context, const SFileInfo& info, const NamedBy& by, bool needed,
                 bool fetched)
{
    QString file = context.tree().fileOf(info);
    // Several catalogues may say the same of an item.
    const bool isNews = context.isFirstLook(by.item + QLatin1Char('\n') + info.m_qsUrl);
    if (file.isEmpty() && !isNews)
        return QString();
    if (file.isEmpty()) {
        context.report("outside", by.catalogue, by.line, by.item,
                       QStringLiteral("the name %1 leads out of the tree").arg(info.m_qsUrl),
                       QStringLiteral("no client fetches it; name a file below the tree"));
        return QString();
    }
    context.use(file);
    if (fetched && isNews && !isAddressRight(context, info, by))
        return QString();
    if (QFileInfo(context.tree().absolute(file)).isFile())
        return file;
    if (needed && context.isFirstLook(file))
        context.report("missing-file", by.catalogue, by.line, by.item,
                       QStringLiteral("%1 is missing").arg(file),
                       QStringLiteral("publish the file, or take its name away"));
    return QString();
}

void checkArchive(LintContext& context, const QString& file, const QString& item)
{
    QString error;
    if (file.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive)
        && !Archive::isWhole(context.tree().absolute(file), &error))
        context.report("archive", file, 0, item, QStringLiteral("is no whole archive: ") + error,
                       QStringLiteral("pack it anew"));
}

/// Where the definition of an item lies whose definition is not looked for: it is built in.
QString definitionPath(const SCfg_Item& item)
{
    return ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Config, item.m_eType)
        + QLatin1Char('/') + item.m_qsGUID + QStringLiteral(".xml");
}

void checkDefinition(LintContext& context, SCfg_Item& item, const NamedBy& by, bool builtIn)
{
    ReadTree::library().doItem_Info_CfgXML(item);
    SFileInfo& definition = item.m_info_CfgXML;
    bool needed = builtIn == context.tree().isInstallation();
    bool fetched = !builtIn;
    if (definition.m_qsUrl.isEmpty()) {
        if (item.m_eType == eCfgItem_Theme)
            context.report("no-name", by.catalogue, by.line, by.item,
                           QStringLiteral("the theme names no config file"),
                           QStringLiteral("without \"UrlCnf\" its parts are never known"));
        return;
    }
    if (definition.m_qsFile.isEmpty()) {
        if (!builtIn)
            context.report("guid-reserved", by.catalogue, by.line, by.item,
                           QStringLiteral("the GUID is that of a built-in item, so its definition "
                                          "is never fetched"),
                           QStringLiteral("take a fresh GUID"));
        definition.m_qsFile = definitionPath(item);
        needed = false;
        fetched = false;
    }
    const QString file = existing(context, definition, by, needed, fetched);
    // Themes are looked at as themes.
    if (!file.isEmpty() && item.m_eType != eCfgItem_Theme && context.isFirstLook(file))
        Checks::isReadable(context, file, by.item);
}

/// An item without a GUID has no files for the library; its own are not called unused as well.
void useNames(LintContext& context, const SCfg_Item& item)
{
    QVector<SFileInfo> named = item.m_vecResource;
    named.append(item.m_info_CfgXML);
    for (SFileInfo& info : named) {
        info.m_qsFile = ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                              MVThemeMgr::eDirTag_Config)
            + QString::fromUtf8(QByteArray::fromPercentEncoding(info.m_qsUrl.toUtf8()));
        context.use(context.tree().fileOf(info));
    }
}

void checkItem(LintContext& context, const ConfigEntry& entry)
{
    SCfg_Item item = entry.item;
    MVThemeMgr& library = ReadTree::library();
    const QString& guid = item.m_qsGUID;
    if (!Guids::isGuid(guid)) {
        useNames(context, item);
        return;
    }
    const NamedBy by{ReadTree::catalogue(Editions::configFile), entry.line, context.label(guid)};
    // Built-in items come with the application, all others from the server.
    const bool builtIn = library.isLocal_Theme(item) == MVThemeMgr::eLoadDir_Local;
    const bool needed = builtIn == context.tree().isInstallation();

    checkDefinition(context, item, by, builtIn);
    library.doItem_Info_DependRes(item);
    for (const SFileInfo& resource : qAsConst(item.m_vecResource)) {
        const bool shared = resource.m_qsUrl.startsWith(QLatin1Char('/'));
        const QString file = existing(context, resource, by, needed, !builtIn || shared);
        if (!file.isEmpty() && context.isFirstLook(file))
            checkArchive(context, file, by.item);
    }
}

void checkPicture(LintContext& context, const QString& file, const QString& item, bool isAnimation)
{
    if (file.isEmpty() || !context.isFirstLook(file))
        return;
    const QString path = context.tree().absolute(file);
    const Picture::Verdict verdict =
        isAnimation ? Picture::animation(path) : Picture::thumbnail(path);
    if (!verdict.broken.isEmpty())
        context.report("picture", file, 0, item,
                       QStringLiteral("cannot be shown: ") + verdict.broken,
                       QStringLiteral("write the picture anew"));
    else if (!verdict.oddSize.isEmpty())
        context.report("picture-size", file, 0, item, verdict.oddSize,
                       QStringLiteral("previews are 16 to 9; 320x180 for a thumbnail and 192x108 "
                                      "for an animation do well"));
}

void checkPreview(LintContext& context, const SFileInfo& info, const NamedBy& by, bool needed)
{
    const bool isAnimation = info.m_qsUrl.endsWith(QLatin1String(".gif"), Qt::CaseInsensitive);
    if (!info.m_qsUrl.isEmpty())
        checkPicture(context, existing(context, info, by, needed, true), by.item, isAnimation);
    else if (needed && context.isFirstLook(by.item + QLatin1Char('\n')))
        context.report("no-name", by.catalogue, by.line, by.item,
                       QStringLiteral("the item names no thumbnail or no animation"),
                       QStringLiteral("without both it is not shown"));
}

/// The library has no such file for this kind, but the catalogue names one.
SFileInfo spareRecord(const DisplayEntry& entry, const QString& name)
{
    SFileInfo info;
    info.m_eType = entry.type;
    info.m_bThumbDir = true;
    info.m_qsUrl = name;
    info.m_qsFile = ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                          MVThemeMgr::eDirTag_Display, entry.type)
        + QLatin1Char('/') + name;
    return info;
}

/// The picture of the "none" entry is the active skin's.
void checkNonePictures(LintContext& context, const DisplayEntry& entry, const NamedBy& by)
{
    for (const char* skin : {"Classical", "Elegance", "Simplicity", "Calm"}) {
        hostSettings().currentSkin = QString::fromLatin1(skin);
        SCfg_Item item = entry.item;
        ReadTree::library().doItem_Info_Thumb(item);
        checkPreview(context, item.m_info_Thumb, by, true);
    }
    hostSettings().currentSkin.clear();
}

void checkEntry(LintContext& context, const DisplayCatalogue& display, const DisplayEntry& entry)
{
    const NamedBy by{display.file, entry.line, context.label(entry.guid)};
    SCfg_Item item = entry.item;
    if (!entry.known || !Guids::isGuid(entry.guid)) {
        for (const QString& name : {item.m_info_Thumb.m_qsUrl, entry.animation})
            context.use(context.tree().fileOf(spareRecord(entry, name)));
        return;
    }
    if (entry.guid == Guids::none)
        checkNonePictures(context, entry, by);
    ReadTree::library().doItem_Info_Thumb(item);
    ReadTree::library().doItem_Info_Gif(item);
    if (Kinds::needsThumbnail(entry.type))
        checkPreview(context, item.m_info_Thumb, by, true);
    else
        checkPreview(context, spareRecord(entry, item.m_info_Thumb.m_qsUrl), by, false);
    if (Kinds::needsAnimation(entry.type))
        checkPreview(context, item.m_info_Gif, by, true);
    else
        checkPreview(context, spareRecord(entry, entry.animation), by, false);
}

/// Files that belong to a tree though no item names them.
void useOwnFiles(LintContext& context)
{
    const ReadTree& tree = context.tree();
    for (const Kind& kind : Kinds::all()) {
        const QString list = (tree.isInstallation() ? QString() : QStringLiteral("config/"))
            + kind.folder + QLatin1Char('/') + kind.folder + QStringLiteral(".xml");
        if (!kind.hasList || !QFileInfo(tree.absolute(list)).isFile())
            continue;
        context.use(list);
        Checks::isReadable(context, list, QString());
    }
    const QString types = ReadTree::catalogue(QStringLiteral("ThemeType.json"));
    QFile file(tree.absolute(types));
    if (!tree.isInstallation() || !file.open(QIODevice::ReadOnly))
        return;
    context.use(types);
    const QByteArray text = file.readAll();
    QJsonParseError error;
    QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        context.report("malformed", types, text.left(error.offset).count('\n') + 1, QString(),
                       QStringLiteral("is no JSON: ") + error.errorString(),
                       QStringLiteral("put it right where the line says"));
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
    for (const Kind& kind : Kinds::all()) {
        for (const ConfigEntry& entry : context.tree().config(kind.type)) {
            const QString& guid = entry.item.m_qsGUID;
            if (Guids::isProper(guid) && guid != Guids::none && !shown.contains(guid)
                && !context.dependencies.contains(guid))
                context.report("unused-item", ReadTree::catalogue(Editions::configFile), entry.line,
                               guid,
                               QStringLiteral("no display catalogue shows the %1 and no theme uses "
                                              "it")
                                   .arg(kind.word),
                               QStringLiteral("show it, or take it away"));
        }
    }
}

} // namespace

void Checks::itemFiles(LintContext& context)
{
    for (const Kind& kind : Kinds::all()) {
        for (const ConfigEntry& entry : context.tree().config(kind.type))
            checkItem(context, entry);
    }
}

void Checks::previews(LintContext& context)
{
    for (const DisplayCatalogue& display : context.tree().displays()) {
        for (const DisplayEntry& entry : display.entries)
            checkEntry(context, display, entry);
    }
}

void Checks::unused(LintContext& context)
{
    useOwnFiles(context);
    const ReadTree& tree = context.tree();
    if (!tree.configReadable())
        return;
    if (context.allThemesRead)
        reportUnusedItems(context);
    for (const DisplayCatalogue& display : tree.displays()) {
        if (!display.readable)
            return; // what it names is not known
    }
    const QDir root(tree.folder());
    QStringList files;
    QDirIterator it(tree.folder(), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(root.relativeFilePath(it.next()));
    files.sort();
    for (const QString& file : qAsConst(files)) {
        if (!context.isUsed(file))
            context.report("unused-file", file, 0, QString(), QStringLiteral("nothing names it"),
                           QStringLiteral("take it away, or name it in the catalogue"));
    }
}
