#include "ResourceList.h"

#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "records/SCfg_Item.h"

#include <QAbstractProxyModel>
#include <QEvent>
#include <QLabel>
#include <QRegExp>
#include <QScrollBar>
#include <QUuid>
#include <QVBoxLayout>

ResourceList::ResourceList(EUIItemType type, QWidget* parent)
    : QWidget(parent)
    , m_type(type)
    , m_view(new mvThemelistview(this))
    , m_whyEmpty(new QLabel(m_view->viewport()))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);

    m_whyEmpty->setObjectName(QStringLiteral("whyEmpty"));
    m_whyEmpty->setAlignment(Qt::AlignCenter);
    m_whyEmpty->setWordWrap(true);
    m_whyEmpty->setTextFormat(Qt::PlainText);
    m_whyEmpty->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_view->viewport()->installEventFilter(this);

    m_view->setObjectName(QStringLiteral("list%1").arg(type));
    m_view->setUIItemType(type);
    connect(m_view, &mvThemelistview::sigThemeItemClicked, this, [this](SCfg_Item* item) {
        m_applied = item->m_qsGUID;
        if (!m_marking)
            emit applied(item);
    });
    nameList();
    showItems();
}

ECfgItemType ResourceList::kind() const
{
    switch (m_type) {
    case UIItem_Filters:
    case UIItem_FiltersLarge:
        return eCfgItem_Filter;
    case UIItem_BgMaterial:
        return eCfgItem_BgMaterial;
    case UIItem_Themes:
    case UIItem_None:
        break;
    }
    return eCfgItem_Theme;
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
    applyFilter(m_themeType, m_text);
}

void ResourceList::setFilter(int themeType, const QString& text)
{
    const int type =
        m_type == UIItem_Themes ? themeType : int(MVThemeSortFilterProxyModel::allThemes);
    if (type == m_themeType && text == m_text)
        return;
    m_themeType = type;
    m_text = text;
    refilter();
}

void ResourceList::refilter()
{
    applyFilter(m_themeType, m_text);
}

void ResourceList::applyFilter(int themeType, const QString& text)
{
    m_view->reapplyFilter(themeType, QRegExp::escape(text));
    // It may have been applied elsewhere while a filter hid it here.
    const MVThemeItemWdg* const applied = m_applied.isEmpty() ? nullptr : cell(m_applied);
    if (applied && !applied->isChecked())
        markApplied(m_applied);
    showWhyEmpty();
}

int ResourceList::shownItems() const
{
    return m_view->model()->rowCount();
}

QVector<MVThemeItemWdg*> ResourceList::cells() const
{
    // The rows that a filter hides can have cells too: those that still download.
    const auto* const proxy = qobject_cast<const QAbstractProxyModel*>(m_view->model());
    const QAbstractItemModel* const rows = proxy->sourceModel();
    QVector<MVThemeItemWdg*> found;
    for (int row = 0; row < rows->rowCount(); ++row) {
        const QVariant widget = rows->index(row, 0).data(UIItemRole_Widget);
        auto* const cell = qobject_cast<MVThemeItemWdg*>(widget.value<QObject*>());
        if (cell && cell->getItem())
            found.append(cell);
    }
    return found;
}

MVThemeItemWdg* ResourceList::cell(const QString& guid) const
{
    const QVector<MVThemeItemWdg*> all = cells();
    const auto it = std::find_if(all.cbegin(), all.cend(), [&](const MVThemeItemWdg* cell) {
        return cell->getItem()->m_qsGUID == guid;
    });
    return it == all.cend() ? nullptr : *it;
}

void ResourceList::markApplied(const QString& guid)
{
    m_applied = guid;
    const MVThemeItemWdg* const wanted = guid.isEmpty() ? nullptr : cell(guid);
    m_marking = true;
    if (wanted)
        m_view->selThemeItem(wanted->getItem());
    else
        m_view->onClearSelect();
    m_marking = false;
}

