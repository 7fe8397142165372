// The smallest host: a window with the list of themes. docs/host-guide.md explains it line by line.
#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "host/HostSettings.h"

#include <QApplication>
#include <QLocale>
#include <QUuid>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    hostSettings() = HostSettings::recommended();
    QString error;
    if (argc != 3 || !loadHostSettings(QString::fromLocal8Bit(argv[1]), &error)) {
        qCritical("usage: embed SETTINGS.ini DOWNLOAD_ROOT %s", qPrintable(error));
        return 2;
    }
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->setResourceSaveRootPath(QString::fromLocal8Bit(argv[2]));
    catalogue->load(false);

    qApp->setStyleSheet(BrowserSkin::styleSheet(hostSettings().currentSkin));
    BrowserLanguage::install(QLocale::system().name());
    mvThemelistview themes;
    themes.setUIItemType(UIItem_Themes);
    themes.initData(QUuid(), false);
    themes.resize(720, 480);
    themes.show();
    // Here an editor applies it.
    MVThemeItemWdg::setCbItemClicked([&](auto* theme) { themes.setWindowTitle(theme->m_qsName); });

    using Check = MVThemeDownLoader_CheckCfg;
    const auto reload = [&themes, catalogue] {
        Check::instance()->waitThreadFinished(); // nothing may work on what is read again
        themes.clear();
        catalogue->saveFavourites(nullptr); // load() takes favourites from their files
        catalogue->load(true);
        themes.initData(QUuid(), false);
    };
    bool changed = false;
    Check::setCatalogueCheckCallback([&changed](const SCatalogueCheckResult& result) {
        changed = result.m_eEnd == eCatalogueCheck_Changed;
    });
    Check::setPreviewRunCallback([&](const SPreviewRunResult& run) {
        if (changed || run.m_nFetched > 0)
            QMetaObject::invokeMethod(&themes, reload, Qt::QueuedConnection);
    });
    Check::instance()->startDownloadXML();
    const int status = QApplication::exec();
    MVThemeItemWdg::setCbItemClicked({});
    Check::setCatalogueCheckCallback({});
    Check::setPreviewRunCallback({});
    return status;
}
