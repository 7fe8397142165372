// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>

#include <mutex>
#include <thread>

/// A loopback server that answers with raw bytes, whatever the request: each connection gets the
/// next answer and is closed. After the last answer it sends nothing.
class AnswerServer
{
public:
    AnswerServer();
    ~AnswerServer();
    Q_DISABLE_COPY_MOVE(AnswerServer)

    int port() const { return m_port; }
    void setAnswers(const QList<QByteArray>& answers);

private:
    void serve() const;
    void answer(int connection) const;
    QByteArray next() const;

    int m_listener = -1;
    int m_port = 0;
    mutable std::mutex m_mutex; // guards m_answers
    mutable QList<QByteArray> m_answers;
    std::thread m_thread;
};
