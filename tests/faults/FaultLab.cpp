// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaultLab.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

namespace {

constexpr int rowsOfShortForm = 30;
const QString labFolder = QStringLiteral("/lab");

QString ended(const FaultyOutcome& outcome)
{
    QString how = outcome.signal != 0 ? QStringLiteral("signal %1").arg(outcome.signal)
                                      : QStringLiteral("exit status %1").arg(outcome.status);
    if (outcome.hit.number != 0)
        how += QStringLiteral(", fault at %1 %2 %3")
                   .arg(outcome.hit.number)
                   .arg(QString::fromLatin1(
                            operationNames[static_cast<std::size_t>(outcome.hit.operation)]),
                        outcome.hit.path);
    return how
        + QStringLiteral("\n%1%2").arg(QString::fromUtf8(outcome.out),
                                       QString::fromUtf8(outcome.err));
}

/// Returns whether the fault may have kept the command from removing its temporary files.
bool couldNotTidyUp(const Fault& fault, const FaultyOutcome& outcome)
{
    if (outcome.hit.number == 0)
        return false;
    switch (outcome.hit.operation) {
    case Operation::OpenFolder:
    case Operation::Remove:
    case Operation::RemoveFolder:
        return true;
    default:
        return fault.isKill() || fault.stays;
    }
}

} // namespace

FaultLab::FaultLab(Scenario& scenario, const QString& home)
    : m_scenario(scenario)
    , m_home(home)
    , m_before(home + labFolder + QStringLiteral("/before"))
    , m_runner(scenario.world(), home + labFolder + QStringLiteral("/report"))
{
    m_runner.setPreloads(scenario.preloads());
    if (!scenario.canExchange())
        m_runner.setWithout(QStringLiteral("exchange"));
}

QString FaultLab::begin()
{
    QDir(m_scenario.world()).removeRecursively();
    if (!QDir().mkpath(m_scenario.world()) || !QDir().mkpath(m_home + labFolder))
        return QStringLiteral("no folder for the world");
    QString fault = m_scenario.prepare();
    if (!fault.isEmpty())
        return fault;
    if (!WorldState::copy(m_scenario.world(), m_before))
        return QStringLiteral("the world cannot be copied");
    m_stateBefore = WorldState::of(m_scenario.world());
    m_stateElsewhere = elsewhere();
    m_outcome = m_runner.trace(m_scenario.program(), m_scenario.arguments());
    m_operations = m_outcome.operations;
    m_stateAfter = WorldState::of(m_scenario.world());
    if (!m_scenario.isSuccess(m_outcome.status) || m_operations.isEmpty())
        return QStringLiteral("undisturbed: ") + ended(m_outcome);
    const QString change = counted(m_stateAfter).differenceFrom(counted(m_stateBefore));
    return change.isEmpty() == m_scenario.isToChange()
        ? QStringLiteral("undisturbed, it changes: [%1]").arg(change)
        : QString();
}

QVector<Fault> FaultLab::everyFault() const
{
    QVector<Fault> faults;
    for (const CountedOperation& operation : m_operations) {
        for (std::size_t i = 0; i < faultCount; ++i) {
            const auto kind = static_cast<FaultKind>(i);
            if (!fits(kind, operation.operation))
                continue;
            const Fault once{kind, operation.number, false};
            faults.append(once);
            if (!once.isKill())
                faults.append({kind, operation.number, true});
        }
    }
    return faults;
}

QVector<Fault> FaultLab::chosenFaults() const
{
    QVector<Fault> all = everyFault();
    if (qgetenv("MV_FAULTS") == "every")
        return all;
    const int stride = all.size() / rowsOfShortForm + 1;
    QVector<Fault> chosen;
    QSet<QString> unreadable;
    for (int i = 0; i < all.size(); ++i) {
        const Fault& fault = all.at(i);
        const CountedOperation& hit = m_operations.at(fault.at - 1);
        const bool isSwitch = fault.kind == FaultKind::Kill
            && (hit.operation == Operation::Rename || hit.operation == Operation::Link);
        const bool isLost = fault.kind == FaultKind::Broken && fault.stays
            && hit.operation == Operation::Read && hit.path.contains(QLatin1String("/Download"))
            && !unreadable.contains(hit.path);
        if (isLost)
            unreadable.insert(hit.path);
        const bool isLedgerUnread = fault.kind == FaultKind::Broken && !fault.stays
            && hit.operation == Operation::Read && hit.path.endsWith(QLatin1String("/ledger.txt"));
        if (i % stride == 0 || isSwitch || isLost || isLedgerUnread)
            chosen.append(fault);
    }
    return chosen;
}

void FaultLab::addRows(const QVector<Fault>& faults) const
{
    QTest::addColumn<Fault>("fault");
    for (const Fault& fault : faults)
        QTest::newRow(rowName(fault).toUtf8().constData()) << fault;
}

/// Returns a name that is the same in every run, unlike the names of temporary files.
QString FaultLab::rowName(const Fault& fault) const
{
    static const QRegularExpression drawn(QStringLiteral("mv-[0-9a-f]{16}"));
    static const QRegularExpression unnamed(QStringLiteral("#[0-9]+ \\(deleted\\)"));
    const CountedOperation& operation = m_operations.at(fault.at - 1);
    return QStringLiteral("%1: %2 %3")
        .arg(fault.text(),
             QString::fromLatin1(operationNames[static_cast<std::size_t>(operation.operation)]),
             QDir(m_scenario.world())
                 .relativeFilePath(operation.path)
                 .replace(drawn, QStringLiteral("mv-*"))
                 .replace(unnamed, QStringLiteral("UNNAMED")));
}

