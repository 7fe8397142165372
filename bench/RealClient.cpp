// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RealClient.h"

#include "catalogue/MVThemeMgr.h"
#include "download/CatalogueUpdate.h"
#include "download/ItemUpdate.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "records/SCfg_Item.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>

#include <cstdio>

namespace {

const QString word = QStringLiteral("real-client");
constexpr int longestRunMs = 60000;

bool fail(const QString& reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    return false;
}

} // namespace

QString RealClient::run(Action action, const Place& place)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {word, QString::number(static_cast<int>(action)), place.url, place.key,
                   place.installed, place.folder, place.theme});
    if (!process.waitForFinished(longestRunMs))
        return QStringLiteral("a client does not end");
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return QString();
    return QStringLiteral("a client has failed: ")
        + QString::fromLocal8Bit(process.readAllStandardError());
}

bool RealClient::isWanted(const QStringList& arguments)
{
    constexpr int count = 8;
    return arguments.size() == count && arguments.at(1) == word;
}

int RealClient::main(const QStringList& arguments)
{
    const auto action = static_cast<Action>(arguments.at(2).toInt());
    const RealClient client(
        {arguments.at(3), arguments.at(4), arguments.at(5), arguments.at(6), arguments.at(7)});
    const bool isDone =
        (action == Action::Fetch || client.check()) && (action == Action::Check || client.update());
    return isDone ? 0 : 1;
}

RealClient::RealClient(const Place& place)
    : m_place(place)
{
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    HostSettings& settings = hostSettings();
    settings = HostSettings::recommended();
    settings.resourcesPath = place.installed;
    settings.dataLocation = place.folder + QStringLiteral("/data");
    settings.appDataPath = place.folder + QStringLiteral("/work");
    settings.productParams = {{QStringLiteral("url_themeRootDir"), place.url},
                              {QStringLiteral("hasMV"), QStringLiteral("1")}};
    settings.releasePolicy = eRelease_Require;
    settings.releaseKeys = QStringList{place.key};
    MVThemeMgr::init()->setResourceSaveRootPath(place.folder + QStringLiteral("/root"));
}

bool RealClient::check() const
{
    CatalogueUpdate update;
    QEventLoop loop;
    QObject::connect(&update, &CatalogueUpdate::finished, &loop, &QEventLoop::quit);
    update.start();
    loop.exec();
    return update.result().m_eEnd == eCatalogueUpdate_Complete || fail(update.result().reason());
}

bool RealClient::update() const
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->load(false);
    SCfg_Item* const theme = catalogue->findItemByIDFromDisplay(eCfgItem_Theme, m_place.theme);
    if (!theme)
        return fail(QStringLiteral("the catalogue lacks the theme"));
    const SUpdateOutcome outcome = ItemUpdate().updateItem(*theme);
    return outcome.m_eEnd == eItemUpdate_Complete
        || fail(outcome.m_vecFailures.isEmpty() ? QStringLiteral("no update")
                                                : outcome.m_vecFailures.first().m_qsDetails);
}
