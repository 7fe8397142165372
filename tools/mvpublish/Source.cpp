// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Source.h"

#include "host/FileLink.h"
#include "host/PictureFormat.h"
#include "host/Skins.h"
#include "JsonFields.h"
#include "Manifest.h"
#include "PublishedNames.h"
#include "records/DependencySlots.h"
#include "records/KindTable.h"
#include "tree/Editions.h"
#include "tree/FileNames.h"
#include "tree/FolderContent.h"
#include "tree/Guids.h"
#include "tree/PictureFault.h"
#include "tree/Placeholders.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

const QString noneFolder = QStringLiteral("none");

bool comesBefore(const SourceItem& a, const SourceItem& b)
{
    return a.order != b.order ? a.order < b.order : a.path < b.path;
}

} // namespace

bool Source::open(const QString& folder)
{
    m_folder = QDir(folder).absolutePath();
    if (!QFileInfo(m_folder).isDir()) {
        m_faults.append(QStringLiteral("%1: no such folder").arg(folder));
        return false;
    }
    readCatalogue();
    return true;
}

bool Source::readItems(const QString& folder)
{
    if (!open(folder))
        return false;
    findItems(QString());
    if (m_faults.isEmpty())
        resolveUses();
    return m_faults.isEmpty();
}

bool Source::read(const QString& folder)
{
    if (!open(folder))
        return false;
    findNonePictures();
    findItems(QString());
    std::sort(m_items.begin(), m_items.end(), &comesBefore);
    if (m_faults.isEmpty())
        checkGuids();
    if (m_faults.isEmpty()) {
        resolveUses();
        checkFiles();
        checkPublishedNames();
    }
    return m_faults.isEmpty();
}

bool Source::isSpecialFolder(const QString& name)
{
    return name == noneFolder || name == sharedFolder() || name == retiredFolder();
}

QString Source::noneName(const QString& audience) const
{
    return m_noneNames.value(audience,
                             m_noneNames.value(QStringLiteral("standard"), QStringLiteral("None")));
}

void Source::readCatalogue()
{
    const QString file = m_folder + QLatin1Char('/') + manifestName();
    const QFileInfo place(file);
    if (!place.exists() && !place.isSymLink()) {
        m_faults.append(QStringLiteral("%1: is missing; write the version of the installed "
                                       "catalogue into %2, for example {\"version\": \"1.2.0\"}")
                            .arg(manifestName(), file));
        return;
    }
    const QJsonObject object = JsonFields::read(file, manifestName(), m_faults);
    if (!m_faults.isEmpty())
        return;
    JsonFields fields(object, manifestName(), m_faults);
    m_version = fields.needed("version");
    static const QRegularExpression dotted(QStringLiteral("\\A[0-9]{1,3}(\\.[0-9]{1,3}){0,2}\\z"));
    if (!m_version.isEmpty() && !dotted.match(m_version).hasMatch())
        fields.fault(QStringLiteral("\"version\" is not numbers with dots, as in 1.0.2"));
    m_noneNames = fields.map("noneNames");
    Manifest::checkAudiences(fields, "noneNames", m_noneNames);
    Manifest::checkShown(fields, QStringLiteral("\"noneNames\": a name"), m_noneNames.values());
    readRetired(fields);
    fields.finish();
}

void Source::readRetired(JsonFields& fields)
{
    m_retired = fields.texts(retiredField);
    for (const QString& guid : std::as_const(m_retired)) {
        if (!Guids::isProper(guid))
            fields.fault(QStringLiteral("\"retired\": \"%1\" is not a GUID in capitals").arg(guid));
    }
}

void Source::findNonePictures()
{
    const QDir own(m_folder + QLatin1Char('/') + noneFolder);
    const bool hasOwn = own.exists();
    QStringList names{QStringLiteral("None.png")};
    for (const SSkin& skin : allSkins)
        names.append(QString::fromLatin1(skin.nonePicture));
    names.removeDuplicates();
    for (const QString& name : std::as_const(names)) {
        const QString file =
            hasOwn ? own.filePath(name) : QStringLiteral(":/placeholders/none/") + name;
        if (hasOwn && !FileNames::isFileBelow(m_folder, file))
            m_faults.append(QStringLiteral("%1/%2: is missing").arg(noneFolder, name));
        else if (hasOwn && !PictureFault::of(file).isEmpty())
            m_faults.append(
                QStringLiteral("%1/%2: %3").arg(noneFolder, name, PictureFault::of(file)));
        m_nonePictures.insert(name, file);
    }
}

