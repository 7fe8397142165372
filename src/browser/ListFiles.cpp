// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ListFiles.h"

#include "download/ItemStates.h"

#include <QTimerEvent>

#include <algorithm>

namespace {

constexpr int tellingPauseMs = 400; // between two changes that are told while many items wait

const SItemFacts* stateOf(const ItemStates& states, ECfgItemType kind, const QString& guid)
{
    const SItemFacts* const facts = states.find({kind, guid});
    return facts && facts->hasState ? facts : nullptr;
}

} // namespace

ListFiles::ListFiles(ECfgItemType kind)
    : m_kind(kind)
    , m_states(ItemStates::shared())
{
    connect(m_states.get(), &ItemStates::changed, this,
            [this](ECfgItemType changedKind, const QStringList& guids) {
                if (changedKind == m_kind)
                    noteChanged(guids);
            });
    connect(m_states.get(), &ItemStates::examiningChanged, this, [this](ECfgItemType changedKind) {
        if (changedKind == m_kind)
            noteLooking();
    });
    m_states->watch(m_kind);
}

ListFiles::~ListFiles()
{
    m_states->unwatch(m_kind);
}

bool ListFiles::isKnown(const QString& guid) const
{
    return stateOf(*m_states, m_kind, guid) != nullptr;
}

bool ListFiles::isOnDisk(const QString& guid) const
{
    const SItemFacts* const facts = stateOf(*m_states, m_kind, guid);
    return facts && facts->state.m_nNeeded == 0;
}

qint64 ListFiles::bytesOf(const QString& guid) const
{
    const SItemFacts* const facts = stateOf(*m_states, m_kind, guid);
    return facts ? facts->state.m_nBytes : 0;
}

bool ListFiles::isLooking() const
{
    return !m_isTold || m_states->isExamining(m_kind);
}

void ListFiles::lookAgain()
{
    m_states->refreshKind(m_kind);
}

void ListFiles::noteChanged(const QStringList& guids)
{
    // A scan tells of all pictures before it knows the first state.
    if (!std::any_of(guids.cbegin(), guids.cend(),
                     [this](const QString& guid) { return isKnown(guid); }))
        return;
    m_isTold = false;
    if (!m_timer.isActive())
        m_timer.start(0, this);
}

/// The end of a scan is told at once, even if it has changed nothing.
void ListFiles::noteLooking()
{
    if (m_states->isExamining(m_kind))
        return;
    m_isTold = false;
    m_timer.start(0, this);
}

void ListFiles::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    m_timer.stop();
    if (m_isTold)
        return;
    m_isTold = true;
    if (m_states->isExamining(m_kind))
        m_timer.start(tellingPauseMs, this);
    emit changed();
}
