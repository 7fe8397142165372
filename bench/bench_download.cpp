// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Compares downloads with the same transfers through a bare libcurl handle.

#include "BenchHome.h"
#include "BodyServer.h"
#include "host/ContentDigest.h"
#include "host/CurWrapper.h"
#include "host/SPublishedContent.h"
#include "Ratios.h"

#include <QCoreApplication>
#include <QDir>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>
#include <thread>

#include <curl/curl.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int smallFiles = 1000;
constexpr qint64 smallSize = 20 * 1000;
constexpr qint64 largeSize = 1000 * 1000 * 1000;
constexpr int smallRepetitions = 9;
constexpr int maxWaitMs = 1000;
constexpr int largeRepetitions = 3;
constexpr double highestRatio = 1.15;
constexpr double highestDigestRatio = 1.1;
/// ext4 creates files several times slower for five seconds after many were removed.
constexpr std::chrono::seconds settling(6);
/// A file system in memory, where no disk hides what the code costs.
const QLatin1String memory("/dev/shm");
constexpr qint64 memoryNeeded = 3 * smallRepetitions * smallFiles * smallSize;

/// Runs the server's process, which ends with this object.
class ServerProcess
{
public:
    ServerProcess()
    {
        const BodyServer server;
        m_port = server.port();
        m_child = ::fork();
        if (m_child == 0)
            server.serveForever();
    }
    ~ServerProcess()
    {
        ::kill(m_child, SIGKILL);
        ::waitpid(m_child, nullptr, 0);
    }
    Q_DISABLE_COPY_MOVE(ServerProcess)

    pid_t process() const { return m_child; }
    QString url(qint64 size, int number) const
    {
        return QStringLiteral("http://127.0.0.1:%1/%2/%3").arg(m_port).arg(size).arg(number);
    }

private:
    pid_t m_child = -1;
    quint16 m_port = 0;
};

/// Measures the processor time of this program and the server, both bound to one processor while
/// the object exists. For small files in memory, other programs decide the time that passes, and
/// chance decides whether the two share a processor.
class ProcessorTime
{
public:
    explicit ProcessorTime(pid_t server)
        : m_server(server)
    {
        ::sched_getaffinity(0, sizeof m_before, &m_before);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(::sched_getcpu(), &one);
        bind(one);
    }
    ~ProcessorTime() { bind(m_before); }
    Q_DISABLE_COPY_MOVE(ProcessorTime)

    double seconds() const { return used(::getpid()) + used(m_server); }

private:
    void bind(const cpu_set_t& processors) const
    {
        for (const pid_t process : {::getpid(), m_server})
            ::sched_setaffinity(process, sizeof processors, &processors);
    }

    static double used(pid_t process)
    {
        clockid_t clock = 0;
        timespec time = {};
        if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
            qFatal("no processor time of process %d", int(process));
        constexpr double nanosecond = 1e-9;
        return double(time.tv_sec) + double(time.tv_nsec) * nanosecond;
    }

    pid_t m_server;
    cpu_set_t m_before;
};

struct Load
{
    int files;
    qint64 size;
    int repetitions;
    bool isProcessorTime = false;     // rather than the time that passes
    SPublishedContent published = {}; // if known, its digest is computed
};

/// On a disk, a single run may be much faster than the others.
Ratios::Compared compared(const Load& load)
{
    return load.isProcessorTime ? Ratios::Compared::Best : Ratios::Compared::Median;
}

QString fileName(const QString& folder, int number)
{
    return QStringLiteral("%1/%2.bin").arg(folder).arg(number);
}

/// Makes an empty folder, since downloads store new files, on a file system without work pending
/// from the previous run, and returns it. Removes only the large files of earlier runs, see
/// `settling`.
QString emptyFolder(benchmark::State& state, const QString& parent, const Load& load)
{
    static int count = 0;
    state.PauseTiming();
    if (load.size == largeSize)
        QDir(parent).removeRecursively();
    const QString folder = QStringLiteral("%1/%2").arg(parent).arg(++count);
    QDir().mkpath(folder);
    ::sync();
    state.ResumeTiming();
    return folder;
}

/// Returns the content that the server sends for every file of that size.
SPublishedContent publishedBy(const ServerProcess& server, const QString& folder, qint64 size)
{
    QDir().mkpath(folder);
    const QString file = fileName(folder, 0);
    CurWrapper wrapper;
    wrapper.download(server.url(size, 0), file, false);
    return {ContentDigest::ofFile(file), size};
}

void measureWrapper(benchmark::State& state, const ServerProcess& server, const QString& parent,
                    const Load& load)
{
    std::optional<ProcessorTime> clock;
    if (load.isProcessorTime)
        clock.emplace(server.process());
    CurWrapper wrapper;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const QString folder = emptyFolder(state, parent, load);
        const double begin = clock ? clock->seconds() : 0;
        for (int i = 0; i < load.files; ++i) {
            wrapper.downloadPublished(server.url(load.size, i), fileName(folder, i), QString(),
                                      load.published);
            if (wrapper.result() != 0)
                state.SkipWithError(qPrintable(wrapper.errorText()));
        }
        if (clock)
            state.SetIterationTime(clock->seconds() - begin);
    }
}

