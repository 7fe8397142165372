// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "VirtualDisplay.h"

#include <QStringList>

namespace {

constexpr int longestMs = 20000;

} // namespace

VirtualDisplay::VirtualDisplay(const QSize& size)
{
    // The server picks a free display number and prints it once it accepts clients.
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"),
                    QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()),
                    QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    QByteArray number;
    while (!number.endsWith('\n') && m_server.waitForReadyRead(longestMs))
        number += m_server.readAllStandardOutput();
    if (number.endsWith('\n'))
        m_name = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
}

VirtualDisplay::~VirtualDisplay()
{
    m_server.terminate();
    if (!m_server.waitForFinished(longestMs))
        m_server.kill();
}
