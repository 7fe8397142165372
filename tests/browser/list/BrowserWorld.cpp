// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"

#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "download/DownloadPacing.h"
#include "host/HostSettings.h"
#include "host/widgets/SkinWidget.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

#include <QBuffer>
#include <QImage>

using CfgItem = CatalogueFiles::CfgItem;
using DisplayItem = CatalogueFiles::DisplayItem;

namespace {

constexpr std::chrono::milliseconds fastPace(1);
constexpr std::chrono::milliseconds tick(5);

MVThemeMgr& manager()
{
    return *MVThemeMgr::init();
}

void resetSkin()
{
    SkinWidget* const skin = SkinWidget::instance();
    skin->setThemeItemSize({-1, -1});
    skin->setThemeItemPadding({});
    skin->setFilterItemSize({-1, -1});
    skin->setFilterItemPadding({});
}

void resetCallbacks()
{
    MVThemeItemWdg::setCbItemClicked(nullptr);
    MVThemeItemWdg::setCbItemDownloaded(nullptr);
    MVThemeItemSubwdgt_Preview::setCbBtnCollect(nullptr);
    MVThemeItemSubwdgt_Preview::setCbBtnDownload(nullptr);
    MVThemeItemSubwdgt_Preview::setCbBtnMore(nullptr);
}

DisplayItem shownItem(int number, const QString& name)
{
    return {CatalogueFiles::guid(number), name, QStringLiteral("thumb.png"),
            QStringLiteral("anim.gif")};
}

} // namespace

BrowserWorld::BrowserWorld()
    : m_server([this](HttpExchange& exchange) { answer(exchange); })
{
    qRegisterMetaType<SCfg_Item*>(); // for signal spies
    static int number = 0;
    const QString base = TestHome::path() + QStringLiteral("/world%1").arg(++number);
    m_root = base + QStringLiteral("/root");
    HostSettings& settings = hostSettings();
    settings = HostSettings();
    settings.resourcesPath = base + QStringLiteral("/installed");
    settings.dataLocation = base + QStringLiteral("/data");
    settings.appDataPath = base + QStringLiteral("/appdata");
    settings.testOutputDir = base + QStringLiteral("/testoutput");
    settings.downloadRetries = 0;
    settings.cellsOnDemand = qEnvironmentVariableIsSet("MV_CELLS_ON_DEMAND");
    settings.transfersSideBySide = TransfersSideBySide::count();
    setParam("url_themeRootDir", m_server.url(QStringLiteral("/")));
    CatalogueFiles::write(manager().Path_ThemeCollect(), "{}");
    CatalogueFiles::write(manager().Path_FilterCollect(), "{}");
    manager().clear();
    manager().setResourceSaveRootPath(m_root);
    DownloadPacing::setStep(TransfersSideBySide::isOn() ? std::chrono::milliseconds(0) : fastPace);
    resetSkin();
    resetCallbacks();
}

BrowserWorld::~BrowserWorld()
{
    resetCallbacks();
    release();
}

void BrowserWorld::addTheme(int number, const QString& name, Files files, const QString& group)
{
    const CfgItem config = {CatalogueFiles::guid(number),
                            QStringLiteral("/Themes/%1.xml").arg(number),
                            {QStringLiteral("/Themes/%1.zip").arg(number)}};
    add(eCfgItem_Theme, config, files);
    m_themes.append({group, {shownItem(number, name)}});
}

void BrowserWorld::addThemeWithConfig(int number, const QString& name, const QString& configUrl)
{
    add(eCfgItem_Theme, {CatalogueFiles::guid(number), configUrl, {}}, OnServer);
    m_themes.append({QStringLiteral("others"), {shownItem(number, name)}});
}

void BrowserWorld::addFilter(int number, const QString& name, Files files)
{
    const CfgItem config = {CatalogueFiles::guid(number),
                            QString(),
                            {QStringLiteral("/VideoFilters/%1.zip").arg(number)}};
    add(eCfgItem_Filter, config, files);
    m_filters.append(shownItem(number, name));
}

void BrowserWorld::addBackground(int number, const QString& name, Files files)
{
    const CfgItem config = {CatalogueFiles::guid(number),
                            QString(),
                            {QStringLiteral("/BgMaterial/%1.zip").arg(number)}};
    add(eCfgItem_BgMaterial, config, files);
    m_backgrounds.append(shownItem(number, name));
}

void BrowserWorld::addNoneFilter()
{
    m_filters.append({QString(noneEntryGuid), QStringLiteral("None"), QStringLiteral("thumb.png")});
}

void BrowserWorld::add(ECfgItemType kind, const CfgItem& config, Files files)
{
    m_config[kind].append(config);
    if (files == OnDisk)
        m_complete.append({kind, config.guid});
}

