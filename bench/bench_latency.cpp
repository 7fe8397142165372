// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Measures downloads from a server that takes 40 ms to answer, as a distant one does, against the
// curl program with as many transfers at a time: a first check and a theme of 22 files. Without the
// delay, several transfers at a time are compared with one; and many files over HTTP/2.

#include "BenchHome.h"
#include "CheckWorld.h"
#include "CurlList.h"
#include "DelayProxy.h"
#include "download/MVThemeDownLoader.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "host/HostSettings.h"
#include "host/TransferPool.h"
#include "Ratios.h"
#include "records/SCfg_Item.h"
#include "support/CatalogueFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>

#include <cstdio>
#include <functional>

#include <unistd.h>

namespace {

constexpr int themes = 1000;
constexpr int atOnce = 6;
constexpr int streams = 50; // curl's own limit for one connection
constexpr int delayMs = 40;
constexpr int themeFiles = 22;
constexpr int themeFileSize = 250 * 1000 / themeFiles;
constexpr int longRepetitions = 2;
constexpr int repetitions = 5;
constexpr double highestForCheck = 1.15;
constexpr double highestForTheme = 1.25;
constexpr double highestWithoutDelay = 1.0;
constexpr double highestForHttp2 = 1.25;

/// Runs a check and the preview run that follows it; returns the number of previews fetched.
int checkOnce()
{
    using Coordinator = MVThemeDownLoader_CheckCfg;
    int fetched = 0;
    QEventLoop loop;
    Coordinator::setPreviewRunCallback([&](const SPreviewRunResult& told) {
        fetched = told.m_nFetched;
        // Quits after the event that frees the coordinator for the next run.
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    Coordinator::instance()->startDownloadXML();
    loop.exec();
    return fetched;
}

/// Gives both sides an empty folder and a file system without pending work.
void beginAgain(benchmark::State& state, const CheckWorld& world)
{
    state.PauseTiming();
    world.forget();
    ::sync();
    state.ResumeTiming();
}

struct Setting
{
    int delay;     // milliseconds before every answer
    int transfers; // at a time
};

class Latency
{
public:
    Latency(CheckWorld& world, const BenchHome& home)
        : m_world(world)
        , m_home(home)
        , m_proxy(world.port())
    {
        m_world.setAddress(m_proxy.url());
        m_world.forget();
    }

    void check(benchmark::State& state, const Setting& setting)
    {
        use(setting);
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            beginAgain(state, m_world);
            if (checkOnce() != 2 * themes)
                state.SkipWithError("not everything was fetched");
        }
    }
    void curlCheck(benchmark::State& state, const Setting& setting)
    {
        CurlList list(m_home.path() + QStringLiteral("/check.list"));
        const QStringList urls = m_world.urls();
        const QStringList files = m_world.files();
        for (int i = 0; i < urls.size(); ++i)
            list.add(urls.at(i), m_world.download() + QLatin1Char('/') + files.at(i));
        curl(state, setting, list, {});
    }

    void theme(benchmark::State& state, const Setting& setting)
    {
        use(setting);
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            beginAgain(state, m_world);
            SCfg_Item item = themeItem();
            MVThemeDownLoader loader(nullptr);
            loader.download(&item);
            loader.wait();
            if (loader.outcome().m_eEnd != eItemDownload_Complete)
                state.SkipWithError(qPrintable(loader.errorText()));
        }
    }
    void curlTheme(benchmark::State& state, const Setting& setting)
    {
        CurlList list(m_home.path() + QStringLiteral("/theme.list"));
        for (int i = 0; i < themeFiles; ++i) {
            list.add(m_proxy.url() + themeFile(i),
                     m_world.download() + QStringLiteral("/theme%1").arg(i));
        }
        curl(state, setting, list, {});
    }

    void http2(benchmark::State& state)
    {
        use({0, atOnce});
        hostSettings().caFile = m_world.certificate();
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            beginAgain(state, m_world);
            TransferPool pool(hostSettings().transfersSideBySide);
            const QStringList urls = m_world.secureUrls();
            for (int i = 0; i < urls.size(); ++i) {
                TransferPool::Job job;
                job.url = urls.at(i);
                job.file = secureFile(i);
                job.ended = [&](const STransferOutcome& outcome) {
                    if (outcome.m_failure.isFailure())
                        state.SkipWithError(qPrintable(outcome.m_failure.m_qsDetails));
                };
                pool.start(std::move(job));
            }
            while (pool.isBusy())
                pool.step();
        }
        hostSettings().caFile.clear();
    }
    void curlHttp2(benchmark::State& state)
    {
        CurlList list(m_home.path() + QStringLiteral("/secure.list"));
        const QStringList urls = m_world.secureUrls();
        for (int i = 0; i < urls.size(); ++i)
            list.add(urls.at(i), secureFile(i));
        curl(state, {0, streams}, list,
             {QStringLiteral("--http2"), QStringLiteral("--cacert"), m_world.certificate()});
    }

