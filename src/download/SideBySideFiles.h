// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/FileTurn.h"
#include "host/CancelToken.h"
#include "host/CBasePtr.h"
#include "host/STransferFailure.h"
#include "host/TransferPool.h"

#include <QString>
#include <QVector>

#include <chrono>
#include <functional>
#include <map>
#include <memory>

class CoreContext;
struct SFileInfo;

/// Fetches the files of one item, several at a time and in any order; each file's lines are written
/// to the log together, when it ends. Internal to the library; the download thread only.
class SideBySideFiles
{
public:
    /// Receive the state of the files, on the download thread.
    struct Reports
    {
        std::function<void(qint64 bytes)> received; ///< bytes that have arrived since the last call
        std::function<void(double share)> progress; ///< 0 to 1; increases with every call
        std::function<void(const QString& url, const QString& file)> begun;
        std::function<void(const STransferFailure& failure)> failed;
    };

    enum class End {
        Complete,            ///< every file had its turn; some may have failed
        CancelledBeforeFile, ///< a cancel kept files from being fetched
        CancelledWaiting,    ///< a cancel ended the waiting for files of other downloads
    };

    /// The records belong to the catalogue.
    SideBySideFiles(const QVector<SFileInfo*>& files, int maxTransfers, CancelToken cancel,
                    CBasePtr<CoreContext> context, Reports reports);

    /// Returns when every file has ended, or within 200 ms after a cancel.
    End run();

private:
    using Clock = std::chrono::steady_clock;

    struct Entry
    {
        Entry(SFileInfo& info, int index, AcceptedRelease::Pointer release);

        QVector<QString> lines; // of the log, until the file ends
        FileTurn turn;
        qint64 received = 0; // bytes, of the present try
        double part = 0;     // of the file that has arrived
        Clock::time_point nextLine;
    };

    bool mayBegin() const;
    void beginReady();
    void begin(int index);
    void transfer(Entry& entry);
    void note(Entry& entry, const FileView::Counts& counts);
    void lookAtOthers();
    /// Completes a file that has ended, and destroys the entry.
    void finish(Entry& entry);
    /// The same without progress, for a file that a cancel has ended.
    void leave(Entry& entry);
    void tellProgress();
    void wait();
    End cancelled();

    const QVector<SFileInfo*>& m_files;
    const AcceptedRelease::Pointer m_release = AcceptedRelease::current();
    const CancelToken m_cancel;
    const CBasePtr<CoreContext> m_context;
    const Reports m_reports;
    int m_next = 0; // the first file that has not begun
    int m_ended = 0;
    double m_told = 0; // the last reported share
    Clock::time_point m_nextBegin;
    QVector<int> m_postponed;                        // need a path that is being written
    std::map<int, std::unique_ptr<Entry>> m_entries; // begun and not ended, by index
    QVector<Entry*> m_waiting;                       // for other downloads; among m_entries
    TransferPool m_pool;
};
