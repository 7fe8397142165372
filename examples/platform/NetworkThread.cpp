// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NetworkThread.h"

#include <QEventLoop>
#include <QMetaObject>
#include <QNetworkAccessManager>

#include <future>

NetworkThread::~NetworkThread()
{
    if (!m_thread)
        return;
    m_thread->quit(); // not by an event: after the application object none is delivered
    m_thread->wait();
}

void NetworkThread::start()
{
    const auto ready = std::make_shared<std::promise<QNetworkAccessManager*>>();
    m_thread.reset(QThread::create([ready] {
        QNetworkAccessManager manager;
        ready->set_value(&manager);
        QEventLoop().exec(); // until quit()
    }));
    m_thread->start();
    m_manager = ready->get_future().get();
}

void NetworkThread::run(const std::function<void(QNetworkAccessManager&)>& work)
{
    if (!m_thread)
        start();
    QNetworkAccessManager* const manager = m_manager;
    QMetaObject::invokeMethod(
        manager, [work, manager] { work(*manager); }, Qt::QueuedConnection);
}
