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
    enum class Phase { Idle, Catalogue, Previews };

    explicit BackgroundCheck(QObject* parent);
    ~BackgroundCheck() override;

    /// Does nothing while a check goes on. Where the library refuses another check in this process,
    /// isRefused() is true.
    void start();
    void cancel();
    /// Cancels and waits until the work has ended, for at most two seconds.
    void shutDown();

    Phase phase() const { return m_phase; }
    bool isRefused() const { return m_refused; }
    /// Whether a check has ended; then result() is its outcome.
    bool hasResult() const { return m_hasResult; }
    const SCatalogueCheckResult& result() const { return m_result; }
    /// Of the run behind that check; all zero until it has ended.
    const SPreviewRunResult& previews() const { return m_previews; }

signals:
    /// Something that can be asked has changed.
    void changed();
    /// New files have come and nothing works on the catalogue any more: read it again.
    void contentArrived();

private:
    void setPhase(Phase phase);
    void noteCheck(const SCatalogueCheckResult& result);
    void notePreviews(const SPreviewRunResult& result);
    void announceContent();

    Phase m_phase = Phase::Idle;
    bool m_refused = false;
    bool m_hasResult = false;
    bool m_arrived = false; // since the catalogue was read last
    bool m_ending = false;
    SCatalogueCheckResult m_result;
    SPreviewRunResult m_previews;
};
