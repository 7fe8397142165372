// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Scenario.h"

/// `mvpublish build`, replacing a tree by a newer one.
class BuildScenario : public Scenario
{
public:
    enum class Place {
        Folder,
        Link,    ///< to a folder on a file system that cannot exchange two names
        Foreign, ///< a folder that is not a tree and must be kept
    };
    BuildScenario(Place place, const QString& world);

    QString prepare() override;
    QString program() const override;
    QStringList arguments() const override;
    QStringList places() const override { return {QStringLiteral("trees")}; }
    bool isToChange() const override { return m_place != Place::Foreign; }
    bool isSuccess(int status) const override;
    bool canExchange() const override { return m_place != Place::Link; }
    QString brokenState(const States& states) const override;

private:
    QString source() const { return world() + QStringLiteral("/source"); }
    QString out() const;

    Place m_place;
};
