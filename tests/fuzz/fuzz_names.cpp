// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Resolves items of every kind that use a GUID and two file names, as a catalogue may hold them,
// then writes wherever a download would be allowed to.
//
// Beside the download root is a folder with a file in it; links in the root lead there.

#include "catalogue/PathGuard.h"
#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Parts.h"
#include "Require.h"
#include "WriteGuard.h"

#include <QFile>
#include <QFileInfo>

namespace {

class NamesTarget : public FuzzTarget
{
public:
    NamesTarget();
    void run(const QByteArray& input) override;

private:
    static MVThemeMgr& manager() { return CatalogueWorld::manager(); }
    void resolve(SCfg_Item& item) const;
    void checkFile(const SFileInfo& file, bool isPresent) const;
    void writeWhereAllowed(const QString& path) const;
    QString outside() const { return m_world.base() + QStringLiteral("/outside"); }

    CatalogueWorld m_world;
};

NamesTarget::NamesTarget()
{
    CatalogueFiles::write(outside() + QStringLiteral("/secret"), "secret");
}

void NamesTarget::run(const QByteArray& input)
{
    const Parts parts(input);
    const QString guid = QString::fromUtf8(parts.at(0));
    const QString name = QString::fromUtf8(parts.at(1));
    const QString other = QString::fromUtf8(parts.at(2));
    m_world.renewRoot();
    QFile::link(outside(), m_world.downloaded("config", "Themes", QStringLiteral("link")));
    QFile::link(outside() + QStringLiteral("/secret"),
                m_world.downloaded("display", "Themes", QStringLiteral("file")));

    const WriteGuard guard({m_world.root()});
    for (int kind = eCfgItem_Filter; kind <= eCfgItem_BgMaterial; ++kind) {
        SCfg_Item item;
        item.m_eType = static_cast<ECfgItemType>(kind);
        item.m_qsGUID = guid;
        item.m_info_CfgXML.m_qsUrl = name;
        item.m_info_Thumb.m_qsUrl = name;
        item.m_info_Gif.m_qsUrl = other;
        item.m_vecResource.resize(2);
        item.m_vecResource[0].m_qsUrl = name;
        item.m_vecResource[1].m_qsUrl = other;
        resolve(item);
    }
    for (const QString& path : {name, other}) {
        writeWhereAllowed(path);
        writeWhereAllowed(m_world.root() + path);
        writeWhereAllowed(m_world.downloaded("config", "Themes", path));
    }
}

void NamesTarget::resolve(SCfg_Item& item) const
{
    checkFile(item.m_info_Thumb, manager().doItem_Info_Thumb(item));
    checkFile(item.m_info_Gif, manager().doItem_Info_Gif(item));
    checkFile(item.m_info_CfgXML, manager().doItem_Info_CfgXML(item));
    QVector<SFileInfo*> missing;
    manager().doItem_Info_DependRes(item, missing);
    for (SFileInfo& file : item.m_vecResource)
        checkFile(file, !missing.contains(&file));
    QVector<SFileInfo*> needed;
    manager().getNeedDownLoadFiles(&item, needed);
    for (const SFileInfo* file : qAsConst(needed))
        writeWhereAllowed(file->m_qsFile);
}

/// Requires a file that counts as present to exist and to be one of the catalogue's.
void NamesTarget::checkFile(const SFileInfo& file, bool isPresent) const
{
    if (!isPresent || file.m_qsFile.isEmpty())
        return;
    const QString real = QFileInfo(file.m_qsFile).canonicalFilePath();
    const bool isOurs = real.startsWith(m_world.root() + QLatin1Char('/'))
        || real.startsWith(m_world.installed() + QLatin1Char('/'));
    require(isOurs, "no file outside the two trees counts as present", file.m_qsFile);
}

/// WriteGuard ends the process if the write lands elsewhere.
void NamesTarget::writeWhereAllowed(const QString& path) const
{
    require(manager().isDownloadPath(path) == PathGuard::isInside(m_world.root(), path),
            "the catalogue asks the guard", path);
    if (!manager().isDownloadPath(path))
        return;
    PathGuard::ensureDir(m_world.root(), QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.remove();
}

} // namespace

MV_FUZZ_TARGET(NamesTarget, QCoreApplication)
