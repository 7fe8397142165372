// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "StorageControls.h"

#include "catalogue/CatalogueUse.h"
#include "DetailsPanel.h"
#include "ItemRemovals.h"
#include "ItemUpdates.h"
#include "StateText.h"
#include "StorageBox.h"
#include "UndoBar.h"
#include "UpdateBar.h"

#include <QAction>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

StorageControls::StorageControls(DetailsPanel& details, QWidget* barsParent, QWidget* window)
    : QObject(window)
    , m_details(details)
    , m_updates(new ItemUpdates(this))
    , m_removals(new ItemRemovals(m_updates->queue(), this))
    , m_bars(new QWidget(barsParent))
    , m_line(new QLabel(window))
    , m_updateAll(new QAction(this))
{
    m_line->setObjectName(QStringLiteral("updatesAvailable"));
    m_line->setTextFormat(Qt::PlainText);
    m_updateAll->setObjectName(QStringLiteral("updateAll"));
    m_updateAll->setShortcut(QKeySequence(QStringLiteral("Ctrl+U")));
    auto* const column = new QVBoxLayout(m_bars);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new UpdateBar(*m_updates, m_bars));
    column->addWidget(new UndoBar(*m_removals, m_bars));
    connectUpdates();
    connectRemovals();
    retranslate();
    m_removals->purge();
}

void StorageControls::connectUpdates()
{
    StorageBox* const box = m_details.storage();
    connect(&m_details, &DetailsPanel::itemShown, this, [this] {
        m_updates->watch(m_details.key());
        refreshControls();
    });
    connect(box, &StorageBox::updateWanted, this, [this] { update(m_details.key()); });
    connect(m_updateAll, &QAction::triggered, this, &StorageControls::toggleUpdateAll);
    connect(m_updates, &ItemUpdates::reportsChanged, this, &StorageControls::refreshControls);
    connect(m_updates, &ItemUpdates::updateStarted, this, &StorageControls::refreshControls);
    connect(m_updates, &ItemUpdates::updateEnded, this, &StorageControls::endUpdate);
}

void StorageControls::connectRemovals()
{
    const auto filesChanged = [this] {
        refreshControls();
        emit reloadWanted();
        refresh();
    };
    connect(m_details.storage(), &StorageBox::removeWanted, this,
            [this] { askAndRemove(m_details.key()); });
    connect(m_removals, &ItemRemovals::removed, this, filesChanged);
    connect(m_removals, &ItemRemovals::undone, this, [=](const QString& name, bool isWhole) {
        filesChanged();
        emit said(isWhole ? tr("“%1” is back").arg(name)
                          : tr("Some files of “%1” could not be brought back").arg(name));
    });
    connect(m_removals, &ItemRemovals::failed, this, &StorageControls::explainFailure);
}

void StorageControls::retranslate()
{
    refreshControls();
}

void StorageControls::refresh()
{
    m_updates->refresh();
}

void StorageControls::refreshControls()
{
    const int count = m_updates->updatable().size();
    const bool isUpdating = m_updates->isUpdating();
    m_updateAll->setText(isUpdating ? tr("Cancel &update")
                                    : tr("&Update all (%1)").arg(QLocale().toString(count)));
    m_updateAll->setEnabled(isUpdating || count > 0);
    m_line->setText(count > 0 ? tr("%n update(s) available", nullptr, count) : QString());
    m_details.storage()->showReport(m_updates->report(m_details.key()), isUpdating);
}

void StorageControls::toggleUpdateAll()
{
    if (m_updates->isUpdating())
        m_updates->cancel();
    else
        m_updates->update(m_updates->updatable());
}

void StorageControls::update(const ItemKey& item)
{
    m_updates->update({item});
}

void StorageControls::endUpdate(const SUpdateOutcome& outcome)
{
    if (outcome.m_eEnd == eItemUpdate_Complete)
        emit said(tr("%n item(s) fetched", nullptr, m_updates->updatedItems().size()));
    else if (outcome.m_eEnd == eItemUpdate_Cancelled)
        emit said(tr("Cancelled; what has arrived is kept for the next time"));
    refreshControls();
    if (outcome.m_nStored > 0)
        emit reloadWanted();
}

void StorageControls::askAndRemove(const ItemKey& item)
{
    const auto report = m_updates->report(item);
    if (!report)
        return;
    QMessageBox box(QMessageBox::Question, tr("Remove from this computer"),
                    tr("Remove “%1” from this computer? This frees %2. It can be downloaded "
                       "again.")
                        .arg(item.name(), StateText::size(report->ownBytes)),
                    QMessageBox::Cancel, window());
    box.setTextFormat(Qt::PlainText);
    QPushButton* const remove = box.addButton(tr("Remove"), QMessageBox::AcceptRole);
    remove->setObjectName(QStringLiteral("confirmRemoval"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() == remove)
        m_removals->remove(item);
}

void StorageControls::explainFailure(const QString& name, const QString& reason)
{
    const bool isDownloading = CatalogueUse::count() > 0;
    QMessageBox::warning(window(), tr("Remove from this computer"),
                         isDownloading
                             ? tr("“%1” was not removed while a download works. Try again when it "
                                  "has ended.")
                                   .arg(name)
                             : tr("“%1” was not removed: %2").arg(name, reason));
}

void StorageControls::shutDown()
{
    m_updates->shutDown();
}

QWidget* StorageControls::window() const
{
    return m_bars->window();
}