QString FaultLab::troubleWith(const Fault& fault)
{
    if (!WorldState::copy(m_before, m_scenario.world()))
        return QStringLiteral("the world cannot be made anew");
    m_outcome = m_runner.run(m_scenario.program(), m_scenario.arguments(), fault);
    const WorldState now = WorldState::of(m_scenario.world());
    if (m_outcome.hit.number != 0) {
        ++m_injected;
        ++(m_outcome.signal != 0                        ? m_killed
               : m_scenario.isSuccess(m_outcome.status) ? m_harmless
                                                        : m_told);
    }
    QString trouble = troubleOfRun(fault, now);
    if (trouble.isEmpty())
        trouble = troubleOfState(fault, now);
    if (trouble.isEmpty())
        trouble = troubleOfHealing(now);
    return trouble.isEmpty() ? trouble : trouble + QLatin1Char('\n') + ended(m_outcome);
}

/// Describes what was wrong with the way the process ended; empty: nothing.
QString FaultLab::troubleOfRun(const Fault& fault, const WorldState& now) const
{
    if (m_outcome.hasHung)
        return QStringLiteral("does not end");
    const bool isHit = m_outcome.hit.number != 0;
    if (isHit && fault.isKill())
        return m_outcome.signal == SIGKILL ? QString() : QStringLiteral("was not killed");
    if (m_outcome.signal != 0)
        return QStringLiteral("crashed");
    const bool succeeded = m_scenario.isSuccess(m_outcome.status);
    if (!succeeded && (!isHit || fault.kind == FaultKind::Halve))
        return QStringLiteral("failed for no reason");
    if (!succeeded && !m_scenario.isTold(m_outcome))
        return QStringLiteral("does not say why it failed");
    if (!succeeded)
        return m_scenario.wrongCause(fault, m_outcome);
    const QString broken = m_scenario.brokenPromise(
        {counted(m_stateBefore), counted(m_stateAfter), seen(now), true}, m_outcome);
    return broken.isEmpty() ? broken : QStringLiteral("claims success: ") + broken;
}

/// Describes what is wrong on disk; empty: nothing.
QString FaultLab::troubleOfState(const Fault& fault, const WorldState& now) const
{
    QString stray = strayChange(now);
    if (!stray.isEmpty())
        return stray;
    return m_scenario.brokenState({counted(m_stateBefore), counted(m_stateAfter), seen(now),
                                   couldNotTidyUp(fault, m_outcome)});
}

/// Describes what goes wrong when the same command runs again undisturbed; empty: nothing. Many
/// faults leave the same world, which is tried only once. A temporary file that could not be
/// removed may stay where the second run has nothing to write: the next writer in its folder
/// removes it.
QString FaultLab::troubleOfHealing(const WorldState& left)
{
    if (m_healing.contains(left.digest()))
        return {};
    const FaultyOutcome again = m_runner.run(m_scenario.program(), m_scenario.arguments(), Fault());
    const WorldState now = WorldState::of(m_scenario.world());
    const CountedOperation& hit = m_outcome.hit;
    QStringList unremoved;
    if (hit.number != 0 && hit.operation == Operation::Remove && m_scenario.isLeftover(hit.path))
        unremoved.append(QDir(m_scenario.world()).relativeFilePath(hit.path));
    const QString difference = seen(now.without(unremoved)).differenceFrom(counted(m_stateAfter));
    if (!m_scenario.isSuccess(again.status) || !difference.isEmpty())
        return QStringLiteral("does not heal: %1; %2").arg(difference, ended(again));
    QString stray = strayChange(now);
    if (stray.isEmpty())
        m_healing.insert(left.digest());
    return stray;
}

/// Describes a change that the command should not have made; empty: none.
QString FaultLab::strayChange(const WorldState& now) const
{
    const QStringList places = m_scenario.places();
    QString stray = now.without(places).differenceFrom(m_stateBefore.without(places));
    if (stray.isEmpty())
        stray = elsewhere().differenceFrom(m_stateElsewhere);
    return stray.isEmpty() ? stray : QStringLiteral("a stray change: ") + stray;
}

WorldState FaultLab::elsewhere() const
{
    const QDir home(m_home);
    return WorldState::of(m_home).without(
        {home.relativeFilePath(m_scenario.world()), labFolder.mid(1)});
}

WorldState FaultLab::counted(const WorldState& state) const
{
    return state.within(m_scenario.places()).without(m_scenario.temporaryPlaces());
}

/// Reduces the state to the parts that are compared.
WorldState FaultLab::seen(const WorldState& now) const
{
    return m_scenario.needsFolders() ? counted(now)
                                     : counted(now).withFoldersOf(counted(m_stateAfter));
}

QString FaultLab::statistics() const
{
    return QStringLiteral("%1 operations; %2 faults took effect: %3 killed the command, %4 were "
                          "told, %5 were harmless")
        .arg(m_operations.size())
        .arg(m_injected)
        .arg(m_killed)
        .arg(m_told)
        .arg(m_harmless);
}
