// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UpdateBar.h"

#include "ItemUpdates.h"
#include "StateText.h"

#include <QStringList>

UpdateBar::UpdateBar(ItemUpdates& updates, QWidget* parent)
    : NoticeBar(QStringLiteral("updateBar"), parent)
    , m_updates(updates)
{
    connect(&updates, &ItemUpdates::updateStarted, this, &UpdateBar::showStart);
    connect(&updates, &ItemUpdates::progressed, this, &UpdateBar::showBytes);
    connect(&updates, &ItemUpdates::updateEnded, this, &UpdateBar::showEnd);
}

void UpdateBar::showStart()
{
    m_fetchedBytes = 0;
    m_totalBytes = 0;
    m_silence = ServerSilence();
    setDetails({});
    setClosable(false);
    showProgress(0, 0);
    retranslate();
    show();
}

void UpdateBar::showBytes(qint64 fetchedBytes, qint64 totalBytes)
{
    m_silence.note(fetchedBytes);
    m_fetchedBytes = fetchedBytes;
    m_totalBytes = totalBytes;
    showProgress(fetchedBytes, totalBytes);
    retranslate();
}

void UpdateBar::showEnd(const SUpdateOutcome& outcome)
{
    hideProgress();
    setClosable(true);
    if (outcome.m_eEnd != eItemUpdate_Failed) {
        hide();
        return;
    }
    m_outcome = outcome;
    QStringList reasons;
    for (const STransferFailure& failure : outcome.m_vecFailures)
        reasons.append(failure.m_qsDetails);
    constexpr int maxLines = 10;
    setDetails(reasons.mid(0, maxLines).join(QLatin1Char('\n')));
    retranslate();
}

void UpdateBar::retranslate()
{
    const int count = m_updates.updatedItems().size();
    if (!m_updates.isUpdating()) {
        const QString cause = m_outcome.m_vecFailures.isEmpty()
            ? QString()
            : m_outcome.m_vecFailures.first().causeText();
        setTexts(tr("Not everything could be fetched: %1").arg(cause), tr("Try again"));
    } else if (m_silence.isLong()) {
        setTexts(tr("Waiting for the server…"), tr("Cancel"));
    } else if (m_totalBytes > 0) {
        setTexts(tr("Fetching %n item(s): %1 of %2", nullptr, count)
                     .arg(StateText::size(m_fetchedBytes), StateText::size(m_totalBytes)),
                 tr("Cancel"));
    } else {
        setTexts(tr("Fetching %n item(s)…", nullptr, count), tr("Cancel"));
    }
}

void UpdateBar::act()
{
    if (m_updates.isUpdating())
        m_updates.cancel();
    else if (!m_updates.update(m_updates.updatedItems()))
        hide(); // the items are no longer in the catalogue
}
