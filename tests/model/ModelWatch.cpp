// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ModelWatch.h"

#include "support/CatalogueFiles.h"

namespace {

int numberOf(const QString& guid)
{
    int number = 0;
    while (CatalogueFiles::guid(number) != guid)
        ++number;
    return number;
}

} // namespace

ModelWatch::ModelWatch(ResourceModel& model)
    : m_model(model)
    , m_tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
{
    using Outcome = ResourceModel::Outcome;
    QObject::connect(
        &model, &ResourceModel::fetchEnded, &m_tester,
        [this](const QString& guid, Outcome outcome) { noteEnd("fetched", guid, outcome); });
    QObject::connect(
        &model, &ResourceModel::updateEnded, &m_tester,
        [this](const QString& guid, Outcome outcome) { noteEnd("updated", guid, outcome); });
    QObject::connect(
        &model, &ResourceModel::removeEnded, &m_tester,
        [this](const QString& guid, Outcome outcome) { noteEnd("removed", guid, outcome); });
    QObject::connect(&model, &ResourceModel::applied, &m_tester, [this](const QString& guid) {
        m_ends.append(QStringLiteral("applied %1").arg(numberOf(guid)));
    });
    QObject::connect(&model, &QAbstractItemModel::modelReset, &m_tester, [this] { ++m_resets; });
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_tester, [this] { noteState(); });
}

void ModelWatch::noteEnd(const char* what, const QString& guid, ResourceModel::Outcome outcome)
{
    const char* const outcomes[] = {"complete", "failed", "cancelled"};
    m_ends.append(QStringLiteral("%1 %2 %3")
                      .arg(QLatin1String(what))
                      .arg(numberOf(guid))
                      .arg(QLatin1String(outcomes[outcome])));
}

void ModelWatch::watchStates(int number)
{
    m_watched = number;
    m_states.clear();
    noteState();
}

void ModelWatch::noteState()
{
    if (m_watched < 0)
        return;
    const int now = state(m_watched);
    if (m_states.isEmpty() || m_states.constLast() != now)
        m_states.append(now);
}

void ModelWatch::keep()
{
    m_kept.clear();
    m_keptGuids.clear();
    for (int row = 0; row < m_model.rowCount(); ++row) {
        m_kept.append(m_model.index(row));
        m_keptGuids.append(m_model.index(row).data(ResourceModel::GuidRole).toString());
    }
}

bool ModelWatch::haveRowsKeptTheirItems() const
{
    for (int i = 0; i < m_kept.size(); ++i) {
        const bool exists = m_model.rowOf(m_keptGuids.at(i)) >= 0;
        if (exists != m_kept.at(i).isValid())
            return false;
        if (exists && m_kept.at(i).data(ResourceModel::GuidRole).toString() != m_keptGuids.at(i))
            return false;
    }
    return true;
}

QVector<int> ModelWatch::numbers() const
{
    QVector<int> numbers;
    for (int row = 0; row < m_model.rowCount(); ++row)
        numbers.append(numberOf(m_model.index(row).data(ResourceModel::GuidRole).toString()));
    return numbers;
}

QVariant ModelWatch::value(int number, int role) const
{
    return m_model.index(m_model.rowOf(CatalogueFiles::guid(number))).data(role);
}
