#include "Source.h"

#include "Editions.h"
#include "FileNames.h"
#include "Guids.h"
#include "JsonFields.h"
#include "Kinds.h"
#include "Manifest.h"

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

bool Source::read(const QString& folder)
{
    m_folder = QDir(folder).absolutePath();
    if (!QFileInfo(m_folder).isDir()) {
        m_faults.append(QStringLiteral("%1: no such folder").arg(folder));
        return false;
    }
    readCatalogue();
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

QString Source::noneName(const QString& audience) const
{
    return m_noneNames.value(audience,
                             m_noneNames.value(QStringLiteral("standard"), QStringLiteral("None")));
}

void Source::readCatalogue()
{
    const QString file = m_folder + QLatin1Char('/') + manifestName();
    const QJsonObject object = JsonFields::read(file, manifestName(), m_faults);
    if (!m_faults.isEmpty())
        return;
    JsonFields fields(object, manifestName(), m_faults);
    m_version = fields.needed("version");
    static const QRegularExpression dotted(QStringLiteral("\\A[0-9]{1,3}(\\.[0-9]{1,3}){0,2}\\z"));
    if (!m_version.isEmpty() && !dotted.match(m_version).hasMatch())
        fields.fault(QStringLiteral("\"version\" is not numbers with dots, as in 1.0.2"));
    m_noneNames = fields.map("noneNames");
    fields.finish();
}

void Source::findNonePictures()
{
    const QDir own(m_folder + QLatin1Char('/') + noneFolder);
    const bool hasOwn = own.exists();
    for (const char* skin : {"None.png", "Classical.png", "Elegance.png", "Calm.png"}) {
        const QString name = QString::fromLatin1(skin);
        const QString file =
            hasOwn ? own.filePath(name) : QStringLiteral(":/placeholders/none/") + name;
        if (!QFileInfo(file).isFile())
            m_faults.append(QStringLiteral("%1/%2: is missing").arg(noneFolder, name));
        m_nonePictures.insert(name, file);
    }
}

void Source::findItems(const QString& relative)
{
    const QDir folder(m_folder + QLatin1Char('/') + relative);
    if (folder.exists(Manifest::fileName()) && !relative.isEmpty()) {
        SourceItem item;
        item.folder = folder.absolutePath();
        item.path = relative;
        Manifest::read(item, m_faults);
        m_items.push_back(std::move(item));
        return;
    }
    const QStringList names =
        folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString& name : names) {
        const bool special = relative.isEmpty() && (name == noneFolder || name == sharedFolder());
        if (!special)
            findItems(relative.isEmpty() ? name : relative + QLatin1Char('/') + name);
    }
}

void Source::checkGuids()
{
    QHash<QString, QString> seen{{Guids::none, QStringLiteral("the \"none\" entry")}};
    for (const SourceItem& item : m_items) {
        QString& owner = seen[item.guid];
        if (owner.isEmpty())
            owner = item.path;
        else
            m_faults.append(
                QStringLiteral("%1: has the GUID of %2; take a fresh one").arg(item.path, owner));
    }
}

/// Items are named by their folder or by their GUID.
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
        const Kind& wanted = Kinds::of(Slots::kind(use.key()));
        if (!used)
            m_faults.append(
                QStringLiteral("%1: uses \"%2\", which is no item").arg(item.path, use->item));
        else if (used->type != wanted.type)
            m_faults.append(
                QStringLiteral("%1: uses \"%2\" as a %3, but it is a %4")
                    .arg(item.path, use->item, wanted.word, Kinds::of(used->type).word));
        else
            use->item = used->guid;
    }
}

void Source::checkFiles()
{
    for (const SourceItem& item : m_items) {
        const QStringList previews{item.thumbnail, item.animation};
        for (const QString& name : previews) {
            if (name.isEmpty())
                continue;
            checkFile(item, item.folder, name);
            if (name.contains(QLatin1Char('/')))
                m_faults.append(QStringLiteral("%1: %2: a preview lies in the item's own folder")
                                    .arg(item.path, name));
        }
        for (const QString& name : item.files)
            checkFile(item, item.folder, name);
        for (const QString& name : item.shared)
            checkFile(item, m_folder + QLatin1Char('/') + sharedFolder(), name);
        if (!item.definition.isEmpty())
            checkFile(item, item.folder, item.definition);
    }
}

void Source::checkFile(const SourceItem& item, const QString& folder, const QString& name)
{
    const QString fault = FileNames::fault(name);
    const QString path = folder + QLatin1Char('/') + name;
    const QString packed = FileNames::packedFolder(path);
    if (!fault.isEmpty())
        m_faults.append(QStringLiteral("%1: the file name \"%2\" %3").arg(item.path, name, fault));
    else if (!FileNames::isFileBelow(m_folder, path)
             && (packed.isEmpty() || QFileInfo::exists(path) || !QFileInfo(packed).isDir()))
        m_faults.append(QStringLiteral("%1: %2 is missing").arg(item.path, name));
}

/// Items of a kind share the folder of their previews, and all items that of the shared files.
void Source::checkPublishedNames()
{
    QHash<QString, QString> owners;
    const auto claim = [this, &owners](const SourceItem& item, const QString& name) {
        // Clients' file systems may not tell capitals from small letters.
        QString& owner = owners[name.toLower()];
        if (!owner.isEmpty())
            m_faults.append(QStringLiteral("%1: publishes %2, as %3 does; give it another name")
                                .arg(item.path, name, owner));
        owner = item.path;
    };
    for (const SourceItem& item : m_items) {
        const Kind& kind = Kinds::of(item.type);
        const QStringList previews{item.thumbnail, item.animation};
        for (const QString& name : previews) {
            if (!name.isEmpty())
                claim(item, kind.folder + QLatin1Char('/') + name);
            if (Kinds::hasNoneEntry(item.type) && m_nonePictures.contains(name))
                m_faults.append(QStringLiteral("%1: publishes %2, as the \"none\" entry does; "
                                               "give it another name")
                                    .arg(item.path, name));
        }
        for (const QString& name : item.files)
            claim(item, item.guid + QLatin1Char('/') + name);
    }
}
