// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Measures building and checking a server's tree with its release against the least that this
// takes, and how the cost grows with the number of items.

#include "BenchHome.h"
#include "catalogue/MVThemeMgr.h"
#include "FolderSwitch.h"
#include "lint/Lint.h"
#include "PublishFloor.h"
#include "Ratios.h"
#include "release/ReleaseClock.h"
#include "release/ReleaseWriter.h"
#include "Source.h"
#include "SourceWorld.h"
#include "tree/ReadTree.h"
#include "TreeBuilder.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include <malloc.h>

namespace {

constexpr int sizes[] = {2000, 10000};
constexpr int repetitions = 5;
// Five times the items, plus an allowance for caches that no longer hold the whole tree.
constexpr double highestGrowth = 6.5;
// Against reading, hashing, writing and linking every file, and decoding every picture once.
constexpr double highestBuild = 3.0;
constexpr double highestLint = 2.0;

using Worlds = std::map<int, std::unique_ptr<SourceWorld>>;

/// Returns an error; empty: the tree is clean.
QString lint(const QString& folder)
{
    ReadTree tree;
    QString error;
    if (tree.open(folder, &error) && !Lint::check(tree).isEmpty())
        error = QStringLiteral("the tree is not clean");
    ReadTree::library().clear();
    return error;
}

/// Does what mvpublish build does: documents and files, the release with all digests, the checks,
/// and the exchange with the tree of the run before.
QString build(const SourceWorld& world)
{
    Source source;
    if (!source.read(world.source()))
        return source.faults().constFirst();
    FolderSwitch place(world.tree());
    if (!place.begin())
        return place.errorText();
    TreeBuilder builder(source);
    if (!builder.writeServer(place.folder(), {Editions::all().constFirst()}))
        return builder.errorText();
    ReleaseWriter writer(place.folder(), place.target());
    ReleaseOptions options;
    options.catalogueVersion = source.version();
    options.now = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch(), Qt::UTC);
    options.newestInput = ReleaseClock::newestIn(source.folder());
    options.renew = true;
    if (!writer.write(builder.files(), options))
        return writer.errorText();
    QString fault = lint(place.folder());
    if (!fault.isEmpty())
        return fault;
    return place.commit() ? QString() : place.errorText();
}

/// Measures work that returns an error; empty: success.
void measure(benchmark::State& state, const std::function<QString()>& work)
{
    QString error;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        error = work();
    }
    if (!error.isEmpty())
        state.SkipWithError(qPrintable(error));
}

} // namespace

int main(int argc, char** argv)
{
    // The C library merges its fast bins in steps whose cost outgrows the data.
    mallopt(M_MXFAST, 0);

    // Tens of thousands of small files: on a disk, its other work would dominate the result.
    if (qEnvironmentVariableIsEmpty("TMPDIR") && QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");

    const QCoreApplication application(argc, argv);
    const BenchHome home;
    Worlds worlds;
    Ratios ratios;
    for (const int items : sizes) {
        auto world =
            std::make_unique<SourceWorld>(QStringLiteral("%1/%2").arg(home.path()).arg(items));
        world->write(items);
        const QString error = build(*world);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
        worlds.emplace(items, std::move(world));
    }
    const auto add = [&worlds](const char* name, QString (*work)(const SourceWorld&)) {
        for (const int items : sizes) {
            const SourceWorld& world = *worlds.at(items);
            benchmark::RegisterBenchmark(name,
                                         [&world, work](benchmark::State& state) {
                                             measure(state, [&] { return work(world); });
                                         })
                ->Arg(items)
                ->Unit(benchmark::kMillisecond)
                ->Iterations(1)
                ->Repetitions(repetitions)
                ->UseRealTime();
        }
    };
    add("build", &build);
    add("lint", [](const SourceWorld& world) { return lint(world.tree()); });
    add("floor", [](const SourceWorld& world) {
        return PublishFloor(world.tree(), world.source() + QStringLiteral("-floor")).run();
    });
    for (const int items : sizes) {
        const std::string size = '/' + std::to_string(items);
        ratios.limit("build" + size, "build" + size, "floor" + size, highestBuild);
        ratios.limit("lint" + size, "lint" + size, "floor" + size, highestLint);
    }
    ratios.limit("build/10000 to build/2000", "build/10000", "build/2000", highestGrowth);
    ratios.limit("lint/10000 to lint/2000", "lint/10000", "lint/2000", highestGrowth);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return ratios.finish();
}
