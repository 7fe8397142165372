// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Terminal.h"

#include <QtGlobal>

#include <array>

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

Terminal::Terminal(int columns)
{
    winsize size = {};
    size.ws_row = 24;
    size.ws_col = static_cast<unsigned short>(columns);
    std::array<char, 256> name = {};
    if (::openpty(&m_master, &m_slave, name.data(), nullptr, &size) != 0)
        qFatal("no pseudo-terminal");
    ::fcntl(m_master, F_SETFL, O_NONBLOCK);
    m_device = QString::fromLocal8Bit(name.data());
}

Terminal::~Terminal()
{
    ::close(m_slave);
    ::close(m_master);
}

QByteArray Terminal::read()
{
    QByteArray all;
    std::array<char, 4096> part = {};
    for (ssize_t count = 0; (count = ::read(m_master, part.data(), part.size())) > 0;)
        all.append(part.data(), static_cast<int>(count));
    return all;
}

void Terminal::type(const QByteArray& keys) const
{
    if (::write(m_master, keys.constData(), static_cast<size_t>(keys.size())) != keys.size())
        qFatal("the pseudo-terminal is full");
}

bool Terminal::isEchoing() const
{
    termios settings = {};
    return ::tcgetattr(m_slave, &settings) == 0 && (settings.c_lflag & tcflag_t(ECHO)) != 0;
}

QStringList Terminal::screen(const QByteArray& bytes)
{
    QString text = QString::fromUtf8(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QStringList lines;
    const QStringList written = text.split(QLatin1Char('\n'));
    for (const QString& line : written) {
        QString shown;
        const QStringList parts = line.split(QLatin1Char('\r'));
        for (const QString& part : parts) {
            const int clears = part.indexOf(QStringLiteral("\033[K"));
            shown = clears >= 0 ? part.left(clears) : part + shown.mid(part.size());
        }
        lines.append(shown);
    }
    return lines;
}
