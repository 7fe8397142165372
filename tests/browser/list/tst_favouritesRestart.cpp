// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QToolButton>

#include <cstdio>
#include <memory>

/// Tests that favourites marked by mouse survive a restart of the host. The program runs itself as
/// that host.
class tst_favouritesRestart : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void marksSurviveARestart();
    void marksThatAreTakenOffStayOff();
    void marksOfFiltersSurviveToo();

private:
    QByteArray run(EUIItemType type, const QString& clickedCell);

    std::unique_ptr<BrowserWorld> m_world;
};

namespace {

/// Clicks the heart of the named cell; does nothing for an empty name.
bool clickHeart(ListWindow& list, const QString& name)
{
    const MVThemeItemWdg* const cell = list.cell(name);
    if (name.isEmpty())
        return true;
    if (!cell)
        return false;
    list.moveTo(frameOf(cell));
    const QToolButton* const marked = buttonOf(cell, "btnCollect");
    list.click(marked->isVisible() ? marked : buttonOf(cell, "btnCollect_No"));
    list.moveAway();
    return true;
}

/// Runs the host: shows the list, clicks, reports which cells have a heart, and exits.
int runHost(const QStringList& arguments)
{
    hostSettings().dataLocation = arguments.value(0);
    hostSettings().resourcesPath = arguments.value(0) + QStringLiteral("/none");
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    MVThemeMgr::init()->setResourceSaveRootPath(arguments.value(1));
    MVThemeMgr::init()->load(false);
    ListWindow list(static_cast<EUIItemType>(arguments.value(2).toInt()));
    list.fill();
    if (!clickHeart(list, arguments.value(3)))
        return 1;
    for (int row = 0; const MVThemeItemWdg* cell = list.cell(row); ++row) {
        if (buttonOf(cell, "btnCollect")->isVisible())
            std::printf("%s;", qPrintable(cell->getItem()->m_qsName));
    }
    return 0;
}

} // namespace

void tst_favouritesRestart::init()
{
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= 3; ++number)
        m_world->addTheme(number, QStringLiteral("Theme%1").arg(number));
    m_world->addFilter(11, QStringLiteral("Warm"));
    m_world->addBackground(21, QStringLiteral("Wood"));
    m_world->load();
}

/// Runs the host and returns what it reports; empty if it fails.
QByteArray tst_favouritesRestart::run(EUIItemType type, const QString& clickedCell)
{
    QProcess host;
    host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--host"), hostSettings().dataLocation, m_world->root(),
                QString::number(type), clickedCell});
    const bool ended = host.waitForFinished();
    if (!ended || host.exitStatus() != QProcess::NormalExit || host.exitCode() != 0)
        return "the host has failed";
    return host.readAllStandardOutput();
}

void tst_favouritesRestart::marksSurviveARestart()
{
    QCOMPARE(run(UIItem_Themes, QString()), QByteArray());
    QCOMPARE(run(UIItem_Themes, QStringLiteral("Theme2")), QByteArray("Theme2;"));
    QCOMPARE(run(UIItem_Themes, QString()), QByteArray("Theme2;"));
    QCOMPARE(run(UIItem_Themes, QStringLiteral("Theme3")), QByteArray("Theme2;Theme3;"));
    const QJsonObject saved =
        QJsonDocument::fromJson(CatalogueFiles::read(MVThemeMgr::init()->Path_ThemeCollect()))
            .object();
    QCOMPARE(saved.value(CatalogueFiles::guid(1)), QJsonValue(false));
    QCOMPARE(saved.value(CatalogueFiles::guid(2)), QJsonValue(true));
    QCOMPARE(saved.value(CatalogueFiles::guid(3)), QJsonValue(true));
}

void tst_favouritesRestart::marksThatAreTakenOffStayOff()
{
    run(UIItem_Themes, QStringLiteral("Theme1"));
    run(UIItem_Themes, QStringLiteral("Theme2"));
    QCOMPARE(run(UIItem_Themes, QStringLiteral("Theme1")), QByteArray("Theme2;"));
    QCOMPARE(run(UIItem_Themes, QString()), QByteArray("Theme2;"));
}

void tst_favouritesRestart::marksOfFiltersSurviveToo()
{
    QCOMPARE(run(UIItem_Filters, QStringLiteral("Warm")), QByteArray("Warm;"));
    QCOMPARE(run(UIItem_BgMaterial, QStringLiteral("Wood")), QByteArray("Wood;"));
    QCOMPARE(run(UIItem_FiltersLarge, QString()), QByteArray("Warm;"));
    QCOMPARE(run(UIItem_BgMaterial, QString()), QByteArray("Wood;"));
    QCOMPARE(run(UIItem_Themes, QString()), QByteArray());
}

int main(int argc, char** argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--host") == 0) {
        const QApplication application(argc, argv);
        return runHost(QCoreApplication::arguments().mid(2));
    }
    const TestHome home;
    const QApplication application(argc, argv);
    tst_favouritesRestart test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_favouritesRestart.moc"
