// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/MvModelExport.h"
#include "records/ECfgItemType.h"

#include <QAbstractListModel>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

class ItemTransfers;
struct ModelEngine;
struct ResourceKey;
struct SCfg_Item;
struct SItemDownloadResult;

/// The shown items of one kind of the catalogue, as a model for any view: widgets, Qt Quick or
/// none. A row per item, in the order of the catalogue; a GUID that occurs twice has one row.
///
/// The model follows by itself all that happens: MVThemeMgr::load(true) and clear(), checks and the
/// pictures that arrive after them, favourites, and downloads, updates and removals by whomever,
/// such as another model, a cell of mvThemelistview, or a host's own MVThemeDownLoader. Rows are
/// inserted, removed, moved and changed one by one, so that views keep their place; only setKind()
/// resets the model. Any number of models may exist. They need no process-wide callback and leave
/// those of a host alone.
///
/// A thread of the library looks at the files of the items, first at those changed last. data()
/// never touches the disk: a state is Unknown until it has been determined, see isExamining().
///
/// Models hold GUIDs and no pointers into the catalogue. A reload of the catalogue stops the
/// downloads and updates that models have begun, within 200 ms, and they go on after it. Only the
/// downloads of others make MVThemeMgr refuse it.
///
/// Create models after QCoreApplication and HostSettings, on the GUI thread (the main thread of a
/// program without windows), which needs an event loop. All functions and signals are that
/// thread's. The destruction of the last model cancels what models have begun and waits for it.
class MVMODEL_EXPORT ResourceModel : public QAbstractListModel
{
    Q_OBJECT
    /// The kind of the items; Theme by default.
    Q_PROPERTY(ResourceModel::Kind kind READ kind WRITE setKind NOTIFY kindChanged)
    /// The number of rows.
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// True while states are being determined.
    Q_PROPERTY(bool examining READ isExamining NOTIFY examiningChanged)
    /// True while undoRemove() can bring an item back.
    Q_PROPERTY(bool canUndoRemove READ canUndoRemove NOTIFY canUndoRemoveChanged)

public:
    /// The kinds of items, as in ECfgItemType.
    enum Kind {
        Filter = eCfgItem_Filter,
        Transition = eCfgItem_Transition,
        Motion = eCfgItem_Motion,
        Theme = eCfgItem_Theme,
        BgMaterial = eCfgItem_BgMaterial,
    };
    Q_ENUM(Kind)

    /// The actions that an item offers.
    enum State {
        Unknown,  ///< not looked at yet
        Missing,  ///< must be fetched before it can be used
        Ready,    ///< can be used
        Outdated, ///< can be used; the accepted release has other files
        Damaged,  ///< files have changed since they came; update() repairs them
        Failed,   ///< missing, and the last attempt to fetch it has failed: see ErrorTextRole
        Downloading,
        Updating,
        Removing,
    };
    Q_ENUM(State)

    /// How an operation has ended.
    enum Outcome { Complete, Failure, Cancelled };
    Q_ENUM(Outcome)

    /// The data of a row; QML knows them by the names in comments. Qt::DisplayRole is the name.
    enum Role {
        GuidRole = Qt::UserRole + 1, ///< guid: QString, in braces
        NameRole,                    ///< name: QString
        KindRole,                    ///< kind: Kind
        ThemeTypeRole,               ///< themeType: int, a code of ThemeTypes; 0 for other kinds
        /// thumbnail: QUrl of the file; empty until it is on disk. The address changes with the
        /// picture, so that caches may go by it: a fragment is added that does not belong to the
        /// path (QUrl::toLocalFile() leaves it out).
        ThumbnailRole,
        PreviewRole,      ///< preview: the same of the animated preview; empty without one
        FavouriteRole,    ///< favourite: bool
        StateRole,        ///< state: State
        UsableRole,       ///< usable: bool, whether apply() needs no download, as far as is known
        OutdatedRole,     ///< outdated: bool, whether update() changes files that are on disk
        BytesToFetchRole, ///< bytesToFetch: qint64, of fetch() or update(), as far as is known
        BytesKnownRole,   ///< bytesKnown: bool, whether bytesToFetch is all
        SizeRole,         ///< size: qint64, see SItemState::m_nBytes; -1 until examined
        BusyRole,         ///< busy: bool, whether it is Downloading, Updating or Removing
        ProgressRole,     ///< progress: int, 0 to 100, of a download or update
        ErrorTextRole,    ///< errorText: QString, a phrase in the application's language why the
                          ///< last operation has failed; empty if it has not
        ErrorDetailsRole, ///< errorDetails: QString, the same as an English line for logs
    };
    Q_ENUM(Role)

    /// Creates a model of the themes.
    explicit ResourceModel(QObject* parent = nullptr);
    /// Creates a model of a kind.
    explicit ResourceModel(ResourceModel::Kind kind, QObject* parent = nullptr);
    ~ResourceModel() override;

