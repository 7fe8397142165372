// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseReader.h"

#include "ReleaseClient.h"

#include <chrono>

ReleaseReader::ReleaseReader(quint16 port)
    : m_thread([this, port] { read(port); })
{
}

void ReleaseReader::stop()
{
    m_isStopped = true;
    if (m_thread.joinable())
        m_thread.join();
}

void ReleaseReader::read(quint16 port)
{
    constexpr std::chrono::milliseconds pause(3); // leaves the processor to the upload
    while (!m_isStopped) {
        ReleaseClient client(port);
        const QString fault = client.read();
        if (!fault.isEmpty())
            m_faults.append(fault);
        m_serials.insert(client.serial());
        std::this_thread::sleep_for(pause);
    }
}
