// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckWorker_ThumbAndGif.h"

#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "catalogue/XmlFile.h"
#include "download/CheckTransfer.h"
#include "download/FileLedger.h"
#include "download/LogCategories.h"
#include "download/PreviewExchange.h"
#include "host/ETransferResult.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "records/FileView.h"

#include <QDomDocument>
#include <QFile>

namespace {

// Numbers of the cancellation points, as they appear in the log.
constexpr int pointAfterThumb = 1119;
constexpr int pointAfterGif = 1151;

/// Reads the downloaded catalogue file, or the installed one if that is unusable. Returns false,
/// with both paths in `reason`, if neither can be read.
bool readCatalogue(MVThemeMgr::EDirTag tag, const char* downloadError, const char* localError,
                   QDomDocument& doc, QString& reason)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    const QString downloaded = manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, tag);
    if (manager->checkXml(downloaded, doc))
        return true;
    LogL(LogCategories::checkOfPreviews, 1, downloadError, downloaded.toUtf8().constData());
    const QString installed = manager->Path_resource_xml(MVThemeMgr::eLoadDir_Local, tag);
    if (manager->checkXml(installed, doc))
        return true;
    LogL(LogCategories::checkOfPreviews, 1, localError, installed.toUtf8().constData());
    reason = QStringLiteral("neither %1 nor %2 can be read").arg(downloaded, installed);
    return false;
}

} // namespace

const CheckWorker_ThumbAndGif::Kind CheckWorker_ThumbAndGif::thumb = {
    "sCfg_Item.m_info_Thumb.m_bDownloaded = true! not need download!, i = %d, strUrl = %s, "
    "strFile = %s",
    "parseData_display_xml Thumb download template is error! will return!, i = %d, strUrl = %s, "
    "strFile = %s",
    "parseData_display_xml Thumb download template is ok!, i = %d, strUrl = %s, strFile = %s",
    pointAfterThumb};

const CheckWorker_ThumbAndGif::Kind CheckWorker_ThumbAndGif::gif = {
    "sCfg_Item.m_info_Gif.m_bDownloaded = true! not need download!, i = %d, strUrl = %s, "
    "strFile = %s",
    "parseData_display_xml Gif download template is error! will return!, i = %d, strUrl = %s, "
    "strFile = %s",
    "parseData_display_xml Gif download template is ok!, i = %d, strUrl = %s, strFile = %s",
    pointAfterGif};

CheckWorker_ThumbAndGif::CheckWorker_ThumbAndGif(CancelToken cancel)
    : m_bWillCancel(std::move(cancel))
{
    qRegisterMetaType<SCfg_Item>("SCfg_Item");
}

CheckWorker_ThumbAndGif::~CheckWorker_ThumbAndGif() = default;

void CheckWorker_ThumbAndGif::setResultCallback(ResultCallback callback)
{
    m_resultCallback = std::move(callback);
}

void CheckWorker_ThumbAndGif::setProgressCallback(ProgressReport::Callback callback)
{
    m_progress.setCallback(std::move(callback));
}

void CheckWorker_ThumbAndGif::cancel()
{
    m_bWillCancel.cancel(); // first, so that no transfer begins after the one that ends
    m_CurWrapper.cancel();
}

bool CheckWorker_ThumbAndGif::onStartDownload_ThumbAndGif()
{
    LogL(LogCategories::checkOfPreviews, 1, "onStartDownload_ThumbAndGif start!");
    m_result = SPreviewRunResult();
    m_release = AcceptedRelease::current();
    const bool hasMV = ProductParam::isOn(ProductParam::hasThemes);
    const bool hasSplit = ProductParam::isOn(ProductParam::hasBackgrounds);
    if (!readConfig(hasMV, hasSplit) || !readDisplay(hasMV, hasSplit)) {
        m_result.m_eEnd = ePreviewRun_NoCatalogue;
        return end(false);
    }

    // One thumbnail and one preview each.
    const QVector<QVector<SCfg_Item>*> lists = workList();
    int items = 0;
    for (const QVector<SCfg_Item>* const list : lists)
        items += list->size();
    m_progress.begin(2 * items);
    const bool isSideBySide = hostSettings().transfersSideBySide > 1;
    if (!(isSideBySide ? fetchSideBySide() : fetchInOrder()))
        return end(false);
    LogL(LogCategories::checkOfPreviews, 1, "onStartDownload_ThumbAndGif end!");
    return end(true);
}

