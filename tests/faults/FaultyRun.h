#pragma once

#include "Fault.h"

#include <QStringList>
#include <QVector>

/// How a program ended that ran with the preloaded library.
struct FaultyOutcome
{
    bool hasHung = false; ///< it did not end by itself, and was ended
    int signal = 0;       ///< that ended it; 0: none
    int status = -1;      ///< exit status, if it ended by itself
    QByteArray out;
    QByteArray err;
    CountedOperation hit;                 ///< the first operation that failed; number 0: none did
    QVector<CountedOperation> operations; ///< of a traced run
};

/// Runs programs whose file operations below one folder are counted, and fail as a test wants.
class FaultyRun
{
public:
    /// Operations count below `world`; reports are written to `reportFile`, which lies elsewhere.
    FaultyRun(const QString& world, const QString& reportFile);

    /// The file system cannot exchange two names from now on.
    void setWithoutExchange() { m_withoutExchange = true; }
    /// Libraries to preload, too.
    void setPreloads(const QStringList& libraries) { m_preloads = libraries; }

    /// Runs a program to its end, for a minute at most.
    FaultyOutcome run(const QString& program, const QStringList& arguments,
                      const Fault& fault) const;
    /// The same without a fault; the outcome lists the operations.
    FaultyOutcome trace(const QString& program, const QStringList& arguments) const;

private:
    FaultyOutcome start(const QString& program, const QStringList& arguments, const Fault& fault,
                        bool traced) const;
    void readReport(FaultyOutcome& outcome) const;

    QString m_world;
    QString m_reportFile;
    QStringList m_preloads;
    bool m_withoutExchange = false;
};
