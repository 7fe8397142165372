// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CheckCommand.h"

#include "Arguments.h"
#include "Causes.h"
#include "Console.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "download/SUpdateProgress.h"
#include "ExitStatus.h"
#include "host/ProductParam.h"
#include "Interrupt.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct End
{
    const char* word; // for programs
    const char* text; // for people
    int status;
};

const End& endOf(ECatalogueCheckEnd end)
{
    static const End ends[] = {
        {"changed", "changed, the new one has been fetched", ExitStatus::changed},
        {"current", "current", ExitStatus::success},
        {"serverNewer", "the server's needs a newer application", ExitStatus::serverNewer},
        {"serverOlder", "the server's is older than the application", ExitStatus::serverOlder},
        {"unreachable", "the server could not be reached", ExitStatus::unreachable},
        {"rejected", "rejected", ExitStatus::rejected},
        {"cancelled", "cancelled", ExitStatus::cancelled},
        {"notStored", "not stored", ExitStatus::notStored},
    };
    return ends[end];
}

QString server()
{
    return ProductParam::text(ProductParam::serverRoot);
}

} // namespace

CheckCommand::CheckCommand(bool json)
    : m_json(json)
    , m_previews(json ? PreviewsDisplay::Style::None : PreviewsDisplay::Style::Automatic)
{
}

int CheckCommand::run(const Arguments& arguments)
{
    if (server().isEmpty()) {
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("no server to ask: give --server, or "
                                            "url_themeRootDir in the settings"));
    }
    CheckCommand command(arguments.json);
    command.check();
    if (arguments.wait)
        MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished();
    return command.report();
}

void CheckCommand::check()
{
    Interrupt interrupt;
    QEventLoop loop;
    QObject::connect(&interrupt, &Interrupt::requested, &m_update, [this] {
        say(QStringLiteral("cancelling"));
        m_update.cancel();
    });
    QObject::connect(&m_update, &CatalogueUpdate::appUpdateNeeded, &m_update,
                     [this] { say(QStringLiteral("the application must be updated")); });
    QObject::connect(&m_update, &CatalogueUpdate::phaseChanged, &m_update,
                     [this](CatalogueUpdate::Phase phase) { announce(phase); });
    QObject::connect(&m_update, &CatalogueUpdate::progressed, &m_update,
                     [this](const SUpdateProgress& progress) { showProgress(progress); });
    QObject::connect(&m_update, &CatalogueUpdate::finished, &loop, &QEventLoop::quit);
    m_update.start();
    loop.exec();
}

void CheckCommand::say(const QString& line)
{
    if (m_json)
        return;
    m_previews.finish();
    Console::print(line);
}

void CheckCommand::showProgress(const SUpdateProgress& progress)
{
    // The catalogue's two or three small files need no number.
    if (m_update.phase() == CatalogueUpdate::Phase::Previews)
        m_previews.update(progress);
}

void CheckCommand::announce(CatalogueUpdate::Phase phase)
{
    switch (phase) {
    case CatalogueUpdate::Phase::Catalogue:
        say(QStringLiteral("checking the catalogue at %1").arg(server()));
        return;
    case CatalogueUpdate::Phase::Previews:
        say(QStringLiteral("the catalogue has been checked"));
        say(QStringLiteral("fetching previews"));
        return;
    case CatalogueUpdate::Phase::Idle:
        say(QStringLiteral("all previews have been checked"));
        return;
    case CatalogueUpdate::Phase::Waiting: // only checks that start by themselves wait
        return;
    }
}

int CheckCommand::status() const
{
    const SCatalogueUpdateResult& result = m_update.result();
    if (result.m_eEnd == eCatalogueUpdate_Cancelled)
        return ExitStatus::cancelled;
    if (result.m_eEnd == eCatalogueUpdate_PreviewsMissing)
        return ExitStatus::previewsFailed;
    return endOf(result.m_check.m_eEnd).status;
}