/// Background materials are shown without their pictures only if the host asks for that.
QVector<QVector<SCfg_Item>*> CheckWorker_ThumbAndGif::workList()
{
    QVector<QVector<SCfg_Item>*> lists = {&m_vecDisplay_Themes, &m_vecDisplay_Filters};
    if (hostSettings().showWithoutPreviews)
        lists.append(&m_vecDisplay_BgMaterial);
    return lists;
}

/// Returns false if the run was cancelled.
bool CheckWorker_ThumbAndGif::fetchInOrder()
{
    CheckTransfer transfer(m_CurWrapper, m_progress, m_bWillCancel);
    int index = 0;
    const QVector<QVector<SCfg_Item>*> lists = workList();
    for (QVector<SCfg_Item>* const items : lists) {
        for (SCfg_Item& item : *items) {
            if (!fetchFile(transfer, thumb, index, item) || !fetchFile(transfer, gif, index, item))
                return false;
            ++index;
        }
    }
    return true;
}

bool CheckWorker_ThumbAndGif::readConfig(bool hasMV, bool hasSplit)
{
    QDomDocument doc;
    if (!readCatalogue(MVThemeMgr::eDirTag_Config, "path_Cfg_Download checkXml [%s],is error!",
                       "path_Cfg_local checkXml[%s],is error!", doc, m_result.m_qsReason))
        return false;
    QDomElement root = doc.documentElement();
    const auto read = [&](ECfgItemType kind, QVector<SCfg_Item>& items) {
        MVThemeMgr* const manager = MVThemeMgr::init();
        const QString tag = manager->getCfgItemTypeStr(kind);
        items.clear();
        manager->read_resource_config_xml_a(root, kind, tag, items);
        XmlFile::release(root, tag);
    };
    if (hasMV)
        read(eCfgItem_Theme, m_vecCfg_Themes);
    if (hasSplit)
        read(eCfgItem_BgMaterial, m_vecCfg_BgMaterial);
    read(eCfgItem_Filter, m_vecCfg_Filters);
    return true;
}

bool CheckWorker_ThumbAndGif::readDisplay(bool hasMV, bool hasSplit)
{
    const PathGuard::Folders folders;
    QDomDocument doc;
    if (!readCatalogue(MVThemeMgr::eDirTag_Display,
                       "path_display_Download checkXml[%s],is error!,will return!",
                       "path_display_local checkXml[%s],is error!", doc, m_result.m_qsReason))
        return false;
    QDomElement root = doc.documentElement();
    using Reader = void (MVThemeMgr::*)(const QDomElement&, ECfgItemType, QString,
                                        QVector<SCfg_Item>&, QVector<SCfg_Item>&, bool);
    const auto read = [&](Reader reader, ECfgItemType kind, QVector<SCfg_Item>& config,
                          QVector<SCfg_Item>& display) {
        MVThemeMgr* const manager = MVThemeMgr::init();
        const QString tag = manager->getCfgItemTypeStr(kind);
        display.clear();
        (manager->*reader)(root, kind, tag, config, display, true);
        XmlFile::release(root, tag);
    };
    if (hasMV) {
        read(&MVThemeMgr::read_resource_display_xml_a_theme, eCfgItem_Theme, m_vecCfg_Themes,
             m_vecDisplay_Themes);
    }
    if (hasSplit) {
        // Only the flat form, in which the catalogue reads them, contains what lists show.
        const Reader reader = hostSettings().showWithoutPreviews
            ? &MVThemeMgr::read_resource_display_xml_a
            : &MVThemeMgr::read_resource_display_xml_a_theme;
        read(reader, eCfgItem_BgMaterial, m_vecCfg_BgMaterial, m_vecDisplay_BgMaterial);
    }
    read(&MVThemeMgr::read_resource_display_xml_a, eCfgItem_Filter, m_vecCfg_Filters,
         m_vecDisplay_Filters);
    return true;
}

/// Returns false if the run ends here.
bool CheckWorker_ThumbAndGif::fetchFile(CheckTransfer& transfer, const Kind& kind, int index,
                                        SCfg_Item& item)
{
    const Picture picture = look(kind, index, item);
    const Turn turn = beginTurn(picture);
    if (turn == Turn::Stop)
        return false;
    if (turn == Turn::Fetch) {
        const ETransferResult result = transfer.fetchPublished(
            picture.url, picture.file, picture.source, hostSettings().maxDownloadBytes);
        const bool goesOn = endTurn(picture, result, transfer.failure());
        if (result != eTransfer_Success)
            QFile::remove(picture.file);
        if (!goesOn)
            return false;
    }
    m_progress.countFiles(1);
    return true;
}

