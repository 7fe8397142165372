// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/FileRecord.h"

#include "records/SFileInfo.h"

#include <QMutexLocker>

namespace {

template <class T>
void setIfChanged(T& field, const T& value)
{
    if (field != value)
        field = value;
}

} // namespace

FileRecord::Taken::Taken(Taken&& other) noexcept
    : m_info(other.m_info)
{
    other.m_info = nullptr;
}

FileRecord::Taken::~Taken()
{
    if (!m_info)
        return;
    const QMutexLocker lock(m_info->m_pMutex.get());
    m_info->m_bDownloaded = false;
}

FileRecord::FileRecord(SFileInfo& info)
    : FileView(info)
    , m_info(info)
{
}

FileRecord::Taken FileRecord::take()
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    if (m_info.m_bDownloaded)
        return Taken(nullptr);
    m_info.m_bDownloaded = true;
    m_info.m_nReceived = 0;
    m_info.m_nTotal = 0;
    return Taken(&m_info);
}

void FileRecord::setKind(ECfgItemType kind, bool isDisplayHalf)
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    setIfChanged(m_info.m_eType, kind);
    setIfChanged(m_info.m_bThumbDir, isDisplayHalf);
}

void FileRecord::setName(const QString& name)
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    setIfChanged(m_info.m_qsUrl, name);
}

void FileRecord::setFile(const QString& file)
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    setIfChanged(m_info.m_qsFile, file);
}

void FileRecord::setCounts(const Counts& counts)
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    m_info.m_nReceived = counts.receivedBytes;
    m_info.m_nTotal = counts.totalBytes;
}
