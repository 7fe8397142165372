// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "records/ECfgItemType.h"

#include <QString>
#include <QWidget>

class ItemFacts;
class PreviewPane;
class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class StorageBox;
struct SCfg_Item;

/// Shows an item, usually the applied one: a large preview, its kind, the state and size of its
/// files, the items it uses and its files. Keeps no pointer into the catalogue.
class DetailsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit DetailsPanel(QWidget* parent);

    /// Shows the item with this GUID; an empty GUID shows that nothing is applied.
    void showItem(ECfgItemType kind, const QString& guid);
    /// Looks the item up again, after a reload of the catalogue or a change of a file or favourite.
    void refresh();
    void setMotionReduced(bool reduced);
    /// Sets which item is applied: another one can be applied here.
    void setApplied(const ItemKey& item);

    /// Returns the item that is shown; an empty key if there is none.
    ItemKey key() const { return {m_eKind, m_guid}; }
    /// Returns the part that shows the state of its files, which the window fills.
    StorageBox* storage() const { return m_storage; }

signals:
    /// key() may have changed.
    void itemShown();
    void applyWanted(ECfgItemType kind, const QString& guid);
    void favouriteWanted(ECfgItemType kind, const QString& guid);
    void folderWanted(const QString& folder);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createButtons();
    void arrange();
    void retranslate();
    void fill(SCfg_Item& item);
    void fillTree(const ItemFacts& facts);
    void addFiles(const ItemFacts& facts);
    void showNothing();
    SCfg_Item* item() const;

    PreviewPane* m_preview;
    QLabel* m_name;
    QLabel* m_kind;
    StorageBox* m_storage;
    QTreeWidget* m_tree;
    QCheckBox* m_fileNames;
    QPushButton* m_apply;
    QPushButton* m_favourite;
    QPushButton* m_folder;
    ECfgItemType m_eKind = eCfgItem_Theme;
    QString m_guid;
    QString m_shownPreview; // the files shown, with their state when opened
    QString m_folderPath;
    bool m_motionReduced = false;
    ItemKey m_applied;
};
