// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrowserFloor.h"

#include "browser/EUIItemRole.h"
#include "BrowserBareForms.h"
#include "catalogue/MVThemeMgr.h"
#include "host/widgets/SkinWidget.h"

#include <QRegularExpression>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStyle>
#include <QStyledItemDelegate>

#include <memory>

namespace {

class BareDelegate : public QStyledItemDelegate
{
public:
    explicit BareDelegate(QObject* parent)
        : QStyledItemDelegate(parent)
    {
        const SkinWidget* const skin = SkinWidget::instance();
        const QRect padding = skin->themeItemPadding(); // top, right, bottom, left
        m_cell = skin->themeItemSize()
            + QSize(padding.y() + padding.height(), padding.x() + padding.width());
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        Q_UNUSED(option)
        Q_UNUSED(index)
        return new BareMVThemeItemWdg(parent);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        Q_UNUSED(option)
        Q_UNUSED(index)
        return m_cell;
    }

private:
    QSize m_cell;
};

bool floats(const QWidget& widget)
{
    const QString name = widget.objectName();
    return name == QLatin1String("frmBtns_theme") || name == QLatin1String("frmNetError")
        || name == QLatin1String("lblCur");
}

QString described(const QWidget& widget)
{
    const QRect place = widget.geometry();
    const QRect contents = widget.contentsRect();
    return QStringLiteral("%1 at %2,%3 sized %4x%5, contents %6x%7, font %8")
        .arg(widget.objectName())
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height())
        .arg(contents.width())
        .arg(contents.height())
        .arg(widget.font().key());
}

} // namespace

BaremvThemelistview::BaremvThemelistview()
    : m_shown(new QSortFilterProxyModel(this))
{
    for (QScrollBar* const bar : {verticalScrollBar(), horizontalScrollBar()}) {
        style()->unpolish(bar);
        style()->polish(bar);
    }
    m_shown->setSourceModel(&m_rows);
    m_shown->setDynamicSortFilter(false);
    setModel(m_shown);
    setItemDelegate(new BareDelegate(this));
    setSpacing(0);
    setViewMode(IconMode);
    setResizeMode(Adjust);
    setDragEnabled(false);
    setEditTriggers(AllEditTriggers);
    setAttribute(Qt::WA_MouseTracking);
}

void BaremvThemelistview::fill()
{
    for (const SCfg_Item& item : std::as_const(MVThemeMgr::init()->getThemes_Display())) {
        auto row = std::make_unique<QStandardItem>();
        row->setData(item.m_qsGUID, UIItemRole_GUID);
        row->setData(item.m_nThemeType, UIItemRole_ThemeType);
        row->setData(item.m_qsName, UIItemRole_Name);
        m_rows.appendRow(row.release()); // the model owns it
    }
    for (int row = 0; row < m_shown->rowCount(); ++row)
        openPersistentEditor(m_shown->index(row, 0));
}

QString BrowserFloor::styleSheet(const QString& skin)
{
    // Matches class names, but neither object names such as "#MVThemeItemWdgBg" nor parts of a
    // path.
    static const QRegularExpression classNames(
        QStringLiteral("(?<![#/.\\w-])(mvThemelistview|MVThemeItemWdg|MVThemeItemSubwdgt_Preview|"
                       "MVThemePreviewFrm|ThumbFrame|ElidedLabel|MovieLabel)\\b"));
    return QString(skin).replace(classNames, QStringLiteral("Bare\\1"));
}

QStringList BrowserFloor::layoutOf(const QWidget& cell)
{
    if (!cell.isVisible() || floats(cell))
        return {};
    QStringList lines = {described(cell)};
    const QList<QWidget*> children =
        cell.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* const child : children)
        lines += layoutOf(*child);
    return lines;
}
