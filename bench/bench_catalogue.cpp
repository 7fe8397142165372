// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Compares loading a catalogue with its minimum cost.
//
//     bench_catalogue               times, peak memory, and one line per limit
//     bench_catalogue --peak WHAT FOLDER   loads once ("load", "floor" or "parse"), for the peak
//     memory of a process

#include "BenchHome.h"
#include "catalogue/MVThemeMgr.h"
#include "CatalogueFloor.h"
#include "CatalogueWorld.h"
#include "Ratios.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <cstdio>
#include <map>
#include <memory>

#include <malloc.h>

namespace {

constexpr int sizes[] = {500, 2000, 10000};
constexpr int largest = 10000;
constexpr int manyFilters = 300000;   // as many as the limits on markup allow
constexpr double highestManyTime = 5; // times parsing both files
constexpr int repetitions = 7;
constexpr double highestTime = 1.5;   // times the floor
constexpr double highestGrowth = 5.5; // from 2,000 to 10,000 themes

using Worlds = std::map<int, std::unique_ptr<CatalogueWorld>>;

void measureLoad(benchmark::State& state, const Worlds& worlds)
{
    const int themes = static_cast<int>(state.range(0));
    worlds.at(themes)->use();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        MVThemeMgr::init()->load(true);
    }
    if (MVThemeMgr::init()->getThemes_Display().size() != themes)
        state.SkipWithError("not every theme was loaded");
}

void measureFloor(benchmark::State& state, const Worlds& worlds)
{
    const int themes = static_cast<int>(state.range(0));
    worlds.at(themes)->use();
    CatalogueFloor floor(*worlds.at(themes));
    int present = 0;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        present = floor.read();
    }
    if (present != 2 * themes)
        state.SkipWithError("not every preview was found");
}

void measureLoadMany(benchmark::State& state, const CatalogueWorld& world)
{
    world.use();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        MVThemeMgr::init()->load(true);
    }
    if (MVThemeMgr::init()->getFilters_Display().size() != manyFilters)
        state.SkipWithError("not every filter was loaded");
}

void measureParseMany(benchmark::State& state, const CatalogueWorld& world)
{
    world.use();
    const CatalogueFloor floor(world);
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        floor.parseOnly();
    }
}

/// Loads each once, since one load takes seconds.
void addMany(Ratios& ratios, const CatalogueWorld& world)
{
    const auto add = [&world](const char* name, auto measure) {
        benchmark::RegisterBenchmark(
            name, [&world, measure](benchmark::State& state) { measure(state, world); })
            ->Arg(manyFilters)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1)
            ->Repetitions(repetitions)
            ->UseRealTime();
    };
    add("load_filters", &measureLoadMany);
    add("floor_parse", &measureParseMany);
    const std::string size = "/" + std::to_string(manyFilters);
    ratios.limit("load" + size, "load_filters" + size, "floor_parse" + size, highestManyTime);
}

/// Returns the peak memory of this program; getrusage() would include its parent's.
long peakKilobytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const int at = text.indexOf("VmHWM:") + 6;
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toLong();
}

void reportOwnPeak(const QString& what, const QString& folder)
{
    const CatalogueWorld world(folder);
    const long before = peakKilobytes();
    if (what == QLatin1String("load"))
        MVThemeMgr::init()->load(true);
    else if (what == QLatin1String("parse"))
        CatalogueFloor(world).parseOnly();
    else
        CatalogueFloor(world).read();
    std::printf("%ld", peakKilobytes() - before);
}

/// Measures in a separate process, since the peak never decreases.
double peakMegabytes(const QString& what, const QString& folder)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--peak"), what, folder});
    child.waitForFinished(-1);
    return child.readAllStandardOutput().toDouble() / 1024.0;
}

} // namespace

int main(int argc, char** argv)
{
    // The C library merges its fast bins in steps whose cost outgrows the data: with them even the
    // floor, Qt's parser, takes six times as long for five times the themes. Off for both.
    mallopt(M_MXFAST, 0);

    const QCoreApplication application(argc, argv);
    const BenchHome home;
    if (argc == 4 && QByteArray(argv[1]) == "--peak") {
        reportOwnPeak(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
        return 0;
    }
    Worlds worlds;
    const auto folderOf = [&home](int themes) {
        return QStringLiteral("%1/%2").arg(home.path()).arg(themes);
    };
    for (const int themes : sizes) {
        worlds.emplace(themes, std::make_unique<CatalogueWorld>(folderOf(themes)));
        worlds.at(themes)->write(themes);
    }
    Ratios ratios;
    for (const int themes : sizes) {
        for (const bool floor : {false, true}) {
            benchmark::RegisterBenchmark(floor ? "floor" : "load",
                                         [&worlds, floor](benchmark::State& state) {
                                             floor ? measureFloor(state, worlds)
                                                   : measureLoad(state, worlds);
                                         })
                ->Arg(themes)
                ->Unit(benchmark::kMillisecond)
                ->Repetitions(repetitions)
                ->UseRealTime();
        }
        const std::string size = "/" + std::to_string(themes);
        ratios.limit("load" + size, "load" + size, "floor" + size, highestTime);
    }
    const CatalogueWorld many(folderOf(manyFilters));
    many.writeFilters(manyFilters);
    addMany(ratios, many);
    ratios.limit("load/10000 to load/2000", "load/10000", "load/2000", highestGrowth);

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    std::printf("peak memory of loading %d themes: %.1f MB, of the floor: %.1f MB\n", largest,
                peakMegabytes(QStringLiteral("load"), folderOf(largest)),
                peakMegabytes(QStringLiteral("floor"), folderOf(largest)));
    std::printf("peak memory of loading %d filters: %.1f MB, of parsing them: %.1f MB\n",
                manyFilters, peakMegabytes(QStringLiteral("load"), folderOf(manyFilters)),
                peakMegabytes(QStringLiteral("parse"), folderOf(manyFilters)));
    return ratios.finish();
}
