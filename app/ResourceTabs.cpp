// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ResourceTabs.h"

#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/SCellState.h"
#include "catalogue/MVThemeMgr.h"
#include "FilterBar.h"
#include "FlowLayout.h"
#include "ResourceList.h"

#include <QEvent>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace {

const EUIItemType listTypes[] = {UIItem_Themes, UIItem_Filters, UIItem_FiltersLarge,
                                 UIItem_BgMaterial};
constexpr int largeFilters = 2; // number of their list
constexpr int tabOfLists[] = {0, 1, 1, 2};
constexpr int listOfTabs[] = {0, 1, 3};

} // namespace

ResourceTabs::ResourceTabs(QWidget* parent)
    : QWidget(parent)
    , m_tabs(new QTabBar(this))
    , m_large(new QToolButton(this))
    , m_check(new QPushButton(this))
    , m_filter(new FilterBar(this))
    , m_pages(new QStackedWidget(this))
{
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    for (int tab = 0; tab < int(std::size(listOfTabs)); ++tab)
        m_tabs->addTab(QString());
    m_large->setObjectName(QStringLiteral("largeCells"));
    m_large->setCheckable(true);
    m_large->setFocusPolicy(Qt::StrongFocus);
    m_check->setObjectName(QStringLiteral("check"));
    createLists();
    arrange();
    retranslate();
    connectParts();
    showCurrent();
}

void ResourceTabs::createLists()
{
    for (const EUIItemType type : listTypes) {
        auto* const list = new ResourceList(type, m_pages);
        m_pages->addWidget(list);
        m_lists.append(list);
        connect(list, &ResourceList::applied, this,
                [this, list](SCfg_Item* item) { noteApplied(list, item); });
        connect(list, &ResourceList::filterUnwanted, m_filter, &FilterBar::remove);
        connect(list, &ResourceList::filtersUnwanted, m_filter, &FilterBar::clear);
    }
}

void ResourceTabs::connectParts()
{
    connect(m_tabs, &QTabBar::currentChanged, this, &ResourceTabs::showCurrent);
    connect(m_large, &QToolButton::toggled, this, &ResourceTabs::showCurrent);
    connect(m_filter, &FilterBar::changed, this, [this] {
        applyFilter();
        emit filterChanged();
    });
    connect(m_filter, &FilterBar::listWanted, this,
            [this] { currentList()->view()->setFocus(Qt::TabFocusReason); });
}

void ResourceTabs::arrange()
{
    auto* const top = new QWidget(this);
    auto* const bar = new FlowLayout(top);
    auto* const space = new QWidget(top);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (QWidget* part : {static_cast<QWidget*>(m_tabs), space, static_cast<QWidget*>(m_large),
                          static_cast<QWidget*>(m_check)}) {
        part->setParent(top);
        bar->addWidget(part);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(top);
    layout->addWidget(m_filter);
    layout->addWidget(m_pages, 1);
}

void ResourceTabs::retranslate()
{
    const QString names[] = {tr("Themes"), tr("Filters"), tr("Backgrounds")};
    for (int tab = 0; tab < m_tabs->count(); ++tab)
        m_tabs->setTabText(tab, names[tab]);
    m_tabs->setAccessibleName(tr("Kinds of resources"));
    m_large->setText(tr("Large pictures"));
    m_large->setToolTip(tr("Shows the filters in larger cells"));
}

int ResourceTabs::currentTab() const
{
    const int list = listOfTabs[qMax(0, m_tabs->currentIndex())];
    return list == 1 && m_large->isChecked() ? largeFilters : list;
}

void ResourceTabs::setCurrentTab(int tab)
{
    if (tabOfLists[tab] == 1)
        m_large->setChecked(tab == largeFilters);
    m_tabs->setCurrentIndex(tabOfLists[tab]);
}

ResourceList* ResourceTabs::currentList() const
{
    return m_lists.at(currentTab());
}

void ResourceTabs::showCurrent()
{
    const int tab = currentTab();
    m_large->setVisible(currentList()->kind() == eCfgItem_Filter);
    m_filter->setListType(currentList()->type());
    applyFilter();
    m_pages->setCurrentIndex(tab);
    emit currentTabChanged(tab);
}

void ResourceTabs::applyFilter()
{
    currentList()->setFilter(m_filter->filter(), m_filter->text());
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
        m_tabs->setCurrentIndex(tabOfLists[it - m_lists.cbegin()]);
    }
    if (!currentList()->isShown(guid))
        m_filter->clear();
    return currentList()->reveal(guid);
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

void ResourceTabs::setNew(const QSet<QString>& guids)
{
    for (ResourceList* list : qAsConst(m_lists))
        list->setNew(guids);
}

void ResourceTabs::reloadCatalogue(const QString& newRoot)
{
    cancelDownloads(); // all at once, so that release() waits only for the slowest
    for (ResourceList* list : qAsConst(m_lists))
        list->view()->release();
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    if (!newRoot.isEmpty())
        catalogue->setResourceSaveRootPath(newRoot);
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
        list->updateItemSize();
}

void ResourceTabs::cancelDownloads()
{
    for (ResourceList* list : qAsConst(m_lists))
        list->view()->cancelDownloads();
}

void ResourceTabs::setAppliedByClick(bool applied)
{
    m_isAppliedByClick = applied;
    for (const ResourceList* list : qAsConst(m_lists)) {
        list->view()->setApplyOn(applied ? EApplyOn::SingleClick : EApplyOn::DoubleClickOrEnter);
    }
}

SCellState ResourceTabs::stateOf(const ItemKey& item) const
{
    SCellState state;
    for (const ResourceList* list : m_lists) {
        if (list->kind() != item.kind)
            continue;
        state = list->view()->stateOf(item.guid);
        if (state.files == SCellState::Files::Downloading)
            break;
    }
    return state;
}

void ResourceTabs::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
