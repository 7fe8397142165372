// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/StorageWorld.h"

#include "download/ItemUpdate.h"
#include "host/HostSettings.h"

namespace {

CatalogueFiles::CfgItem cfgItem(const char* folder, int number)
{
    const QString base = QStringLiteral("/%1/%2").arg(QLatin1String(folder)).arg(number);
    return {CatalogueFiles::guid(number),
            base + QStringLiteral(".xml"),
            {base + QStringLiteral(".zip")}};
}

CatalogueFiles::DisplayItem displayItem(int number)
{
    return {CatalogueFiles::guid(number), QString::number(number), QStringLiteral("t.jpg"),
            QStringLiteral("p.gif")};
}

} // namespace

void StorageWorld::freshStorage()
{
    freshRelease();
    setParam("hasMV", "1");
    hostSettings().showWithoutPreviews = true;
    const QByteArray config = CatalogueFiles::document(
        CatalogueFiles::cfgGroup(
            QStringLiteral("Filter"),
            {cfgItem("VideoFilters", 11), cfgItem("VideoFilters", 12), cfgItem("VideoFilters", 13)})
        + CatalogueFiles::cfgGroup(QStringLiteral("Theme"),
                                   {cfgItem("Themes", 1), cfgItem("Themes", 2)}));
    const QByteArray display = CatalogueFiles::document(
        CatalogueFiles::displayCategory(QStringLiteral("Filter"),
                                        {displayItem(11), displayItem(13)})
        + CatalogueFiles::displayThemes(
            {{QStringLiteral("others"), {displayItem(1), displayItem(2)}}}));
    putCatalogue(display, config);
    for (const int number : {11, 12, 13}) {
        const QString base = QStringLiteral("config/VideoFilters/%1").arg(number);
        put(base + QStringLiteral(".xml"), "<Filter>" + QByteArray::number(number) + "</Filter>");
        put(base + QStringLiteral(".zip"), archive(number));
    }
    put(QStringLiteral("config/Themes/1.xml"), themeConfig({11, 12}));
    put(QStringLiteral("config/Themes/2.xml"), themeConfig({12}));
    for (const int number : {1, 2})
        put(QStringLiteral("config/Themes/%1.zip").arg(number), archive(number));
    publishAndCheck(10);
}

void StorageWorld::publishAndCheck(qint64 serial)
{
    publishRelease(serial);
    QString reason;
    check(&reason);
    if (!reason.isEmpty())
        qFatal("the check failed: %s", qPrintable(reason));
    MVThemeMgr::init()->load(true);
}

void StorageWorld::change(const char* name, const QByteArray& content)
{
    put(QStringLiteral("config/") + QString::fromLatin1(name), content);
}

QByteArray StorageWorld::themeConfig(const QVector<int>& filters)
{
    QByteArray content;
    for (const int number : filters) {
        content += "<Item><Filter><GUID>" + CatalogueFiles::guid(number).toUtf8()
            + "</GUID></Filter></Item>";
    }
    return CatalogueFiles::document(content);
}

SCfg_Item& StorageWorld::theme(int number)
{
    SCfg_Item* const item =
        MVThemeMgr::init()->findItemByIDFromDisplay(eCfgItem_Theme, CatalogueFiles::guid(number));
    if (!item)
        qFatal("no theme %d", number);
    return *item;
}

SCfg_Item& StorageWorld::filter(int number)
{
    SCfg_Item* const item =
        MVThemeMgr::init()->findItemByIDFromConfig(eCfgItem_Filter, CatalogueFiles::guid(number));
    if (!item)
        qFatal("no filter %d", number);
    return *item;
}

bool StorageWorld::fetch(const QVector<SCfg_Item*>& items)
{
    return ItemUpdate().updateItems(items).m_eEnd == eItemUpdate_Complete;
}

namespace {

QString placeOf(MVThemeMgr::ELoadDir tree, const char* name)
{
    return MVThemeMgr::init()->Path_resource_Dir(tree, MVThemeMgr::eDirTag_Config)
        + QLatin1Char('/') + QString::fromLatin1(name);
}

} // namespace

QString StorageWorld::file(const char* name) const
{
    return placeOf(MVThemeMgr::eLoadDir_Download, name);
}

QString StorageWorld::installed(const char* name)
{
    return placeOf(MVThemeMgr::eLoadDir_Local, name);
}

QStringList StorageWorld::files() const
{
    QStringList files = CatalogueFiles::filesBelow(file(""));
    files.sort();
    return files;
}
