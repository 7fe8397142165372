// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"
#include "Scenario.h"
#include "tools/Mvres.h"

/// The items of the catalogues, as the numbers of their GUIDs.
enum MvresItem { Look = 1, Paper, Film };

/// A command of `mvres`, whose world is the base folder of the Mvres object.
class MvresScenario : public Scenario
{
public:
    MvresScenario()
        : MvresScenario(Mvres())
    {
    }

    QString program() const override { return Mvres::program(); }
    QStringList arguments() const override { return m_mvres.arguments(command()); }
    QStringList places() const override;
    /// Returns false: the library creates folders wherever it looks for files, and works without
    /// them.
    bool needsFolders() const override { return false; }

protected:
    /// Returns the command and its operands.
    virtual QStringList command() const = 0;

    /// Runs `mvres` undisturbed. Returns an error; empty: success.
    QString run(const QStringList& command, int expectedStatus = 0) const;
    Mvres& mvres() { return m_mvres; }

    /// Returns whether the states are alike; favourites files are if they mark the same items.
    bool isAlike(const WorldState& a, const WorldState& b, const QString& path) const override;
    /// Returns the cause to be reported for a failure that hit the storing of a file in one of
    /// `storage`, relative to the world; eFailure_None if no particular one can be expected.
    EFailureCause causeToTell(const Fault& fault, const CountedOperation& hit,
                              const QStringList& storage) const;

private:
    explicit MvresScenario(const Mvres& mvres)
        : Scenario(mvres.base())
        , m_mvres(mvres)
    {
    }

    Mvres m_mvres;
};
