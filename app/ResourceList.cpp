// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ResourceList.h"

#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "EmptyNote.h"
#include "records/KindTable.h"
#include "records/SCfg_Item.h"

#include <QAbstractItemDelegate>
#include <QAbstractProxyModel>
#include <QEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QUuid>
#include <QVBoxLayout>

#include <algorithm>

ResourceList::ResourceList(EUIItemType type, QWidget* parent)
    : QWidget(parent)
    , m_type(type)
    , m_view(new mvThemelistview(this))
    , m_whyEmpty(new EmptyNote(m_view->viewport()))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);

    connect(m_whyEmpty, &EmptyNote::actionWanted, this, &ResourceList::removeFilter);
    m_view->viewport()->installEventFilter(this);

    m_view->setObjectName(QStringLiteral("list%1").arg(type));
    m_view->setUIItemType(type);
    m_view->setMarksShown(true);
    m_view->installEventFilter(this);
    connect(m_view, &mvThemelistview::sigThemeItemClicked, this, &ResourceList::applied);
    connect(m_view, &mvThemelistview::filesFollowed, this, &ResourceList::showWhyEmpty);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ResourceList::currentChanged);
    nameList();
    showItems();
}

ECfgItemType ResourceList::kind() const
{
    return kindShownBy(m_type);
}

void ResourceList::nameList()
{
    switch (m_type) {
    case UIItem_Themes:
        m_view->setAccessibleName(tr("Themes"));
        return;
    case UIItem_Filters:
    case UIItem_FiltersLarge:
        m_view->setAccessibleName(tr("Filters"));
        return;
    case UIItem_BgMaterial:
        m_view->setAccessibleName(tr("Backgrounds"));
        return;
    case UIItem_None:
        return;
    }
}

void ResourceList::showItems()
{
    m_view->initData(QUuid(), false);
    showWhyEmpty();
}

void ResourceList::setFilter(const SListFilter& filter, const QString& text)
{
    m_text = text;
    if (filter == m_filter)
        return;
    m_filter = filter;
    refilter();
}

void ResourceList::refilter()
{
    m_view->applyFilter(m_filter);
    showWhyEmpty();
}

void ResourceList::updateItemSize()
{
    m_view->updateItemSize();
    shareWidth();
}

QString ResourceList::currentItem() const
{
    return m_view->currentIndex().data(UIItemRole_GUID).toString();
}

/// The cells collect only items that are on disk; a wish may come before the download.
bool ResourceList::toggleFavouriteBy(const QKeyEvent& key)
{
    const bool isKey = key.key() == Qt::Key_F && key.modifiers() == Qt::NoModifier;
    if (isKey && !currentItem().isEmpty() && !KindTable::of(kind()).exportName.isEmpty())
        emit favouriteWanted(kind(), currentItem());
    return isKey;
}

int ResourceList::shownItems() const
{
    return m_view->model()->rowCount();
}

void ResourceList::refreshFavourites()
{
    const QVector<MVThemeItemWdg*> all = m_view->cells();
    for (MVThemeItemWdg* cell : all) {
        auto* const face = cell->findChild<MVThemeItemSubwdgt_Preview*>();
        if (face && !cell->underMouse())
            face->doEvent_Leave();
    }
    if (m_filter.onlyFavourites)
        refilter();
}

void ResourceList::setUpdatable(const QSet<QString>& guids)
{
    m_view->setUpdatable(guids);
    m_view->updateMarks();
    if (m_filter.onlyOutdated)
        refilter();
}

void ResourceList::setNew(const QSet<QString>& guids)
{
    m_view->setNew(guids);
    if (m_filter.order == EListOrder::Newest)
        refilter();
}

bool ResourceList::isShown(const QString& guid) const
{
    return m_view->shownRow(guid).isValid();
}

MVThemeItemWdg* ResourceList::reveal(const QString& guid)
{
    const QModelIndex row = m_view->shownRow(guid);
    if (!row.isValid())
        return nullptr;
    m_view->setCurrentIndex(row);
    m_view->scrollTo(row);
    return m_view->cell(guid);
}

