#pragma once

#include "Scenario.h"

#include <QSet>
#include <QVector>

/// Disturbs the command of a scenario at each of its file operations in every way that the system
/// could, and looks at what comes of it.
///
/// After every run the state on disk is the old or the new one, nothing else has changed, the
/// command told of its failure unless it was killed or succeeded all the same, and the same
/// command, run again, succeeds and brings the new state.
class FaultLab
{
public:
    /// The world lies below `home`, which is the user's home folder and everything else that a
    /// command could reach by accident; the lab's own files come there, too.
    FaultLab(Scenario& scenario, const QString& home);

    /// Prepares the world and runs the command undisturbed. Empty, or what went wrong.
    QString begin();
    /// What the undisturbed command did.
    const QVector<CountedOperation>& operations() const { return m_operations; }

    /// All faults that fit an operation, in the order of the operations.
    QVector<Fault> everyFault() const;
    /// The whole list, if the environment has MV_FAULTS=every; else a part of it, spread evenly,
    /// a kill before every rename, and downloaded files that cannot be read.
    QVector<Fault> chosenFaults() const;
    /// Adds a row of a column "fault" for each.
    void addRows(const QVector<Fault>& faults) const;

    /// Runs the command with a fault. Empty if all is as it should be, or what is not.
    QString troubleWith(const Fault& fault);
    /// The outcome of that run.
    const FaultyOutcome& outcome() const { return m_outcome; }

    /// How many faults took effect, and how they ended, for people.
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
    QString m_before; // a copy of the world as it is before the command
    FaultyRun m_runner;
    WorldState m_stateBefore;
    WorldState m_stateAfter;
    WorldState m_stateElsewhere;
    QVector<CountedOperation> m_operations;
    FaultyOutcome m_outcome;
    QSet<QByteArray> m_healing; // digests of worlds that the command makes good
    int m_injected = 0;
    int m_killed = 0;
    int m_told = 0;
    int m_harmless = 0;
};
