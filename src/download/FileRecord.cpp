#include "download/FileRecord.h"

#include "catalogue/MVThemeMgr.h"

#include <QMutexLocker>

FileRecord::FileRecord(SFileInfo& info)
    : m_info(info)
{
}

bool FileRecord::take()
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    if (m_info.m_bDownloaded)
        return false;
    m_info.m_bDownloaded = true;
    m_info.m_nReceived = 0;
    m_info.m_nTotal = 0;
    return true;
}

void FileRecord::release()
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    m_info.m_bDownloaded = false;
}

bool FileRecord::isTaken() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_bDownloaded;
}

QString FileRecord::name() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_qsUrl;
}

QString FileRecord::file() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return m_info.m_qsFile;
}

QString FileRecord::url() const
{
    ECfgItemType kind = eCfgItem_Resource;
    bool thumbDir = false;
    QString name;
    {
        const QMutexLocker lock(m_info.m_pMutex.get());
        kind = m_info.m_eType;
        thumbDir = m_info.m_bThumbDir;
        name = m_info.m_qsUrl;
    }
    MVThemeMgr* const manager = MVThemeMgr::init();
    return thumbDir ? manager->downLoadUrl_Thumb(MVThemeMgr::eDirTag_Display, kind, name)
                    : manager->downLoadUrl(MVThemeMgr::eDirTag_Config, name);
}

void FileRecord::setCounts(qint64 received, qint64 total)
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    m_info.m_nReceived = received;
    m_info.m_nTotal = total;
}

FileRecord::Counts FileRecord::counts() const
{
    const QMutexLocker lock(m_info.m_pMutex.get());
    return {m_info.m_nReceived, m_info.m_nTotal};
}
