// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/EDependType.h"
#include "records/MvResourceExport.h"
#include "records/SCfg_Item.h"
#include "records/SThemes_a.h"

#include <QJsonObject>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

#include <memory>
#include <vector>

class CollectFile;
class QDomDocument;
class QDomElement;
class CatalogueIndex;

/// The catalogue of resources: existing and shown items, the place of every file on disk and on the
/// server, and favourites.
///
/// The host creates it with init(), calls setResourceSaveRootPath() and load(false), and then reads
/// its lists. It is one object per process and exists until the process ends; its destructor saves
/// the favourites of themes and filters.
///
/// Threads. The GUI thread creates it, loads it and changes favourites. Other threads may call the
/// lookups, paths and addresses, isLocal_Theme(), ensureThemeParsed(), getNeedDownLoadFiles(), the
/// doItem_Info_* operations and checkXml(), even concurrently on one item, as long as the GUI
/// thread neither loads nor clears; and the read_resource_*_a readers on their own vectors.
///
/// Ownership. The manager owns all items and parsed themes. Pointers to items, to their file
/// records and to parsed themes are valid until the next load(true) or clear(), which are refused
/// while a download runs. Do not keep a copy of one of the item vectors: changing a shared vector
/// moves its items.
///
/// Failures are log lines (category "MVThemeMgr") and empty results; nothing is thrown.
class MVRESOURCE_EXPORT MVThemeMgr : public QObject
{
    Q_OBJECT

public:
    /// The two trees that can contain a file of an item.
    enum ELoadDir : int {
        eLoadDir_Local = 0,    ///< the application's installed resources
        eLoadDir_Download = 1, ///< the download root
    };

    /// The two halves of a tree.
    enum EDirTag : int {
        eDirTag_Config = 0,  ///< config files and resources
        eDirTag_Display = 1, ///< thumbnails and animated previews
    };

    /// The items of one catalogue file; the order is that of ECfgItemType.
    struct MVRESOURCE_EXPORT SResourceXML
    {
        /// Returns the items of a kind; null for eCfgItem_Resource and other invalid values.
        QVector<SCfg_Item>* ofKind(ECfgItemType k);
        /// Returns the same for reading.
        const QVector<SCfg_Item>* ofKind(ECfgItemType k) const;
        /// Returns whether all five vectors are empty.
        bool isEmpty() const;

        QVector<SCfg_Item> vecFilter;     ///< video filters
        QVector<SCfg_Item> vecTransition; ///< transitions
        QVector<SCfg_Item> vecMotion;     ///< motions
        QVector<SCfg_Item> vecTheme;      ///< themes
        QVector<SCfg_Item> vecBgMaterial; ///< background materials
    };

    /// Returns the catalogue of this process. The first call creates it and must be made on the GUI
    /// thread before any other thread can call; hostSettings() must be complete by then.
    static MVThemeMgr* init();

    ~MVThemeMgr() override;

    /// @name Loading
    /// @{

    /// Reads favourites and both catalogue files and, with the product parameter "hasMV" (a
    /// non-zero integer), every theme's own config. Does nothing if the catalogue has already been
    /// read and `bReload` is false. Invalidates every pointer into the catalogue, except the theme
    /// applied last, which the host sets again. While downloads work on items, it only logs a
    /// warning.
    void load(bool bReload);

    /// Does the same as load(true), but returns false without changing anything while
    /// downloads work on items, see CatalogueUse. Cancel these or wait for their end, and call
    /// again.
    bool tryReload();
    /// Does the same as clear(), but returns false without changing anything while downloads work
    /// on items.
    bool tryClear();

    /// Parses the config of every displayed theme that has its config file on disk.
    void parseThemes();

    /// Parses the config of a theme whose config file is on disk, whatever its origin, unless
    /// already parsed. Call it before asking what a theme needs: a second program or a copy may
    /// have added the file after load(). As in load(), only with the product parameter "hasMV";
    /// items of other kinds are ignored. Returns false if the config file exists but cannot be read
    /// or parsed.
    bool ensureThemeParsed(SCfg_Item& item);

    /// Parses the config of a theme again after its file was replaced. What was parsed before stays
    /// valid until load(true) or clear(). Returns false, and changes nothing, if it cannot be read
    /// or parsed, or is not on disk.
    bool parseThemeAgain(SCfg_Item& item);

    /// Removes all items and the theme applied last; favourites and the root stay. Refused like
    /// load().
    void clear();

