// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrowserWorld.h"

#include "catalogue/MVThemeMgr.h"
#include "support/CatalogueFiles.h"

#include <QDir>
#include <QFile>

#include <filesystem>

namespace {

QStringList samplePictures(const char* pattern)
{
    const QDir folder(QStringLiteral(MV_SAMPLES "/server/display/Themes"));
    QStringList paths;
    const QStringList names = folder.entryList({QLatin1String(pattern)}, QDir::Files, QDir::Name);
    for (const QString& name : names)
        paths.append(folder.filePath(name));
    if (paths.isEmpty())
        qFatal("no sample pictures in %s", qPrintable(folder.path()));
    return paths;
}

/// Replaces the files of a folder by these contents in turn, storing each content once.
void replaceFiles(const QDir& folder, const char* pattern, const QStringList& contents)
{
    QStringList stored;
    int turn = 0;
    const QStringList names = folder.entryList({QLatin1String(pattern)}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString path = folder.filePath(name);
        QFile::remove(path);
        const int which = turn++ % contents.size();
        if (which == stored.size()) {
            QFile::copy(contents.at(which), path);
            stored.append(path);
        } else {
            std::filesystem::create_hard_link(stored.at(which).toStdString(), path.toStdString());
        }
    }
}

} // namespace

BrowserWorld::BrowserWorld(const QString& folder, int themes)
    : m_catalogue(folder)
{
    m_catalogue.write(themes);
    writePictures();
    load();
    writeMissingFiles();
}

BrowserWorld::BrowserWorld(const QString& folder)
    : m_catalogue(folder)
{
}

void BrowserWorld::load() const
{
    m_catalogue.use();
    MVThemeMgr::init()->load(true);
}

QStringList BrowserWorld::folders() const
{
    const auto configFolder = [](MVThemeMgr::ELoadDir dir) {
        return MVThemeMgr::init()->Path_resource_Dir(dir, MVThemeMgr::eDirTag_Config,
                                                     eCfgItem_Theme);
    };
    return {m_catalogue.downloadedPreviews(), configFolder(MVThemeMgr::eLoadDir_Download)};
}

void BrowserWorld::writePictures() const
{
    const QDir folder(m_catalogue.downloadedPreviews());
    replaceFiles(folder, "*.png", samplePictures("*.jpg"));
    replaceFiles(folder, "*.gif", samplePictures("*.gif"));
}

void BrowserWorld::writeMissingFiles()
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    for (const SCfg_Item& theme : std::as_const(manager->getThemes_Display())) {
        QVector<SFileInfo*> missing;
        manager->getNeedDownLoadFiles(
            manager->findItemByIDFromDisplay(eCfgItem_Theme, theme.m_qsGUID), missing);
        for (const SFileInfo* const info : qAsConst(missing))
            CatalogueFiles::write(info->m_qsFile, CatalogueFiles::document({}));
    }
}
