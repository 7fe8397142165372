#pragma once

#include "FaultyRun.h"
#include "WorldState.h"

#include <QStringList>

/// A command in a world of its own: a folder with everything that it reads and writes.
class Scenario
{
public:
    explicit Scenario(const QString& world)
        : m_world(world)
    {
    }
    virtual ~Scenario() = default;
    Q_DISABLE_COPY_MOVE(Scenario)

    QString world() const { return m_world; }

    /// Fills the world with what is there before the command. Empty, or what went wrong.
    virtual QString prepare() = 0;
    virtual QString program() const = 0;
    virtual QStringList arguments() const = 0;

    /// What the command may change, relative to the world.
    virtual QStringList places() const = 0;
    /// Those of them whose content is nobody's business.
    virtual QStringList temporaryPlaces() const { return {}; }
    /// Whether a folder that is missing matters, be it empty.
    virtual bool needsFolders() const { return true; }
    /// Libraries to preload into the command.
    virtual QStringList preloads() const { return {}; }
    /// Whether the file system can exchange two names.
    virtual bool canExchange() const { return true; }
    /// Whether the command changes anything; else it is one that has to refuse.
    virtual bool isToChange() const { return true; }
    virtual bool isSuccess(int status) const { return status == 0; }

    /// The three states that matter, of places() without temporaryPlaces().
    struct States
    {
        WorldState before;
        WorldState after; ///< an undisturbed command
        WorldState now;
        bool mayHaveLeftovers = false; ///< the command could not tidy up
    };

    /// Why the state is neither the old one nor the new one; empty if it is one of them. Here:
    /// every file is its old self or its new one.
    virtual QString brokenState(const States& states) const;
    /// Why the state is not what a command leaves that claims success; empty if it is.
    virtual QString brokenPromise(const States& states, const FaultyOutcome& outcome) const;
    /// Whether a command that failed has said why.
    virtual bool isTold(const FaultyOutcome& outcome) const
    {
        return !outcome.err.trimmed().isEmpty();
    }
    /// Why the command named a wrong cause for its failure; empty if it did not.
    virtual QString wrongCause(const Fault& fault, const FaultyOutcome& outcome) const;

protected:
    /// Whether a path is one that a command uses while it works, and removes.
    virtual bool isLeftover(const QString& path) const;
    /// Whether two states have the same at that path, as far as it matters.
    virtual bool isAlike(const WorldState& a, const WorldState& b, const QString& path) const
    {
        return a.isSameAt(path, b);
    }

private:
    QString m_world;
};