void Source::findItems(const QString& relative)
{
    const QDir folder(m_folder + QLatin1Char('/') + relative);
    const bool isItem = folder.exists(Manifest::fileName());
    if (isItem && relative.isEmpty())
        m_faults.append(QStringLiteral("%1: an item needs its own folder below the source")
                            .arg(Manifest::fileName()));
    if (isItem && !relative.isEmpty()) {
        SourceItem item;
        item.folder = folder.absolutePath();
        item.path = relative;
        Manifest::read(item, m_faults);
        m_items.push_back(std::move(item));
        return;
    }
    QStringList names;
    QString error;
    if (!FolderContent::names(folder.path(), names, &error))
        m_faults.append(error);
    for (const QString& name : std::as_const(names)) {
        const QFileInfo entry(folder.filePath(name));
        const bool isSearched = entry.isDir() && !FileLink::isLink(entry) && !entry.isHidden()
            && (!relative.isEmpty() || !isSpecialFolder(name));
        if (isSearched)
            findItems(relative.isEmpty() ? name : relative + QLatin1Char('/') + name);
    }
}

void Source::checkGuids()
{
    QHash<QString, QString> seen{{Guids::none, QStringLiteral("the \"none\" entry")}};
    for (const SourceItem& item : m_items) {
        if (m_retired.contains(item.guid))
            m_faults.append(
                QStringLiteral("%1: has the GUID of a retired item; take a fresh one, or, to bring "
                               "the item back, remove the GUID from \"retired\" in %2")
                    .arg(item.path, manifestName()));
        QString& owner = seen[item.guid];
        if (owner.isEmpty())
            owner = item.path;
        else
            m_faults.append(
                QStringLiteral("%1: has the GUID of %2; take a fresh one").arg(item.path, owner));
    }
}

/// Resolves the items used, which are named by their folder or by their GUID.
void Source::resolveUses()
{
    QHash<QString, const SourceItem*> known;
    for (const SourceItem& item : m_items) {
        known.insert(item.path, &item);
        known.insert(item.guid, &item);
    }
    for (SourceItem& item : m_items) {
        for (SourceSlots& scene : item.scenes)
            resolvePart(item, scene, known);
        for (SourceSlots* part : {&item.start, &item.end, &item.mask})
            resolvePart(item, *part, known);
    }
}

void Source::resolvePart(const SourceItem& item, SourceSlots& part,
                         const QHash<QString, const SourceItem*>& known)
{
    for (auto use = part.begin(); use != part.end(); ++use) {
        const SourceItem* const used = known.value(use->item);
        const SKindInfo& wanted = KindTable::of(DependencySlots::find(use.key())->kind);
        if (!used)
            m_faults.append(
                QStringLiteral("%1: uses \"%2\", which is not an item").arg(item.path, use->item));
        else if (used->type != wanted.type)
            m_faults.append(
                QStringLiteral("%1: uses \"%2\" as a %3, but it is a %4")
                    .arg(item.path, use->item, wanted.word(), KindTable::of(used->type).word()));
        else
            use->item = used->guid;
    }
}

void Source::checkFiles()
{
    const QString shared = m_folder + QLatin1Char('/') + sharedFolder();
    for (const SourceItem& item : m_items) {
        checkPreviews(item);
        for (const QString& name : item.files) {
            const QString folder = folderToPack(item, name);
            if (!folder.isEmpty())
                checkPacked(item, folder);
            else if (checkFile(item, item.folder, name) && PictureFormat::isPictureName(name))
                checkPicture(item, item.folder, name);
        }
        for (const QString& name : item.shared) {
            if (checkFile(item, shared, name) && PictureFormat::isPictureName(name))
                checkPicture(item, shared, name);
        }
        if (!item.definition.isEmpty())
            checkFile(item, item.folder, item.definition);
    }
}

/// Returns the folder to pack into the archive of that name; empty if there is none, or a file.
QString Source::folderToPack(const SourceItem& item, const QString& name) const
{
    if (!FileNames::fault(name).isEmpty())
        return QString(); // Qt warns about some names when looking for them on disk
    const QString file = item.folder + QLatin1Char('/') + name;
    const QString folder = FileNames::packedFolder(file);
    const bool isPacked = !QFileInfo::exists(file) && FileNames::isFolderBelow(m_folder, folder);
    return isPacked ? folder : QString();
}

