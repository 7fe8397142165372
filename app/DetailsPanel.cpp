// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DetailsPanel.h"

#include "catalogue/MVThemeMgr.h"
#include "FlowLayout.h"
#include "ItemFacts.h"
#include "PreviewPane.h"
#include "StateText.h"
#include "StorageBox.h"
#include "ToolTip.h"

#include <QCheckBox>
#include <QDateTime>
#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

/// Returns a text that changes with the file, including from missing to present.
QString stateOf(const QString& file)
{
    const QFileInfo info(file);
    return QStringLiteral("|%1|%2|%3")
        .arg(file, QString::number(info.size()),
             QString::number(info.lastModified().toMSecsSinceEpoch()));
}

/// Appends a bold section to the tree, which owns it.
QTreeWidgetItem* newSection(QTreeWidget* tree, const QString& title, const QString& sum)
{
    auto* const top = new QTreeWidgetItem(tree, {title, sum});
    top->setTextAlignment(1, Qt::AlignRight);
    top->setExpanded(true);
    QFont bold = tree->font();
    bold.setBold(true);
    top->setFont(0, bold);
    return top;
}

void addRow(QTreeWidgetItem* section, const QString& name, const QString& fact, const QString& tip)
{
    auto* const line = new QTreeWidgetItem(section, {name, fact}); // the section owns it
    line->setTextAlignment(1, Qt::AlignRight);
    line->setToolTip(0, ToolTip::wrapped(tip));
}

} // namespace

DetailsPanel::DetailsPanel(QWidget* parent)
    : QWidget(parent)
    , m_preview(new PreviewPane(this))
    , m_name(new QLabel(this))
    , m_kind(new QLabel(this))
    , m_storage(new StorageBox(this))
    , m_tree(new QTreeWidget(this))
    , m_fileNames(new QCheckBox(this))
    , m_apply(new QPushButton(this))
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
    m_apply->setObjectName(QStringLiteral("applyShown"));
    connect(m_apply, &QPushButton::clicked, this, [this] { emit applyWanted(m_eKind, m_guid); });
    m_favourite->setObjectName(QStringLiteral("favourite"));
    m_folder->setObjectName(QStringLiteral("showFolder"));
    m_fileNames->setObjectName(QStringLiteral("fileNames"));
    connect(m_fileNames, &QCheckBox::toggled, this, &DetailsPanel::refresh);
    connect(m_favourite, &QPushButton::clicked, this,
            [this] { emit favouriteWanted(m_eKind, m_guid); });
    connect(m_folder, &QPushButton::clicked, this, [this] { emit folderWanted(m_folderPath); });
}

void DetailsPanel::arrange()
{
    auto* const buttons = new QWidget(this);
    auto* const row = new FlowLayout(buttons);
    for (QPushButton* button : {m_apply, m_favourite, m_folder}) {
        button->setParent(buttons);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        row->addWidget(button);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_preview);
    layout->addWidget(m_name);
    layout->addWidget(m_kind);
    layout->addWidget(m_storage);
    layout->addWidget(m_tree, 1);
    layout->addWidget(m_fileNames, 0, Qt::AlignLeading);
    layout->addStretch(0); // fills the space while there is no tree
    layout->addWidget(buttons);
}

void DetailsPanel::retranslate()
{
    m_preview->setAccessibleName(tr("Preview of what is shown"));
    m_preview->setToolTip(tr("Click, or press Space, to play or stop"));
    m_tree->setAccessibleName(tr("What is used, and files"));
    m_tree->setHeaderLabels({tr("Name"), tr("Kind or size")}); // spoken, not shown
    m_fileNames->setText(tr("Show file names"));
    m_apply->setText(tr("Apply"));
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
    m_fileNames->hide();
    m_apply->hide();
    m_favourite->setText(tr("Add to favorites"));
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
    m_fileNames->show();
    m_apply->setVisible(!(key() == m_applied));
    const bool favourite = MVThemeMgr::init()->isItemCollect(&item);
    m_favourite->setText(favourite ? tr("Remove favorite") : tr("Add to favorites"));
    m_favourite->setEnabled(true);
    const QVector<ItemFacts::File>& files = facts.files();
    m_folderPath = files.isEmpty() ? QString() : QFileInfo(files.constFirst().path).path();
    m_folder->setEnabled(!m_folderPath.isEmpty());
}

void DetailsPanel::fillTree(const ItemFacts& facts)
{
    m_tree->clear();
    if (!facts.used().isEmpty()) {
        QTreeWidgetItem* const top =
            newSection(m_tree, tr("Uses"), QLocale().toString(facts.used().size()));
        for (const ItemFacts::Used& used : facts.used())
            addRow(top, used.name, used.kind, used.name);
    }
    addFiles(facts);
}

void DetailsPanel::addFiles(const ItemFacts& facts)
{
    QTreeWidgetItem* const top =
        newSection(m_tree, tr("Files: %1").arg(QLocale().toString(facts.files().size())),
                   StateText::size(facts.totalSize()));
    for (const ItemFacts::File& file : facts.files()) {
        addRow(top, m_fileNames->isChecked() ? file.name : file.label,
               file.present ? StateText::size(file.size) : tr("missing"), file.path);
    }
}

void DetailsPanel::setMotionReduced(bool reduced)
{
    m_motionReduced = reduced;
    m_preview->setPlaying(!reduced && !m_guid.isEmpty());
}

void DetailsPanel::setApplied(const ItemKey& item)
{
    m_applied = item;
    m_apply->setVisible(!m_guid.isEmpty() && !(key() == m_applied));
}

void DetailsPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    refresh();
}
