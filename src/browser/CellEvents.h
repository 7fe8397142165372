// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"
#include "download/SItemDownloadResult.h"
#include "records/ECfgItemType.h"

#include <QObject>

struct SCfg_Item;

/// Reports the events in the cells of all lists of the process, as signals.
///
/// They are emitted from the event loop, after the cell has finished its work: a receiver may do
/// anything, including reloading the catalogue. Items are therefore identified by kind and GUID;
/// look them up with MVThemeMgr::findItemByIDFromDisplay(), which returns null if the item no
/// longer exists. The callbacks of MVThemeItemWdg and MVThemeItemSubwdgt_Preview report the same
/// synchronously.
///
/// One object per process, owned by the library. GUI thread only.
class MVBROWSER_EXPORT CellEvents : public QObject
{
    Q_OBJECT

public:
    /// Returns the object of this process, created by the first call. Not owned.
    static CellEvents* instance();

signals:
    /// The user has applied an item, or its finished download has.
    void itemApplied(ECfgItemType kind, const QString& guid);
    /// The user has added an item to the favourites or removed it.
    void favouriteToggled(ECfgItemType kind, const QString& guid);
    /// A cell has started to download the item; downloadEnded() follows.
    void downloadStarted(ECfgItemType kind, const QString& guid);
    /// Emitted once per downloadStarted(), with the outcome: complete, failed with a cause, or
    /// cancelled, as by clearing the list or destroying the cell; then no callback is called.
    void downloadEnded(ECfgItemType kind, const QString& guid, const SItemDownloadResult& result);
    /// The user has activated "More>>".
    void moreWanted();

private:
    friend class MVThemeItemSubwdgt_Preview;
    friend class MVThemeItemWdg;
    using ItemSignal = void (CellEvents::*)(ECfgItemType, const QString&);

    CellEvents() = default;

    /// Emit a signal from the event loop; without an item they do nothing.
    static void post(ItemSignal signal, const SCfg_Item* item);
    static void postEnd(const SCfg_Item& item, const SItemDownloadResult& result);
    static void postMore();
};
