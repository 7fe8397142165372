// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FetchScenario.h"

#include "tools/Routes.h"
#include "tools/SmallCatalogue.h"

namespace {

constexpr int firstCause = 30; // of the exit status

} // namespace

QString FetchScenario::prepare()
{
    SmallCatalogue catalogue;
    catalogue.addTheme(Film, QStringLiteral("Film"), QStringLiteral("/Themes/film.xml"),
                       {QStringLiteral("/Themes/film.zip")});
    catalogue.addFilter(Look, QStringLiteral("Look"), QStringLiteral("/VideoFilters/look.xml"),
                        {QStringLiteral("/VideoFilters/look.zip")});
    catalogue.addFilter(Paper, QStringLiteral("Paper"), QString(),
                        {QStringLiteral("/VideoFilters/paper/notes.txt")});
    catalogue.writeTo(mvres().installed());
    const QByteArray archive = "PK\3\4" + QByteArray(100000, 'z'); // read in several pieces
    const QByteArray config = SmallCatalogue::themeConfig({Look, Paper});
    if (m_before == Before::Config)
        CatalogueFiles::write(mvres().downloadedFile(QStringLiteral("/Themes/film.xml")), config);
    m_server = std::make_unique<FaultServer>(Routes::by({
        {m_before == Before::Config ? "/gone" : "/config/Themes/film.xml", Routes::body(config)},
        {"/config/Themes/film.zip", Routes::body(archive)},
        {"/config/VideoFilters/look.xml", Routes::body("<Filter/>")},
        {"/config/VideoFilters/look.zip", Routes::body(archive)},
        {"/config/VideoFilters/paper/notes.txt", Routes::body("notes")},
    }));
    mvres().setServer(m_server->url(QStringLiteral("/")));
    return run({QStringLiteral("list")});
}

QStringList FetchScenario::command() const
{
    return {QStringLiteral("fetch"), CatalogueFiles::guid(Film)};
}

QString FetchScenario::wrongCause(const Fault& fault, const FaultyOutcome& outcome) const
{
    const EFailureCause cause =
        causeToTell(fault, outcome.hit, {QStringLiteral("root/Themes/config")});
    const bool isTold = cause == eFailure_None
        || (outcome.status == firstCause + cause
            && outcome.err.contains(STransferFailure::causeText(cause).toUtf8()));
    return isTold ? QString()
                  : QStringLiteral("does not say: ") + STransferFailure::causeText(cause);
}