bool ResourceList::isAnyItemShown() const
{
    // The "More>>" row, which has no GUID, is the last one.
    return !m_view->model()->index(0, 0).data(UIItemRole_GUID).toString().isEmpty();
}

bool ResourceList::wouldShowAny(const SListFilter& filter) const
{
    MVThemeSortFilterProxyModel rows(nullptr);
    rows.setKind(kind());
    rows.setSourceModel(qobject_cast<QAbstractProxyModel*>(m_view->model())->sourceModel());
    rows.setFilter(filter);
    return !rows.index(0, 0).data(UIItemRole_GUID).toString().isEmpty();
}

void ResourceList::showWhyEmpty()
{
    const bool isEmpty = !isAnyItemShown();
    m_whyEmpty->setVisible(isEmpty);
    if (!isEmpty)
        return;
    if (m_view->isLookingAtFiles()) {
        m_whyEmpty->setTexts(tr("Looking for what is on this computer…"), QString());
        placeWhyEmpty();
        return;
    }
    const QVector<FilterPart> parts = FilterParts::of(m_filter);
    const auto inTheWay = std::find_if(parts.cbegin(), parts.cend(), [this](FilterPart part) {
        return wouldShowAny(FilterParts::without(m_filter, part));
    });
    m_isOnePartInTheWay = inTheWay != parts.cend();
    if (m_isOnePartInTheWay) {
        m_partInTheWay = *inTheWay;
        explain(*inTheWay);
    } else if (wouldShowAny(SListFilter())) {
        m_whyEmpty->setTexts(tr("Nothing passes all of these filters"), tr("Remove all filters"));
    } else {
        m_whyEmpty->setTexts(
            tr("Nothing is here yet\nResources come with the first check of the server"),
            QString());
    }
    placeWhyEmpty();
}

/// Says that one condition, whose removal fills the list, is in the way.
void ResourceList::explain(FilterPart part)
{
    SListFilter only;
    switch (part) {
    case FilterPart::Words:
        m_whyEmpty->setTexts(tr("No name contains “%1”").arg(m_text.trimmed()),
                             tr("Clear the search"));
        return;
    case FilterPart::ThemeType:
        m_whyEmpty->setTexts(tr("No themes of this type"), tr("Show all types"));
        return;
    case FilterPart::Favourites:
        only.onlyFavourites = true;
        m_whyEmpty->setTexts(wouldShowAny(only)
                                 ? tr("None of these is a favorite")
                                 : tr("No favorites yet\nPoint at a cell and press its heart, or "
                                      "press F"),
                             tr("Show more than favorites"));
        return;
    case FilterPart::OnDisk:
        m_whyEmpty->setTexts(tr("None of these is on this computer yet"),
                             tr("Show what can be downloaded"));
        return;
    case FilterPart::Outdated:
        m_whyEmpty->setTexts(tr("No updates are available"), tr("Show all items"));
        return;
    }
}

void ResourceList::removeFilter()
{
    if (m_isOnePartInTheWay)
        emit filterUnwanted(m_partInTheWay);
    else
        emit filtersUnwanted();
    m_view->setFocus(); // the button is gone
}

void ResourceList::placeWhyEmpty()
{
    constexpr int margin = 24;
    m_whyEmpty->setGeometry(m_view->viewport()->rect().adjusted(margin, margin, -margin, -margin));
}

/// Lets as many columns as there is room for share the whole width.
void ResourceList::shareWidth()
{
    const QSize cell = m_view->itemDelegate()->sizeHint({}, {});
    // A list always keeps room for its scroll bar.
    const int bar = m_view->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr,
                                                 m_view->verticalScrollBar());
    const int width = m_view->maximumViewportSize().width() - bar - 1;
    const int columns = cell.width() > 0 ? width / cell.width() : 0;
    m_view->setGridSize(columns > 0 ? QSize(width / columns, cell.height()) : QSize());
}

void ResourceList::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    nameList();
    showWhyEmpty();
}

bool ResourceList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::Resize) {
        placeWhyEmpty();
        shareWidth();
    }
    if (watched == m_view && event->type() == QEvent::KeyPress
        && toggleFavouriteBy(*static_cast<QKeyEvent*>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}
