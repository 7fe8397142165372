// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// A host without widgets: checks the catalogue, then downloads one theme. It needs nothing of the
// platform but what the libraries need, so it also runs on examples/platform.

#include "catalogue/MVThemeMgr.h"
#include "download/CatalogueUpdate.h"
#include "download/MVThemeDownLoader.h"
#include "host/HostSettings.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

void configure(const QStringList& arguments)
{
    HostSettings& settings = hostSettings();
    settings.productParams.insert(QStringLiteral("url_themeRootDir"), arguments.at(1));
    settings.productParams.insert(QStringLiteral("hasMV"), QStringLiteral("1"));
    settings.resourcesPath = arguments.at(2);
    settings.conditionalRequests = true;
    settings.releasePolicy = eRelease_Use;
    settings.transfersSideBySide = 6;
    settings.downloadStepMs = 0;
}

/// Downloads the missing files of the theme and quits when the download has ended. `owner` must be
/// destroyed before the application object, since it owns a thread.
void fetch(const QString& guid, QObject* owner)
{
    SCfg_Item* const theme = MVThemeMgr::init()->findItemByIDFromDisplay(eCfgItem_Theme, guid);
    if (!theme) {
        std::puts("theme: not in the catalogue");
        return QCoreApplication::exit(1);
    }
    auto* const loader = new MVThemeDownLoader(owner);
    QObject::connect(loader, &MVThemeDownLoader::sigDownloadFinish, loader, [loader] {
        const SItemDownloadResult result = loader->outcome();
        std::printf("theme: %d %s\n", result.m_eEnd, qPrintable(result.m_failure.m_qsDetails));
        QCoreApplication::exit(result.m_eEnd == eItemDownload_Complete ? 0 : 1);
    });
    loader->download(theme);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 5) {
        std::fputs("usage: fetchtheme SERVER/ RESOURCES DOWNLOAD_ROOT {GUID}\n", stderr);
        return 2;
    }
    const QStringList arguments = QCoreApplication::arguments();
    configure(arguments);
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->setResourceSaveRootPath(arguments.at(3));
    catalogue->load(false);

    CatalogueUpdate update;
    QObject::connect(&update, &CatalogueUpdate::contentArrived, catalogue,
                     [catalogue] { catalogue->load(true); });
    QObject::connect(&update, &CatalogueUpdate::finished, &update,
                     [&](const SCatalogueUpdateResult& result) {
                         std::printf("check: %d %s, previews: %d fetched, %d failed\n",
                                     result.m_eEnd, qPrintable(result.reason()),
                                     result.m_previews.m_nFetched, result.m_previews.m_nFailed);
                         fetch(arguments.at(4), &update);
                     });
    update.start();
    return QCoreApplication::exec();
}
