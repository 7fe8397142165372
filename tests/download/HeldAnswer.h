// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/FaultServer.h"
#include "support/HttpAnswer.h"

#include <QSemaphore>

/// A server's answer that is held back until the test releases it.
class HeldAnswer
{
public:
    ~HeldAnswer() { release(); }

    FaultServer::Handler handler(const HttpAnswer& answer)
    {
        return [this, answer](HttpExchange& exchange) {
            m_arrived.release();
            m_released.acquire();
            m_released.release();
            exchange.answer(answer);
        };
    }
    bool hasArrived() { return m_arrived.tryAcquire(1, 30000); }
    void release() { m_released.release(); }

private:
    QSemaphore m_arrived;
    QSemaphore m_released;
};
