// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/mvThemelistview.h"

#include "browser/CellEvents.h"
#include "browser/CellFocusMark.h"
#include "browser/CellPool.h"
#include "browser/EUIItemRole.h"
#include "browser/ListAccessible.h"
#include "browser/ListAnnouncer.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/ShownItems.h"
#include "browser/SListFilter.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "download/PreviewExchange.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "host/widgets/SkinWidget.h"

#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyle>
#include <QWheelEvent>

namespace {

constexpr QSize fallbackItemSize(136, 110);

} // namespace

mvThemelistview::mvThemelistview(QWidget* parent)
    : QListView(parent)
    , m_pAnnouncer(new ListAnnouncer(*this))
    , m_pFocusMark(new CellFocusMark(viewport()))
{
    ListAccessible::install();
    setCellsOnDemand(hostSettings().cellsOnDemand);
    if (hostSettings().showWithoutPreviews) {
        m_pShown = std::make_unique<ShownItems>(*this);
        connect(PreviewExchange::instance(), &PreviewExchange::pictureArrived, this,
                &mvThemelistview::showArrivedPicture);
        // A download may bring the pictures of other items, too.
        connect(CellEvents::instance(), &CellEvents::downloadEnded, this, [this] {
            const QVector<MVThemeItemWdg*> all = cells();
            for (MVThemeItemWdg* const cell : all)
                cell->showArrivedPictures();
        });
    }
    // A download may bring files of other items, too.
    connect(CellEvents::instance(), &CellEvents::downloadStarted, this,
            &mvThemelistview::updateMarks);
    connect(CellEvents::instance(), &CellEvents::itemApplied, this, &mvThemelistview::updateMarks);
    connect(CellEvents::instance(), &CellEvents::downloadEnded, this,
            &mvThemelistview::updateMarks);
    // The style sheet has matched them as parts of a QListView, the class until now.
    for (QScrollBar* const bar : {verticalScrollBar(), horizontalScrollBar()}) {
        style()->unpolish(bar);
        style()->polish(bar);
    }
}

mvThemelistview::~mvThemelistview()
{
    cancelDownloads(); // all at once, so that waiting for the last takes no longer
    m_pShown.reset();
    m_pPool.reset(); // the rows are removed below
}

void mvThemelistview::setUIItemType(EUIItemType type)
{
    m_eType = type;
    m_pModel = std::make_unique<QStandardItemModel>();
    m_pProxy = new MVThemeSortFilterProxyModel(this);
    m_pProxy->setSourceModel(m_pModel.get());
    m_pProxy->setKind(kindShownBy(type));
    // A row that reappeared by itself would have no widget.
    m_pProxy->setDynamicSortFilter(false);
    connect(m_pProxy, &MVThemeSortFilterProxyModel::followingFiles, this,
            &mvThemelistview::rememberPlace);
    connect(m_pProxy, &MVThemeSortFilterProxyModel::filesFollowed, this,
            &mvThemelistview::showFollowedFiles);

    m_pDelegate = new MVResourceItemDelegate(this);
    m_pDelegate->setUIItemType(type);
    readItemSize();
    connect(m_pDelegate, &MVResourceItemDelegate::sigThemeItemClicked, this,
            &mvThemelistview::sigThemeItemClicked);
    connect(m_pDelegate, &MVResourceItemDelegate::contextMenuWanted, this,
            &mvThemelistview::requestContextMenu);
    connect(m_pDelegate, &MVResourceItemDelegate::previewRequested, this,
            [this](const SCfg_Item* item) { emit sigPreviewRequested(item->m_qsGUID); });
    m_pDelegate->setCellSetUp([this](MVThemeItemWdg* cell) { setUpCell(cell); });
    connect(m_pDelegate, &MVResourceItemDelegate::progressed, m_pAnnouncer,
            &ListAnnouncer::announceProgress);
    setUpView();
}

void mvThemelistview::readItemSize()
{
    getItemSIze(m_itemSize, m_itemPadding);
    if (m_itemSize.width() < 0 || m_itemSize.height() < 0)
        m_itemSize = fallbackItemSize;
    m_pDelegate->setItemSize(m_itemSize);
    m_pDelegate->setItemPadding(
        {m_itemPadding.height(), m_itemPadding.x(), m_itemPadding.y(), m_itemPadding.width()});
}

void mvThemelistview::updateItemSize()
{
    if (!m_pDelegate)
        return;
    readItemSize();
    scheduleDelayedItemsLayout();
}

void mvThemelistview::setUpView()
{
    setModel(m_pProxy);
    setItemDelegate(m_pDelegate);
    setSpacing(0);
    setViewMode(IconMode);
    setResizeMode(Adjust);
    setDragEnabled(false);
    setEditTriggers(NoEditTriggers);
    setEditTriggers(AllEditTriggers);
    setAttribute(Qt::WA_MouseTracking);
}

void mvThemelistview::getItemSIze(QSize& size, QRect& padding)
{
    const SkinWidget* const skin = SkinWidget::instance();
    if (kindShownBy(m_eType) == eCfgItem_Resource)
        return; // no type, or a value beyond the types
    const bool isSmall = hasFilterCells(m_eType);
    size = isSmall ? skin->filterItemSize() : skin->themeItemSize();
    padding = isSmall ? skin->filterItemPadding() : skin->themeItemPadding();
}

