// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "TreeBuilder.h"
#include "records/KindTable.h"

#include "Source.h"
#include "tree/Archive.h"
#include "tree/FileNames.h"
#include "tree/ServedFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

const QString catalogueRoot = Editions::catalogueFolder + QLatin1Char('/');

/// Returns the folder of an entry of the tree; empty for the tree itself.
QString parentOf(const QString& name)
{
    return name.left(std::max(0, int(name.lastIndexOf(QLatin1Char('/')))));
}

} // namespace

TreeBuilder::TreeBuilder(const Source& source)
    : m_source(source)
{
}

bool TreeBuilder::writeServer(const QString& folder, const QVector<Edition>& editions)
{
    m_folder = folder;
    m_configHalf = QStringLiteral("config/");
    Documents::Items items;
    for (const SourceItem& item : m_source.items())
        items.append(&item);
    const bool allWritten = std::all_of(items.cbegin(), items.cend(), [this](const auto* item) {
        return writeItem(*item) && writePreviews(*item);
    });
    return allWritten && writeNonePictures() && writeKindLists(items)
        && writeEditions(editions, items);
}

bool TreeBuilder::writeInstallation(const QString& folder)
{
    m_folder = folder;
    m_configHalf.clear();
    QSet<QString> used;
    Documents::Items shown;
    Documents::Items builtIn;
    for (const SourceItem& item : m_source.items()) {
        if (!item.installed)
            continue;
        const QStringList uses = item.uses();
        used += QSet<QString>(uses.cbegin(), uses.cend());
        shown.append(&item);
        if (item.builtIn)
            builtIn.append(&item);
    }
    Documents::Items known;
    for (const SourceItem& item : m_source.items()) {
        if (item.installed || used.contains(item.guid))
            known.append(&item);
    }
    const auto writeBuiltIn = [this](const auto* item) { return writeItem(*item); };
    const auto writeShown = [this](const auto* item) { return writePreviews(*item); };
    const QByteArray config = Documents::config(known);
    const QByteArray display = Documents::display(shown, m_source, Editions::installedAudience);
    return std::all_of(builtIn.cbegin(), builtIn.cend(), writeBuiltIn)
        && std::all_of(shown.cbegin(), shown.cend(), writeShown) && writeNonePictures()
        && writeKindLists(builtIn)
        && write(catalogueRoot + QStringLiteral("ThemeType.json"), Documents::themeTypes(shown))
        && writeDocument(catalogueRoot + Editions::configFile, config)
        && writeDocument(catalogueRoot + Editions::installedDisplayFile, display)
        && writeDocument(catalogueRoot + Editions::installedVersionFile,
                         Documents::version(m_source.version(), display, config));
}

bool TreeBuilder::writeItem(const SourceItem& item)
{
    const QString folder = m_configHalf + KindTable::of(item.type).folder + QLatin1Char('/');
    const QString definition = folder + item.guid + QStringLiteral(".xml");
    const bool defined = item.definition.isEmpty()
        ? writeDocument(definition, Documents::definition(item))
        : copy(item.folder + QLatin1Char('/') + item.definition, definition);
    const auto own = [&](const QString& name) {
        return writeFile(item, name, folder + item.guid + QLatin1Char('/') + name);
    };
    const auto shared = [&](const QString& name) {
        const QString target = m_configHalf + name;
        return m_written.contains(target)
            || copy(m_source.folder() + QLatin1Char('/') + Source::sharedFolder() + QLatin1Char('/')
                        + name,
                    target);
    };
    return defined && std::all_of(item.files.cbegin(), item.files.cend(), own)
        && std::all_of(item.shared.cbegin(), item.shared.cend(), shared);
}

bool TreeBuilder::writePreviews(const SourceItem& item)
{
    const QString folder =
        QStringLiteral("display/") + KindTable::of(item.type).folder + QLatin1Char('/');
    const QStringList previews{item.thumbnail, item.animation};
    return std::all_of(previews.cbegin(), previews.cend(), [&](const QString& name) {
        return name.isEmpty() || copy(item.folder + QLatin1Char('/') + name, folder + name);
    });
}

