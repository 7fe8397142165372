// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SUpdateOutcome.h"
#include "NoticeBar.h"
#include "ServerSilence.h"

class ItemUpdates;

/// Shows the running update of items, which it can cancel, and why one failed.
class UpdateBar : public NoticeBar
{
    Q_OBJECT

public:
    /// `updates` must outlive the bar.
    UpdateBar(ItemUpdates& updates, QWidget* parent);

protected:
    void retranslate() override;
    void act() override;

private:
    void showStart();
    void showBytes(qint64 fetchedBytes, qint64 totalBytes);
    void showEnd(const SUpdateOutcome& outcome);

    ItemUpdates& m_updates;
    qint64 m_fetchedBytes = 0;
    qint64 m_totalBytes = 0;
    ServerSilence m_silence;  // of the running update
    SUpdateOutcome m_outcome; // of the update that failed last
};
