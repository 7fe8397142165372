// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AccessibilityBus.h"

#include <utility>

namespace {

constexpr int longestMs = 20000;

} // namespace

AccessibilityBus::AccessibilityBus(QProcessEnvironment environment)
    : m_environment(std::move(environment))
{
    m_session.setStandardErrorFile(QProcess::nullDevice());
    m_session.setProcessEnvironment(m_environment);
    m_session.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"),
                     QStringLiteral("--print-address=1")});
    QByteArray line;
    while (!line.endsWith('\n') && m_session.waitForReadyRead(longestMs))
        line += m_session.readAllStandardOutput();
    m_address = QString::fromUtf8(line.trimmed());
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);

    // The session bus starts the accessibility bus when it is first called, and ends it.
    const QByteArray reply = call({QStringLiteral("org.a11y.Bus.GetAddress")});
    const QList<QByteArray> parts = reply.split('"'); // string "unix:path=..."
    if (parts.size() > 1) // otherwise clients read a property of the display, of any earlier bus
        m_environment.insert(QStringLiteral("AT_SPI_BUS_ADDRESS"), QString::fromUtf8(parts.at(1)));
    call({QStringLiteral("org.freedesktop.DBus.Properties.Set"),
          QStringLiteral("string:org.a11y.Status"), QStringLiteral("string:IsEnabled"),
          QStringLiteral("variant:boolean:true")});
    m_isReady = parts.size() > 1;
}

AccessibilityBus::~AccessibilityBus()
{
    m_session.terminate();
    if (!m_session.waitForFinished(longestMs))
        m_session.kill();
}

QByteArray AccessibilityBus::call(const QStringList& message) const
{
    QProcess program;
    program.setProcessEnvironment(m_environment);
    program.start(QStringLiteral("dbus-send"),
                  QStringList{QStringLiteral("--session"), QStringLiteral("--print-reply"),
                              QStringLiteral("--dest=org.a11y.Bus"),
                              QStringLiteral("/org/a11y/bus")}
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
