// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Fault.h"

#include <QStringList>
#include <QVector>

/// The outcome of a program that ran with the preloaded library.
struct FaultyOutcome
{
    bool hasHung = false; ///< it did not end by itself and was killed
    int signal = 0;       ///< the signal that ended it; 0: none
    int status = -1;      ///< exit status, if it ended by itself
    QByteArray out;
    QByteArray err;
    CountedOperation hit;                 ///< the first operation that failed; number 0: none
    QVector<CountedOperation> operations; ///< of a traced run

    /// Return the operations of a traced run as texts, and the number of the last one with this
    /// text, at which it can be made to fail; 0 if there is none.
    QStringList operationTexts() const;
    int numberOf(const QString& operation) const;
};

/// Runs programs whose file operations below one folder are counted, and fail as a test requests.
class FaultyRun
{
public:
    /// Counts operations below `world`; reports are written to `reportFile`, which is elsewhere.
    FaultyRun(const QString& world, const QString& reportFile);

    /// Makes the system lack a feature from now on, named as in injector/FaultPlan.h.
    void setWithout(const QString& feature) { m_lacking.append(feature); }
    /// Sets additional libraries to preload.
    void setPreloads(const QStringList& libraries) { m_preloads = libraries; }

    /// Runs a program to its end, for at most a minute.
    FaultyOutcome run(const QString& program, const QStringList& arguments,
                      const Fault& fault) const;
    /// Runs a program without a fault; the outcome lists its operations.
    FaultyOutcome trace(const QString& program, const QStringList& arguments) const;

private:
    FaultyOutcome start(const QString& program, const QStringList& arguments, const Fault& fault,
                        bool traced) const;
    void readReport(FaultyOutcome& outcome) const;

    QString m_world;
    QString m_reportFile;
    QStringList m_preloads;
    // The power never fails here, so waiting for the disk is unnecessary.
    QStringList m_lacking{QStringLiteral("flush")};
};
