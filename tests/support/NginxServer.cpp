// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/NginxServer.h"

#include "support/TestSocket.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>

#include <chrono>
#include <csignal>
#include <thread>

#include <sys/prctl.h>

namespace {

constexpr int attempts = 5; // another program may take a port that was free
constexpr int longestMs = 20000;
constexpr std::chrono::milliseconds startPoll(10);

quint16 freePort()
{
    quint16 port = 0;
    const TestSocket::Handle socket = TestSocket::listen(port);
    if (socket != TestSocket::none)
        TestSocket::close(socket);
    return port;
}

/// A single foreground process, whose ID is the one to terminate.
const char nginxConfiguration[] = R"(daemon off;
master_process off;
pid %1/nginx.pid;
error_log %1/error.log;
events { worker_connections 512; }
http {
    client_body_temp_path %1/body;
    proxy_temp_path %1/proxy;
    fastcgi_temp_path %1/fastcgi;
    uwsgi_temp_path %1/uwsgi;
    scgi_temp_path %1/scgi;
    log_format short '$request $status';
    access_log %1/access.log short;
    keepalive_requests 100000;
    %5
    server {
        listen 127.0.0.1:%2;
        %6
        root %3;
        %4
    }
}
)";

/// Adds HTTP/2 over TLS on another port, with a certificate and its key.
const char secureConfiguration[] = R"(
        listen 127.0.0.1:%1 ssl http2;
        ssl_certificate %2;
        ssl_certificate_key %3;
)";

QString directive(const QString& include)
{
    return include.isEmpty() ? QString() : QStringLiteral("include %1;").arg(include);
}

/// Ends the server with the program, however that ends.
void endWithTheProgram()
{
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}

} // namespace

NginxServer::NginxServer()
    : m_process(&endWithTheProgram)
{
}

NginxServer::~NginxServer()
{
    stop();
}

void NginxServer::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(longestMs))
        m_process.kill();
}

QString NginxServer::program()
{
    const QString name = QStringLiteral("nginx");
    const QString found = QStandardPaths::findExecutable(name);
    return found.isEmpty() ? QStandardPaths::findExecutable(
               name, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/local/sbin")})
                           : found;
}

bool NginxServer::start(const QString& tree, const QString& work)
{
    m_work = work;
    QDir().mkpath(work);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        m_port = freePort();
        m_securePort = m_certificate.isEmpty() ? quint16(0) : freePort();
        if (startOnPorts(tree))
            return true;
    }
    m_error = QString::fromLocal8Bit(m_process.readAllStandardError());
    return false;
}

bool NginxServer::startOnPorts(const QString& tree)
{
    const QString file = m_work + QStringLiteral("/nginx.conf");
    const QString pidFile = m_work + QStringLiteral("/nginx.pid");
    QFile::remove(pidFile);
    QFile conf(file);
    if (!conf.open(QIODevice::WriteOnly))
        return false;
    conf.write(QString::fromLatin1(nginxConfiguration)
                   .arg(m_work)
                   .arg(m_port)
                   .arg(tree, directive(m_include), directive(m_includeBeside), secureDirectives())
                   .toUtf8());
    conf.close();
    QStringList arguments{QStringLiteral("-e"), QStringLiteral("stderr"),
                          QStringLiteral("-p"), m_work,
                          QStringLiteral("-c"), file};
    if (!m_module.isEmpty())
        arguments << QStringLiteral("-g") << QStringLiteral("load_module %1;").arg(m_module);
    m_process.start(program(), arguments);
    QElapsedTimer timer;
    timer.start();
    // nginx writes the file once it listens, and exits if a port has been taken meanwhile.
    while (!m_process.waitForFinished(0) && m_process.state() != QProcess::NotRunning
           && timer.elapsed() < longestMs) {
        if (QFile::exists(pidFile))
            return true;
        std::this_thread::sleep_for(startPoll);
    }
    return false;
}

QString NginxServer::secureDirectives() const
{
    if (m_certificate.isEmpty())
        return {};
    return QString::fromLatin1(secureConfiguration).arg(m_securePort).arg(m_certificate, m_key);
}

QString NginxServer::url() const
{
    return QStringLiteral("http://127.0.0.1:%1/").arg(m_port);
}

QString NginxServer::secureUrl() const
{
    return QStringLiteral("https://127.0.0.1:%1/").arg(m_securePort);
}

QByteArrayList NginxServer::requests() const
{
    QFile log(m_work + QStringLiteral("/access.log"));
    if (!log.open(QIODevice::ReadOnly))
        return {};
    QByteArrayList lines = log.readAll().split('\n');
    lines.removeLast(); // the empty text after the last newline
    return lines;
}
