// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Background.h"

#include "Interrupt.h"

#include <QEventLoop>
#include <QThread>

#include <memory>

namespace Background {

void run(const CancelToken& cancel, const std::function<void()>& work)
{
    Interrupt interrupt;
    QEventLoop loop;
    CancelToken token = cancel;
    QObject::connect(&interrupt, &Interrupt::requested, &loop, [&token] { token.cancel(); });
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
}

} // namespace Background
