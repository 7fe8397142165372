// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "host/CBasePtr.h"
#include "host/STransferFailure.h"
#include "records/FileRecord.h"

#include <QString>

#include <functional>
#include <optional>

class CoreContext;
struct SFileInfo;

/// One file's turn in an item download: the claim on its record, its place on the server and on
/// disk, its lines in the log, and what follows its transfer. Internal to the library; the download
/// thread only.
class FileTurn
{
public:
    using Log = std::function<void(const QString& line)>;

    /// `info` belongs to the catalogue; `index` is its position in the list of files. `release` is
    /// the one that the download goes by, or null.
    FileTurn(SFileInfo& info, int index, AcceptedRelease::Pointer release, Log log);

    /// Claims the file; returns false if another download has it. The claim ends with end(), a
    /// failed prepare(), or this object.
    bool take();
    /// Begins the turn: afterwards url() is valid.
    void begin();
    /// Prepares the place of the file. Returns why it cannot be fetched; no failure if it can.
    STransferFailure prepare();
    /// Returns whether the file has arrived since the list was made.
    bool isPresent() const;
    /// Completes the turn after a transfer, or for a file that isPresent() without one. A failed
    /// transfer leaves no partial file: what has the file's name then, another one has stored.
    /// `OfOthers` decides on that.
    enum class OfOthers { Keep, Remove };
    void end(const STransferFailure& failure, int result, bool isTransferred,
             const CBasePtr<CoreContext>& context, OfOthers ofOthers);
    /// Returns whether the item cannot be used without this file: pictures may be missing with
    /// HostSettings::showWithoutPreviews.
    bool isRequired() const;

    /// @name While another download fetches the file
    /// @{

    bool isTakenByOther() const;
    void logWaiting() const;
    void logEndOfWaiting() const;

    /// @}

    int index() const { return m_index; }
    const QString& url() const { return m_url; }
    /// Returns how to fetch the file; valid after begin().
    const AcceptedRelease::Source& source() const { return m_source; }
    QString file() const { return FileView(m_info).file(); }
    SFileInfo& info() const { return m_info; }

    /// Returns the line about a file that another download fetches; `progress` is the percentage
    /// that this download reports for its counters.
    static QString othersProgress(int index, const FileView& record, double progress);
    /// Does what follows the arrival of a new file: creates the folder for its unpacked content,
    /// and notifies the host's editing core (`context` may be null) of a definition.
    static void followArrival(const QString& file, const CBasePtr<CoreContext>& context);
    /// Writes a line to the log; the usual Log.
    static void logNow(const QString& line);
    /// Returns why nothing can be fetched from that address or into that path, and logs it; no
    /// failure if it can. A path outside the download root counts as none.
    static STransferFailure faultOf(const QString& url, const QString& file, const Log& log);

private:
    void logTurn(const QString& form) const;

    SFileInfo& m_info;
    int m_index;
    Log m_log;
    QString m_url;
    AcceptedRelease::Pointer m_release;
    AcceptedRelease::Source m_source;
    std::optional<FileRecord::Taken> m_taken;
};
