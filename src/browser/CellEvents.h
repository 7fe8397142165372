#pragma once

#include "browser/MvBrowserExport.h"
#include "download/SItemDownloadResult.h"
#include "records/ECfgItemType.h"

#include <QObject>

struct SCfg_Item;

/// Tells what happens in the cells of all lists of the process, as signals.
///
/// They come from the event loop, after the cell has finished with what it was doing: a receiver
/// may do anything, also reload the catalogue. Items are therefore named by kind and GUID; look
/// them up with MVThemeMgr::findItemByIDFromDisplay(), which returns null for one that has gone
/// meanwhile. The callbacks of MVThemeItemWdg and MVThemeItemSubwdgt_Preview tell the same at once.
///
/// One object per process, owned by the library. GUI thread only.
class MVBROWSER_EXPORT CellEvents : public QObject
{
    Q_OBJECT

public:
    static CellEvents* instance();

signals:
    /// The user applied an item, or its download has ended and applied it.
    void itemApplied(ECfgItemType kind, const QString& guid);
    /// The user made an item a favourite or no longer.
    void favouriteToggled(ECfgItemType kind, const QString& guid);
    void downloadStarted(ECfgItemType kind, const QString& guid);
    /// Once per download, with its outcome: complete, failed with its cause, or cancelled.
    void downloadEnded(ECfgItemType kind, const QString& guid, const SItemDownloadResult& result);
    /// The user activated "More>>".
    void moreWanted();

private:
    friend class MVThemeItemSubwdgt_Preview;
    friend class MVThemeItemWdg;
    using ItemSignal = void (CellEvents::*)(ECfgItemType, const QString&);

    CellEvents() = default;

    /// Emit a signal later; without an item there is nothing to tell.
    static void post(ItemSignal signal, const SCfg_Item* item);
    static void postEnd(const SCfg_Item& item, const SItemDownloadResult& result);
    static void postMore();
};