void BrowserWorld::load()
{
    writePreviews();
    QByteArray config;
    for (auto it = m_config.cbegin(); it != m_config.cend(); ++it)
        config += CatalogueFiles::cfgGroup(manager().getCfgItemTypeStr(it.key()), it.value());
    const auto xml = [](MVThemeMgr::EDirTag half) {
        return manager().Path_resource_xml(MVThemeMgr::eLoadDir_Download, half);
    };
    CatalogueFiles::write(xml(MVThemeMgr::eDirTag_Config), CatalogueFiles::document(config));
    CatalogueFiles::write(
        xml(MVThemeMgr::eDirTag_Display),
        CatalogueFiles::document(
            CatalogueFiles::displayCategory(QStringLiteral("Filter"), m_filters)
            + CatalogueFiles::displayThemes(m_themes)
            + CatalogueFiles::displayCategory(QStringLiteral("BgMaterial"), m_backgrounds)));
    manager().load(true);
    for (const auto& [kind, guid] : qAsConst(m_complete)) {
        QVector<SFileInfo*> missing;
        manager().getNeedDownLoadFiles(manager().findItemByIDFromDisplay(kind, guid), missing);
        for (const SFileInfo* info : qAsConst(missing))
            CatalogueFiles::write(info->m_qsFile, CatalogueFiles::document({}));
    }
}

void BrowserWorld::writePreviews() const
{
    for (const ECfgItemType kind : {eCfgItem_Filter, eCfgItem_Theme, eCfgItem_BgMaterial}) {
        const QString folder = manager().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                           MVThemeMgr::eDirTag_Display, kind);
        CatalogueFiles::write(folder + QStringLiteral("/thumb.png"), thumbnail());
        CatalogueFiles::write(folder + QStringLiteral("/anim.gif"), animation());
        // Pictures of the "none" entry, one per skin.
        CatalogueFiles::write(folder + QStringLiteral("/Classical.png"), thumbnail());
    }
}

SCfg_Item* BrowserWorld::theme(int number)
{
    return manager().findItemByIDFromDisplay(eCfgItem_Theme, CatalogueFiles::guid(number));
}

SCfg_Item* BrowserWorld::filter(int number)
{
    return manager().findItemByIDFromDisplay(eCfgItem_Filter, CatalogueFiles::guid(number));
}

SCfg_Item* BrowserWorld::background(int number)
{
    return manager().findItemByIDFromDisplay(eCfgItem_BgMaterial, CatalogueFiles::guid(number));
}

void BrowserWorld::setParam(const char* key, const QString& value)
{
    hostSettings().productParams.insert(QString::fromLatin1(key), value);
}

void BrowserWorld::setFavourite(SCfg_Item* item, bool favourite)
{
    item->m_bCollected = favourite;
    manager().setItemCollected(item);
}

void BrowserWorld::route(const QString& target, const FaultServer::Handler& handler)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_routes.insert(target.toUtf8(), handler);
}

void BrowserWorld::hold(const QString& target)
{
    m_held = true;
    route(target, [this](HttpExchange& exchange) {
        while (m_held)
            exchange.pause(tick);
        answerWithContent(exchange);
    });
}

void BrowserWorld::stall(const QString& target)
{
    route(target, [](HttpExchange& exchange) { exchange.stall(); });
}

int BrowserWorld::requests(const QString& target) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_targets.count(target.toUtf8());
}

int BrowserWorld::requests() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_targets.size();
}

void BrowserWorld::answer(HttpExchange& exchange)
{
    FaultServer::Handler handler;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_targets.append(exchange.request().target);
        handler = m_routes.value(exchange.request().target);
    }
    if (handler)
        handler(exchange);
    else
        answerWithContent(exchange);
}

void BrowserWorld::answerWithContent(HttpExchange& exchange)
{
    exchange.answer(HttpAnswer(200).body(CatalogueFiles::document({})));
}

QByteArray BrowserWorld::thumbnail()
{
    QImage image(16, 12, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        qFatal("no PNG writer");
    return bytes;
}

QByteArray BrowserWorld::animation()
{
    const QByteArray header = QByteArrayLiteral("GIF89a\x04\x00\x04\x00\x80\x00\x00"
                                                "\x00\x00\x00\xff\xff\xff"
                                                "\x21\xff\x0bNETSCAPE2.0\x03\x01\x00\x00\x00");
    const QByteArray frame = QByteArrayLiteral("\x21\xf9\x04\x00\x02\x00\x00\x00"
                                               "\x2c\x00\x00\x00\x00\x01\x00\x01\x00\x00"
                                               "\x02\x02\x44\x01\x00");
    return header + frame + frame + ';';
}

HostTrace::HostTrace()
{
    MVThemeItemWdg::setCbItemClicked(
        [this](SCfg_Item* item) { note(QStringLiteral("clicked ") + item->m_qsName); });
    MVThemeItemWdg::setCbItemDownloaded(
        [this](SCfg_Item* item) { note(QStringLiteral("downloaded ") + item->m_qsName); });
}

HostTrace::~HostTrace()
{
    resetCallbacks();
}
