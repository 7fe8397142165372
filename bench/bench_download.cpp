// Compares downloads with the same transfers through a bare libcurl handle.

#include "BenchHome.h"
#include "BodyServer.h"
#include "host/CurWrapper.h"
#include "Ratios.h"

#include <QCoreApplication>
#include <QDir>

#include <csignal>
#include <cstdio>
#include <memory>

#include <curl/curl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int smallFiles = 1000;
constexpr qint64 smallSize = 20 * 1000;
constexpr qint64 largeSize = 1000 * 1000 * 1000;
constexpr int smallRepetitions = 9;
constexpr int largeRepetitions = 3;
constexpr double highestRatio = 1.15;

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

    QString url(qint64 size, int number) const
    {
        return QStringLiteral("http://127.0.0.1:%1/%2/%3").arg(m_port).arg(size).arg(number);
    }

private:
    pid_t m_child = -1;
    quint16 m_port = 0;
};

struct Load
{
    int files;
    qint64 size;
};

QString fileName(const QString& folder, int number)
{
    return QStringLiteral("%1/%2.bin").arg(folder).arg(number);
}

/// Gives both sides an empty folder, since downloads store new files, and a file system without
/// work pending from the previous run.
void empty(benchmark::State& state, const QString& folder)
{
    state.PauseTiming();
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    ::sync();
    state.ResumeTiming();
}

void measureWrapper(benchmark::State& state, const ServerProcess& server, const QString& folder,
                    const Load& load)
{
    CurWrapper wrapper;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        empty(state, folder);
        for (int i = 0; i < load.files; ++i) {
            wrapper.download(server.url(load.size, i), fileName(folder, i), false);
            if (wrapper.result() != 0)
                state.SkipWithError(qPrintable(wrapper.errorText()));
        }
    }
}

void measureBareLibcurl(benchmark::State& state, const ServerProcess& server, const QString& folder,
                        const Load& load)
{
    const std::unique_ptr<CURL, void (*)(CURL*)> easy(curl_easy_init(), &curl_easy_cleanup);
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        empty(state, folder);
        for (int i = 0; i < load.files; ++i) {
            const QByteArray url = server.url(load.size, i).toUtf8();
            std::FILE* const file = std::fopen(fileName(folder, i).toLocal8Bit().constData(), "wb");
            if (file == nullptr)
                qFatal("no file to write to");
            curl_easy_setopt(easy.get(), CURLOPT_URL, url.constData());
            curl_easy_setopt(easy.get(), CURLOPT_WRITEDATA, file); // libcurl's own fwrite
            const bool ok = curl_easy_perform(easy.get()) == CURLE_OK;
            if (std::fclose(file) != 0 || !ok)
                state.SkipWithError("transfer failed");
        }
    }
}

void addPair(Ratios& ratios, const ServerProcess& server, const QString& folder,
             const std::string& name, const Load& load, int repetitions)
{
    benchmark::RegisterBenchmark(("download_" + name).c_str(),
                                 [&server, folder, load](benchmark::State& state) {
                                     measureWrapper(state, server, folder, load);
                                 })
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(repetitions)
        ->Iterations(1)
        ->UseRealTime();
    benchmark::RegisterBenchmark(("floor_" + name).c_str(),
                                 [&server, folder, load](benchmark::State& state) {
                                     measureBareLibcurl(state, server, folder, load);
                                 })
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(repetitions)
        ->Iterations(1)
        ->UseRealTime();
    ratios.limit("download_" + name, "download_" + name, "floor_" + name, highestRatio);
}

} // namespace

int main(int argc, char** argv)
{
    const ServerProcess server;
    const QCoreApplication application(argc, argv);
    const BenchHome home;
    const QString folder = home.path() + QStringLiteral("/files");

    Ratios ratios;
    addPair(ratios, server, folder, "1000x20kB", {smallFiles, smallSize}, smallRepetitions);
    addPair(ratios, server, folder, "1x1GB", {1, largeSize}, largeRepetitions);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return ratios.finish();
}
