// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DetailsPanel.h"

#include "catalogue/MVThemeMgr.h"
#include "ItemFacts.h"
#include "PreviewPane.h"
#include "StorageBox.h"

#include <QDateTime>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>

namespace {

/// Returns a text that changes with the file, including from missing to present.
QString stateOf(const QString& file)
{
    const QFileInfo info(file);
    return QStringLiteral("|%1|%2|%3")
        .arg(file, QString::number(info.size()),
             QString::number(info.lastModified().toMSecsSinceEpoch()));
}

} // namespace

DetailsPanel::DetailsPanel(QWidget* parent)
    : QWidget(parent)
    , m_preview(new PreviewPane(this))
    , m_name(new QLabel(this))
    , m_kind(new QLabel(this))
    , m_storage(new StorageBox(this))
    , m_tree(new QTreeWidget(this))
    , m_favourite(new QPushButton(this))
    , m_folder(new QPushButton(this))
{
    m_preview->setObjectName(QStringLiteral("largePreview"));
    m_name->setObjectName(QStringLiteral("appliedName"));
    m_name->setTextFormat(Qt::PlainText);
    m_name->setWordWrap(true);
    m_kind->setObjectName(QStringLiteral("appliedKind"));
    m_kind->setTextFormat(Qt::PlainText);
    m_kind->setWordWrap(true);
    m_tree->setObjectName(QStringLiteral("appliedFiles"));
    m_tree->setColumnCount(2);
    m_tree->setHeaderHidden(true);
    constexpr int minRows = 2;
    m_tree->setMinimumHeight(minRows * m_tree->fontMetrics().lineSpacing());
    m_tree->setTextElideMode(Qt::ElideMiddle); // both ends of a file name are informative
    m_tree->setUniformRowHeights(true);
    m_tree->setSelectionMode(QAbstractItemView::NoSelection);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    createButtons();
    arrange();
    retranslate();
    showNothing();
}

void DetailsPanel::createButtons()
{
    m_favourite->setObjectName(QStringLiteral("favourite"));
    m_folder->setObjectName(QStringLiteral("showFolder"));
    connect(m_favourite, &QPushButton::clicked, this,
            [this] { emit favouriteWanted(m_eKind, m_guid); });
    connect(m_folder, &QPushButton::clicked, this, [this] { emit folderWanted(m_folderPath); });
}

void DetailsPanel::arrange()
{
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_favourite, 1);
    buttons->addWidget(m_folder, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_preview);
    layout->addWidget(m_name);
    layout->addWidget(m_kind);
    layout->addWidget(m_storage);
    layout->addWidget(m_tree, 1);
    layout->addStretch(0); // fills the space while there is no tree
    layout->addLayout(buttons);
}

void DetailsPanel::retranslate()
{
    m_preview->setAccessibleName(tr("Preview of what is shown"));
    m_preview->setToolTip(tr("Click, or press Space, to play or stop"));
    m_tree->setAccessibleName(tr("What is used, and files"));
    m_folder->setText(tr("Show files in folder"));
}

SCfg_Item* DetailsPanel::item() const
{
    return m_guid.isEmpty() ? nullptr
                            : MVThemeMgr::init()->findItemByIDFromDisplay(m_eKind, m_guid);
}

void DetailsPanel::showItem(ECfgItemType kind, const QString& guid)
{
    m_eKind = kind;
    m_guid = guid;
    refresh();
    emit itemShown();
}

void DetailsPanel::refresh()
{
    if (SCfg_Item* shown = item())
        fill(*shown);
    else
        showNothing();
}

void DetailsPanel::showNothing()
{
    m_shownPreview.clear();
    m_preview->show(QString(), QString(), false);
    m_name->setText(tr("Nothing applied yet"));
    m_kind->setText(tr("Click a cell, or move to it with the arrow keys and press Enter. What it "
                       "lacks is downloaded first."));
    m_tree->hide();
    m_favourite->setText(tr("Add to favourites"));
    m_favourite->setEnabled(false);
    m_folder->setEnabled(false);
}

void DetailsPanel::fill(SCfg_Item& item)
{
    const ItemFacts facts(item);
    const QString preview = m_guid + stateOf(facts.thumbnail()) + stateOf(facts.animation());
    if (preview != m_shownPreview) {
        m_preview->show(facts.thumbnail(), facts.animation(), !m_motionReduced);
        m_shownPreview = preview;
    }
    m_name->setText(facts.name());
    m_kind->setText(facts.kind());
    fillTree(facts);
    m_tree->show();
    const bool favourite = MVThemeMgr::init()->isItemCollect(&item);
    m_favourite->setText(favourite ? tr("Remove favourite") : tr("Add to favourites"));
    m_favourite->setEnabled(true);
    const QVector<ItemFacts::File>& files = facts.files();
    m_folderPath = files.isEmpty() ? QString() : QFileInfo(files.constFirst().path).path();
    m_folder->setEnabled(!m_folderPath.isEmpty());
}

void DetailsPanel::fillTree(const ItemFacts& facts)
{
    const QLocale locale;
    m_tree->clear();
    const auto section = [this](const QString& title, const QString& sum) {
        auto* const top = new QTreeWidgetItem(m_tree, {title, sum}); // the tree owns it
        top->setTextAlignment(1, Qt::AlignRight);
        top->setExpanded(true);
        QFont bold = m_tree->font();
        bold.setBold(true);
        top->setFont(0, bold);
        return top;
    };
    const auto row = [](QTreeWidgetItem* top, const QString& name, const QString& fact,
                        const QString& tip) {
        auto* const line = new QTreeWidgetItem(top, {name, fact});
        line->setTextAlignment(1, Qt::AlignRight);
        line->setToolTip(0, tip);
    };
    if (!facts.used().isEmpty()) {
        QTreeWidgetItem* const top = section(tr("Uses"), locale.toString(facts.used().size()));
        for (const ItemFacts::Used& used : facts.used())
            row(top, used.name, used.kind, used.name);
    }
    QTreeWidgetItem* const top =
        section(tr("Files: %1").arg(locale.toString(facts.files().size())),
                locale.formattedDataSize(facts.totalSize(), 1, QLocale::DataSizeSIFormat));
    for (const ItemFacts::File& file : facts.files())
        row(top, file.name,
            file.present ? locale.formattedDataSize(file.size, 1, QLocale::DataSizeSIFormat)
                         : tr("missing"),
            file.path);
}

void DetailsPanel::setMotionReduced(bool reduced)
{
    m_motionReduced = reduced;
    m_preview->setPlaying(!reduced && !m_guid.isEmpty());
}

void DetailsPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    refresh();
}
