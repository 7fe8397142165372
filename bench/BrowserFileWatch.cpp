// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrowserFileWatch.h"

#include <QFile>

#include <sys/inotify.h>
#include <unistd.h>

BrowserFileWatch::BrowserFileWatch(const QStringList& folders)
    : m_notifier(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    for (const QString& folder : folders) {
        const int watch =
            ::inotify_add_watch(m_notifier, QFile::encodeName(folder).constData(), IN_OPEN);
        if (watch < 0)
            qFatal("cannot watch %s", qPrintable(folder));
        m_folders.insert(watch, folder);
    }
}

BrowserFileWatch::~BrowserFileWatch()
{
    ::close(m_notifier);
}

BrowserFileWatch::Tally BrowserFileWatch::take()
{
    Tally tally;
    alignas(inotify_event) char events[64 * 1024];
    for (;;) {
        const ssize_t length = ::read(m_notifier, events, sizeof events);
        if (length <= 0)
            return tally;
        for (ssize_t at = 0; at < length;) {
            const auto* const event = reinterpret_cast<const inotify_event*>(events + at);
            at += static_cast<ssize_t>(sizeof *event + event->len);
            if (event->mask & IN_Q_OVERFLOW)
                qFatal("more files were opened than can be counted");
            if (event->len > 0 && !(event->mask & IN_ISDIR))
                note(tally,
                     m_folders.value(event->wd) + QLatin1Char('/')
                         + QFile::decodeName(event->name));
        }
    }
}

void BrowserFileWatch::note(Tally& tally, const QString& path)
{
    ++tally.files;
    if (m_opened.contains(path))
        ++tally.again;
    m_opened.insert(path);
}