    /// Returns whether the items are those of the downloaded catalogue, as far as there is one:
    /// false if one of its files is on disk but load() could not read it, and used the installed
    /// one instead. What is on disk must not be judged by such a catalogue.
    bool isCatalogueRead() const { return !m_bStandIn; }

    /// @}
    /// @name Lookup
    /// Returns the first item in vector order whose GUID equals `id` exactly, or null. Owned by the
    /// vector.
    /// @{

    /// Searches a vector of items.
    SCfg_Item* findItemByID(const QVector<SCfg_Item>& vec, QString id);
    /// Searches the config catalogue; null for a kind outside 0 to 4.
    SCfg_Item* findItemByIDFromConfig(ECfgItemType k, QString id);
    /// Searches the display catalogue; null for a kind outside 0 to 4.
    SCfg_Item* findItemByIDFromDisplay(ECfgItemType k, QString id);
    /// @}

    /// Returns all items of the config catalogue, owned by this object.
    const SResourceXML& getCfgXML() { return m_sCfgXML; }
    /// Returns the items shown to the user, owned by this object.
    const SResourceXML& getDisplayXML() { return m_sDisplayXML; }
    /// Returns the filters shown to the user.
    QVector<SCfg_Item>& getFilters_Display() { return m_sDisplayXML.vecFilter; }
    /// Returns the themes shown to the user.
    QVector<SCfg_Item>& getThemes_Display() { return m_sDisplayXML.vecTheme; }
    /// Returns the background materials shown to the user.
    QVector<SCfg_Item>& getBgMaterial_Display() { return m_sDisplayXML.vecBgMaterial; }

    /// Returns the theme the user applied last, or null; not owned.
    SCfg_Item* getCurApplyTheme() { return m_pCurApplyTheme; }
    /// Records the theme that the user has applied; null for none.
    void setCurApplyTheme(SCfg_Item* item) { m_pCurApplyTheme = item; }

    /// Returns eLoadDir_Download for server items, whose config names begin with "/"; others are
    /// built in.
    ELoadDir isLocal_Theme(const SCfg_Item& item);

    /// Appends to `out` the records of all files that `item`, and every item it depends on, still
    /// lacks on disk; a file used by several elements occurs several times. The "none" entry of
    /// filters and background materials needs nothing and empties `out`. Appends at most
    /// maxNeededFiles records, see listNeededFiles().
    void getNeedDownLoadFiles(SCfg_Item* item, QVector<SFileInfo*>& out);
    /// Does the same, but returns false, with a warning in the log, if there are more than
    /// maxNeededFiles records: the item cannot be used.
    bool listNeededFiles(SCfg_Item* item, QVector<SFileInfo*>& out);
    /// The most files that a usable item can lack.
    static constexpr int maxNeededFiles = 10000;

    /// @name Paths and addresses
    /// Plain concatenations with forward slashes; empty if there is no such place.
    /// @{

    /// Sets the download root, without normalising it, and creates the folders below it.
    void setResourceSaveRootPath(const QString& path);
    /// Returns the root of a tree: "Resource" in the installed resources, or "Themes" in the
    /// download root.
    QString Path_resource_RootDir(ELoadDir d);
    /// Returns the folder of one half of a tree.
    QString Path_resource_Dir(ELoadDir d, EDirTag t);
    /// Returns the folder of a kind in one half of a tree, with a trailing slash; empty for a kind
    /// outside 0 to 4.
    QString Path_resource_Dir(ELoadDir d, EDirTag t, ECfgItemType k);
    /// Returns the path of a tree's config or display catalogue.
    QString Path_resource_xml(ELoadDir d, EDirTag t);
    /// Returns the path of a tree's version file.
    QString Path_resource_version_xml(ELoadDir d);
    /// Returns the folder "ResourceConfig" in the download root.
    QString saveResourcePath() const;
    /// Returns the folder of the downloaded config half, "Themes/config".
    QString saveThemePath() const;
    /// Returns whether a download may create, write and delete `path`: it is below the download
    /// root, by its name and by what is on disk (no "..", no link on the way).
    bool isDownloadPath(const QString& path) const;
    /// Returns the address of a config-half file, or of any file named relative to the server root.
    /// Blanks are encoded only in names that contain "ThemesBgm"; the name includes its leading
    /// "/".
    QString downLoadUrl(EDirTag t, QString name);
    /// Returns whether an address made by downLoadUrl() or downLoadUrl_Thumb() points to the server
    /// of "url_themeRootDir". A root without a trailing slash, or a name such as "@elsewhere/x",
    /// can make one that points to another server.
    bool isServerAddress(const QString& url) const;
    /// Returns the address of a thumbnail or GIF: `name` is one file name, fully percent-encoded.
    QString downLoadUrl_Thumb(EDirTag t, ECfgItemType k, QString name);
    /// Returns the address of a file on the server, by its record.
    QString addressOf(const SFileInfo& info);
    /// Returns the kind's name in the catalogue files; "error" for a kind outside 0 to 4.
    QString getCfgItemTypeStr(ECfgItemType k);

