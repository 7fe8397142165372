// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/CatalogueUse.h"
#include "download/SItemDownloadResult.h"
#include "host/CancelToken.h"
#include "host/CBasePtr.h"
#include "host/CurWrapper.h"
#include "host/STransferFailure.h"
#include "records/ECfgItemType.h"
#include "records/FileRecord.h"
#include "records/MvResourceExport.h"

#include <QMutex>
#include <QString>
#include <QStringList>
#include <QThread>
#include <QVector>

#include <atomic>
#include <optional>

class CoreContext;
class FileTurn;
struct SCfg_Item;
struct SFileInfo;

/// Fetches everything that a catalogue item needs before it can be used, on a separate thread.
///
/// Create it, connect progress() and sigDownloadFinish() (both are emitted on the download thread,
/// so they are queued to receivers elsewhere), call download(), and receive exactly one
/// sigDownloadFinish(). Then destroy it or download the next item. A cancelled downloader stays
/// cancelled: create a new one.
///
/// The item and its file records belong to the catalogue (MVThemeMgr), which refuses to be loaded
/// or cleared before the end. Downloads that need the same file share the work: the record's mutex
/// decides which one fetches it, and the others wait. HostSettings::transfersSideBySide decides how
/// many of an item's files are fetched at a time. Nothing is written outside the download root.
///
/// The constructor, download(), cancel(), the accessors and the destructor are called on one
/// thread, usually the GUI's.
class MVRESOURCE_EXPORT MVThemeDownLoader : public QThread
{
    Q_OBJECT

public:
    /// Creates a downloader without an item; download() starts its thread.
    explicit MVThemeDownLoader(QObject* parent);
    /// Cancels and waits until the thread has returned, which it does within 200 ms.
    ~MVThemeDownLoader() override;

    /// Starts fetching the missing files of `item` (not owned), and returns at once. Does nothing
    /// while a download is running.
    void download(SCfg_Item* item);

    /// Cancels this download and all later ones; the end signal follows within 200 ms. A transfer
    /// in progress ends as a failed one.
    void cancel();
    /// Returns whether cancel() has been called.
    bool isCancelled() const { return m_bWillCancel.isCancelled(); }

    /// Returns the address of the file being fetched; empty before the first.
    QString downloadedUrl() const;
    /// Returns the local path of that file.
    QString downloadedFile() const;
    /// Returns how many bytes have arrived since download(), for all files and tries together, also
    /// those of files that another download of this process fetches meanwhile. It grows only while
    /// the server sends something, unlike progress(), which counts whole files. Any thread.
    qint64 receivedBytes() const { return m_nReceived; }
    /// Returns the failure of the first file that could not be fetched; no failure if there was
    /// none, and after a cancellation.
    STransferFailure failure() const;
    /// Returns the outcome of the last download; valid from its end signal until the next
    /// download().
    SItemDownloadResult outcome() const;
    /// Returns the failure's details: address, reason or status, bytes received and local path.
    QString errorText() const { return failure().m_qsDetails; }

    /// Stores a value for the caller, which is not interpreted here; null by default.
    void setUserData(void* data) { m_pUserData = data; }
    /// Returns what setUserData() has stored.
    void* userData() const { return m_pUserData; }

    /// Sets the object that all downloaders notify of downloaded filter, transition and motion
    /// definitions; may be null. Any thread.
    static void setCoreContextPtr(CBasePtr<CoreContext> context);
    /// Returns the object of setCoreContextPtr(); null if there is none. Any thread.
    static CBasePtr<CoreContext> coreContext();

signals:
    /// Percentage, 0 to 100: up to 10 during the first phase, then in equal shares per file.
    void progress(double);
    /// Declared for hosts; never emitted here.
    void queryOperator();
    /// The turn of a file, given by its local path, has begun.
    void fileBegun(const QString& file);
    /// The single end of a download, whatever its outcome.
    void sigDownloadFinish(EMVThemeDownLoadError);

protected:
    /// Downloads the item on the thread of this object; call download() instead.
    void run() override;
    /// Emits progress(); returns false if the download is to stop.
    bool doProgress(double value);

private:
    enum class Step { Continue, Ended };

    bool needsConfig();
    Step fetchThemeConfig();
    bool take(SFileInfo& info);
    Step transferThemeConfig(const SFileInfo& info);
    Step configFailed(const QString& url, const QString& file);
    Step takeConfig(const QString& url, const QString& file);
    Step simulateFirstPhase();
    Step fetchFiles(bool& anyFailed);
    Step fetchInOrder(bool& anyFailed);
    Step fetchSideBySide(bool& anyFailed);
    Step waitForOther(const FileTurn& turn);
    bool fetchFile(FileTurn& turn);
    bool stopIfCancelled(int point);
    Step end(EMVThemeDownLoadError result);
    void setCurrent(const QString& url, const QString& file);
    void noteFiles();
    void tellEnd();
    void noteFailure(const STransferFailure& failure);
    void noteReceived(qint64 received);
    double shareStart() const;
    double share() const;

    static bool downloadProgressCallback(qint64 received, qint64 total, void* user);
    static bool downloadProgressCallback_a(qint64 received, qint64 total, void* user);
    static bool downloadProgressCallback_a_downloading(SFileInfo* info, void* user);

    static constexpr double firstPhase = 10.0; // per cent of the progress

    SCfg_Item* m_pItem = nullptr;
    CancelToken m_bWillCancel;
    QString m_strUrl;
    QString m_strFile;
    void* m_pUserData = nullptr;
    QVector<SFileInfo*> m_vecFiles;
    int m_nIndex = -1;
    CurWrapper m_CurWrapper;
    static CBasePtr<CoreContext> m_pqdCoreContext;

    STransferFailure m_failure;
    EMVThemeDownLoadError m_eEnd = eDownLoadError_None;
    mutable QMutex m_mutexCurrent;            // guards m_strUrl, m_strFile, m_failure, m_eEnd
    std::optional<CatalogueUse> m_use;        // from download() to the end signal
    std::optional<FileRecord::Taken> m_taken; // the theme's config; given back before the end
    bool m_bReplacesConfig = false;           // the config file exists but is unusable
    ECfgItemType m_eKind = eCfgItem_Filter;   // of m_pItem, whose end may be told after its own
    QString m_qsGuid;                         // of m_pItem
    int m_nToldPercent = -1;                  // the last one that ResourceEvents was told
    QStringList m_lstPaths;                   // files that this download may have stored
    std::atomic<bool> m_bEnded{false};        // the end signal of this download has been sent
    std::atomic<qint64> m_nReceived{0};       // bytes of all files
    qint64 m_nReceivedOfFile = 0;             // of the file being fetched in order
};
