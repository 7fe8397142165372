// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PathsCommand.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "ExitStatus.h"
#include "host/ProductParam.h"
#include "host/TzResourceMgr.h"
#include "Session.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPair>
#include <QVector>

namespace {

using Row = QPair<QString, QString>;

QVector<Row> rows(const Session& session)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    QVector<Row> all = {
        {QStringLiteral("server"), ProductParam::text(ProductParam::serverRoot)},
        {QStringLiteral("resources"), TzResourceMgr::instance()->resourcesPath()},
        {QStringLiteral("root"), session.root()},
        {QStringLiteral("themeFavourites"), manager->Path_ThemeCollect()},
        {QStringLiteral("filterFavourites"), manager->Path_FilterCollect()},
    };
    struct Tree
    {
        MVThemeMgr::ELoadDir dir;
        QString name;
    };
    const Tree trees[] = {{MVThemeMgr::eLoadDir_Download, QStringLiteral("download")},
                          {MVThemeMgr::eLoadDir_Local, QStringLiteral("installed")}};
    for (const Tree& tree : trees) {
        const auto add = [&](const char* what, const QString& path) {
            all.append({tree.name + QString::fromLatin1(what), path});
        };
        add("Version", manager->Path_resource_version_xml(tree.dir));
        add("ConfigCatalogue", manager->Path_resource_xml(tree.dir, MVThemeMgr::eDirTag_Config));
        add("DisplayCatalogue", manager->Path_resource_xml(tree.dir, MVThemeMgr::eDirTag_Display));
        add("ConfigFiles", manager->Path_resource_Dir(tree.dir, MVThemeMgr::eDirTag_Config));
        add("DisplayFiles", manager->Path_resource_Dir(tree.dir, MVThemeMgr::eDirTag_Display));
    }
    return all;
}

} // namespace

int PathsCommand::run(const Arguments& arguments, const Session& session)
{
    QJsonObject object;
    const QVector<Row> all = rows(session);
    for (const Row& row : all) {
        object.insert(row.first, row.second);
        if (!arguments.json)
            Console::print(QStringLiteral("%1 %2").arg(row.first, -25).arg(row.second));
    }
    if (arguments.json)
        Console::print(QJsonDocument(object));
    return ExitStatus::success;
}