    /// Writes the files of the theme into the server's tree.
    void publishTheme() const
    {
        for (int i = 0; i < themeFiles; ++i) {
            CatalogueFiles::write(m_world.tree() + QLatin1Char('/') + themeFile(i),
                                  i == 0 ? CatalogueFiles::document(QByteArray())
                                         : QByteArray(themeFileSize, 'z'));
        }
    }

private:
    void use(const Setting& setting)
    {
        m_proxy.setDelay(setting.delay);
        hostSettings().transfersSideBySide = setting.transfers;
    }

    void curl(benchmark::State& state, const Setting& setting, const CurlList& list,
              const QStringList& options)
    {
        m_proxy.setDelay(setting.delay);
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            beginAgain(state, m_world);
            if (!list.fetch(setting.transfers, options))
                state.SkipWithError("curl failed");
        }
    }

    QString secureFile(int number) const
    {
        return m_world.download() + QStringLiteral("/secure%1").arg(number);
    }

    /// The config, a thumbnail, a preview, and archives.
    static QString themeFile(int number)
    {
        if (number == 0)
            return QStringLiteral("config/Themes/one.xml");
        if (number == 1)
            return QStringLiteral("display/Themes/one.jpg");
        return number == 2 ? QStringLiteral("display/Themes/one.gif")
                           : QStringLiteral("config/Themes/one%1.zip").arg(number);
    }
    static SCfg_Item themeItem()
    {
        SCfg_Item item;
        item.m_eType = eCfgItem_Theme;
        item.m_qsGUID = CatalogueFiles::guid(themes + 1);
        item.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/one.xml");
        item.m_info_Thumb.m_qsUrl = QStringLiteral("one.jpg");
        item.m_info_Gif.m_qsUrl = QStringLiteral("one.gif");
        for (int i = 3; i < themeFiles; ++i) {
            SFileInfo info;
            info.m_qsUrl = QStringLiteral("/Themes/one%1.zip").arg(i);
            item.m_vecResource.append(info);
        }
        return item;
    }

    CheckWorld& m_world;
    const BenchHome& m_home;
    DelayProxy m_proxy;
};

void add(const char* name, int times, const std::function<void(benchmark::State&)>& measure)
{
    benchmark::RegisterBenchmark(name, measure)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(times)
        ->Iterations(1)
        ->UseRealTime();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const BenchHome home;
    hostSettings().downloadStepMs = 0;
    CheckWorld world(home.path());
    if (!world.publish(themes)) {
        std::fprintf(stderr, "bench_latency: nginx does not run: %s\n",
                     qPrintable(world.errorText()));
        return 1;
    }
    Latency latency(world, home);
    latency.publishTheme();

    const Setting distant = {delayMs, atOnce};
    Ratios ratios;
    using State = benchmark::State;
    add("check_40ms", longRepetitions, [&](State& state) { latency.check(state, distant); });
    add("floor_check_40ms", longRepetitions,
        [&](State& state) { latency.curlCheck(state, distant); });
    ratios.limit("first check, 40 ms", "check_40ms", "floor_check_40ms", highestForCheck);
    add("theme_40ms", repetitions, [&](State& state) { latency.theme(state, distant); });
    add("floor_theme_40ms", repetitions, [&](State& state) { latency.curlTheme(state, distant); });
    ratios.limit("theme of 22 files, 40 ms", "theme_40ms", "floor_theme_40ms", highestForTheme);
    add("check_six", repetitions, [&](State& state) { latency.check(state, {0, atOnce}); });
    add("check_one", repetitions, [&](State& state) { latency.check(state, {0, 1}); });
    ratios.limit("six transfers, no delay", "check_six", "check_one", highestWithoutDelay);
    add("http2", repetitions, [&](State& state) { latency.http2(state); });
    add("floor_http2", repetitions, [&](State& state) { latency.curlHttp2(state); });
    ratios.limit("HTTP/2", "http2", "floor_http2", highestForHttp2);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return ratios.finish();
}
