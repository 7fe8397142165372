// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Measures what a release server has to send to a thousand clients behind a cache: on a first
// start, on a day without news, and after a release in which one theme has changed. docs/scale.md
// draws conclusions.

#include "BenchHome.h"
#include "RealClient.h"
#include "ReplayedClients.h"
#include "ScaleWorld.h"
#include "TrafficLog.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int realClients = 20;
constexpr int mostClients = 1000; // fewer where they would take more than a minute
constexpr int leastClients = 100;
constexpr int notFound = 404;
constexpr double secondMs = 1000;
constexpr double kB = 1000;
constexpr double TB = 1e12;
constexpr double manyClients = 10 * 1000 * 1000;
constexpr double percent = 100;
constexpr qint64 headBytes = 500;     // most that an answer has before its body
constexpr int catalogueFiles = 3;     // version file, config and display
constexpr int releaseFiles = 3;       // release, signature and list
constexpr int revalidated = 2;        // release and signature
constexpr qint64 releaseBytes = 1000; // most that both have

/// What clients may need: this many requests and bytes each. The server may answer each request
/// once, and what is revalidated once a second.
struct Limits
{
    qint64 requests;
    qint64 bodyBytes;
};

/// One case: what clients do, and what it has cost.
class Case
{
public:
    Case(const char* name, ScaleWorld& world, const BenchHome& home)
        : m_name(name)
        , m_world(world)
        , m_home(home)
    {
    }

    /// Runs all clients. On false see errorText().
    bool run(RealClient::Action action);
    QString errorText() const { return m_error; }

    /// Prints the result. Returns whether it keeps the limits.
    bool report(const Limits& limits) const;

    RealClient::Place placeOf(int client) const
    {
        return {m_world.url(), m_world.key(), m_world.installed(),
                QStringLiteral("%1/client%2").arg(m_home.path()).arg(client), ScaleWorld::theme()};
    }

private:
    bool runRealClients(RealClient::Action action);
    bool replay();
    QByteArray mark() const;
    QByteArray server() const;
    bool fail(const QString& text);
    static bool keeps(const char* what, double value, double highest);

    const char* m_name;
    ScaleWorld& m_world;
    const BenchHome& m_home;
    QVector<TrafficLog::Request> m_requests; // of one client
    TrafficLog::Sum m_sent;                  // to all clients
    TrafficLog::Sum m_server;                // by the server behind the cache
    int m_clients = 0;
    qint64 m_ms = 0;
    qint64 m_replayMs = 0;
    QString m_error;
};

/// Brings the requests of clients, which have several on their way at a time, into one order.
QVector<TrafficLog::Request> sorted(QVector<TrafficLog::Request> requests)
{
    std::sort(requests.begin(), requests.end(),
              [](const auto& one, const auto& other) { return one.target < other.target; });
    return requests;
}

bool areAlike(const TrafficLog::Request& one, const TrafficLog::Request& other)
{
    return one.target == other.target && one.status == other.status
        && one.receivedBytes == other.receivedBytes && one.ifNoneMatch == other.ifNoneMatch
        && one.range == other.range;
}

QString described(const QVector<TrafficLog::Request>& requests)
{
    QString text;
    for (const TrafficLog::Request& request : requests) {
        text += QStringLiteral("%1 %2 %3 %4 %5\n")
                    .arg(QString::fromUtf8(request.target))
                    .arg(request.status)
                    .arg(request.receivedBytes)
                    .arg(QString::fromUtf8(request.ifNoneMatch), QString::fromUtf8(request.range));
    }
    return text;
}

bool Case::run(RealClient::Action action)
{
    const QByteArray begin = mark();
    m_world.cacheLog().takeSum(begin);
    m_world.serverLog().takeSum(begin);
    QElapsedTimer timer;
    timer.start();
    const bool isDone = runRealClients(action) && replay();
    m_ms = timer.elapsed();
    m_server = m_world.serverLog().takeSum(mark());
    return isDone;
}

bool Case::runRealClients(RealClient::Action action)
{
    for (int client = 0; client < realClients; ++client) {
        const QString error = RealClient::run(action, placeOf(client));
        if (!error.isEmpty())
            return fail(error);
        const QVector<TrafficLog::Request> requests = m_world.cacheLog().takeRequests(mark());
        m_sent.add(TrafficLog::sumOf(requests));
        if (client == 0)
            m_requests = requests;
        const auto first = sorted(m_requests);
        const auto own = sorted(requests);
        if (!std::equal(first.cbegin(), first.cend(), own.cbegin(), own.cend(), areAlike))
            return fail(QStringLiteral("client %1 has other requests than the first:\n%2")
                            .arg(QString::number(client), described(own)));
    }
    return !m_requests.isEmpty() || fail(QStringLiteral("clients send no requests"));
}

/// Lets the other clients send what the real ones have sent, and requires that it is the same to
/// the byte.
bool Case::replay()
{
    QElapsedTimer timer;
    timer.start();
    ReplayedClients replayed(server(), m_requests);
    const QString error = replayed.run(mostClients - realClients);
    m_replayMs = timer.elapsed();
    const int others = replayed.done();
    m_clients = realClients + others;
    if (!error.isEmpty())
        return fail(error);
    const TrafficLog::Sum sum = m_world.cacheLog().takeSum(mark());
    const TrafficLog::Sum one = TrafficLog::sumOf(m_requests);
    if (sum.requests != others * one.requests || sum.receivedBytes != others * one.receivedBytes)
        return fail(QStringLiteral("the replayed requests are not the recorded ones"));
    m_sent.add(sum);
    return true;
}

