// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AccessibilityBus.h"

namespace {

constexpr int longestMs = 20000;

void end(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (!process.waitForFinished(longestMs))
        process.kill();
}

} // namespace

AccessibilityBus::AccessibilityBus(const QProcessEnvironment& environment)
    : m_environment(environment)
{
    for (QProcess* const process : {&m_session, &m_launcher})
        process->setStandardErrorFile(QProcess::nullDevice());
    m_session.setProcessEnvironment(m_environment);
    m_session.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"),
                     QStringLiteral("--print-address=1")});
    QByteArray line;
    while (!line.endsWith('\n') && m_session.waitForReadyRead(longestMs))
        line += m_session.readAllStandardOutput();
    m_address = QString::fromUtf8(line.trimmed());
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
}

AccessibilityBus::~AccessibilityBus()
{
    end(m_launcher);
    end(m_session);
}

bool AccessibilityBus::hasPrograms() const
{
    const QByteArray names =
        call({QStringLiteral("--dest=org.freedesktop.DBus"), QStringLiteral("/"),
              QStringLiteral("org.freedesktop.DBus.ListNames")});
    return names.count("\":") > 1; // the first is the one that asks
}

bool AccessibilityBus::launch()
{
    m_launcher.setProcessEnvironment(m_environment);
    m_launcher.start(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                     {QStringLiteral("--launch-immediately")});
    if (!m_launcher.waitForStarted(longestMs))
        return false;
    const QByteArray reply =
        call({QStringLiteral("--dest=org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
              QStringLiteral("org.a11y.Bus.GetAddress")});
    const QList<QByteArray> parts = reply.split('"'); // string "unix:path=..."
    if (parts.size() < 2)
        return false;
    // Clients prefer a property of the display, which may be that of an earlier bus.
    m_environment.insert(QStringLiteral("AT_SPI_BUS_ADDRESS"), QString::fromUtf8(parts.at(1)));
    return true;
}

QByteArray AccessibilityBus::call(const QStringList& message) const
{
    QProcess program;
    program.setProcessEnvironment(m_environment);
    program.start(QStringLiteral("dbus-send"),
                  QStringList{QStringLiteral("--session"), QStringLiteral("--print-reply")}
                      + message);
    return ConsoleProgram::end(program).out;
}

Outcome AccessibilityBus::runClient(const QStringList& arguments) const
{
    QProcess client;
    startClient(client, arguments);
    return ConsoleProgram::end(client);
}

void AccessibilityBus::startClient(QProcess& client, const QStringList& arguments) const
{
    client.setProcessEnvironment(m_environment);
    client.start(QStringLiteral(ACCESSIBILITY_CLIENT), arguments);
}