    /// @}
    /// @name Catalogue files
    /// @{

    /// Reads and parses one XML file (UTF-8). Returns false for a file that is missing, malformed,
    /// larger than 64 MiB, nested deeper than 64 elements, or that declares entities.
    bool checkXml(const QString& path, QDomDocument& doc);
    /// Appends the config catalogue to its vectors, from the downloaded file or else the installed
    /// one.
    void read_resource_config_xml();
    /// Appends the items of one group element of a config catalogue to `out`.
    void read_resource_config_xml_a(const QDomElement& root, ECfgItemType k, QString groupName,
                                    QVector<SCfg_Item>& out);
    /// Parses a theme's own config file and stores the finished result, owned by the manager, in
    /// `out`; on failure `out` is unchanged.
    void read_resource_config_Themes_a(QString path, SThemes_a*& out);
    /// Reads the dependency slot `slotName` below `parent`; an absent slot leaves `out` unchanged.
    void read_resource_config_Themes_a_Sub(const QDomElement& parent, QString slotName,
                                           EDependType t, SThemes_a::SDependInfo& out);
    /// Appends the display catalogue to its vectors, from the downloaded file or else the installed
    /// one.
    void read_resource_display_xml();
    /// Appends the shown items of a flat category to `displayItems`, as copies of those in
    /// `cfgItems`, whose text flag it sets. Items without previews on disk are included only with
    /// `keepAll`.
    void read_resource_display_xml_a(const QDomElement& root, ECfgItemType type, QString tagName,
                                     QVector<SCfg_Item>& cfgItems, QVector<SCfg_Item>& displayItems,
                                     bool keepAll);
    /// Does the same for the grouped category of the themes.
    void read_resource_display_xml_a_theme(const QDomElement& root, ECfgItemType type,
                                           QString tagName, QVector<SCfg_Item>& cfgItems,
                                           QVector<SCfg_Item>& displayItems, bool keepAll);

    /// @}
    /// @name Files of an item
    /// Each function sets the local path of the item's files (the downloaded one if it exists, else
    /// the installed one, else the download target) and returns whether they are on disk or nothing
    /// is to be fetched. A file that is outside these two trees once links are resolved counts as
    /// missing. All but the first create the folder of a missing file.
    /// @{

    /// Resolves the item's own config file.
    bool doItem_Info_CfgXML(SCfg_Item& item);
    /// Resolves the thumbnail.
    bool doItem_Info_Thumb(SCfg_Item& item);
    /// Resolves the animated preview.
    bool doItem_Info_Gif(SCfg_Item& item);
    /// Appends the records of the missing resource files to `missing`; they point into the item.
    bool doItem_Info_DependRes(SCfg_Item& item, QVector<SFileInfo*>& missing);
    /// Resolves the resource files.
    bool doItem_Info_DependRes(SCfg_Item& item);
    /// @}

    /// @name Favourites and theme types
    /// GUI thread only. Favourites are kept per GUID in JSON files below Utils::strDataLocation();
    /// background materials share the filters' file, except in the operations that name them.
    /// @{

