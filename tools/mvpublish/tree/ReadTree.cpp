// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/ReadTree.h"

#include "catalogue/MVThemeMgr.h"
#include "download/VersionFile.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "records/KindTable.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <mutex>

namespace {

/// A folder that cannot exist: below it the library derives paths but creates nothing.
const QString nowhere = QStringLiteral("/dev/null/tree");
const QString server = QStringLiteral("http://server/");

void dropLog(const QByteArray&, int, const QByteArray&) { }

/// Writes settings with which the library only derives file names.
void prepareLibrary()
{
    setLogSink(&dropLog);
    HostSettings& settings = hostSettings();
    settings.dataLocation = nowhere;
    settings.appDataPath = nowhere;
    settings.resourcesPath = nowhere;
    settings.currentSkin.clear();
    settings.productParams.insert(ProductParam::serverRoot, server);
    MVThemeMgr::init()->setResourceSaveRootPath(nowhere);
}

QVector<QDomElement> children(const QDomElement& parent, const QString& tag)
{
    QVector<QDomElement> result;
    for (QDomElement child = parent.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag))
        result.append(child);
    return result;
}

QString childText(const QDomElement& parent, const QString& tag)
{
    return parent.firstChildElement(tag).text();
}

} // namespace

ReadTree::ReadTree()
{
    static std::once_flag isPrepared;
    std::call_once(isPrepared, prepareLibrary);
}

MVThemeMgr& ReadTree::library()
{
    return *MVThemeMgr::init();
}

QString ReadTree::catalogue(const QString& name)
{
    return Editions::catalogueFolder + QLatin1Char('/') + name;
}

bool ReadTree::open(const QString& folder, QString* error)
{
    const QFileInfo place(folder);
    if (!place.isDir()) {
        *error = QStringLiteral("no such folder: %1").arg(folder);
        return false;
    }
    m_folder = place.absoluteFilePath();
    const QDir resource(m_folder + QStringLiteral("/Resource"));
    if (resource.exists(Editions::catalogueFolder))
        m_folder = resource.absolutePath();
    const QDir tree(m_folder);
    if (!tree.exists(Editions::catalogueFolder)) {
        *error = QStringLiteral("%1 holds no folder %2").arg(folder, Editions::catalogueFolder);
        return false;
    }
    const QVector<Edition>& editions = Editions::all();
    const bool isServer =
        std::any_of(editions.cbegin(), editions.cend(), [&tree](const Edition& edition) {
            return tree.exists(catalogue(edition.versionFile));
        });
    m_installation = !isServer
        && (tree.exists(catalogue(Editions::installedVersionFile))
            || !tree.exists(QStringLiteral("config")));
    readConfig();
    readVersions();
    return true;
}

void ReadTree::readConfig()
{
    QDomDocument doc;
    m_configReadable = library().checkXml(absolute(catalogue(Editions::configFile)), doc);
    if (!m_configReadable)
        return;
    for (const SKindInfo& kind : KindTable::all()) {
        const QString group = library().getCfgItemTypeStr(kind.type);
        QVector<SCfg_Item> items;
        library().read_resource_config_xml_a(doc.documentElement(), kind.type, group, items);
        const QVector<QDomElement> elements =
            children(doc.documentElement().firstChildElement(group), QStringLiteral("Item"));
        QVector<ConfigEntry>& entries = m_config.at(kind.type);
        QHash<QString, int>& index = m_index.at(kind.type);
        entries.reserve(items.size());
        for (int i = 0; i < items.size(); ++i) {
            if (!index.contains(items.at(i).m_qsGUID))
                index.insert(items.at(i).m_qsGUID, i);
            entries.append({std::move(items[i]), elements.at(i).lineNumber()});
        }
    }
}

const ConfigEntry* ReadTree::find(ECfgItemType kind, const QString& guid) const
{
    const int found = m_index.at(kind).value(guid, -1);
    return found < 0 ? nullptr : &m_config.at(kind).at(found);
}

