#pragma once

#include "download/SCatalogueCheckResult.h"
#include "download/SPreviewRunResult.h"

#include <QObject>

/// The check of the server and the fetching of previews behind it, as one thing that goes on or
/// not, with its outcome. One object per process: it takes the coordinator's callbacks.
class BackgroundCheck : public QObject
{
    Q_OBJECT

public:
    /// What goes on: the check, which includes previews that already come beside it, or only these.
    enum class Phase { Idle, Catalogue, Previews };

    explicit BackgroundCheck(QObject* parent);
    ~BackgroundCheck() override;

    /// Does nothing while a check goes on. Where the library refuses another check in this process,
    /// isRefused() is true.
    void start();
    /// Cancels the check and the previews behind it; phase() tells when they have ended.
    void cancel();
    /// Cancels and waits until the work has ended, for at most two seconds. Nothing is announced
    /// any more.
    void shutDown();

    Phase phase() const;
    /// Nothing goes on, and what has come has been announced.
    bool isQuiet() const { return phase() == Phase::Idle && !m_arrived; }
    bool isRefused() const { return m_refused; }
    /// Whether a check has ended; then result() is its outcome.
    bool hasResult() const { return m_hasResult; }
    const SCatalogueCheckResult& result() const { return m_result; }
    /// Of the runs that belong to that check; all zero until the first has ended.
    const SPreviewRunResult& previews() const { return m_previews; }

signals:
    /// Something that can be asked has changed.
    void changed();
    /// New files have come and nothing works on the catalogue any more: read it again.
    void contentArrived();

private:
    void noteCheck(const SCatalogueCheckResult& result);
    void notePreviews(const SPreviewRunResult& result);
    void announceContent();

    bool m_checkRuns = false;
    bool m_previewsRun = false; // or are about to
    bool m_refused = false;
    bool m_hasResult = false;
    bool m_arrived = false; // since the catalogue was read last
    bool m_ending = false;
    bool m_cancelled = false; // since start(): previews that follow are cancelled, too
    SCatalogueCheckResult m_result;
    SPreviewRunResult m_previews;
};