void ResourceList::refreshFavourites()
{
    const QVector<MVThemeItemWdg*> all = cells();
    for (MVThemeItemWdg* cell : all) {
        auto* const face = cell->findChild<MVThemeItemSubwdgt_Preview*>();
        if (face && !cell->underMouse())
            face->doEvent_Leave();
    }
    if (m_themeType == MVThemeSortFilterProxyModel::favouriteThemes)
        refilter();
}

void ResourceList::release()
{
    m_kept = Kept();
    m_kept.scroll = m_view->verticalScrollBar()->value();
    m_kept.current = m_view->currentIndex().data(UIItemRole_GUID).toString();
    const QVector<MVThemeItemWdg*> all = cells();
    for (const MVThemeItemWdg* cell : all) {
        if (!cell->isDownloading())
            continue;
        m_kept.downloads.append(cell->getItem()->m_qsGUID);
        if (cell->isLastChoice())
            m_kept.lastChoice = cell->getItem()->m_qsGUID;
    }
    m_view->clear();
}

void ResourceList::refill()
{
    // All rows first: a cell that goes on downloading does so behind a filter too.
    m_view->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    m_view->initData(QUuid(), false);
    for (const QString& guid : qAsConst(m_kept.downloads)) {
        MVThemeItemWdg* const downloading = cell(guid);
        if (downloading && guid == m_kept.lastChoice)
            downloading->doApplyTheme();
        else if (downloading)
            downloading->resumeDownload();
    }
    markApplied(m_applied);
    refilter();
    makeCurrent(m_kept.current);
    m_view->doItemsLayout();
    m_view->verticalScrollBar()->setValue(m_kept.scroll);
}

/// Without scrolling to it: also a list that is not visible keeps its place.
void ResourceList::makeCurrent(const QString& guid)
{
    const QModelIndex row = shownRow(guid);
    if (!row.isValid())
        return;
    m_view->setAutoScroll(false);
    m_view->setCurrentIndex(row);
    m_view->setAutoScroll(true);
}

QModelIndex ResourceList::shownRow(const QString& guid) const
{
    const QAbstractItemModel* const rows = m_view->model();
    const QModelIndexList found =
        rows->match(rows->index(0, 0), UIItemRole_GUID, guid, 1, Qt::MatchExactly);
    return guid.isEmpty() || found.isEmpty() ? QModelIndex() : found.constFirst();
}

MVThemeItemWdg* ResourceList::reveal(const QString& guid)
{
    const QModelIndex row = shownRow(guid);
    if (!row.isValid())
        return nullptr;
    m_view->setCurrentIndex(row);
    m_view->scrollTo(row);
    return cell(guid);
}

void ResourceList::cancelDownloads()
{
    const QVector<MVThemeItemWdg*> all = cells();
    for (MVThemeItemWdg* cell : all)
        cell->cancelDownload();
}

bool ResourceList::isDownloading() const
{
    const QVector<MVThemeItemWdg*> all = cells();
    return std::any_of(all.cbegin(), all.cend(),
                       [](const MVThemeItemWdg* cell) { return cell->isDownloading(); });
}

QString ResourceList::whyEmpty() const
{
    if (!m_text.isEmpty())
        return tr("No name contains “%1”").arg(m_text);
    if (m_themeType == MVThemeSortFilterProxyModel::favouriteThemes)
        return tr("No favourites yet\nPoint at a theme and press its heart, or press F");
    if (m_themeType != MVThemeSortFilterProxyModel::allThemes)
        return tr("No themes of this type");
    return tr("Nothing is here yet\nResources come with the first check of the server");
}

void ResourceList::showWhyEmpty()
{
    // The "More>>" row, which has no GUID, is the last.
    const bool anyItem = !m_view->model()->index(0, 0).data(UIItemRole_GUID).toString().isEmpty();
    m_whyEmpty->setVisible(!anyItem);
    m_whyEmpty->setText(whyEmpty());
    placeWhyEmpty();
}

void ResourceList::placeWhyEmpty()
{
    constexpr int margin = 24;
    m_whyEmpty->setGeometry(m_view->viewport()->rect().adjusted(margin, margin, -margin, -margin));
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
    if (watched == m_view->viewport() && event->type() == QEvent::Resize)
        placeWhyEmpty();
    return QWidget::eventFilter(watched, event);
}
