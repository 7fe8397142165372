// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "MvresScenario.h"
#include "server/TreeServer.h"

/// `mvres check` against a server with a different catalogue and more previews than the client.
class CheckScenario : public MvresScenario
{
public:
    enum class Before {
        Installed,  ///< only the catalogue installed with the application
        Downloaded, ///< a catalogue downloaded by an earlier check
    };
    explicit CheckScenario(Before before);

    QString prepare() override;
    /// The cache has a digest of its own: a missing or unusable one only costs a request.
    QStringList temporaryPlaces() const override
    {
        return {QStringLiteral("appdata"),
                QStringLiteral("root/Themes/ResourceConfig/version-cache.json")};
    }
    bool isSuccess(int status) const override;
    QString brokenPromise(const States& states, const FaultyOutcome& outcome) const override;
    bool isTold(const FaultyOutcome& outcome) const override;
    QString wrongCause(const Fault& fault, const FaultyOutcome& outcome) const override;

protected:
    QStringList command() const override { return {QStringLiteral("check")}; }

private:
    void publish(const QVector<int>& filters, bool withTheme) const;

    Before m_before;
    QString m_tree;
    TreeServer m_server;
};