void Source::checkPreviews(const SourceItem& item)
{
    const QStringList previews{item.thumbnail, item.animation};
    for (const QString& name : previews) {
        if (name.isEmpty())
            continue;
        const bool isThere = checkFile(item, item.folder, name);
        if (name.contains(QLatin1Char('/')))
            m_faults.append(QStringLiteral("%1: %2: a preview must be in the item's own folder")
                                .arg(item.path, name));
        if (isThere && name == item.animation
            && PictureFormat::ofFile(item.folder + QLatin1Char('/') + name)
                != PictureFormat::Kind::Gif)
            m_faults.append(QStringLiteral("%1: %2 is not a GIF, as an animation must be")
                                .arg(item.path, name));
        else if (isThere)
            checkPicture(item, item.folder, name);
    }
}

bool Source::checkFile(const SourceItem& item, const QString& folder, const QString& name)
{
    const int before = m_faults.size();
    const QString fault = FileNames::fault(name);
    if (!fault.isEmpty())
        m_faults.append(QStringLiteral("%1: the file name \"%2\" %3").arg(item.path, name, fault));
    else if (!FileNames::isFileBelow(m_folder, folder + QLatin1Char('/') + name))
        m_faults.append(QStringLiteral("%1: %2 is missing").arg(item.path, name));
    return m_faults.size() == before;
}

void Source::checkPicture(const SourceItem& item, const QString& folder, const QString& name)
{
    const QString file = folder + QLatin1Char('/') + name;
    const QString fault = PictureFault::of(file);
    if (!fault.isEmpty())
        m_faults.append(QStringLiteral("%1: %2 %3").arg(item.path, name, fault));
    else if (Placeholders::isUntouched(file))
        m_warnings.append(QStringLiteral("%1: %2 is still the placeholder that the item began with")
                              .arg(item.path, name));
}

/// Archives contain files only; anything else that would be omitted is a fault.
void Source::checkPacked(const SourceItem& item, const QString& folder)
{
    QStringList paths;
    QString error;
    if (!FolderContent::paths(folder, paths, &error))
        m_faults.append(QStringLiteral("%1: %2").arg(item.path, error));
    for (const QString& path : std::as_const(paths)) {
        const QFileInfo entry(folder + QLatin1Char('/') + path);
        if (FileLink::isLink(entry) || !(entry.isFile() || entry.isDir()))
            m_faults.append(
                QStringLiteral("%1: %2 is neither a file nor a folder, so it cannot be packed")
                    .arg(item.path, QDir(item.folder).relativeFilePath(entry.filePath())));
    }
}

/// Items of a kind share a folder for their previews, and all items share one for shared files.
void Source::checkPublishedNames()
{
    const QString config = QStringLiteral("config/");
    const QString display = QStringLiteral("display/");
    PublishedNames names;
    for (const SKindInfo& kind : KindTable::all()) {
        const QString folder = kind.folder + QLatin1Char('/');
        if (kind.hasDefinitionList)
            names.reserve(config + folder + kind.folder + QStringLiteral(".xml"),
                          QStringLiteral("the list of definitions"));
        for (auto it = m_nonePictures.keyBegin();
             kind.hasNoneEntry && it != m_nonePictures.keyEnd(); ++it)
            names.reserve(display + folder + *it, QStringLiteral("the \"none\" entry"));
    }
    for (const SourceItem& item : m_items) {
        const QString folder = KindTable::of(item.type).folder + QLatin1Char('/');
        const QString own = config + folder + item.guid;
        names.claim(own + QStringLiteral(".xml"), item.path, QString());
        for (const QString& name : item.files)
            names.claim(own + QLatin1Char('/') + name, item.path, QString());
        for (const QString& name : item.shared)
            names.claim(config + name, item.path, sharedFolder() + QLatin1Char('/') + name);
        for (const QString& name : {item.thumbnail, item.animation}) {
            if (!name.isEmpty())
                names.claim(display + folder + name, item.path, QString());
        }
        checkSharedFolders(item);
    }
    m_faults.append(names.faults());
}

/// In an installation, shared files are next to the tree's own folders.
void Source::checkSharedFolders(const SourceItem& item)
{
    for (const QString& name : item.shared) {
        const QString folder = name.section(QLatin1Char('/'), 0, 0).toLower();
        if (folder == QLatin1String("display") || folder == Editions::catalogueFolder.toLower())
            m_faults.append(QStringLiteral("%1: shares %2, but installations keep other files in "
                                           "that folder; move it to another one")
                                .arg(item.path, name));
    }
}