/// Returns the reason for an exit status that indicates failure; empty otherwise.
QString CheckCommand::errorText() const
{
    const SCatalogueCheckResult& check = m_update.result().m_check;
    const SPreviewRunResult& previews = m_update.result().m_previews;
    switch (status()) {
    case ExitStatus::success:
    case ExitStatus::changed:
        return {};
    case ExitStatus::cancelled:
        return QStringLiteral("cancelled");
    case ExitStatus::previewsFailed:
        return previews.m_eEnd == ePreviewRun_NoCatalogue
            ? previews.m_qsReason
            : QStringLiteral("%1 could not be fetched")
                  .arg(Console::counted(previews.m_nFailed, QStringLiteral("preview")));
    default:
        return check.m_qsReason.isEmpty() ? QString::fromLatin1(endOf(check.m_eEnd).text)
                                          : check.m_qsReason;
    }
}

/// Returns a readable reason, actionable information first.
QString CheckCommand::catalogueReason() const
{
    const SCatalogueCheckResult& check = m_update.result().m_check;
    if (check.m_eEnd != eCatalogueCheck_NotStored)
        return check.m_qsReason;
    return QStringLiteral("catalogue: %1: %2")
        .arg(STransferFailure::causeText(check.m_eCause), check.m_qsReason);
}

int CheckCommand::report()
{
    const SPreviewRunResult& previews = m_update.result().m_previews;
    if (m_json)
        Console::print(QJsonDocument(toJson()));
    else
        print();
    for (const QString& reason : {catalogueReason(), previews.m_qsReason}) {
        if (!reason.isEmpty())
            Console::note(reason);
    }
    for (const STransferFailure& failure : previews.m_vecFailures)
        Console::note(
            QStringLiteral("preview: %1: %2").arg(failure.causeText(), failure.m_qsDetails));
    const int untold = previews.m_nFailed - previews.m_vecFailures.size();
    if (untold > 0 && m_update.result().m_eEnd != eCatalogueUpdate_Cancelled)
        Console::note(QStringLiteral("and %1 more").arg(untold));
    return status();
}

void CheckCommand::print()
{
    const SCatalogueCheckResult& check = m_update.result().m_check;
    const SPreviewRunResult& previews = m_update.result().m_previews;
    say(QStringLiteral("catalogue: %1").arg(QString::fromLatin1(endOf(check.m_eEnd).text)));
    if (previews.m_eEnd == ePreviewRun_NoCatalogue) {
        say(QStringLiteral("previews: there is no catalogue to fetch them for"));
        return;
    }
    say(QStringLiteral("previews: %1 fetched, %2 present, %3 failed")
            .arg(previews.m_nFetched)
            .arg(previews.m_nPresent)
            .arg(previews.m_nFailed));
}

QJsonObject CheckCommand::toJson() const
{
    const SCatalogueCheckResult& check = m_update.result().m_check;
    const SPreviewRunResult& previews = m_update.result().m_previews;
    static const char* const previewEnds[] = {"complete", "noCatalogue", "cancelled"};
    QJsonArray failures;
    for (const STransferFailure& failure : previews.m_vecFailures)
        failures.append(Causes::toJson(failure));
    const QJsonObject previewsObject{
        {QStringLiteral("end"), QString::fromLatin1(previewEnds[previews.m_eEnd])},
        {QStringLiteral("fetched"), previews.m_nFetched},
        {QStringLiteral("present"), previews.m_nPresent},
        {QStringLiteral("failed"), previews.m_nFailed},
        {QStringLiteral("failures"), failures}};
    QJsonObject object{{QStringLiteral("catalogue"), QString::fromLatin1(endOf(check.m_eEnd).word)},
                       {QStringLiteral("cause"), STransferFailure::causeName(check.m_eCause)},
                       {QStringLiteral("reason"), check.m_qsReason},
                       {QStringLiteral("previews"), previewsObject}};
    const QString error = errorText();
    if (!error.isEmpty())
        object.insert(QStringLiteral("error"), Console::error(status(), error));
    return object;
}
