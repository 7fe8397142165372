#include "TreeBuilder.h"
#include "records/KindTable.h"

#include "Source.h"
#include "tree/Archive.h"
#include "tree/FileNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

const QString catalogues = Editions::catalogueFolder + QLatin1Char('/');

/// Readable by any server, whatever the permissions in the source.
constexpr QFileDevice::Permissions served = QFileDevice::ReadOwner | QFileDevice::WriteOwner
    | QFileDevice::ReadGroup | QFileDevice::ReadOther;
constexpr QFileDevice::Permissions entered =
    served | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;

/// Closes a written file. Returns false, with an error text, even if the file system reports only
/// then that it could not store everything.
bool close(QFile& file)
{
    file.close();
    return file.error() == QFileDevice::NoError;
}

/// Returns the folder of an entry of the tree; empty for the tree itself.
QString parentOf(const QString& name)
{
    return name.left(std::max(0, name.lastIndexOf(QLatin1Char('/'))));
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
        && write(catalogues + QStringLiteral("ThemeType.json"), Documents::themeTypes(shown))
        && writeDocument(catalogues + Editions::configFile, config)
        && writeDocument(catalogues + Editions::installedDisplayFile, display)
        && writeDocument(catalogues + Editions::installedVersionFile,
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
    if (!writeDocument(catalogues + Editions::configFile, config))
        return false;
    QMap<QString, QByteArray> versions;
    for (const Edition& edition : editions) {
        const QByteArray display = Documents::display(items, m_source, edition.audience);
        const QString displayFile = catalogues + edition.displayFile;
        if (!m_written.contains(displayFile) && !writeDocument(displayFile, display))
            return false;
        versions.insert(catalogues + edition.versionFile,
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
    QFile file(m_folder + QLatin1Char('/') + name);
    const bool ok = file.open(QIODevice::WriteOnly | QIODevice::NewOnly)
        && file.write(content) == content.size() && file.flush() && file.setPermissions(served)
        && close(file);
    m_bytes += content.size();
    return ok || fail(QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
}

/// Not QFile::copy(), which flushes every file to disk.
bool TreeBuilder::copy(const QString& from, const QString& name)
{
    constexpr qint64 piece = 1 << 20;
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1: %2").arg(from, source.errorString()));
    const qint64 size = source.size();
    const auto unreadable = [&] {
        return fail(
            QStringLiteral("%1 cannot be read to its end: %2").arg(from, source.errorString()));
    };
    if (size <= piece) {
        const QByteArray content = source.readAll();
        return content.size() == size ? write(name, content) : unreadable();
    }
    if (!place(name))
        return false;
    QFile file(m_folder + QLatin1Char('/') + name);
    bool ok = file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.setPermissions(served);
    qint64 read = 0;
    while (ok && read < size) {
        const QByteArray part = source.read(piece);
        if (part.isEmpty())
            return unreadable();
        read += part.size();
        ok = file.write(part) == part.size();
    }
    m_bytes += size;
    return (ok && file.flush() && close(file))
        || fail(QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
}

bool TreeBuilder::pack(const QString& folder, const QString& name)
{
    if (!place(name))
        return false;
    QString error;
    const QString to = m_folder + QLatin1Char('/') + name;
    if (!Archive::pack(folder, to, &error))
        return fail(error);
    QFile::setPermissions(to, served);
    m_bytes += QFileInfo(to).size();
    return true;
}

/// Creates the folder of a file that is about to be written.
bool TreeBuilder::place(const QString& name)
{
    m_written.insert(name);
    ++m_files;
    return makeFolder(parentOf(name));
}

/// Creates a folder that any server can read, whatever the umask.
bool TreeBuilder::makeFolder(const QString& name)
{
    if (name.isEmpty() || m_folders.contains(name))
        return true;
    m_folders.insert(name);
    if (!makeFolder(parentOf(name)))
        return false;
    const QString folder = m_folder + QLatin1Char('/') + name;
    return (QDir().mkdir(folder) && QFile::setPermissions(folder, entered))
        || fail(QStringLiteral("%1 cannot be made").arg(folder));
}

bool TreeBuilder::fail(const QString& text)
{
    m_error = text;
    return false;
}
