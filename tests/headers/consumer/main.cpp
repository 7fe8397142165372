// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "every_header.h"

#include <QApplication>

#include <cstdio>

/// Prints the config catalogue's path below the folder given on the command line.
int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    QApplication application(argc, argv);
    MVThemeMgr* manager = MVThemeMgr::init();
    manager->setResourceSaveRootPath(QString::fromLocal8Bit(argv[1]));
    const QString path =
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config);
    std::printf("config catalogue: %s\n", qPrintable(path));
    // Uses symbols of the other libraries, so that the linker needs them too.
    mvThemelistview view;
    view.setUIItemType(UIItem_Themes);
    if (SkinWidget::instance()->themeItemSize() != QSize(-1, -1))
        return 1;
    // Compiled into the libraries.
    if (BrowserSkin::styleSheet(QStringLiteral("Classical")).isEmpty()
        || !BrowserSkin::windowColors(QStringLiteral("Classical")).window.isValid())
        return 3;
    return BrowserLanguage::install(QStringLiteral("de")) ? 0 : 4;
}
