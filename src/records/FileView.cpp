// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/FileView.h"

#include "records/SFileInfo.h"

#include <QMutexLocker>

FileView::FileView(const SFileInfo& info)
    : m_info(info)
{
}

ECfgItemType FileView::kind() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_eType;
}

bool FileView::isDisplayHalf() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_bThumbDir;
}

QString FileView::name() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_qsUrl;
}

QString FileView::file() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_qsFile;
}

bool FileView::isTaken() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_bDownloaded;
}

FileView::Counts FileView::counts() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return {m_info.m_nReceived, m_info.m_nTotal};
}
