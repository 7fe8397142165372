// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/CatalogueUpdate.h"

#include <QString>
#include <QStringList>
#include <QTest>
#include <QVector>

/// Records the signals of an update in order.
class UpdateTrace
{
public:
    explicit UpdateTrace(CatalogueUpdate& update)
    {
        QObject::connect(&update, &CatalogueUpdate::phaseChanged, &m_context, [this](auto phase) {
            m_entries.append(QVariant::fromValue(phase).toString());
        });
        QObject::connect(&update, &CatalogueUpdate::appUpdateNeeded, &m_context,
                         [this] { m_entries.append(QStringLiteral("newer application")); });
        QObject::connect(&update, &CatalogueUpdate::progressed, &m_context,
                         [this, &update](const SUpdateProgress& progress) {
                             m_progress.append(progress);
                             m_progressPhases.append(update.phase());
                         });
        QObject::connect(&update, &CatalogueUpdate::finished, &m_context,
                         [this](const SCatalogueUpdateResult& result) {
                             m_entries.append(QStringLiteral("finished"));
                             m_results.append(result);
                         });
    }
    Q_DISABLE_COPY_MOVE(UpdateTrace)

    const QStringList& entries() const { return m_entries; }
    const QVector<SUpdateProgress>& progress() const { return m_progress; }
    const QVector<CatalogueUpdate::Phase>& progressPhases() const { return m_progressPhases; }
    const QVector<SCatalogueUpdateResult>& results() const { return m_results; }

    /// Returns the entries of a whole update.
    static QStringList whole()
    {
        return {QStringLiteral("Catalogue"), QStringLiteral("Previews"), QStringLiteral("Idle"),
                QStringLiteral("finished")};
    }
    /// Waits until this many updates have finished.
    bool hasFinished(int updates = 1) const
    {
        return QTest::qWaitFor([&] { return m_results.size() >= updates; }, 30000);
    }

private:
    QStringList m_entries;
    QVector<SUpdateProgress> m_progress;
    QVector<CatalogueUpdate::Phase> m_progressPhases;
    QVector<SCatalogueUpdateResult> m_results;
    QObject m_context; // destroyed first, which disconnects everything
};