bool TreeBuilder::writeFile(const SourceItem& item, const QString& name, const QString& target)
{
    const QString path = item.folder + QLatin1Char('/') + name;
    return QFileInfo::exists(path) ? copy(path, target)
                                   : pack(FileNames::packedFolder(path), target);
}

bool TreeBuilder::writeKindLists(const Documents::Items& items)
{
    const KindTable::Rows& kinds = KindTable::all();
    return std::all_of(kinds.cbegin(), kinds.cend(), [&](const SKindInfo& kind) {
        return !kind.hasDefinitionList
            || writeDocument(m_configHalf + kind.folder + QLatin1Char('/') + kind.folder
                                 + QStringLiteral(".xml"),
                             Documents::kindList(kind, items));
    });
}

bool TreeBuilder::writeNonePictures()
{
    for (const SKindInfo& kind : KindTable::all()) {
        if (!kind.hasNoneEntry)
            continue;
        const QMap<QString, QString>& pictures = m_source.nonePictures();
        for (auto it = pictures.cbegin(); it != pictures.cend(); ++it) {
            if (!copy(it.value(),
                      QStringLiteral("display/") + kind.folder + QLatin1Char('/') + it.key()))
                return false;
        }
    }
    return true;
}

bool TreeBuilder::writeEditions(const QVector<Edition>& editions, const Documents::Items& items)
{
    const QByteArray config = Documents::config(items);
    if (!writeDocument(catalogueRoot + Editions::configFile, config))
        return false;
    QMap<QString, QByteArray> versions;
    for (const Edition& edition : editions) {
        const QByteArray display = Documents::display(items, m_source, edition.audience);
        const QString displayFile = catalogueRoot + edition.displayFile;
        if (!m_written.contains(displayFile) && !writeDocument(displayFile, display))
            return false;
        versions.insert(catalogueRoot + edition.versionFile,
                        Documents::version(m_source.version(), display, config));
    }
    for (auto it = versions.cbegin(); it != versions.cend(); ++it) {
        if (!writeDocument(it.key(), it.value()))
            return false;
    }
    return true;
}

bool TreeBuilder::writeDocument(const QString& name, const QByteArray& content)
{
    return content.isEmpty() ? fail(QStringLiteral("%1 cannot be written as XML").arg(name))
                             : write(name, content);
}

bool TreeBuilder::write(const QString& name, const QByteArray& content)
{
    if (!place(name))
        return false;
    m_bytes += content.size();
    return ServedFiles::write(m_folder + QLatin1Char('/') + name, content, &m_error);
}

bool TreeBuilder::copy(const QString& from, const QString& name)
{
    if (!place(name))
        return false;
    m_bytes += QFileInfo(from).size();
    return ServedFiles::copy(from, m_folder + QLatin1Char('/') + name, &m_error);
}

bool TreeBuilder::pack(const QString& folder, const QString& name)
{
    if (!place(name))
        return false;
    QString error;
    const QString to = m_folder + QLatin1Char('/') + name;
    if (!Archive::pack(folder, to, &error))
        return fail(error);
    ServedFiles::makeReadable(to);
    m_bytes += QFileInfo(to).size();
    return true;
}

/// Creates the folder of a file that is about to be written.
bool TreeBuilder::place(const QString& name)
{
    m_written.insert(name);
    return makeFolder(parentOf(name));
}

bool TreeBuilder::makeFolder(const QString& name)
{
    if (name.isEmpty() || m_folders.contains(name))
        return true;
    m_folders.insert(name);
    return makeFolder(parentOf(name))
        && ServedFiles::makeFolder(m_folder + QLatin1Char('/') + name, &m_error);
}

bool TreeBuilder::fail(const QString& text)
{
    m_error = text;
    return false;
}
