// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Scenario.h"

#include <QSet>
#include <QVector>

/// Disturbs a scenario's command at each of its file operations in every way the system could, and
/// examines the outcome.
///
/// After every run the state on disk is the old or the new one, nothing else has changed, the
/// command has reported its failure unless it was killed or succeeded all the same, and the same
/// command, run again, succeeds and produces the new state.
class FaultLab
{
public:
    /// The world is created below `home`, which is the user's home folder and everything else that
    /// a command could reach by accident; the lab's own files are kept there, too.
    FaultLab(Scenario& scenario, const QString& home);

    /// Prepares the world and runs the command undisturbed. Returns an error; empty: success.
    QString begin();
    /// Returns the operations of the undisturbed command.
    const QVector<CountedOperation>& operations() const { return m_operations; }

    /// Returns every fault that fits an operation, in the order of the operations.
    QVector<Fault> everyFault() const;
    /// Returns every fault if the environment has MV_FAULTS=every; otherwise an even sample, a kill
    /// before every rename, and downloaded files that cannot be read.
    QVector<Fault> chosenFaults() const;
    /// Adds a row with the column "fault" for each fault.
    void addRows(const QVector<Fault>& faults) const;

    /// Runs the command with a fault. Returns a description of what is wrong; empty: nothing.
    QString troubleWith(const Fault& fault);
    /// Returns the outcome of that run.
    const FaultyOutcome& outcome() const { return m_outcome; }

    /// Returns a readable summary of how many faults took effect, and how those runs ended.
    QString statistics() const;

private:
    QString troubleOfRun(const Fault& fault, const WorldState& now) const;
    QString troubleOfState(const Fault& fault, const WorldState& now) const;
    QString troubleOfHealing(const WorldState& left);
    WorldState counted(const WorldState& state) const;
    WorldState seen(const WorldState& now) const;
    QString strayChange(const WorldState& now) const;
    WorldState elsewhere() const;
    QString rowName(const Fault& fault) const;

    Scenario& m_scenario;
    QString m_home;
    QString m_before; // a copy of the world from before the command
    FaultyRun m_runner;
    WorldState m_stateBefore;
    WorldState m_stateAfter;
    WorldState m_stateElsewhere;
    QVector<CountedOperation> m_operations;
    FaultyOutcome m_outcome;
    QSet<QByteArray> m_healing; // digests of the worlds that the command has repaired
    int m_injected = 0;
    int m_killed = 0;
    int m_told = 0;
    int m_harmless = 0;
};
