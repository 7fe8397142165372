// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "TrafficLog.h"

#include <QByteArrayList>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

namespace {

constexpr unsigned long pollMs = 5;
constexpr int longestWaitMs = 20000;
const char markPrefix[] = "/.mark-";
constexpr int fields = 11;

/// In the order of Request.
const char format[] = "$request_uri\\t$status\\t$bytes_sent\\t$request_length\\t$http_range\\t"
                      "$http_if_none_match\\t$http_if_modified_since\\t$http_cache_control\\t"
                      "$http_user_agent\\t$http_accept\\t$http_accept_encoding";

TrafficLog::Request parsed(const QByteArray& line)
{
    const QByteArrayList values = line.split('\t');
    if (values.size() != fields)
        qFatal("unexpected line in a log: %s", line.constData());
    return {values[0],
            values[1].toInt(),
            values[2].toLongLong(),
            values[3].toLongLong(),
            values[4],
            values[5],
            values[6],
            values[7],
            values[8],
            values[9],
            values[10]};
}

} // namespace

TrafficLog::TrafficLog(const QString& file)
    : m_file(file)
{
}

QByteArray TrafficLog::directives() const
{
    return "log_format traffic escape=none \"" + QByteArray(format) + "\";\naccess_log "
        + m_file.toUtf8() + " traffic;\n";
}

QByteArray TrafficLog::markTarget(int number)
{
    return markPrefix + QByteArray::number(number);
}

/// A server with one process has written the lines of all earlier requests when it writes the
/// mark's.
template <class Use>
void TrafficLog::takeLines(const QByteArray& mark, Use use)
{
    QFile log(m_file);
    QElapsedTimer timer;
    timer.start();
    if (!log.open(QIODevice::ReadOnly) || !log.seek(m_read))
        qFatal("cannot read %s", qPrintable(m_file));
    QByteArray target;
    while (target != mark) {
        QByteArray line = log.readLine();
        if (!line.endsWith('\n')) {
            if (timer.hasExpired(longestWaitMs))
                qFatal("%s ends before %s", qPrintable(m_file), mark.constData());
            QThread::msleep(pollMs);
            log.seek(m_read);
            continue;
        }
        m_read = log.pos();
        line.chop(1);
        const Request request = parsed(line);
        target = request.target;
        if (!target.startsWith(markPrefix))
            use(request);
    }
}

QVector<TrafficLog::Request> TrafficLog::takeRequests(const QByteArray& mark)
{
    QVector<Request> requests;
    takeLines(mark, [&](const Request& request) { requests.append(request); });
    return requests;
}

TrafficLog::Sum TrafficLog::takeSum(const QByteArray& mark)
{
    Sum sum;
    takeLines(mark, [&](const Request& request) { sum.add(request); });
    return sum;
}

TrafficLog::Sum TrafficLog::sumOf(const QVector<Request>& requests)
{
    Sum sum;
    for (const Request& request : requests)
        sum.add(request);
    return sum;
}

void TrafficLog::Sum::add(const Request& request)
{
    ++requests;
    sentBytes += request.sentBytes;
    receivedBytes += request.receivedBytes;
}

void TrafficLog::Sum::add(const Sum& other)
{
    requests += other.requests;
    sentBytes += other.sentBytes;
    receivedBytes += other.receivedBytes;
}
