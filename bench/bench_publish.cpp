// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Measures building and checking a server's tree, and how the cost grows with the number of items.

#include "BenchHome.h"
#include "catalogue/MVThemeMgr.h"
#include "FolderSwitch.h"
#include "lint/Lint.h"
#include "Ratios.h"
#include "Source.h"
#include "SourceWorld.h"
#include "tree/ReadTree.h"
#include "TreeBuilder.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <map>
#include <memory>

#include <malloc.h>

namespace {

constexpr int sizes[] = {2000, 10000};
constexpr int repetitions = 5;
// Five times the items, plus an allowance for caches that no longer hold the whole tree.
constexpr double highestGrowth = 6.5;

using Worlds = std::map<int, std::unique_ptr<SourceWorld>>;

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
    return place.commit() ? QString() : place.errorText();
}

void measureBuild(benchmark::State& state, const SourceWorld& world)
{
    QString error;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        error = build(world);
    }
    if (!error.isEmpty())
        state.SkipWithError(qPrintable(error));
}

void measureLint(benchmark::State& state, const SourceWorld& world)
{
    int findings = 0;
    QString error;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        ReadTree tree;
        if (tree.open(world.tree(), &error))
            findings = Lint::check(tree).size();
        ReadTree::library().clear();
    }
    if (!error.isEmpty() || findings != 0)
        state.SkipWithError("the tree is not clean");
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
    const auto add = [&worlds](const char* name, auto measure) {
        for (const int items : sizes) {
            benchmark::RegisterBenchmark(name,
                                         [&worlds, measure](benchmark::State& state) {
                                             measure(state,
                                                     *worlds.at(static_cast<int>(state.range(0))));
                                         })
                ->Arg(items)
                ->Unit(benchmark::kMillisecond)
                ->Iterations(1)
                ->Repetitions(repetitions)
                ->UseRealTime();
        }
    };
    add("build", &measureBuild);
    add("lint", &measureLint);
    ratios.limit("build/10000 to build/2000", "build/10000", "build/2000", highestGrowth);
    ratios.limit("lint/10000 to lint/2000", "lint/10000", "lint/2000", highestGrowth);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return ratios.finish();
}
