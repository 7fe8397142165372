// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "MvresScenario.h"
#include "support/FaultServer.h"

#include <memory>

/// `mvres fetch` of a theme, its archive and the two filters on which it depends.
class FetchScenario : public MvresScenario
{
public:
    enum class Before {
        Nothing,
        Config, ///< the theme's config, which the server no longer has
    };
    explicit FetchScenario(Before before)
        : m_before(before)
    {
    }

    QString prepare() override;
    QStringList preloads() const override { return {QStringLiteral(QUICK_DOWNLOADS)}; }
    QString wrongCause(const Fault& fault, const FaultyOutcome& outcome) const override;

protected:
    QStringList command() const override;

private:
    Before m_before;
    std::unique_ptr<FaultServer> m_server;
};
