// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Measures the editor's window with many themes, with a cell for every row and, as in mveditor,
// with cells on demand and thumbnails decoded in the background: its start, its memory, and for
// each action of the user the longest time for which the event loop is blocked.
//
//     bench_window                             prints one line per figure and one per limit
//     bench_window --window MODE SIZE FOLDER   measures one window, "all" or "demand", and prints
//     one
//                                              line per figure; writes the catalogue if necessary

#include "BenchHome.h"
#include "BrowserWorld.h"
#include "host/HostSettings.h"
#include "WindowActions.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStyleFactory>

#include <cstdio>
#include <map>
#include <memory>

namespace {

using Figures = std::map<QString, double>;

constexpr int fewThemes = 20;
constexpr int sizes[] = {fewThemes, 500, 2000, 10000};
constexpr int mostWithAllCells = 2000;
constexpr double longestBlockMs = 100;
constexpr double longestSkinMs = 250;
constexpr double highestStart = 1.25; // times that of few themes, load() apart
constexpr double highestSkin = 2;     // times making the cells, with a cell for every row
constexpr double mostMegabytes = 40;  // above few themes
constexpr int repetitions = 3;

const QString load = QStringLiteral("load ms");
const QString start = QStringLiteral("start ms");
const QString memory = QStringLiteral("memory MB");
const QString skinChange = QStringLiteral("skin");

int measureWindow(int argc, char** argv)
{
    const QByteArray mode(argv[2]);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const BenchHome home;
    hostSettings().cellsOnDemand = mode == "demand";
    hostSettings().decodeInBackground = mode == "demand";
    const QString folder = QString::fromLocal8Bit(argv[4]);
    const auto world = QFileInfo::exists(folder)
        ? std::make_unique<BrowserWorld>(folder)
        : std::make_unique<BrowserWorld>(folder, QByteArray(argv[3]).toInt());
    WindowActions actions(*world, home.path());
    actions.run([](const char* what, double value) { std::printf("%s=%f\n", what, value); });
    return 0;
}

/// Measures in a separate process that has shown no window before. Empty if that fails.
Figures figuresOf(const char* mode, int themes, const QString& folder)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--window"), QLatin1String(mode), QString::number(themes), folder});
    child.waitForFinished(-1);
    if (child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0) {
        std::printf("no window with %d themes: %s\n", themes,
                    child.readAllStandardError().constData());
        return {};
    }
    Figures figures;
    const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
    for (const QByteArray& line : lines) {
        const int sign = line.indexOf('=');
        if (sign > 0)
            figures[QString::fromUtf8(line.left(sign))] = line.mid(sign + 1).toDouble();
    }
    return figures;
}

/// Returns the best of the repetitions, which is the one least disturbed by other work.
Figures bestFiguresOf(const char* mode, int themes, const QString& folder)
{
    Figures best = figuresOf(mode, themes, folder);
    for (int repetition = 1; repetition < repetitions; ++repetition) {
        const Figures figures = figuresOf(mode, themes, folder);
        for (const auto& [what, value] : figures)
            best[what] = qMin(best[what], value);
    }
    return best;
}

void print(const char* mode, int themes, const Figures& figures)
{
    std::printf("%s, %d themes:", mode, themes);
    for (const auto& [what, value] : figures)
        std::printf("  %s %.1f", qPrintable(what), value);
    std::printf("\n");
    std::fflush(stdout);
}

bool check(const char* mode, int themes, const QString& what, double value, double limit)
{
    std::printf("%s/%d %s %.1f limit %.1f\n", mode, themes, qPrintable(what), value, limit);
    return value <= limit;
}

bool checkOnDemand(int themes, const Figures& figures, const Figures& few)
{
    if (figures.empty() || few.empty())
        return false;
    bool allKept = true;
    const auto checkOne = [&](const QString& what, double limit) {
        allKept = check("demand", themes, what, figures.at(what), limit) && allKept;
    };
    for (const auto& [what, value] : figures) {
        if (!what.contains(QLatin1Char(' ')))
            checkOne(what, what == skinChange ? longestSkinMs : longestBlockMs);
    }
    checkOne(start, highestStart * (few.at(start) - few.at(load)) + figures.at(load));
    checkOne(memory, few.at(memory) + mostMegabytes);
    return allKept;
}

/// Compares the change of skin with the time that the cells took.
bool checkAllCells(int themes, const Figures& figures, const Figures& few)
{
    if (figures.empty() || few.empty())
        return false;
    const double making = figures.at(start) - figures.at(load) - few.at(start) + few.at(load);
    return check("all", themes, skinChange, figures.at(skinChange), highestSkin * making);
}

int compareWindows()
{
    const BenchHome home;
    Figures few;
    bool allKept = true;
    for (const int themes : sizes) {
        const QString folder = QStringLiteral("%1/%2").arg(home.path()).arg(themes);
        const BrowserWorld written(folder, themes);
        const Figures figures = bestFiguresOf("demand", themes, folder);
        if (themes == fewThemes)
            few = figures;
        print("demand", themes, figures);
        allKept = checkOnDemand(themes, figures, few) && allKept;
        if (themes > mostWithAllCells)
            continue;
        const Figures all = figuresOf("all", themes, folder);
        print("all", themes, all);
        allKept = (themes == fewThemes || checkAllCells(themes, all, few)) && allKept;
    }
    return allKept ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    // Measuring needs no window system.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 5 && QByteArray(argv[1]) == "--window")
        return measureWindow(argc, argv);
    const QCoreApplication application(argc, argv);
    return compareWindows();
}
