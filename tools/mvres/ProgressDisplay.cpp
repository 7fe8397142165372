#include "ProgressDisplay.h"

#include "Console.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int barWidth = 40;

} // namespace

ProgressDisplay::ProgressDisplay(const QString& title, Style style)
    : m_title(title)
    , m_silent(style == Style::None)
    , m_bar(::isatty(STDOUT_FILENO) == 1)
{
}

void ProgressDisplay::update(double percent, const QString& file)
{
    const int whole = std::clamp(static_cast<int>(percent), 0, 100);
    const bool newFile = file != m_file;
    const bool first = m_percent < 0;
    if (m_silent || (!newFile && whole == m_percent))
        return;
    m_percent = whole;
    m_file = file;
    if (m_bar)
        drawBar(whole);
    else if (newFile || first)
        Console::print(
            QStringLiteral("%1: %2%  %3")
                .arg(m_title)
                .arg(whole, 3)
                .arg(file.isEmpty() ? QStringLiteral("preparing") : QFileInfo(file).fileName()));
}

void ProgressDisplay::drawBar(int percent) const
{
    const int filled = percent * barWidth / 100;
    const QString bar =
        QString(filled, QLatin1Char('#')) + QString(barWidth - filled, QLatin1Char(' '));
    // To the line's start, and clear what an earlier, longer file name left.
    std::printf("\r%s [%s] %3d%% %s\033[K", m_title.toLocal8Bit().constData(),
                bar.toLocal8Bit().constData(), percent,
                QFileInfo(m_file).fileName().toLocal8Bit().constData());
    std::fflush(stdout);
}

void ProgressDisplay::finish()
{
    if (!m_silent && m_bar && m_percent >= 0)
        std::printf("\n");
}
