// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/SFileInfo.h"

#include <QDebug>
#include <QMutexLocker>

SFileInfo::SFileInfo()
    : m_pMutex(std::make_shared<QMutex>())
{
}

SFileInfo::SFileInfo(const SFileInfo& other)
    : m_pMutex(other.m_pMutex)
{
    const QMutexLocker lock(m_pMutex.get());
    m_eType = other.m_eType;
    m_bThumbDir = other.m_bThumbDir;
    m_qsUrl = other.m_qsUrl;
    m_qsFile = other.m_qsFile;
    m_bDownloaded = other.m_bDownloaded;
    m_nReceived = other.m_nReceived;
    m_nTotal = other.m_nTotal;
}

SFileInfo& SFileInfo::operator=(const SFileInfo& other)
{
    if (this != &other)
        *this = SFileInfo(other);
    return *this;
}

QDebug operator<<(QDebug debug, const SFileInfo& info)
{
    const QDebugStateSaver saver(debug);
    const SFileInfo copy(info);
    debug.nospace() << "SFileInfo(type " << int(copy.m_eType)
                    << (copy.m_bThumbDir ? ", display" : ", config") << ", url " << copy.m_qsUrl
                    << ", file " << copy.m_qsFile << ", " << copy.m_nReceived << " of "
                    << copy.m_nTotal << (copy.m_bDownloaded ? ", in progress)" : ")");
    return debug;
}
