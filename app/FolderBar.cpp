// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FolderBar.h"

#include "DownloadFolder.h"
#include "StateText.h"

#include <QTimer>

FolderBar::FolderBar(QWidget* parent)
    : NoticeBar(QStringLiteral("folderBar"), parent)
    , m_soon(new QTimer(this))
{
    m_soon->setSingleShot(true);
    connect(m_soon, &QTimer::timeout, this, &FolderBar::look);
}

void FolderBar::setUnavailable(const QString& folder)
{
    m_unavailable = folder;
    refresh();
}

void FolderBar::refresh()
{
    m_soon->start(0);
}

void FolderBar::look()
{
    const QString folder = DownloadFolder::inUse();
    const Trouble before = m_trouble;
    m_freeBytes = DownloadFolder::freeBytes(folder);
    if (!DownloadFolder::isWritable(folder))
        m_trouble = Trouble::NotWritable;
    else if (m_freeBytes >= 0 && m_freeBytes < DownloadFolder::fewBytes)
        m_trouble = Trouble::AlmostFull;
    else
        m_trouble = m_unavailable.isEmpty() ? Trouble::None : Trouble::Unavailable;
    retranslate();
    // A bar that the user has closed comes back only with another trouble.
    if (m_trouble != before)
        setVisible(m_trouble != Trouble::None);
}

void FolderBar::retranslate()
{
    QString text;
    switch (m_trouble) {
    case Trouble::None:
        break;
    case Trouble::Unavailable:
        text = tr("The download folder is not available now: %1").arg(m_unavailable);
        break;
    case Trouble::NotWritable:
        text = tr("Nothing can be downloaded: the download folder is not writable");
        break;
    case Trouble::AlmostFull:
        text = tr("The disk of the download folder is almost full: %1 are free")
                   .arg(StateText::size(m_freeBytes));
        break;
    }
    setTexts(text, tr("Choose another folder…"));
    setDetails(DownloadFolder::inUse());
}

void FolderBar::act()
{
    emit settingsWanted();
}
