// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

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

    /// Fills the world with the state before the command. Returns an error; empty: success.
    virtual QString prepare() = 0;
    virtual QString program() const = 0;
    virtual QStringList arguments() const = 0;

    /// Returns the paths that the command may change, relative to the world.
    virtual QStringList places() const = 0;
    /// Returns those of the places() whose content does not matter.
    virtual QStringList temporaryPlaces() const { return {}; }
    /// Returns whether a missing folder matters, even an empty one.
    virtual bool needsFolders() const { return true; }
    /// Returns the libraries to preload into the command.
    virtual QStringList preloads() const { return {}; }
    /// Returns whether the file system can exchange two names.
    virtual bool canExchange() const { return true; }
    /// Returns whether the command changes anything; otherwise it has to refuse.
    virtual bool isToChange() const { return true; }
    virtual bool isSuccess(int status) const { return status == 0; }

    /// The three relevant states of places() without temporaryPlaces().
    struct States
    {
        WorldState before;
        WorldState after; ///< after an undisturbed command
        WorldState now;
        bool mayHaveLeftovers = false; ///< the command could not remove its temporary files
    };

    /// Describes why the state is neither the old nor the new one; empty if it is one of them. The
    /// default requires every file to be its old or its new self.
    virtual QString brokenState(const States& states) const;
    /// Describes why the state contradicts a command's claim of success; empty if it does not.
    virtual QString brokenPromise(const States& states, const FaultyOutcome& outcome) const;
    /// Returns whether a failed command has stated the cause.
    virtual bool isTold(const FaultyOutcome& outcome) const
    {
        return !outcome.err.trimmed().isEmpty();
    }
    /// Describes a wrong cause that the command reported for its failure; empty if none.
    virtual QString wrongCause(const Fault& fault, const FaultyOutcome& outcome) const;
    /// Returns whether a path is a temporary one that the command creates and removes.
    virtual bool isLeftover(const QString& path) const;

protected:
    /// Returns whether two states have equivalent entries at that path.
    virtual bool isAlike(const WorldState& a, const WorldState& b, const QString& path) const
    {
        return a.isSameAt(path, b);
    }

private:
    QString m_world;
};