    /// Returns the property of that name.
    Kind kind() const { return static_cast<Kind>(m_kind); }
    /// Shows another kind, and resets the model.
    void setKind(Kind kind);
    /// Returns the property of that name.
    int count() const { return static_cast<int>(m_rows.size()); }
    /// Returns the property examining.
    bool isExamining() const;
    /// Returns the property of that name.
    bool canUndoRemove() const;

    /// Returns the number of rows; 0 below a row.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Returns the data of a row for a role; invalid for others.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Returns the names of the roles, as QML uses them.
    QHash<int, QByteArray> roleNames() const override;

    /// Returns the row of an item; -1 without one. Compares exactly.
    Q_INVOKABLE int rowOf(const QString& guid) const;
    /// Returns the data of an item by the name of a role, "state"; invalid without such an item.
    Q_INVOKABLE QVariant valueOf(const QString& guid, const QString& roleName) const;

    /// Downloads what an item lacks; fetchEnded() follows. At most four items are downloaded at a
    /// time, others wait. Returns false and does nothing if the item is busy or not in the
    /// catalogue.
    Q_INVOKABLE bool fetch(const QString& guid);
    /// Fetches what is missing, outdated or damaged of an item; updateEnded() follows. One item is
    /// updated at a time. Returns as fetch() does.
    Q_INVOKABLE bool update(const QString& guid);
    /// Cancels the item's download or update, also a waiting one; the end follows within 200 ms.
    /// Does nothing for one that was not begun by a model.
    Q_INVOKABLE void cancel(const QString& guid);
    /// Emits applied() if the item can be used; otherwise downloads it and emits applied() if it
    /// then can. With HostSettings::lastChoiceWins only if this was the model's last apply().
    /// Returns false and does nothing if the item is not in the catalogue.
    Q_INVOKABLE bool apply(const QString& guid);
    /// Removes an item's files that no other item on disk needs; removeEnded() follows. It fails
    /// while downloads or updates are working. Until the next removal by any model, or the
    /// destruction of the last model, undoRemove() brings it back. Returns as fetch() does.
    Q_INVOKABLE bool remove(const QString& guid);
    /// Brings the item back that a model removed last; its state tells when that has been done.
    /// Returns false if there is none.
    Q_INVOKABLE bool undoRemove();
    /// Marks or unmarks an item as a favourite. MVThemeMgr saves favourites at the end of the
    /// process, in saveFavourites(), and ResourceCatalogue shortly after each change. Returns false
    /// and does nothing for kinds without favourites, and if the item is not in the catalogue.
    Q_INVOKABLE bool setFavourite(const QString& guid, bool isFavourite);

    /// Tells which rows a view shows, so that their states are determined and their previews
    /// fetched first (PreviewExchange).
    Q_INVOKABLE void showRows(int first, int count);
    /// Does the same with the GUIDs of the items, most wanted first.
    void showItems(const QStringList& guids);

signals:
    /// The model shows another kind.
    void kindChanged();
    /// The number of rows has changed.
    void countChanged();
    /// The property examining has changed.
    void examiningChanged();
    /// The property canUndoRemove has changed.
    void canUndoRemoveChanged();

    /// The user's item can be used: here an editor applies it. Only of this model's apply().
    void applied(const QString& guid);
    /// An operation on an item of this model has ended, whoever began it; by then the row has its
    /// new state. Emitted from the event loop. `errorText` is that of ErrorTextRole. Receivers may
    /// do anything, including reloading the catalogue and destroying the model.
    void fetchEnded(const QString& guid, ResourceModel::Outcome outcome, const QString& errorText);
    /// The same for an update.
    void updateEnded(const QString& guid, ResourceModel::Outcome outcome, const QString& errorText);
    /// The same for a removal.
    void removeEnded(const QString& guid, ResourceModel::Outcome outcome, const QString& errorText);

private:
    struct Row
    {
        QString guid;
        QString name;
        int themeType = 0;
        bool isFavourite = false;
    };
    using Rows = QVector<Row>;

    void follow();
    ResourceKey keyOf(const QString& guid) const;
    QVariant factOf(const Row& row, int role) const;
    State stateOf(const ResourceKey& key) const;
    void takeEnd(const ResourceKey& key, int operation, const SItemDownloadResult& result);
    void applyFetched(const QString& guid);
    void noteFavourite(const SCfg_Item* item);
    void tellChanged(const QString& guid, const QVector<int>& roles);
    void tellChanged(const QStringList& guids);

    Rows readRows() const;
    void updateRows();
    void setRows(const Rows& next);
    void removeGone(const Rows& next);
    void orderKept(const Rows& next);
    void moveOthers(const QStringList& order, const QVector<bool>& staying);
    void reorderRows(const QStringList& order);
    void insertNew(const Rows& next);
    void changeKept(const Rows& next);
    int placeOf(const QString& guid) const;

    std::shared_ptr<ModelEngine> m_engine;
    ECfgItemType m_kind = eCfgItem_Theme;
    Rows m_rows;
    mutable QHash<QString, int> m_rowOf; // empty: to be built from m_rows
    QString m_lastChoice;                // of apply()
    QSet<QString> m_wanted;              // to be applied when they have been fetched
};