/// Ends a part of the logs, and returns what it ends with.
QByteArray Case::mark() const
{
    static int number = 0;
    TrafficLog::Request request;
    request.target = TrafficLog::markTarget(++number);
    request.status = notFound;
    const QString error = ReplayedClients(server(), {request}).run(1);
    if (!error.isEmpty())
        qFatal("%s", qPrintable(error));
    return request.target;
}

QByteArray Case::server() const
{
    QByteArray address = m_world.url().toUtf8();
    address.chop(1);
    return address;
}

bool Case::fail(const QString& text)
{
    m_error = QStringLiteral("%1: %2").arg(QLatin1String(m_name), text);
    return false;
}

bool Case::keeps(const char* what, double value, double highest)
{
    std::printf("  %-24s %12.1f limit %12.1f\n", what, value, highest);
    return value <= highest;
}

bool Case::report(const Limits& limits) const
{
    const auto perClient = [this](qint64 sum) { return static_cast<double>(sum) / m_clients; };
    const auto share = [](qint64 part, qint64 whole) {
        return percent * static_cast<double>(part) / static_cast<double>(whole);
    };
    const double seconds = static_cast<double>(m_ms) / secondMs;
    const auto requests = static_cast<double>(limits.requests);
    const double bytes = static_cast<double>(limits.bodyBytes) + requests * headBytes;
    // Before the first second, and after each that ends.
    const double serverRequests = requests + revalidated * (seconds + 2);
    std::printf("%s: %d clients in %.1f s, %.0f requests/s of the replayed ones\n", m_name,
                m_clients, seconds,
                static_cast<double>((m_clients - realClients) * m_requests.size()) * secondMs
                    / static_cast<double>(std::max<qint64>(m_replayMs, 1)));
    bool isKept = m_clients >= leastClients;
    isKept &= keeps("requests of a client", perClient(m_sent.requests), requests);
    isKept &= keeps("bytes to a client", perClient(m_sent.sentBytes), bytes);
    std::printf("  %-24s %12.1f\n", "bytes from a client", perClient(m_sent.receivedBytes));
    isKept &=
        keeps("requests at the server", static_cast<double>(m_server.requests), serverRequests);
    isKept &= keeps("kB from the server", static_cast<double>(m_server.sentBytes) / kB,
                    (bytes + serverRequests * headBytes) / kB);
    std::printf("  %-24s %11.2f%% of the requests, %.2f%% of the bytes\n", "the server's share",
                share(m_server.requests, m_sent.requests),
                share(m_server.sentBytes, m_sent.sentBytes));
    std::printf("  %-24s %12.1f million requests, %.4f TB to clients\n", "ten million clients",
                perClient(m_sent.requests) * manyClients / 1e6,
                perClient(m_sent.sentBytes) * manyClients / TB);
    return isKept;
}

int refuse(const QString& reason)
{
    std::fprintf(stderr, "bench_scale: %s\n", qPrintable(reason));
    return 1;
}

/// Gives every real client the theme, which it updates later.
QString fetchTheme(const Case& present)
{
    QString error;
    for (int client = 0; client < realClients && error.isEmpty(); ++client)
        error = RealClient::run(RealClient::Action::Fetch, present.placeOf(client));
    return error;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (RealClient::isWanted(QCoreApplication::arguments()))
        return RealClient::main(QCoreApplication::arguments());
    const BenchHome home;
    ScaleWorld world(home.path());
    if (!world.publish())
        return refuse(world.errorText());

    Case firstStart("first start", world, home);
    Case nothingNew("nothing has changed", world, home);
    Case oneTheme("one theme has changed", world, home);
    if (!firstStart.run(RealClient::Action::Check))
        return refuse(firstStart.errorText());
    const QString error = fetchTheme(firstStart);
    if (!error.isEmpty())
        return refuse(error);
    if (!nothingNew.run(RealClient::Action::Check))
        return refuse(nothingNew.errorText());
    if (!world.changeTheme())
        return refuse(world.errorText());
    if (!oneTheme.run(RealClient::Action::Update))
        return refuse(oneTheme.errorText());
    std::printf("list of files: %lld bytes, catalogues: %lld, pictures: %lld, changed: %lld\n",
                static_cast<long long>(world.listBytes()),
                static_cast<long long>(world.catalogueBytes()),
                static_cast<long long>(ScaleWorld::pictureBytes()),
                static_cast<long long>(ScaleWorld::changedBytes()));
    bool isKept = nothingNew.report({1, 0});
    isKept &= oneTheme.report({releaseFiles + ScaleWorld::changedFiles(),
                               world.listBytes() + ScaleWorld::changedBytes() + releaseBytes});
    isKept &= firstStart.report(
        {releaseFiles + catalogueFiles + ScaleWorld::pictures(),
         world.listBytes() + world.catalogueBytes() + releaseBytes + ScaleWorld::pictureBytes()});
    return isKept ? 0 : 1;
}