CheckWorker_ThumbAndGif::Picture CheckWorker_ThumbAndGif::look(const Kind& kind, int index,
                                                               SCfg_Item& item)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    const bool isGif = &kind == &gif;
    const bool isPresent =
        isGif ? manager->doItem_Info_Gif(item) : manager->doItem_Info_Thumb(item);
    const FileView view(isGif ? item.m_info_Gif : item.m_info_Thumb);
    const QString url =
        manager->downLoadUrl_Thumb(MVThemeMgr::eDirTag_Display, view.kind(), view.name());
    const AcceptedRelease::Source source =
        isPresent ? AcceptedRelease::Source() : AcceptedRelease::sourceOf(url, m_release);
    return {&kind, index, item.m_qsGUID, url, view.file(), isPresent, source};
}

CheckWorker_ThumbAndGif::Turn CheckWorker_ThumbAndGif::beginTurn(const Picture& picture)
{
    if (picture.isPresent) {
        log(picture, picture.kind->present);
        if (!picture.file.isEmpty()) // items that have no such file need none either
            ++m_result.m_nPresent;
        if (m_fetchedFiles.contains(picture.file)) // for another item
            PreviewExchange::instance()->tellArrived(picture.guid);
        return Turn::Over;
    }
    if (stopIfCancelled(*picture.kind))
        return Turn::Stop;
    // A file that would be outside the download root is neither fetched nor removed.
    const MVThemeMgr* const manager = MVThemeMgr::init();
    if (!manager->isDownloadPath(picture.file) || !manager->isServerAddress(picture.url)) {
        log(picture, picture.kind->failed);
        noteFailure(
            {eFailure_BadAddress, picture.url, picture.file,
             QStringLiteral("%1 leads to another server, or %2 is outside the download root")
                 .arg(picture.url, picture.file)});
        return Turn::Over;
    }
    if (picture.source.isRefused) {
        log(picture, picture.kind->failed);
        noteFailure(AcceptedRelease::refusalOf(picture.url, picture.file));
        return Turn::Over;
    }
    return Turn::Fetch;
}

/// Returns false if the run ends here.
bool CheckWorker_ThumbAndGif::endTurn(const Picture& picture, ETransferResult result,
                                      const STransferFailure& failure)
{
    if (result != eTransfer_Success) {
        log(picture, picture.kind->failed);
        noteFailure(failure);
        return true;
    }
    log(picture, picture.kind->fetched);
    ++m_result.m_nFetched;
    FileLedger::instance()->note(picture.file, picture.source.published);
    m_fetchedFiles.insert(picture.file);
    PreviewExchange::instance()->tellArrived(picture.guid);
    return !stopIfCancelled(*picture.kind);
}

void CheckWorker_ThumbAndGif::log(const Picture& picture, const char* format)
{
    LogL(LogCategories::coordinator, 1, format, picture.index, picture.url.toUtf8().constData(),
         picture.file.toUtf8().constData());
}

void CheckWorker_ThumbAndGif::noteFailure(const STransferFailure& failure)
{
    ++m_result.m_nFailed;
    if (failure.m_eCause == eFailure_Cancelled)
        m_result.m_eEnd = ePreviewRun_Cancelled;
    else if (m_result.m_vecFailures.size() < SPreviewRunResult::maxFailures)
        m_result.m_vecFailures.append(failure);
}

/// Returns true, and logs a line, if the run was cancelled and therefore ends at this file.
bool CheckWorker_ThumbAndGif::stopIfCancelled(const Kind& kind) const
{
    if (!m_bWillCancel.isCancelled())
        return false;
    LogL(LogCategories::coordinator, 1,
         "CheckCfgWorker_willCancel downloadThumbAndGif m_bWillCancel == true! will "
         "return![line = %d]",
         kind.cancelPoint);
    return true;
}

bool CheckWorker_ThumbAndGif::end(bool workedThrough)
{
    m_result.m_bWorkedThrough = workedThrough;
    if (!workedThrough && m_result.m_eEnd == ePreviewRun_Complete)
        m_result.m_eEnd = ePreviewRun_Cancelled;
    if (m_resultCallback)
        m_resultCallback(m_result);
    emit sig_endDownload_ThumbAndGif(workedThrough);
    return workedThrough;
}
