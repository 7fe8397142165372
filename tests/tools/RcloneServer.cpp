// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RcloneServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>

namespace {

constexpr int serverLongestMs = 20000;

} // namespace

RcloneServer::~RcloneServer()
{
    stop();
}

bool RcloneServer::start(const QString& folder)
{
    if (!QDir().mkpath(folder))
        return false;
    m_process.setReadChannel(QProcess::StandardError); // the one that waitForReadyRead() watches
    m_process.start(QStringLiteral("rclone"),
                    {QStringLiteral("serve"), QStringLiteral("webdav"), QStringLiteral("--addr"),
                     QStringLiteral("127.0.0.1:0"), folder});
    static const QRegularExpression address(QStringLiteral("http://127\\.0\\.0\\.1:([0-9]+)/\n"));
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < serverLongestMs && m_process.state() != QProcess::NotRunning) {
        m_process.waitForReadyRead(serverLongestMs);
        m_log += QString::fromUtf8(m_process.readAllStandardError());
        const QRegularExpressionMatch match = address.match(m_log);
        m_port = match.captured(1).toUShort();
        if (match.hasMatch())
            return true;
    }
    return false;
}

void RcloneServer::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(serverLongestMs))
        m_process.kill();
}

QString RcloneServer::remote() const
{
    return QStringLiteral(":webdav,url='http://127.0.0.1:%1/':").arg(m_port);
}
