// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ListAnnouncer.h"

#include "browser/CellEvents.h"
#include "browser/mvThemelistview.h"

#include <QAccessible>

#include <utility>

namespace {

constexpr int namedStep = 10; // per cent after which the name is announced, too

} // namespace

ListAnnouncer::ListAnnouncer(mvThemelistview& view)
    : QObject(&view)
    , m_view(view)
{
    const CellEvents* const events = CellEvents::instance();
    connect(events, &CellEvents::favouriteToggled, this,
            [this](ECfgItemType kind, const QString& guid) {
                if (isMine(kind))
                    announceState(guid);
            });
    connect(events, &CellEvents::itemApplied, this, [this](ECfgItemType kind, const QString& guid) {
        if (!isMine(kind))
            return;
        announceState(std::exchange(m_applied, guid));
        announceState(guid);
    });
    connect(events, &CellEvents::downloadStarted, this,
            [this](ECfgItemType kind, const QString& guid) {
                if (isMine(kind))
                    announceStart(guid);
            });
    connect(events, &CellEvents::downloadEnded, this,
            [this](ECfgItemType kind, const QString& guid) {
                if (isMine(kind))
                    announceEnd(guid);
            });
}

bool ListAnnouncer::isMine(ECfgItemType kind) const
{
    return QAccessible::isActive() && kind == kindShownBy(m_view.uiItemType());
}

/// Returns null for an item that is not displayed.
QAccessibleInterface* ListAnnouncer::rowOf(const QString& guid) const
{
    if (!QAccessible::isActive() || guid.isEmpty())
        return nullptr;
    const QModelIndex row = m_view.shownRow(guid);
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&m_view);
    return row.isValid() && list ? list->child(row.row()) : nullptr;
}

void ListAnnouncer::announceState(const QString& guid)
{
    QAccessibleInterface* const row = rowOf(guid);
    if (!row)
        return;
    QAccessibleEvent event(row, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void ListAnnouncer::announceBusy(const QString& guid)
{
    QAccessibleInterface* const row = rowOf(guid);
    if (!row)
        return;
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(row, changed);
    QAccessible::updateAccessibility(&event);
}

void ListAnnouncer::announceStart(const QString& guid)
{
    announceBusy(guid);
    announceState(guid);
    const QAccessibleInterface* const row = rowOf(guid);
    QAccessibleInterface* const progress = row ? row->child(0) : nullptr;
    if (!progress)
        return; // it has ended already
    QAccessibleEvent event(progress, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void ListAnnouncer::announceProgress(const QString& guid, int percent)
{
    const QAccessibleInterface* const row = rowOf(guid);
    QAccessibleInterface* const progress = row ? row->child(0) : nullptr;
    if (!progress)
        return;
    QAccessibleValueChangeEvent event(progress, percent);
    QAccessible::updateAccessibility(&event);
    if (percent % namedStep == 0)
        announceState(guid);
}

void ListAnnouncer::announceEnd(const QString& guid)
{
    announceBusy(guid);
    announceState(guid);
    QAccessibleInterface* const row = rowOf(guid);
    if (!row)
        return;
    QAccessibleEvent event(row, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
