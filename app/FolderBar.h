// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "NoticeBar.h"

class QTimer;

/// Warns before a download starts if its files could not be stored: the download folder is not
/// writable, is almost full, or is not there. Offers the settings.
class FolderBar : public NoticeBar
{
    Q_OBJECT

public:
    explicit FolderBar(QWidget* parent);

    /// Tells that the chosen folder cannot be used now and that files go to the usual one.
    void setUnavailable(const QString& folder);
    /// Looks at the download folder again, soon; the bar appears or disappears.
    void refresh();

signals:
    void settingsWanted();

protected:
    void retranslate() override;
    void act() override;

private:
    void look();

    enum class Trouble { None, Unavailable, NotWritable, AlmostFull };
    QTimer* m_soon; // once for several reasons to look
    Trouble m_trouble = Trouble::None;
    QString m_unavailable; // the chosen folder; empty: it is in use
    qint64 m_freeBytes = 0;
};
