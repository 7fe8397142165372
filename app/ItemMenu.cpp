// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemMenu.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

ItemMenu::ItemMenu(ItemKey item, const Facts& facts, QWidget* parent)
    : QMenu(parent)
    , m_item(std::move(item))
{
    setAttribute(Qt::WA_DeleteOnClose);
    addTransfers(facts.state.files);
    addSeparator();
    if (facts.hasFavourites) {
        add("itemFavourite",
            facts.state.isFavourite ? tr("Remove from &favorites") : tr("Add to &favorites"),
            &ItemMenu::favouriteWanted);
    }
    add("itemDetails", tr("Show &details"), &ItemMenu::detailsWanted);
    add("itemFolder", tr("&Show files in folder"), &ItemMenu::folderWanted);
    addSeparator();
    addCopy("itemCopyName", tr("Copy &name"), m_item.name());
    addCopy("itemCopyGuid", tr("Copy &GUID"), m_item.guid);
    if (!facts.canBeRemoved)
        return;
    addSeparator();
    add("itemRemove", tr("&Remove from this computer…"), &ItemMenu::removeWanted);
}

void ItemMenu::addTransfers(SCellState::Files files)
{
    switch (files) {
    case SCellState::Files::Downloading:
        add("itemCancel", tr("&Cancel download"), &ItemMenu::cancelWanted);
        return;
    case SCellState::Files::Missing:
    case SCellState::Files::Failed:
        add("itemApply", tr("Download and &apply"), &ItemMenu::applyWanted);
        add("itemDownload", tr("D&ownload only"), &ItemMenu::downloadWanted);
        return;
    case SCellState::Files::Outdated:
        add("itemApply", tr("&Apply"), &ItemMenu::applyWanted);
        add("itemUpdate", tr("&Update"), &ItemMenu::updateWanted);
        return;
    case SCellState::Files::OnDisk:
        add("itemApply", tr("&Apply"), &ItemMenu::applyWanted);
        return;
    }
}

void ItemMenu::add(const char* name, const QString& text, Signal signal)
{
    QAction* const action = addAction(text);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, [this, signal] { emit(this->*signal)(m_item); });
}

void ItemMenu::addCopy(const char* name, const QString& text, const QString& copied)
{
    QAction* const action = addAction(text);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this,
            [copied] { QGuiApplication::clipboard()->setText(copied); });
}
