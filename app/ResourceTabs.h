#pragma once

#include "records/ECfgItemType.h"

#include <QMap>
#include <QVector>
#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;
class ResourceList;
class MVThemeItemWdg;
struct SCfg_Item;

/// The four lists behind tabs, and above them what chooses among their items.
class ResourceTabs : public QWidget
{
    Q_OBJECT

public:
    explicit ResourceTabs(QWidget* parent);

    int currentTab() const;
    void setCurrentTab(int tab);
    int themeType() const;
    void setThemeType(int type);
    ResourceList* currentList() const;
    const QVector<ResourceList*>& lists() const { return m_lists; }
    QPushButton* checkButton() const { return m_check; }

    /// The GUID of the item that is applied now; empty: none.
    QString appliedItem(ECfgItemType kind) const { return m_applied.value(kind); }

    /// Shows the cell of an item, if need be on another tab and without the present filter; null if
    /// there is none. It is valid until the filter changes or the catalogue is read again.
    MVThemeItemWdg* reveal(ECfgItemType kind, const QString& guid);

    /// Moves the keyboard to the search field.
    void startSearch();
    void refreshFavourites();
    /// Reads the catalogue again with what the user sees kept. Neither a check nor the previews'
    /// run may be on their way; downloads stop, and begin again afterwards.
    void reloadCatalogue();
    /// Gives the cells the size that the skin has now.
    void updateItemSizes();
    void cancelDownloads();

signals:
    void currentTabChanged(int tab);
    void themeTypeChanged(int type);
    void applied(SCfg_Item* item);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createLists();
    void createBar();
    void retranslate();
    void applyFilter();
    void showTab(int tab);
    void noteApplied(const ResourceList* from, SCfg_Item* item);

    QTabBar* m_tabs;
    QComboBox* m_types;
    QLineEdit* m_search;
    QPushButton* m_check;
    QStackedWidget* m_pages;
    QVector<ResourceList*> m_lists;
    QMap<ECfgItemType, QString> m_applied;
};
