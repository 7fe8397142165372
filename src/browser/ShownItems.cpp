// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ShownItems.h"

#include "browser/EUIItemRole.h"
#include "browser/ViewRows.h"
#include "download/PreviewExchange.h"

#include <QListView>
#include <QStringList>
#include <QTimerEvent>

namespace {

constexpr int delayMs = 50; // while the user scrolls, what is shown changes all the time

} // namespace

ShownItems::ShownItems(QListView& view)
    : m_view(view)
{
}

ShownItems::~ShownItems()
{
    PreviewExchange::instance()->setShown(this, {});
}

void ShownItems::update()
{
    if (!m_timer.isActive())
        m_timer.start(delayMs, this);
}

void ShownItems::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    m_timer.stop();
    tell();
}

void ShownItems::tell()
{
    QStringList guids;
    if (m_view.isVisible() && m_view.model()) {
        const ViewRows rows = ViewRows::within(m_view, 0);
        for (int row = rows.first; row < rows.end; ++row)
            guids.append(m_view.model()->index(row, 0).data(UIItemRole_GUID).toString());
    }
    PreviewExchange::instance()->setShown(this, guids);
}