/// Reads each version file once, since editions share files.
void ReadTree::readVersions()
{
    if (m_installation) {
        readVersion(Editions::installedVersionFile, Editions::installedDisplayFile);
        return;
    }
    QStringList seen;
    for (const Edition& edition : Editions::all()) {
        const bool published = QFileInfo(absolute(catalogue(edition.versionFile))).isFile();
        if (published && !seen.contains(edition.versionFile)) {
            seen.append(edition.versionFile);
            readVersion(edition.versionFile, edition.displayFile);
        }
    }
}

void ReadTree::readVersion(const QString& name, const QString& displayName)
{
    PublishedVersion version;
    version.file = catalogue(name);
    version.displayFile = catalogue(displayName);
    VersionFile::read(absolute(version.file), version.content);
    m_versions.append(version);
    for (const DisplayCatalogue& display : qAsConst(m_displays)) {
        if (display.file == version.displayFile)
            return;
    }
    readDisplay(version.displayFile);
}

void ReadTree::readDisplay(const QString& name)
{
    DisplayCatalogue display;
    display.file = name;
    QDomDocument doc;
    display.readable = library().checkXml(absolute(name), doc);
    if (display.readable) {
        for (const SKindInfo& kind : KindTable::all())
            readCategory(doc.documentElement(), kind.type, display);
    }
    m_displays.append(std::move(display));
}

void ReadTree::readCategory(const QDomElement& root, ECfgItemType kind, DisplayCatalogue& display)
{
    const QString name = library().getCfgItemTypeStr(kind);
    QVector<SCfg_Item> configured;
    for (const ConfigEntry& entry : qAsConst(m_config.at(kind)))
        configured.append(entry.item);
    const QDomElement category = root.firstChildElement(name);
    QVector<SCfg_Item> shown;
    QVector<QDomElement> elements;
    if (kind == eCfgItem_Theme) {
        library().read_resource_display_xml_a_theme(root, kind, name, configured, shown, true);
        const QVector<QDomElement> groups = children(category, QStringLiteral("Group"));
        for (const QDomElement& group : groups) {
            display.groups.append(
                qMakePair(group.attribute(QStringLiteral("Type")), group.lineNumber()));
            elements += children(group, QStringLiteral("Item"));
        }
    } else {
        library().read_resource_display_xml_a(root, kind, name, configured, shown, true);
        elements = children(category, QStringLiteral("Item"));
    }
    int next = 0; // the library skips unknown items
    for (const QDomElement& element : qAsConst(elements)) {
        DisplayEntry entry;
        entry.type = kind;
        entry.guid = childText(element, QStringLiteral("GUID"));
        entry.line = element.lineNumber();
        entry.themeType = element.parentNode().toElement().attribute(QStringLiteral("Type"));
        entry.animation = childText(element, QStringLiteral("UrlGif"));
        entry.known = next < shown.size() && shown.at(next).m_qsGUID == entry.guid;
        if (entry.known)
            entry.item = shown.at(next++);
        display.entries.append(std::move(entry));
    }
}

/// Returns the file's name in the published tree: "config/..." or "display/...".
QString ReadTree::inHalves(const SFileInfo& info) const
{
    if (!library().isDownloadPath(info.m_qsFile))
        return QString();
    const QPair<MVThemeMgr::EDirTag, QString> halves[] = {
        {MVThemeMgr::eDirTag_Config, QStringLiteral("config")},
        {MVThemeMgr::eDirTag_Display, QStringLiteral("display")}};
    for (const auto& half : halves) {
        const QString root = library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download, half.first);
        if (info.m_qsFile.startsWith(root + QLatin1Char('/')))
            return QDir::cleanPath(half.second + info.m_qsFile.mid(root.size()));
    }
    return QString();
}

QString ReadTree::fileOf(const SFileInfo& info) const
{
    const QString file = inHalves(info);
    const QString config = QStringLiteral("config/");
    return m_installation && file.startsWith(config) ? file.mid(config.size()) : file;
}

QString ReadTree::addressOf(const SFileInfo& info)
{
    return library().addressOf(info).mid(server.size());
}

bool ReadTree::addressLeadsToFile(const SFileInfo& info) const
{
    const QString asked =
        QString::fromUtf8(QByteArray::fromPercentEncoding(addressOf(info).toUtf8()));
    return QDir::cleanPath(asked) == inHalves(info) && !asked.contains(QLatin1String("//"));
}
