// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/BuiltinThemes.h"

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// Returns the reason why extraction is impossible; empty if it is possible.
QString obstacle(MVThemeMgr& manager)
{
    const QString root = hostSettings().developerResourceRoot;
    if (root.isEmpty())
        return QStringLiteral("no developer resource root is set");
    if (!QFileInfo(root + QStringLiteral("/config")).isDir())
        return QStringLiteral("no such folder: %1/config").arg(root);
    // Every "config" in a path becomes "config_local", so the copy would end up elsewhere.
    if (root.contains(QLatin1String("config")))
        return QStringLiteral("the path of the developer resource root contains \"config\": %1")
            .arg(root);
    if (manager.getThemes_Display().size() < BuiltinThemes::themeCount)
        return QStringLiteral("the catalogue shows fewer than two themes");
    const QVector<SCfg_Item>& themes = manager.getThemes_Display();
    const bool isAnyParsed =
        std::any_of(themes.cbegin(), themes.cbegin() + BuiltinThemes::themeCount,
                    [](const SCfg_Item& theme) { return theme.parsedTheme() != nullptr; });
    if (!isAnyParsed) {
        return QStringLiteral(
            "the config of neither of the first two themes has been read: it is "
            "missing or malformed, or the product parameter \"hasMV\" is not set");
    }
    return QString();
}

} // namespace

bool BuiltinThemes::create(QString* error)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    const QString reason = obstacle(*manager);
    if (error)
        *error = reason;
    if (!reason.isEmpty())
        return false;
    manager->createLocalThemeRes();
    return true;
}
