// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "host/MvVersion.h"

#include <QCoreApplication>

#include <cstdio>

#if MVRESOURCE_VERSION < MVRESOURCE_VERSION_CHECK(0, 1, 0)
#error "the macros of the version do not compare"
#endif

/// Prints the config catalogue's path below the folder given on the command line, and the versions
/// of header and library.
int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const QCoreApplication application(argc, argv);
    MVThemeMgr* manager = MVThemeMgr::init();
    manager->setResourceSaveRootPath(QString::fromLocal8Bit(argv[1]));
    const QString path =
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config);
    std::printf("config catalogue: %s\n", qPrintable(path));
    std::printf("versions: %s %s\n", MVRESOURCE_VERSION_STRING, mvVersion());
    return 0;
}
