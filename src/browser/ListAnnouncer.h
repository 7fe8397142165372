// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

#include <QObject>
#include <QString>

class mvThemelistview;
class QAccessibleInterface;
struct SItemDownloadResult;

/// Tells assistive technology what changes in the rows of a list: the progress and the end of
/// downloads, favourites, the applied item. Without such a program it does nothing.
///
/// A child of the list. Internal to the library; GUI thread only.
class ListAnnouncer : public QObject
{
    Q_OBJECT

public:
    explicit ListAnnouncer(mvThemelistview& view);

    /// Announces that the state of an item has changed.
    void announceState(const QString& guid);
    /// Announces the percentage of a download.
    void announceProgress(const QString& guid, int percent);

private:
    void announceStart(const QString& guid);
    void announceEnd(const QString& guid);
    void announceBusy(const QString& guid);
    QAccessibleInterface* rowOf(const QString& guid) const;
    bool isMine(ECfgItemType kind) const;

    mvThemelistview& m_view;
    QString m_applied; // GUID of the item that was last announced as applied
};
