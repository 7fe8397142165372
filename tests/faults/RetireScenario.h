// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Scenario.h"

/// `mvpublish retire`, which records a GUID and moves a folder.
class RetireScenario : public Scenario
{
public:
    using Scenario::Scenario;

    QString prepare() override;
    QString program() const override;
    QStringList arguments() const override;
    QStringList places() const override { return {QStringLiteral("source")}; }

private:
    QString source() const { return world() + QStringLiteral("/source"); }
};
