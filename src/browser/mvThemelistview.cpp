#include "browser/mvThemelistview.h"

#include "browser/CellFocusMark.h"
#include "browser/EUIItemRole.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "host/ProductParam.h"
#include "host/widgets/SkinWidget.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLayout>
#include <QRegExp>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyle>
#include <QWheelEvent>

namespace {

constexpr QSize fallbackItemSize(136, 110);
constexpr int maxShownOneByOne = 8; // cells
constexpr int maxLosses = 4;        // cells in succession

/// Performs at once what the parts of a new cell have asked Qt to do later, and removes the
/// requests. Qt compares each one with all pending ones, so those of a thousand cells would take
/// longer than the cells themselves.
void settleRequests(QWidget* cell)
{
    const QList<QWidget*> parts = QList<QWidget*>{cell} + cell->findChildren<QWidget*>();
    for (QWidget* const part : parts) {
        part->ensurePolished();
        if (part->layout() && part->isVisible())
            part->layout()->activate();
    }
    for (QWidget* const part : parts) {
        for (const auto request :
             {QEvent::PolishRequest, QEvent::LayoutRequest, QEvent::UpdateLater})
            QCoreApplication::removePostedEvents(part, request);
    }
}

} // namespace

mvThemelistview::mvThemelistview(QWidget* parent)
    : QListView(parent)
    , m_pFocusMark(new CellFocusMark(viewport()))
{
    // The style sheet has matched them as parts of a QListView, the class until now.
    for (QScrollBar* const bar : {verticalScrollBar(), horizontalScrollBar()}) {
        style()->unpolish(bar);
        style()->polish(bar);
    }
}

mvThemelistview::~mvThemelistview()
{
    cancelDownloads(); // all at once, so that waiting for the last takes no longer
}

void mvThemelistview::setUIItemType(EUIItemType type)
{
    m_eType = type;
    m_pModel = std::make_unique<QStandardItemModel>();
    m_pProxy = new MVThemeSortFilterProxyModel(this);
    m_pProxy->setSourceModel(m_pModel.get());
    // A row that reappeared by itself would have no widget.
    m_pProxy->setDynamicSortFilter(false);

    m_pDelegate = new MVResourceItemDelegate(this);
    m_pDelegate->setUIItemType(type);
    readItemSize();
    connect(m_pDelegate, &MVResourceItemDelegate::sigThemeItemClicked, this,
            &mvThemelistview::sigThemeItemClicked);
    connect(m_pDelegate, &MVResourceItemDelegate::contextMenuWanted, this,
            &mvThemelistview::contextMenuWanted);
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
    for (const SCfg_Item& item : getItems(m_eType))
        appendItem(item);
    if (m_eType == UIItem_Themes && !ProductParam::text(ProductParam::moreAddress).isEmpty())
        appendRow(QString(), 0, QString());
    nameMoreRow();
    updateItemState();
}

void mvThemelistview::addItem(const SCfg_Item& item)
{
    if (!m_pModel)
        return;
    appendItem(item);
    openPersistentEditor(m_pProxy->index(m_pProxy->rowCount() - 1, 0));
}

void mvThemelistview::appendItem(const SCfg_Item& item)
{
    appendRow(item.m_qsGUID, item.m_nThemeType, item.m_qsName);
    m_mapItems.insert(QUuid(item.m_qsGUID), m_pModel->item(m_pModel->rowCount() - 1));
}

void mvThemelistview::appendRow(const QString& guid, int themeType, const QString& name)
{
    auto row = std::make_unique<QStandardItem>();
    row->setData(guid, UIItemRole_GUID);
    row->setData(themeType, UIItemRole_ThemeType);
    row->setData(name, UIItemRole_Name);
    row->setData(name, Qt::AccessibleTextRole);
    m_pModel->appendRow(row.release()); // the model owns it
}

void mvThemelistview::updateItemState()
{
    if (!m_pProxy)
        return;
    QModelIndexList missing;
    for (int row = 0; row < m_pProxy->rowCount(); ++row) {
        const QModelIndex index = m_pProxy->index(row, 0);
        if (!isPersistentEditorOpen(index))
            missing.append(index);
    }
    int losses = missing.size() > maxShownOneByOne ? 0 : maxLosses;
    for (const QModelIndex& index : std::as_const(missing)) {
        QElapsedTimer clock;
        clock.start();
        openPersistentEditor(index);
        QWidget* const cell = indexWidget(index);
        if (losses == maxLosses || !cell)
            continue;
        // Settling saves three quarters of the time of 2,000 cells. But while Qt delivers a posted
        // event, such as to a queued slot that calls this, removed requests stay in its queue, and
        // searching for them makes the same cells take four times as long. No public function tells
        // whether Qt is doing that, but settling then takes longer than creating the cell.
        const qint64 opened = clock.nsecsElapsed();
        clock.start();
        settleRequests(cell);
        losses = clock.nsecsElapsed() < opened ? 0 : losses + 1;
    }
    viewport()->update();
}

void mvThemelistview::reapplyFilter(int themeType, QString text)
{
    if (m_pProxy) {
        m_pProxy->setThemeType(themeType);
        m_pProxy->setFilterRole(UIItemRole_Name);
        m_pProxy->setFilterRegExp(QRegExp(text, Qt::CaseInsensitive, QRegExp::RegExp));
    }
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
        MVThemeItemWdg* const widget = itemWidget(row);
        SCfg_Item* const item = widget ? widget->getItem() : nullptr;
        if (!item || item->m_qsGUID.compare(guid, cs) != 0)
            continue;
        widget->setSel(widget);
        emit sigThemeItemClicked(item);
        return;
    }
}

void mvThemelistview::ShowThemeSubWdgByOptTag(const QModelIndex& index)
{
    openPersistentEditor(m_pProxy->mapFromSource(index));
}

MVThemeItemWdg* mvThemelistview::itemWidget(int row) const
{
    return itemWidget(m_pModel->index(row, 0));
}

MVThemeItemWdg* mvThemelistview::itemWidget(const QModelIndex& index)
{
    return qobject_cast<MVThemeItemWdg*>(index.data(UIItemRole_Widget).value<QObject*>());
}

MVThemeItemWdg* mvThemelistview::firstItemWidget() const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (MVThemeItemWdg* widget = itemWidget(row))
            return widget;
    }
    return nullptr;
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