struct FreeEasy
{
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct FreeList
{
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
struct FreeMulti
{
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};

/// Fetches one file by the same request, with as few calls of libcurl as possible. Each file has a
/// handle of its own, as in the curl program, and the connection is kept by `connections`: reusing
/// a handle is unsafe before libcurl 8.0, see HttpTransfer.
bool fetchBare(CURLM* connections, const QByteArray& url, std::FILE* file)
{
    const std::unique_ptr<curl_slist, FreeList> fields(
        curl_slist_append(nullptr, "Accept-Encoding: identity"));
    const std::unique_ptr<CURL, FreeEasy> easy(curl_easy_init());
    curl_easy_setopt(easy.get(), CURLOPT_URL, url.constData());
    curl_easy_setopt(easy.get(), CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy.get(), CURLOPT_USERAGENT, "mvresource");
    curl_easy_setopt(easy.get(), CURLOPT_HTTPHEADER, fields.get());
    curl_easy_setopt(easy.get(), CURLOPT_WRITEDATA, file); // libcurl's own fwrite
    curl_multi_add_handle(connections, easy.get());
    int unfinished = 1;
    while (curl_multi_perform(connections, &unfinished) == CURLM_OK && unfinished > 0)
        curl_multi_poll(connections, nullptr, 0, maxWaitMs, nullptr);
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(connections, &left);
    const bool ok = message != nullptr && message->data.result == CURLE_OK;
    curl_multi_remove_handle(connections, easy.get());
    return ok;
}

void measureBareLibcurl(benchmark::State& state, const ServerProcess& server, const QString& parent,
                        const Load& load)
{
    std::optional<ProcessorTime> clock;
    if (load.isProcessorTime)
        clock.emplace(server.process());
    const std::unique_ptr<CURLM, FreeMulti> connections(curl_multi_init());
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const QString folder = emptyFolder(state, parent, load);
        const double begin = clock ? clock->seconds() : 0;
        for (int i = 0; i < load.files; ++i) {
            const QByteArray url = server.url(load.size, i).toUtf8();
            std::FILE* const file = std::fopen(fileName(folder, i).toLocal8Bit().constData(), "wb");
            if (file == nullptr)
                qFatal("no file to write to");
            const bool ok = fetchBare(connections.get(), url, file);
            if (std::fclose(file) != 0 || !ok)
                state.SkipWithError("transfer failed");
        }
        if (clock)
            state.SetIterationTime(clock->seconds() - begin);
    }
}

template <typename Measure>
void addMeasurement(const std::string& name, const Load& load, const Measure& measure)
{
    auto* const added = benchmark::RegisterBenchmark(name.c_str(), measure);
    added->Unit(benchmark::kMillisecond)->Repetitions(load.repetitions)->Iterations(1);
    if (load.isProcessorTime)
        added->UseManualTime();
    else
        added->UseRealTime();
}

void addPair(Ratios& ratios, const ServerProcess& server, const QString& folder,
             const std::string& name, const Load& load)
{
    const auto add = [&](const std::string& benchmark, auto measure) {
        addMeasurement(benchmark, load, [&server, folder, load, measure](benchmark::State& state) {
            measure(state, server, folder, load);
        });
    };
    add("download_" + name, &measureWrapper);
    add("floor_" + name, &measureBareLibcurl);
    ratios.limit("download_" + name, "download_" + name, "floor_" + name, highestRatio,
                 compared(load));
}

/// Adds the same downloads with and without a digest of what arrives.
void addDigestPair(Ratios& ratios, const ServerProcess& server, const QString& folder,
                   const std::string& name, Load load)
{
    const auto add = [&](const std::string& benchmark, const Load& measured) {
        addMeasurement(benchmark, measured, [&server, folder, measured](benchmark::State& state) {
            measureWrapper(state, server, folder, measured);
        });
    };
    add("plain_" + name, load);
    load.published = publishedBy(server, folder, load.size);
    add("digest_" + name, load);
    ratios.limit("digest_" + name, "digest_" + name, "plain_" + name, highestDigestRatio,
                 compared(load));
}

/// Returns why small files cannot be measured in memory; empty if they can.
QString obstacleToMemory()
{
    const QStorageInfo storage(memory);
    if (!storage.isValid() || storage.isReadOnly() || storage.fileSystemType() != "tmpfs")
        return QStringLiteral("%1 is not a writable file system in memory").arg(memory);
    if (storage.bytesAvailable() < memoryNeeded) {
        return QStringLiteral("%1 has %2 bytes free, %3 are needed")
            .arg(memory)
            .arg(storage.bytesAvailable())
            .arg(memoryNeeded);
    }
    return {};
}

} // namespace

int main(int argc, char** argv)
{
    const ServerProcess server;
    const QCoreApplication application(argc, argv);
    const BenchHome home;
    const QString folder = home.path() + QStringLiteral("/files");

    Ratios ratios;
    addPair(ratios, server, folder, "1000x20kB", {smallFiles, smallSize, smallRepetitions});
    const QTemporaryDir inMemory(memory + QStringLiteral("/mv-bench-XXXXXX"));
    const QString obstacle = inMemory.isValid() ? obstacleToMemory() : inMemory.errorString();
    if (obstacle.isEmpty()) {
        addPair(ratios, server, inMemory.path() + QStringLiteral("/files"), "1000x20kB_memory",
                {smallFiles, smallSize, smallRepetitions, true});
    } else {
        std::printf("download_1000x20kB_memory skipped: %s\n", qPrintable(obstacle));
    }
    const QString large = home.path() + QStringLiteral("/large");
    addPair(ratios, server, large, "1x1GB", {1, largeSize, largeRepetitions});
    addDigestPair(ratios, server, folder, "1000x20kB", {smallFiles, smallSize, smallRepetitions});
    addDigestPair(ratios, server, large, "1x1GB", {1, largeSize, smallRepetitions});
    std::this_thread::sleep_for(settling);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return ratios.finish();
}
