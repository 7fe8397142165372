// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Measures a check: a first one, which fetches everything, against the curl program fetching the
// same list over one connection, and a second one, which finds nothing to do.

#include "BenchHome.h"
#include "CheckWorld.h"
#include "CurlList.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "Ratios.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <cstdio>
#include <functional>

#include <unistd.h>

namespace {

constexpr int themes = 1000;
constexpr int repetitions = 5;
constexpr double highestRatio = 1.25;
constexpr int settleMs = 200; // the server writes its log after its answers

struct Check
{
    ECatalogueCheckEnd end = eCatalogueCheck_Cancelled;
    SPreviewRunResult previews;
};

/// Runs a check and the preview run that follows it.
Check checkOnce()
{
    using Coordinator = MVThemeDownLoader_CheckCfg;
    Check result;
    QEventLoop loop;
    Coordinator::setCatalogueCheckCallback(
        [&](const SCatalogueCheckResult& told) { result.end = told.m_eEnd; });
    Coordinator::setPreviewRunCallback([&](const SPreviewRunResult& told) {
        result.previews = told;
        // Quits after the event that frees the coordinator for the next run.
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    Coordinator::instance()->startDownloadXML();
    loop.exec();
    return result;
}

/// Gives both sides an empty folder and a file system without pending work.
void beginAgain(benchmark::State& state, const CheckWorld& world)
{
    state.PauseTiming();
    world.forget();
    ::sync();
    state.ResumeTiming();
}

void measureFirst(benchmark::State& state, const CheckWorld& world)
{
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        beginAgain(state, world);
        const Check check = checkOnce();
        if (check.end != eCatalogueCheck_Changed || check.previews.m_nFetched != 2 * themes)
            state.SkipWithError("not everything was fetched");
    }
}

void measureSecond(benchmark::State& state)
{
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const Check check = checkOnce();
        if (check.end != eCatalogueCheck_Current || check.previews.m_nPresent != 2 * themes)
            state.SkipWithError("something was missing");
    }
}

void measureCurl(benchmark::State& state, const CheckWorld& world, const CurlList& list)
{
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        beginAgain(state, world);
        if (!list.fetch(1))
            state.SkipWithError("curl failed");
    }
}

/// Requires a check with nothing to do to request exactly the version file.
bool secondCheckAsksOnce(const CheckWorld& world)
{
    checkOnce(); // whichever was measured last
    QThread::msleep(settleMs);
    const int before = world.requests();
    checkOnce();
    QThread::msleep(settleMs);
    const int requests = world.requests() - before;
    std::printf("requests of a second check: %d limit 1\n", requests);
    return requests == 1;
}

void add(const char* name, int iterations, const std::function<void(benchmark::State&)>& measure)
{
    auto* const added = benchmark::RegisterBenchmark(name, measure);
    added->Unit(benchmark::kMillisecond)->Repetitions(repetitions)->UseRealTime();
    if (iterations > 0)
        added->Iterations(iterations);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const BenchHome home;
    CheckWorld world(home.path());
    if (!world.publish(themes)) {
        std::fprintf(stderr, "bench_check: nginx does not run: %s\n",
                     qPrintable(world.errorText()));
        return 1;
    }
    world.forget();
    CurlList list(home.path() + QStringLiteral("/curl.list"));
    const QStringList urls = world.urls();
    const QStringList files = world.files();
    for (int i = 0; i < urls.size(); ++i)
        list.add(urls.at(i), world.download() + QLatin1Char('/') + files.at(i));

    Ratios ratios;
    add("first_check", 1, [&](benchmark::State& state) { measureFirst(state, world); });
    add("floor_curl", 1, [&](benchmark::State& state) { measureCurl(state, world, list); });
    ratios.limit("first check", "first_check", "floor_curl", highestRatio);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);

    // Kept apart from the randomly ordered ones: it needs what a first check has fetched.
    world.forget();
    checkOnce();
    benchmark::ClearRegisteredBenchmarks();
    add("second_check", 0, [](benchmark::State& state) { measureSecond(state); });
    benchmark::RunSpecifiedBenchmarks(&ratios);
    const bool once = secondCheckAsksOnce(world);
    const int status = ratios.finish();
    return once ? status : 1;
}
