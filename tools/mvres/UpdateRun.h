// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SUpdateOutcome.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

struct SCfg_Item;

/// Runs one ItemUpdate with progress, until it has ended or is interrupted.
class UpdateRun
{
public:
    /// With `json` no progress is shown.
    explicit UpdateRun(bool json);

    /// Fetches what the items lack. Notes the failures on standard error.
    SUpdateOutcome run(const QVector<SCfg_Item*>& items);

    /// Returns the exit status, by the cause of the first failure.
    static int statusOf(const SUpdateOutcome& outcome);
    /// Returns "complete: 2 files stored, 1.2 kB fetched".
    static QString summary(const SUpdateOutcome& outcome);
    static QJsonObject toJson(const SUpdateOutcome& outcome);

    /// Returns why nothing can be fetched; empty if a server is known.
    static QString serverFault();

private:
    bool m_json;
};
