#pragma once

#include "download/ProgressReport.h"
#include "download/SPreviewRunResult.h"
#include "host/CancelToken.h"
#include "host/CurWrapper.h"
#include "records/MvResourceExport.h"
#include "records/SCfg_Item.h"

#include <QObject>
#include <QVector>

#include <functional>

class CheckTransfer;

/// Fetches the thumbnails and animated previews of themes and filters that are missing on disk: one
/// object does one run.
///
/// It reads the catalogue files by itself, the downloaded ones or else the installed ones, into
/// lists of its own, so the catalogue of MVThemeMgr is neither needed nor touched. Nothing is
/// written outside the download root.
///
/// The object lives on a thread with an event loop; the slot runs there and blocks until the run is
/// over. cancel() may come from any thread, as long as the object lives. Usually
/// MVThemeDownLoader_CheckCfg does all this.
class MVRESOURCE_EXPORT CheckWorker_ThumbAndGif : public QObject
{
    Q_OBJECT

public:
    using ResultCallback = std::function<void(const SPreviewRunResult&)>;

    /// `cancel` belongs to whoever starts the operation, who may cancel it by the token, too.
    explicit CheckWorker_ThumbAndGif(CancelToken cancel = CancelToken());
    ~CheckWorker_ThumbAndGif() override;

    /// Sets the callback invoked once per run with its outcome, on the worker's thread, before the
    /// end signal. Call it before the run starts.
    void setResultCallback(ResultCallback callback);
    /// Sets the callback invoked with the numbers of the run, on the worker's thread. Call it
    /// before the run starts.
    void setProgressCallback(ProgressReport::Callback callback);

    /// Cancels the run, also one that has not begun yet. The transfer in progress ends as a failed
    /// one, no other begins: in its place the run ends.
    void cancel();

public slots:
    /// The whole run; returns what the end signal says.
    bool onStartDownload_ThumbAndGif();

signals:
    /// True if the whole list was worked through, failures included; false if no catalogue could be
    /// read, or a cancellation kept a transfer from beginning.
    void sig_endDownload_ThumbAndGif(bool);

private:
    /// The two kinds of files and what the log says of them.
    struct Kind
    {
        const char* present;
        const char* failed;
        const char* fetched;
        int cancelPoint;
    };
    static const Kind thumb;
    static const Kind gif;

    bool readConfig(bool hasMV, bool hasSplit);
    bool readDisplay(bool hasMV, bool hasSplit);
    bool fetchPreviews(CheckTransfer& transfer, int index, SCfg_Item& item);
    bool fetchFile(CheckTransfer& transfer, const Kind& kind, int index, const SFileInfo& info,
                   bool present);
    void noteFailure(const STransferFailure& failure);
    bool stopIfCancelled(const Kind& kind) const;
    bool end(bool workedThrough);

    CancelToken m_bWillCancel;
    QVector<SCfg_Item> m_vecDisplay_Themes;
    QVector<SCfg_Item> m_vecCfg_Themes;
    QVector<SCfg_Item> m_vecDisplay_Filters;
    QVector<SCfg_Item> m_vecCfg_Filters;
    QVector<SCfg_Item> m_vecDisplay_BgMaterial;
    QVector<SCfg_Item> m_vecCfg_BgMaterial;
    CurWrapper m_CurWrapper;

    SPreviewRunResult m_result;
    ResultCallback m_resultCallback;
    ProgressReport m_progress;
};
