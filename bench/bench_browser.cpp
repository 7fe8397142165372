// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Compares a list of live cells with the same number of bare forms under the same style sheet.
//
//     bench_browser                        times, memory, one line per limit, and what it costs to
//                                          filter, to repaint a ring and to hover
//     bench_browser --memory WHAT FOLDER   fills one list ("list" or "floor"), for its memory

#include "BenchHome.h"
#include "browser/BrowserSkin.h"
#include "browser/mvThemelistview.h"
#include "BrowserFloor.h"
#include "BrowserReports.h"
#include "BrowserStage.h"
#include "BrowserWorld.h"
#include "Ratios.h"

#include <QApplication>
#include <QProcess>
#include <QUuid>

#include <cstdio>
#include <ctime>
#include <map>
#include <memory>

#include <malloc.h>

namespace {

constexpr int sizes[] = {100, 500, 2000};
constexpr int repetitions = 5;
constexpr double highestRatio = 1.3;  // times the floor
constexpr double highestGrowth = 4.4; // from 500 to 2,000 themes

struct Skins
{
    QString code;
    QString floor;
};

void fillList(mvThemelistview& list)
{
    list.initData(QUuid(), false);
    BrowserStage::settle();
}

void fillFloor(BaremvThemelistview& list)
{
    list.fill();
    BrowserStage::settle();
}

using Worlds = std::map<int, std::unique_ptr<BrowserWorld>>;

/// Returns the processor time of this single-threaded process, unaffected by other work.
double processorSeconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// Times `fill` on lists created by `open`; both belong to one side.
template <class Open, class Fill>
void measure(benchmark::State& state, const Worlds& worlds, const QString& skin, Open open,
             Fill fill)
{
    worlds.at(static_cast<int>(state.range(0)))->load();
    BrowserStage::dress(skin);
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        auto list = open();
        const double start = processorSeconds();
        fill(*list);
        state.SetIterationTime(processorSeconds() - start);
        list.reset();
        BrowserStage::settle();
    }
}

void addBenchmarks(Ratios& ratios, const Worlds& worlds, const Skins& skins)
{
    const auto finish = [](benchmark::internal::Benchmark* benchmark, int themes) {
        benchmark->Arg(themes)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(repetitions)
            ->Iterations(1)
            ->UseManualTime();
    };
    for (const int themes : sizes) {
        finish(benchmark::RegisterBenchmark("initData",
                                            [&worlds, &skins](benchmark::State& state) {
                                                measure(state, worlds, skins.code,
                                                        &BrowserStage::openList, &fillList);
                                            }),
               themes);
        finish(benchmark::RegisterBenchmark("floor",
                                            [&worlds, &skins](benchmark::State& state) {
                                                measure(state, worlds, skins.floor,
                                                        &BrowserStage::openFloor, &fillFloor);
                                            }),
               themes);
        const std::string size = "/" + std::to_string(themes);
        ratios.limit("initData" + size, "initData" + size, "floor" + size, highestRatio);
    }
    ratios.limit("initData/2000 to initData/500", "initData/2000", "initData/500", highestGrowth);
}

double heapMegabytes()
{
    const struct mallinfo2 info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / (1024.0 * 1024.0);
}

void reportOwnMemory(const QString& what, const QString& folder, const Skins& skins)
{
    BrowserWorld(folder).load();
    const bool isFloor = what == QLatin1String("floor");
    BrowserStage::dress(isFloor ? skins.floor : skins.code);
    const auto list = isFloor ? nullptr : BrowserStage::openList();
    const auto floor = isFloor ? BrowserStage::openFloor() : nullptr;
    const double before = heapMegabytes();
    isFloor ? fillFloor(*floor) : fillList(*list);
    std::printf("%f", heapMegabytes() - before);
}

/// Measures in a separate process that has created no list before.
double megabytes(const char* what, const QString& folder)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--memory"), QLatin1String(what), folder});
    child.waitForFinished(-1);
    return child.readAllStandardOutput().toDouble();
}

template <class List>
QStringList layoutOfFirstCell(const List& list)
{
    const auto* const cell = list.template findChild<QWidget*>(QStringLiteral("MVThemeItemWdg"));
    return BrowserFloor::layoutOf(*cell);
}

/// Returns whether both sides lay out the same: a floor that shows less would prove nothing.
bool comparesLikeWithLike(const Skins& skins)
{
    BrowserStage::dress(skins.code);
    auto list = BrowserStage::openList();
    fillList(*list);
    const QStringList expected = layoutOfFirstCell(*list);
    list.reset();
    BrowserStage::dress(skins.floor);
    const auto floor = BrowserStage::openFloor();
    fillFloor(*floor);
    const QStringList found = layoutOfFirstCell(*floor);
    if (found == expected)
        return true;
    std::printf("the list's cell:\n  %s\nis not like the floor's:\n  %s\n",
                qPrintable(expected.join(QStringLiteral("\n  "))),
                qPrintable(found.join(QStringLiteral("\n  "))));
    return false;
}

bool reportMemory(const std::map<int, QString>& folders)
{
    std::map<int, double> list;
    bool allKept = true;
    const auto check = [&allKept](const std::string& name, double ratio, double limit) {
        std::printf("%s ratio %.3f limit %.2f\n", name.c_str(), ratio, limit);
        allKept = allKept && ratio <= limit;
    };
    for (const auto& [themes, folder] : folders) {
        list[themes] = megabytes("list", folder);
        const double floor = megabytes("floor", folder);
        std::printf("memory of %d cells: %.1f MB, of the floor: %.1f MB\n", themes, list[themes],
                    floor);
        check("memory/" + std::to_string(themes), list[themes] / floor, highestRatio);
    }
    check("memory/2000 to memory/500", list[2000] / list[500], highestGrowth);
    return allKept;
}

} // namespace

int main(int argc, char** argv)
{
    // Measuring needs no window system.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const BenchHome home;
    const QString classical = BrowserSkin::styleSheet(QStringLiteral("Classical"));
    const Skins skins = {classical, BrowserFloor::styleSheet(classical)};
    if (argc == 4 && QByteArray(argv[1]) == "--memory") {
        reportOwnMemory(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]), skins);
        return 0;
    }

    std::map<int, QString> folders;
    Worlds worlds;
    for (const int themes : sizes) {
        folders[themes] = QStringLiteral("%1/%2").arg(home.path()).arg(themes);
        worlds.emplace(themes, std::make_unique<BrowserWorld>(folders[themes], themes));
    }
    worlds.at(sizes[0])->load();
    if (!comparesLikeWithLike(skins))
        return 1;

    Ratios ratios;
    addBenchmarks(ratios, worlds, skins);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    const bool memoryKept = reportMemory(folders);
    worlds.at(2000)->load();
    const bool readingKept = BrowserReports(*worlds.at(2000), skins.code).print();
    return ratios.finish() == 0 && memoryKept && readingKept ? 0 : 1;
}