    /// Returns the path of the themes' favourites file and creates its folder.
    QString Path_ThemeCollect();
    /// Returns the path of the file that filters and background materials share, and creates its
    /// folder.
    QString Path_FilterCollect();
    /// Returns the path of the background materials' own file and creates its folder.
    QString Path_BgMaterialCollect();
    /// Always returns an empty path: the theme-type file is searched for in both resource trees.
    QString Path_ThemeType();
    /// Replaces the marks by the file's; a missing file is created, a file that is not JSON changes
    /// nothing.
    void readThemeCollect();
    /// Does the same for filters and background materials.
    void readFilterCollect();
    /// Does the same for the background materials' own file.
    void readBgMaterialCollect();
    /// Writes this process's changes into the files, atomically and under a lock: marks of other
    /// processes are kept. A file that cannot be parsed is kept aside under "NAME.damaged-N". A
    /// process that has neither read a file nor changed a mark leaves it alone. Failures are
    /// silent.
    void saveThemeCollect();
    /// Does the same for filters and background materials.
    void saveFilterCollect();
    /// Does the same for the background materials' own file.
    void saveBgMaterialCollect();
    /// Saves all three. Returns false, with the reason in `error` (may be null), if one could not
    /// be written; the next successful call writes the changes.
    bool saveFavourites(QString* error);
    /// Returns the marked GUIDs, sorted, including those that the catalogue does not currently
    /// contain. Filters and background materials share theirs. Empty for kinds without favourites.
    QStringList favourites(ECfgItemType k) const;
    /// Returns whether the item is marked. The query adds an unknown GUID with the value false.
    bool isThemeCollect(const SCfg_Item* item);
    /// Does the same with the marks of filters and background materials.
    bool isFilterCollect(const SCfg_Item* item);
    /// Does the same with the background materials' own marks.
    bool isBgMaterialCollect(const SCfg_Item* item);
    /// Queries by the item's kind; false for kinds without favourites.
    bool isItemCollect(const SCfg_Item* item);
    /// Adopts the item's m_bCollected and emits the matching signal; saved when the process ends.
    void setThemesCollected(const SCfg_Item* item);
    /// Does the same for filters and background materials.
    void setFilterCollected(const SCfg_Item* item);
    /// Does the same with the background materials' own marks.
    void setBgMaterialCollected(const SCfg_Item* item);
    /// Sets by the item's kind; does nothing for kinds without favourites.
    void setItemCollected(const SCfg_Item* item);
    /// Returns 2 for "festivals", 3 for "travel", 4 for "banquets", 0 for anything else.
    int Themetype(QString key);
    /// Reads ThemeType.json into the three lists, from the downloaded file or else the installed
    /// one.
    void readThemeType();
    /// Reads one theme-type file (JSON). Returns false if it cannot be read or parsed.
    bool readThemeType_a(QString path, QJsonObject& out);
    /// Returns the list "festivals" that readThemeType() has read.
    const QVariantList& festivals() const { return m_lstFestivals; }
    /// Returns its list "travel".
    const QVariantList& travel() const { return m_lstTravel; }
    /// Returns its list "banquets".
    const QVariantList& banquets() const { return m_lstBanquets; }
    /// @}

signals:
    /// The user has marked or unmarked the item passed as the argument.
    void sigThemesCollected(const SCfg_Item* pSCfg_Item);
    /// The same for setFilterCollected().
    void sigFilterCollected(const SCfg_Item* pSCfg_Item);
    /// The same for setBgMaterialCollected().
    void sigBgMaterialCollected(const SCfg_Item* pSCfg_Item);

private:
    friend class BuiltinThemes;
    MVThemeMgr();

    void createLocalThemeRes();
    bool isEditFilter(QVector<SCfg_Item>& vec, QString id);
    static bool hasThemes();
    bool isReadable(const QString& file);
    bool parse(SCfg_Item& item, const QString& file);
    static bool isInUse(const char* operation);
    bool change(const char* operation, void (MVThemeMgr::*function)());
    void readAll();
    void forgetAll();
    QVector<SFileInfo*> ownNeededFiles(SCfg_Item& item);
    void clearVectors();
    bool readCatalogue(EDirTag half, QDomDocument& doc);
    void readTheme(const QString& path, CatalogueIndex& dependencies, SThemes_a*& out);
    bool locatePreviews(SCfg_Item& item);
    bool resolve(SFileInfo& info, ECfgItemType k, EDirTag t, const QString& relative,
                 bool absoluteNames, bool makeFolder);
    static void readCollect(CollectFile& file, const QString& path, const char* openError,
                            const char* category, QJsonObject& out);

    SResourceXML m_sCfgXML;
    SResourceXML m_sDisplayXML;
    QJsonObject m_jsonThemeCollect;
    QJsonObject m_jsonFilterCollect;
    QJsonObject m_jsonBgMaterialCollect;
    bool m_bLoaded = false;
    bool m_bStandIn = false;
    QString m_qsSaveRoot;
    QVariantList m_lstFestivals;
    QVariantList m_lstTravel;
    QVariantList m_lstBanquets;
    SCfg_Item* m_pCurApplyTheme = nullptr;
    QList<QString> m_lstFixedGUID;

    std::unique_ptr<CollectFile> m_pThemeCollect;
    std::unique_ptr<CollectFile> m_pFilterCollect;
    std::unique_ptr<CollectFile> m_pBgMaterialCollect;

    QMutex m_mutexParsed; // guards m_vecParsed: download threads parse themes too
    std::vector<std::unique_ptr<SThemes_a>> m_vecParsed; // every theme config that items point to
};
