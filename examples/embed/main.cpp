// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT
// The smallest host: a window with the list of themes. docs/host-guide.md explains it line by line.
#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "download/CatalogueUpdate.h"
#include "host/HostSettings.h"
#include <QApplication>
#include <QLocale>
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    hostSettings() = HostSettings::recommended();
    if (QString error; argc != 3 || !loadHostSettings(QString::fromLocal8Bit(argv[1]), &error)) {
        qCritical("usage: embed SETTINGS.ini DOWNLOAD_ROOT %s", qPrintable(error));
        return 2;
    }
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->setResourceSaveRootPath(QString::fromLocal8Bit(argv[2]));
    catalogue->load(false);
    BrowserSkin::apply(BrowserSkin::styleSheet(hostSettings().currentSkin));
    BrowserLanguage::install(QLocale::system().name());
    mvThemelistview themes;
    themes.setUIItemType(UIItem_Themes);
    themes.initData(QUuid(), false);
    themes.show();
    QObject::connect(&themes, &mvThemelistview::sigThemeItemClicked, // here an editor applies it
                     [&](auto* theme) { themes.setWindowTitle(theme->m_qsName); });
    CatalogueUpdate update;
    QObject::connect(&update, &CatalogueUpdate::contentArrived, &themes, [&] {
        themes.release();
        catalogue->saveFavourites(nullptr); // load() takes favourites from their files
        catalogue->load(true);
        themes.refill();
    });
    update.startSpread();
    return QApplication::exec();
}
