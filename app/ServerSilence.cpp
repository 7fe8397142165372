// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ServerSilence.h"

#include <utility>

namespace {

std::chrono::milliseconds limit{5000};

} // namespace

void ServerSilence::setLimit(std::chrono::milliseconds newLimit)
{
    limit = newLimit;
}

void ServerSilence::note(qint64 receivedBytes)
{
    if (std::exchange(m_receivedBytes, receivedBytes) != receivedBytes)
        m_since.start();
}

bool ServerSilence::isLong() const
{
    return m_since.hasExpired(limit.count());
}
