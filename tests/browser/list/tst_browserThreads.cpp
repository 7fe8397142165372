// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QFile>

#include <memory>

namespace tst_browserThreads {

/// Tests lists in use while the threads of several downloads work on their items. The test
/// synchronizes the threads no more than a user would.
class tst_browserThreads : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hoveringAmongDownloads();
    void filteringAmongDownloads();
    void clearingAmongDownloads();
    void twoListsOfTheSameItems();

private:
    QString target(int number) const { return QStringLiteral("/config/Themes/%1.zip").arg(number); }
    int downloads() const;

    std::unique_ptr<BrowserWorld> m_world;
};

namespace {

constexpr int themes = 6;
constexpr int longestMs = 30000;
constexpr int allThemes = 999;

void clickAll(ListWindow& list)
{
    for (int row = 0; row < themes; ++row)
        list.click(frameOf(list.cell(row)));
}

void hoverOverAll(ListWindow& list)
{
    for (int row = 0; row < themes; ++row) {
        if (const MVThemeItemWdg* cell = list.cell(row))
            list.moveTo(frameOf(cell));
    }
}

} // namespace

void tst_browserThreads::init()
{
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= themes; ++number) {
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number), BrowserWorld::OnServer);
        m_world->hold(target(number));
    }
    m_world->load();
}

/// Returns how many of the last files have been requested.
int tst_browserThreads::downloads() const
{
    int count = 0;
    for (int number = 1; number <= themes; ++number)
        count += m_world->requests(target(number));
    return count;
}

void tst_browserThreads::hoveringAmongDownloads()
{
    const HostTrace trace;
    ListWindow list(UIItem_Themes);
    list.fill();
    clickAll(list);
    QTRY_VERIFY_WITH_TIMEOUT((hoverOverAll(list), downloads() == themes), longestMs);
    m_world->release();
    QTRY_VERIFY_WITH_TIMEOUT((hoverOverAll(list), trace.entries().size() == 2 * themes), longestMs);
    for (int row = 0; row < themes; ++row) {
        const QString name = list.cell(row)->getItem()->m_qsName;
        QCOMPARE(trace.count(QStringLiteral("clicked ") + name), 1);
        QCOMPARE(trace.count(QStringLiteral("downloaded ") + name), 1);
        QCOMPARE(m_world->requests(target(row + 1)), 1);
        QCOMPARE(errorOf(list.cell(row)), QString());
    }
}

void tst_browserThreads::filteringAmongDownloads()
{
    const HostTrace trace;
    ListWindow list(UIItem_Themes);
    list.fill();
    clickAll(list);
    for (const char* text : {"[135]", "", "[24]", "6", ""}) {
        list.view()->reapplyFilter(allThemes, QString::fromLatin1(text));
        hoverOverAll(list);
    }
    m_world->release();
    list.view()->reapplyFilter(allThemes, QStringLiteral("[123]"));
    const auto ended = [&] { return trace.entries().filter(QStringLiteral("downloaded")).size(); };
    QTRY_COMPARE_WITH_TIMEOUT(ended(), themes, longestMs);
    QCOMPARE(downloads(), themes);
    QTRY_COMPARE(list.cellCount(), 3);
}

void tst_browserThreads::clearingAmongDownloads()
{
    ListWindow list(UIItem_Themes);
    for (int round = 0; round < 3; ++round) {
        list.fill();
        clickAll(list);
        hoverOverAll(list);
        list.view()->clear();
        m_world->load();
        QTRY_COMPARE(list.cellCount(), 0);
    }
}

void tst_browserThreads::twoListsOfTheSameItems()
{
    const HostTrace trace;
    ListWindow one(UIItem_Themes);
    ListWindow two(UIItem_Themes);
    one.fill();
    two.fill();
    clickAll(one);
    clickAll(two);
    hoverOverAll(two);
    m_world->release();
    QTRY_COMPARE_WITH_TIMEOUT(trace.entries().size(), 4 * themes, longestMs);
    QCOMPARE(downloads(), themes);
}

MV_WIDGET_TEST_MAIN(tst_browserThreads)

} // namespace tst_browserThreads

#include "tst_browserThreads.moc"
