// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CheckScenario.h"

#include "support/TestMain.h"
#include "tools/SmallCatalogue.h"

#include <QCryptographicHash>

namespace {

constexpr int changedStatus = 20;
constexpr int serverNewer = 21;
constexpr int notStored = 26;
constexpr int previewsFailed = 27;

QByteArray md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

QByteArray version(const QByteArray& display, const QByteArray& config)
{
    return "<ResourceVersion value=\"1.0.2\"><dislplay value=\"" + md5(display)
        + "\"/><config value=\"" + md5(config) + "\"/></ResourceVersion>";
}

} // namespace

CheckScenario::CheckScenario(Before before)
    : m_before(before)
    , m_tree(TestHome::path() + QStringLiteral("/server"))
{
}

QString CheckScenario::prepare()
{
    SmallCatalogue installed;
    installed.addFilter(Look, QStringLiteral("Look"), QString());
    installed.writeTo(mvres().installed());
    CatalogueFiles::write(mvres().installed()
                              + QStringLiteral("/Resource/ResourceConfig/resource_version.xml"),
                          version("installed", "installed"));
    publish({Look}, false);
    if (!m_server.start(m_tree))
        return m_server.errorText();
    mvres().setServer(m_server.url());
    mvres().set("paths/appData", mvres().base() + QStringLiteral("/appdata"));
    QString trouble = run({QStringLiteral("list")});
    if (trouble.isEmpty() && m_before == Before::Downloaded)
        trouble = run(command(), changedStatus);
    publish({Look, Paper}, true);
    return trouble;
}

/// Puts a catalogue and its previews on the server.
void CheckScenario::publish(const QVector<int>& filters, bool withTheme) const
{
    QVector<CatalogueFiles::CfgItem> items;
    QVector<CatalogueFiles::DisplayItem> shown;
    for (const int filter : filters) {
        const QString picture = QStringLiteral("filter%1.jpg").arg(filter);
        items.append({CatalogueFiles::guid(filter), {}, {}});
        shown.append({CatalogueFiles::guid(filter), QStringLiteral("Filter"), picture});
        CatalogueFiles::write(m_tree + QStringLiteral("/display/VideoFilters/") + picture,
                              "\xff\xd8\xff\xe0" + QByteArray(20000, 'f'));
    }
    QByteArray config = CatalogueFiles::cfgGroup(QStringLiteral("Filter"), items);
    QByteArray display = CatalogueFiles::displayCategory(QStringLiteral("Filter"), shown);
    if (withTheme) {
        const QString film = CatalogueFiles::guid(Film);
        config += CatalogueFiles::cfgGroup(QStringLiteral("Theme"), {{film, {}, {}}});
        display += CatalogueFiles::displayThemes(
            {{QStringLiteral("travel"),
              {{film, QStringLiteral("Film"), QStringLiteral("film.jpg"),
                QStringLiteral("film.gif")}}}});
        const QString previews = m_tree + QStringLiteral("/display/Themes/");
        CatalogueFiles::write(previews + QStringLiteral("film.jpg"), "\xff\xd8\xff\xe0 still");
        CatalogueFiles::write(previews + QStringLiteral("film.gif"), "GIF89a moving");
    }
    config = CatalogueFiles::document(config);
    display = CatalogueFiles::document(display);
    const QString folder = m_tree + QStringLiteral("/ResourceConfig/resource_");
    CatalogueFiles::write(folder + QStringLiteral("config.xml"), config);
    CatalogueFiles::write(folder + QStringLiteral("display.xml"), display);
    CatalogueFiles::write(folder + QStringLiteral("version_v3.xml"), version(display, config));
}

bool CheckScenario::isSuccess(int status) const
{
    return status == 0 || status == changedStatus;
}

/// Previews are fetched for the installed catalogue if the new one cannot be read; the others are
/// left to the next check.
QString CheckScenario::brokenPromise(const States& states, const FaultyOutcome& outcome) const
{
    const bool isCatalogueUnread =
        outcome.hit.path.contains(QLatin1String("/root/Themes/ResourceConfig/"))
        && (outcome.hit.operation == Operation::OpenFile
            || outcome.hit.operation == Operation::Read);
    if (!isCatalogueUnread)
        return Scenario::brokenPromise(states, outcome);
    const QStringList previews{QStringLiteral("root/Themes/display")};
    return Scenario::brokenPromise(
        {states.before, states.after.without(previews), states.now.without(previews), true},
        outcome);
}

/// An installed version file that cannot be read counts as the oldest one, so that every server
/// counts as newer.
bool CheckScenario::isTold(const FaultyOutcome& outcome) const
{
    return Scenario::isTold(outcome)
        || (outcome.status == serverNewer
            && outcome.out.contains("the application must be updated"));
}

/// The cache of answers, written beside the new catalogue after it, only saves a request: its loss
/// is logged and not told, and what fails afterwards has a cause of its own.
QString CheckScenario::wrongCause(const Fault& fault, const FaultyOutcome& outcome) const
{
    const QString& path = outcome.hit.path;
    const bool isCache = path.endsWith(QLatin1String("/version-cache.json"))
        || (isLeftover(path) && path.contains(QLatin1String("/root/Themes/ResourceConfig/"))
            && outcome.out.contains("the new one has been fetched"));
    if (isCache)
        return {};
    const EFailureCause cause = causeToTell(
        fault, outcome.hit,
        {QStringLiteral("root/Themes"), QStringLiteral("appdata/MVTheme/DownloadTemp")});
    const bool isTold = cause == eFailure_None
        || ((outcome.status == notStored || outcome.status == previewsFailed)
            && outcome.err.contains(STransferFailure::causeText(cause).toUtf8()));
    return isTold ? QString()
                  : QStringLiteral("does not say: ") + STransferFailure::causeText(cause);
}
