// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "download/ProgressReport.h"
#include "download/SPreviewRunResult.h"
#include "host/CancelToken.h"
#include "host/CurWrapper.h"
#include "host/ETransferResult.h"
#include "records/MvResourceExport.h"
#include "records/SCfg_Item.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QVector>

#include <functional>

class CheckTransfer;

/// Fetches the missing thumbnails and animated previews of themes and filters, and with
/// HostSettings::showWithoutPreviews the thumbnails of background materials: one object does one
/// run.
///
/// It reads the catalogue files itself, the downloaded ones or else the installed ones, into its
/// own lists, so it neither needs nor touches the catalogue of MVThemeMgr. Nothing is written
/// outside the download root. If HostSettings::transfersSideBySide is above 1, several files are
/// fetched at a time, those of the items that the user is looking at first (PreviewExchange).
///
/// The object lives on a thread with an event loop; the slot runs there and blocks until the run is
/// over. cancel() may be called from any thread, as long as the object exists. Usually
/// MVThemeDownLoader_CheckCfg does all this.
class MVRESOURCE_EXPORT CheckWorker_ThumbAndGif : public QObject
{
    Q_OBJECT

public:
    /// Takes the outcome of a run.
    using ResultCallback = std::function<void(const SPreviewRunResult&)>;

    /// `cancel` belongs to the initiator of the operation, who may also cancel it by the token.
    explicit CheckWorker_ThumbAndGif(CancelToken cancel = CancelToken());
    ~CheckWorker_ThumbAndGif() override;

    /// Sets the callback invoked once per run with its outcome, on the worker's thread, before the
    /// end signal. Call it before the run starts.
    void setResultCallback(ResultCallback callback);
    /// Sets the callback invoked with the numbers of the run, on the worker's thread. Call it
    /// before the run starts.
    void setProgressCallback(ProgressReport::Callback callback);

    /// Cancels the run, even before it has begun. The transfer in progress ends as a failed one,
    /// and no other begins: the run ends instead.
    void cancel();

public slots:
    /// Runs the whole operation; returns the value of the end signal.
    bool onStartDownload_ThumbAndGif();

signals:
    /// True if the whole list was processed, failures included; false if no catalogue could be
    /// read, or a cancellation kept a transfer from beginning.
    void sig_endDownload_ThumbAndGif(bool);

private:
    /// The two kinds of files, with their log lines.
    struct Kind
    {
        const char* present;
        const char* failed;
        const char* fetched;
        int cancelPoint;
    };
    static const Kind thumb;
    static const Kind gif;

    /// One file of the run.
    struct Picture
    {
        const Kind* kind;
        int index; // of the item in the run
        QString guid;
        QString url;
        QString file;
        bool isPresent;
        AcceptedRelease::Source source;
    };
    enum class Turn { Over, Fetch, Stop };
    struct SideBySide;

    bool readConfig(bool hasMV, bool hasSplit);
    bool readDisplay(bool hasMV, bool hasSplit);
    QVector<QVector<SCfg_Item>*> workList();
    bool fetchInOrder();
    bool fetchSideBySide();
    bool beginPictures(SideBySide& run);
    void beginPicture(SideBySide& run, int item, bool isGif);
    void startTransfer(SideBySide& run, const Picture& picture);
    bool fetchFile(CheckTransfer& transfer, const Kind& kind, int index, SCfg_Item& item);
    Picture look(const Kind& kind, int index, SCfg_Item& item);
    Turn beginTurn(const Picture& picture);
    bool endTurn(const Picture& picture, ETransferResult result, const STransferFailure& failure);
    static void log(const Picture& picture, const char* format);
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

    QSet<QString> m_fetchedFiles; // by this run
    AcceptedRelease::Pointer m_release;
    SPreviewRunResult m_result;
    ResultCallback m_resultCallback;
    ProgressReport m_progress;
};
