// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ProgressReport.h"

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds interval{50};

} // namespace

void ProgressReport::begin(int files)
{
    m_progress = {0, files, 0};
    m_bytesBefore = 0;
    tell(true);
}

void ProgressReport::noteReceived(qint64 bytes)
{
    // A retry may start from zero; the total must not decrease.
    m_progress.m_nBytes = std::max(m_progress.m_nBytes, m_bytesBefore + bytes);
    tell(false);
}

void ProgressReport::addReceived(qint64 bytes)
{
    m_progress.m_nBytes += bytes;
    tell(false);
}

void ProgressReport::endTransfer()
{
    m_bytesBefore = m_progress.m_nBytes;
}

void ProgressReport::countFiles(int files)
{
    m_progress.m_nFilesDone += files;
    tell(m_progress.m_nFilesDone == m_progress.m_nFiles);
}

void ProgressReport::tell(bool now)
{
    const auto time = std::chrono::steady_clock::now();
    if (!m_callback || (!now && time - m_toldLast < interval))
        return;
    m_toldLast = time;
    m_callback(m_progress);
}
