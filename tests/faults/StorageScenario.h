// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "MvresScenario.h"
#include "tools/ReleaseShop.h"

/// `mvres update`, `remove` and `clean` in a download root that came by a server's release.
class StorageScenario : public MvresScenario
{
public:
    enum class Command {
        Update, ///< of a theme whose definition, archive and a used filter have changed
        Remove, ///< of a theme that shares a filter with another one
        Clean,  ///< of files that no catalogue names
    };
    explicit StorageScenario(Command command)
        : m_command(command)
    {
    }

    QString prepare() override;
    QStringList temporaryPlaces() const override;
    /// Cleaning finds what it can see; a folder that cannot be listed is left to the next one.
    QString brokenPromise(const States& states, const FaultyOutcome& outcome) const override
    {
        return m_command == Command::Clean ? QString()
                                           : MvresScenario::brokenPromise(states, outcome);
    }
    /// Also requires that definitions come last and go first.
    QString brokenState(const States& states) const override;

protected:
    QStringList command() const override;

private:
    QString prepareUpdate();

    Command m_command;
    ReleaseShop m_shop;
};
