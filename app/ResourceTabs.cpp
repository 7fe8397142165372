// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ResourceTabs.h"

#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "ResourceList.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>

#include <algorithm>

namespace {

const EUIItemType tabTypes[] = {UIItem_Themes, UIItem_Filters, UIItem_FiltersLarge,
                                UIItem_BgMaterial};

} // namespace

ResourceTabs::ResourceTabs(QWidget* parent)
    : QWidget(parent)
    , m_tabs(new QTabBar(this))
    , m_types(new QComboBox(this))
    , m_search(new QLineEdit(this))
    , m_check(new QPushButton(this))
    , m_pages(new QStackedWidget(this))
{
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_types->setObjectName(QStringLiteral("themeType"));
    m_types->setSizeAdjustPolicy(
        QComboBox::AdjustToContents); // another language may need more room
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_check->setObjectName(QStringLiteral("check"));

    createLists();
    createBar();
    retranslate();
    connect(m_tabs, &QTabBar::currentChanged, this, &ResourceTabs::showTab);
    connect(m_types, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        applyFilter();
        emit themeTypeChanged(themeType());
    });
    connect(m_search, &QLineEdit::textChanged, this, &ResourceTabs::applyFilter);
}

void ResourceTabs::createLists()
{
    for (const EUIItemType type : tabTypes) {
        auto* const list = new ResourceList(type, m_pages);
        m_pages->addWidget(list);
        m_lists.append(list);
        m_tabs->addTab(QString());
        connect(list, &ResourceList::applied, this,
                [this, list](SCfg_Item* item) { noteApplied(list, item); });
    }
    const int types[] = {MVThemeSortFilterProxyModel::allThemes,
                         MVThemeSortFilterProxyModel::favouriteThemes,
                         0,
                         MVThemeMgr::init()->Themetype(QStringLiteral("festivals")),
                         MVThemeMgr::init()->Themetype(QStringLiteral("travel")),
                         MVThemeMgr::init()->Themetype(QStringLiteral("banquets"))};
    for (const int type : types)
        m_types->addItem(QString(), type);
}

void ResourceTabs::createBar()
{
    auto* const bar = new QHBoxLayout;
    bar->addWidget(m_types);
    bar->addWidget(m_search, 1);
    bar->addWidget(m_check);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    layout->addLayout(bar);
    layout->addWidget(m_pages, 1);
}

void ResourceTabs::retranslate()
{
    const QString names[] = {tr("Themes"), tr("Filters"), tr("Filters (large)"), tr("Backgrounds")};
    for (int tab = 0; tab < m_tabs->count(); ++tab)
        m_tabs->setTabText(tab, names[tab]);
    const QString types[] = {tr("All"),       tr("Favourites"), tr("Others"),
                             tr("Festivals"), tr("Travel"),     tr("Banquets")};
    for (int type = 0; type < m_types->count(); ++type)
        m_types->setItemText(type, types[type]);
    m_types->setAccessibleName(tr("Theme type"));
    m_search->setPlaceholderText(tr("Search (Ctrl+F)"));
    m_search->setAccessibleName(tr("Search by name"));
}

int ResourceTabs::currentTab() const
{
    return m_tabs->currentIndex();
}

void ResourceTabs::setCurrentTab(int tab)
{
    m_tabs->setCurrentIndex(tab);
}

int ResourceTabs::themeType() const
{
    return m_types->currentData().toInt();
}

void ResourceTabs::setThemeType(int type)
{
    m_types->setCurrentIndex(qMax(0, m_types->findData(type)));
}

ResourceList* ResourceTabs::currentList() const
{
    return m_lists.at(currentTab());
}

void ResourceTabs::showTab(int tab)
{
    m_pages->setCurrentIndex(tab);
    m_types->setVisible(currentList()->type() == UIItem_Themes);
    applyFilter();
    emit currentTabChanged(tab);
}

void ResourceTabs::applyFilter()
{
    currentList()->setFilter(themeType(), m_search->text());
}

void ResourceTabs::noteApplied(const ResourceList* from, SCfg_Item* item)
{
    m_applied.insert(from->kind(), item->m_qsGUID);
    if (from->kind() == eCfgItem_Theme)
        MVThemeMgr::init()->setCurApplyTheme(item);
    // Both filter lists mark it.
    for (ResourceList* list : qAsConst(m_lists)) {
        if (list != from && list->kind() == from->kind())
            list->view()->setAppliedItem(item->m_qsGUID);
    }
    emit applied(item);
}

MVThemeItemWdg* ResourceTabs::reveal(ECfgItemType kind, const QString& guid)
{
    if (currentList()->kind() != kind) {
        const auto it =
            std::find_if(m_lists.cbegin(), m_lists.cend(),
                         [kind](const ResourceList* list) { return list->kind() == kind; });
        setCurrentTab(int(it - m_lists.cbegin()));
    }
    if (!currentList()->isShown(guid)) {
        setThemeType(MVThemeSortFilterProxyModel::allThemes);
        m_search->clear();
    }
    return currentList()->reveal(guid);
}

void ResourceTabs::startSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void ResourceTabs::refreshFavourites()
{
    for (ResourceList* list : qAsConst(m_lists))
        list->refreshFavourites();
}

void ResourceTabs::setUpdatable(const QVector<ItemKey>& items)
{
    for (ResourceList* list : qAsConst(m_lists)) {
        QSet<QString> guids;
        for (const ItemKey& item : items) {
            if (item.kind == list->kind())
                guids.insert(item.guid);
        }
        list->setUpdatable(guids);
    }
}

void ResourceTabs::reloadCatalogue()
{
    cancelDownloads(); // all at once, so that release() waits only for the slowest
    for (ResourceList* list : qAsConst(m_lists))
        list->view()->release();
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->load(true);
    catalogue->setCurApplyTheme(
        catalogue->findItemByIDFromDisplay(eCfgItem_Theme, appliedItem(eCfgItem_Theme)));
    for (ResourceList* list : qAsConst(m_lists)) {
        list->view()->refill();
        list->refilter();
    }
}

void ResourceTabs::updateItemSizes()
{
    for (ResourceList* list : qAsConst(m_lists))
        list->view()->updateItemSize();
}

void ResourceTabs::cancelDownloads()
{
    for (ResourceList* list : qAsConst(m_lists))
        list->view()->cancelDownloads();
}

void ResourceTabs::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

bool ResourceTabs::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        m_search->clear();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        currentList()->view()->setFocus(Qt::TabFocusReason);
        return true;
    default:
        return false;
    }
}
