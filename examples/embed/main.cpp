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
    QString error;
    if (argc != 3 || !loadHostSettings(QString::fromLocal8Bit(argv[1]), &error))
        qFatal("usage: embed SETTINGS.ini DOWNLOAD_ROOT %s", qPrintable(error));

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
    MVThemeItemWdg::setCbItemClicked([&themes](SCfg_Item* theme) {
        themes.setWindowTitle(theme->m_qsName); // here an editor applies it
    });

    auto* const check = MVThemeDownLoader_CheckCfg::instance();
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback([&themes, check](const SPreviewRunResult&) {
        const auto reload = [&themes, check] {
            check->waitThreadFinished(); // nothing may work on the catalogue while it is read
            themes.clear();
            MVThemeMgr::init()->load(true);
            themes.initData(QUuid(), false);
        };
        QMetaObject::invokeMethod(&themes, reload, Qt::QueuedConnection);
    });
    check->startDownloadXML();
    const int status = QApplication::exec();
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback({});
    return status;
}
