// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProjectDialog.h"

#include "StateText.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QStringList>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

ProjectDialog::ProjectDialog(ItemUpdates& updates, const QString& name,
                             QVector<ProjectFile::Item> items, QWidget* parent)
    : QDialog(parent)
    , m_updates(updates)
    , m_name(name)
    , m_written(std::move(items))
    , m_items(m_written)
    , m_summary(new QLabel(this))
    , m_tree(new QTreeWidget(this))
    , m_buttons(new QDialogButtonBox(this))
    , m_download(m_buttons->addButton(QString(), QDialogButtonBox::AcceptRole))
    , m_close(m_buttons->addButton(QString(), QDialogButtonBox::RejectRole))
{
    arrange();
    connect(m_buttons, &QDialogButtonBox::accepted, this, &ProjectDialog::download);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&updates, &ItemUpdates::examined, this, &ProjectDialog::take);
    connect(&updates, &ItemUpdates::updateStarted, this, &ProjectDialog::retranslate);
    connect(&updates, &ItemUpdates::updateEnded, this, &ProjectDialog::refresh);
    refresh();
}

void ProjectDialog::arrange()
{
    setObjectName(QStringLiteral("project"));
    m_summary->setObjectName(QStringLiteral("projectSummary"));
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_tree->setObjectName(QStringLiteral("projectItems"));
    m_tree->setColumnCount(2);
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_download->setObjectName(QStringLiteral("projectDownload"));
    m_close->setObjectName(QStringLiteral("projectClose"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_tree, 1);
    layout->addWidget(m_buttons);
    constexpr QSize firstSize(560, 420);
    resize(firstSize.boundedTo(screen()->availableSize()));
}

void ProjectDialog::refresh()
{
    m_items = ProjectItems(m_written);
    m_isExamined = false;
    m_updates.examine(m_items.known());
    retranslate();
}

void ProjectDialog::take(const ItemUpdates::Lack& lack)
{
    m_lack = lack;
    m_isExamined = true;
    retranslate();
}

void ProjectDialog::retranslate()
{
    setWindowTitle(tr("Project %1").arg(m_name));
    m_summary->setText(m_isExamined ? summary() : tr("Looking at the items…"));
    m_tree->setHeaderLabels({tr("Item"), tr("State")});
    m_tree->setAccessibleName(tr("Items of the project"));
    m_download->setText(tr("Download what is missing"));
    m_download->setEnabled(m_isExamined && !m_lack.missing.isEmpty() && !m_updates.isUpdating());
    m_close->setText(tr("Close"));
    fillTree();
}

void ProjectDialog::fillTree()
{
    m_tree->clear();
    if (!m_isExamined)
        return;
    const QSet<ItemKey> missing(m_lack.missing.cbegin(), m_lack.missing.cend());
    for (const ProjectItems::Item& item : m_items.items()) {
        QString state = tr("ready");
        if (item.key.isEmpty())
            state = tr("not in the catalogue");
        else if (missing.contains(item.key))
            state = tr("missing");
        auto* const row = new QTreeWidgetItem( // the tree owns it
            m_tree, {item.name, state});
        row->setToolTip(0, item.guid);
    }
}

QString ProjectDialog::summary() const
{
    const int unknown = m_items.items().size() - m_items.known().size();
    const QLocale locale;
    QStringList lines{
        tr("Ready: %1 of %2 items")
            .arg(locale.toString(m_lack.ready.size()), locale.toString(m_items.items().size()))};
    if (!m_lack.missing.isEmpty()) {
        lines.append(tr("Missing: %1; to be fetched: %2")
                         .arg(locale.toString(m_lack.missing.size()),
                              StateText::sizeToFetch(m_lack.bytes, m_lack.areBytesKnown)));
    }
    if (unknown > 0)
        lines.append(tr("Not in the catalogue: %1").arg(locale.toString(unknown)));
    return lines.join(QLatin1Char('\n'));
}

void ProjectDialog::download()
{
    if (m_updates.update(m_lack.missing))
        accept();
}

void ProjectDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