const QVector<SCfg_Item>& mvThemelistview::getItems(EUIItemType type)
{
    static const QVector<SCfg_Item> none;
    const QVector<SCfg_Item>* const items =
        MVThemeMgr::init()->getDisplayXML().ofKind(kindShownBy(type));
    return items ? *items : none;
}

void mvThemelistview::initData(const QUuid& /*unused*/, bool /*unused*/)
{
    if (!m_pModel)
        return;
    QList<QStandardItem*> rows;
    for (const SCfg_Item& item : getItems(m_eType))
        rows.append(newItemRow(item));
    if (m_eType == UIItem_Themes && !ProductParam::text(ProductParam::moreAddress).isEmpty())
        rows.append(newRow(QString(), 0, QString()));
    m_pModel->setColumnCount(1); // or Qt inserts the column while it inserts the rows
    m_pModel->invisibleRootItem()->appendRows(rows); // the model owns them
    m_pProxy->sortAgain();
    nameMoreRow();
    updateItemState();
}

void mvThemelistview::addItem(const SCfg_Item& item)
{
    if (!m_pModel)
        return;
    m_pModel->appendRow(newItemRow(item));
    m_pProxy->sortAgain();
    if (m_pPool)
        updatePool();
    else
        ShowThemeSubWdgByOptTag(m_pModel->index(rowCount() - 1, 0));
}

QStandardItem* mvThemelistview::newItemRow(const SCfg_Item& item)
{
    QStandardItem* const row = newRow(item.m_qsGUID, item.m_nThemeType, item.m_qsName);
    if (m_updatable.contains(item.m_qsGUID))
        row->setData(true, UIItemRole_Updatable);
    if (m_new.contains(item.m_qsGUID))
        row->setData(true, UIItemRole_New);
    m_mapItems.insert(QUuid(item.m_qsGUID), row);
    return row;
}

QStandardItem* mvThemelistview::newRow(const QString& guid, int themeType, const QString& name)
{
    auto row = std::make_unique<QStandardItem>();
    row->setData(guid, UIItemRole_GUID);
    row->setData(themeType, UIItemRole_ThemeType);
    row->setData(name, UIItemRole_Name);
    row->setData(name, Qt::AccessibleTextRole);
    return row.release();
}

void mvThemelistview::reapplyFilter(int themeType, QString text)
{
    if (m_pProxy)
        m_pProxy->setFilter(themeType, MVThemeSortFilterProxyModel::ignoringCase(text));
    updateItemState();
}

void mvThemelistview::applyFilter(const SListFilter& filter)
{
    if (m_pProxy)
        m_pProxy->setFilter(filter);
    updateItemState();
}

void mvThemelistview::clear()
{
    cancelDownloads(); // all at once before waiting
    for (int row = 0; row < rowCount(); ++row) {
        if (MVThemeItemWdg* widget = itemWidget(row))
            widget->tryStopDownloadThread();
    }
    m_mapItems.clear();
    if (!m_pModel)
        return;
    // The selected widget exists until the current event is over; its item may not.
    m_pDelegate->forgetSelection();
    m_pModel->clear();
    m_pDelegate->forgetErrors();
    m_pProxy->invalidate();
}

void mvThemelistview::resetItemData()
{
    if (MVThemeItemWdg* widget = firstItemWidget())
        widget->resetItemData();
}

void mvThemelistview::adjustItem()
{
    if (MVThemeItemWdg* widget = firstItemWidget())
        widget->adjustItem();
}

void mvThemelistview::onClearSelect()
{
    if (m_pDelegate)
        m_pDelegate->onClearSelect();
}

void mvThemelistview::selFilterItemByGUID(const QUuid& uuid)
{
    QString guid = uuid.toString();
    if (guid.isEmpty())
        guid = noneEntryGuid;
    selectItem(guid, Qt::CaseInsensitive);
}

void mvThemelistview::selThemeItem(const SCfg_Item* item)
{
    if (item)
        selectItem(item->m_qsGUID, Qt::CaseSensitive);
}

void mvThemelistview::selectItem(const QString& guid, Qt::CaseSensitivity cs)
{
    for (int row = 0; row < rowCount(); ++row) {
        const QString found = m_pModel->index(row, 0).data(UIItemRole_GUID).toString();
        if (found.compare(guid, cs) != 0)
            continue;
        MVThemeItemWdg* const widget = neededWidget(row);
        SCfg_Item* const item = widget ? widget->getItem() : nullptr;
        if (!item)
            continue;
        widget->setSel(widget);
        emit sigThemeItemClicked(item);
        return;
    }
}

int mvThemelistview::rowCount() const
{
    return m_pModel ? m_pModel->rowCount() : 0;
}

void mvThemelistview::wheelEvent(QWheelEvent* event)
{
    const QPoint delta = event->angleDelta();
    if (delta.y() != 0 && qAbs(delta.y()) >= qAbs(delta.x())) {
        QScrollBar* const bar = verticalScrollBar();
        const int step = m_itemSize.height();
        bar->setValue(delta.y() < 1 ? bar->value() + step : bar->value() - step);
    }
    event->accept();
}
