// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: extracting the built-in items from a full resource tree.

#include "catalogue/BuiltinThemes.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "host/Utils.h"
#include "records/DependencySlots.h"
#include "records/KindTable.h"

#include <QFileInfo>
#include <QSet>
#include <QStringList>
#include <QUuid>

#include <algorithm>
#include <array>

namespace {

constexpr int slotCount = DependencySlots::count;
constexpr int copiedSlots = slotCount - 1; // motions, the last slot, are copied wholesale

/// Returns the folder of a kind below the root.
QString kindFolder(ECfgItemType kind)
{
    return QStringLiteral("/config/") + KindTable::of(kind).folder;
}

/// Copies parts of a resource tree into its "config_local" twin and continues after failures.
class LocalTree
{
public:
    explicit LocalTree(const QString& root)
        : m_root(root)
    {
    }

    void add(int slot, const QString& guid)
    {
        if (m_guids.at(slot).contains(guid) || QUuid(guid).isNull())
            return;
        m_guids.at(slot).insert(guid);
        const ECfgItemType kind = DependencySlots::all().at(slot).kind;
        const QString folder = m_root + kindFolder(kind) + QLatin1Char('/') + guid;
        // A GUID may have a suffix that leads elsewhere.
        if (!PathGuard::isInside(m_root + QStringLiteral("/config"), folder))
            return;
        m_folders.at(slot).append(folder);
        m_files.at(slot).append(folder + QStringLiteral(".xml"));
    }

    void write() const
    {
        Utils::rmDir(m_root + QStringLiteral("/config_local"), true);
        copyFolder(m_root + kindFolder(eCfgItem_Theme));
        copyFolder(m_root + kindFolder(eCfgItem_Motion));
        for (int slot = 0; slot < copiedSlots; ++slot) {
            for (const QString& folder : m_folders.at(slot))
                copyFolder(folder);
        }
        for (int slot = 0; slot < copiedSlots; ++slot) {
            for (const QString& file : m_files.at(slot))
                copyFile(file);
        }
        for (const SKindInfo& kind : KindTable::all()) {
            if (kind.hasDefinitionList)
                copyFile(m_root + kindFolder(kind.type) + QLatin1Char('/') + kind.folder
                         + QStringLiteral(".xml"));
        }
    }

private:
    static QString twin(QString path)
    {
        return path.replace(QLatin1String("config"), QLatin1String("config_local"));
    }

    static void copyFolder(const QString& from)
    {
        const QString to = twin(from);
        AppOptions::instance()->ensureDirExists(to);
        Utils::copyDirectoryFiles(from, to, true);
    }

    static void copyFile(const QString& from)
    {
        const QString to = twin(from);
        AppOptions::instance()->ensureDirExists(QFileInfo(to).path());
        Utils::copyFileToPath(from, to, true);
    }

    QString m_root;
    std::array<QSet<QString>, slotCount> m_guids; // those already visited
    std::array<QStringList, slotCount> m_folders; // in the order of the catalogue
    std::array<QStringList, slotCount> m_files;
};

} // namespace

void MVThemeMgr::createLocalThemeRes()
{
    const QString root = hostSettings().developerResourceRoot;
    if (root.isEmpty())
        return; // otherwise the tree would start at the root of the disk
    LocalTree tree(root);
    for (const SCfg_Item& filter : std::as_const(m_sDisplayXML.vecFilter))
        tree.add(eDependType_Filter, filter.m_qsGUID);

    const int themes = std::min<int>(BuiltinThemes::themeCount, m_sDisplayXML.vecTheme.size());
    for (int i = 0; i < themes; ++i) {
        const SThemes_a* const theme = m_sDisplayXML.vecTheme.at(i).parsedTheme();
        if (!theme)
            continue;
        for (const SThemes_a::SDependArray& element : theme->m_vecItems) {
            for (int slot = 0; slot < slotCount; ++slot)
                tree.add(slot, element.at(slot).m_qsGUID);
        }
    }
    tree.write();
}
