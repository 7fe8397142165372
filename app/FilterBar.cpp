// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FilterBar.h"

#include "catalogue/MVThemeMgr.h"
#include "FlowLayout.h"
#include "NamedComboBox.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent)
    , m_search(new QLineEdit(this))
    , m_types(new NamedComboBox(this))
    , m_favourites(new QToolButton(this))
    , m_onDisk(new QToolButton(this))
    , m_outdated(new QToolButton(this))
    , m_order(new NamedComboBox(this))
{
    m_search->setObjectName(QStringLiteral("search"));
    m_types->setObjectName(QStringLiteral("themeType"));
    m_favourites->setObjectName(QStringLiteral("onlyFavourites"));
    m_onDisk->setObjectName(QStringLiteral("onlyOnDisk"));
    m_outdated->setObjectName(QStringLiteral("onlyOutdated"));
    m_order->setObjectName(QStringLiteral("order"));
    createParts();
    retranslate();
    connect(m_search, &QLineEdit::textChanged, this, &FilterBar::changed);
    for (const QComboBox* box : {m_types, m_order}) {
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &FilterBar::changed);
    }
    for (const QToolButton* button : {m_favourites, m_onDisk, m_outdated})
        connect(button, &QToolButton::toggled, this, &FilterBar::changed);
}

void FilterBar::createParts()
{
    m_search->setClearButtonEnabled(true);
    constexpr int margin = 3; // as in the buttons beside it
    m_search->setTextMargins(margin, 0, margin, 0);
    m_search->installEventFilter(this);
    const int types[] = {MVThemeSortFilterProxyModel::allThemes, 0,
                         MVThemeMgr::init()->Themetype(QStringLiteral("festivals")),
                         MVThemeMgr::init()->Themetype(QStringLiteral("travel")),
                         MVThemeMgr::init()->Themetype(QStringLiteral("banquets"))};
    for (const int type : types)
        m_types->addItem(QString(), type);
    for (const EListOrder order :
         {EListOrder::Published, EListOrder::Name, EListOrder::Newest, EListOrder::Size})
        m_order->addItem(QString(), static_cast<int>(order));
    for (QComboBox* box : {m_types, m_order})
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* const layout = new FlowLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_types);
    for (QToolButton* button : {m_favourites, m_onDisk, m_outdated}) {
        button->setCheckable(true);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        layout->addWidget(button);
    }
    layout->addWidget(m_order);
}

void FilterBar::retranslate()
{
    const QString types[] = {tr("All types"), tr("Others"), tr("Festivals"), tr("Travel"),
                             tr("Banquets")};
    for (int type = 0; type < m_types->count(); ++type)
        m_types->setItemText(type, types[type]);
    m_types->setAccessibleName(tr("Theme type"));
    m_search->setPlaceholderText(tr("Search (Ctrl+F)"));
    m_search->setAccessibleName(tr("Search by name"));
    m_favourites->setText(tr("Favorites"));
    m_favourites->setToolTip(tr("Shows only your favorites"));
    m_onDisk->setText(tr("Downloaded"));
    m_onDisk->setToolTip(tr("Shows only what is ready on this computer"));
    m_outdated->setText(tr("Updates"));
    m_outdated->setToolTip(tr("Shows only what can be updated"));
    const QString orders[] = {tr("As published"), tr("By name"), tr("Newest first"),
                              tr("Largest first")};
    for (int order = 0; order < m_order->count(); ++order)
        m_order->setItemText(order, orders[order]);
    m_order->setAccessibleName(tr("Order"));
    nameClearButton();
    makeRoomForSearch();
}

/// Keeps the field wide enough for its placeholder, and for words to be typed, but near the other
/// controls in a wide window.
void FilterBar::makeRoomForSearch()
{
    const QFontMetrics metrics = m_search->fontMetrics();
    m_search->setMinimumWidth(metrics.horizontalAdvance(m_search->placeholderText())
                              + 2 * metrics.height());
    constexpr int mostLetters = 60;
    m_search->setMaximumWidth(mostLetters * metrics.averageCharWidth());
}

/// Qt creates the button without a name.
void FilterBar::nameClearButton()
{
    auto* const clear = m_search->findChild<QAbstractButton*>();
    if (clear)
        clear->setAccessibleName(tr("Clear the search"));
}

SListFilter FilterBar::filter() const
{
    SListFilter filter;
    filter.words = SearchWords(m_search->text());
    if (m_listType == UIItem_Themes)
        filter.themeType = themeType();
    filter.onlyFavourites = m_favourites->isChecked();
    filter.onlyOnDisk = m_onDisk->isChecked();
    filter.onlyOutdated = m_outdated->isChecked();
    filter.order = order();
    return filter;
}

QString FilterBar::text() const
{
    return m_search->text();
}

int FilterBar::themeType() const
{
    return m_types->currentData().toInt();
}

void FilterBar::setThemeType(int type)
{
    m_types->setCurrentIndex(qMax(0, m_types->findData(type)));
}

EListOrder FilterBar::order() const
{
    return static_cast<EListOrder>(m_order->currentData().toInt());
}

void FilterBar::setOrder(EListOrder order)
{
    m_order->setCurrentIndex(qMax(0, m_order->findData(static_cast<int>(order))));
}

void FilterBar::setListType(EUIItemType type)
{
    m_listType = type;
    m_types->setVisible(type == UIItem_Themes);
}

void FilterBar::remove(FilterPart part)
{
    switch (part) {
    case FilterPart::Words:
        m_search->clear();
        break;
    case FilterPart::ThemeType:
        m_types->setCurrentIndex(0);
        break;
    case FilterPart::Favourites:
        m_favourites->setChecked(false);
        break;
    case FilterPart::OnDisk:
        m_onDisk->setChecked(false);
        break;
    case FilterPart::Outdated:
        m_outdated->setChecked(false);
        break;
    }
}

void FilterBar::clear()
{
    {
        const QSignalBlocker once(this);
        const QVector<FilterPart> parts = FilterParts::of(filter());
        for (const FilterPart part : parts)
            remove(part);
    }
    emit changed();
}

void FilterBar::startSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void FilterBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        makeRoomForSearch();
}

bool FilterBar::eventFilter(QObject* watched, QEvent* event)
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
        emit listWanted();
        return true;
    default:
        return false;
    }
}
