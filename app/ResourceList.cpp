// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ResourceList.h"

#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "records/SCfg_Item.h"

#include <QEvent>
#include <QLabel>
#include <QTimer>
#include <QUuid>
#include <QVBoxLayout>

ResourceList::ResourceList(EUIItemType type, QWidget* parent)
    : QWidget(parent)
    , m_type(type)
    , m_view(new mvThemelistview(this))
    , m_whyEmpty(new QLabel(m_view->viewport()))
    , m_marksTimer(new QTimer(this))
{
    m_marksTimer->setSingleShot(true);
    m_marksTimer->setInterval(0);
    connect(m_marksTimer, &QTimer::timeout, this, &ResourceList::refreshMarks);
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
    connect(m_view, &mvThemelistview::sigThemeItemClicked, this, &ResourceList::applied);
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
    m_view->reapplyFilter(themeType, NamePattern::escape(text));
    showWhyEmpty();
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
    if (m_themeType == MVThemeSortFilterProxyModel::favouriteThemes)
        refilter();
}

void ResourceList::setUpdatable(const QSet<QString>& guids)
{
    m_updatable = guids;
    refreshMarks();
}

void ResourceList::refreshMarks()
{
    const QString name = QStringLiteral("updateMark");
    const QVector<MVThemeItemWdg*> all = m_view->cells();
    for (MVThemeItemWdg* cell : all) {
        const SCfg_Item* const item = cell->getItem();
        auto* mark = cell->findChild<QLabel*>(name);
        if (!item || !m_updatable.contains(item->m_qsGUID)) {
            delete mark;
            continue;
        }
        if (!mark) {
            mark = new QLabel(cell);
            mark->setObjectName(name);
            mark->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
        mark->setText(tr("Update"));
        mark->adjustSize();
        mark->show();
        mark->raise();
    }
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
    // The "More>>" row, which has no GUID, is the last one.
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
    refreshMarks();
}

bool ResourceList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::Resize)
        placeWhyEmpty();
    if (watched == m_view->viewport() && event->type() == QEvent::ChildPolished
        && !m_updatable.isEmpty())
        m_marksTimer->start(); // a cell has appeared
    return QWidget::eventFilter(watched, event);
}
