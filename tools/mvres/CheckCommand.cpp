#include "CheckCommand.h"

#include "Arguments.h"
#include "Causes.h"
#include "Console.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "ExitStatus.h"
#include "host/TzProductInfo.h"
#include "Interrupt.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using Coordinator = MVThemeDownLoader_CheckCfg;

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
    return TzProductInfo::instance()->extendParam(QStringLiteral("url_themeRootDir"), QString());
}

} // namespace

CheckCommand::CheckCommand(bool json)
    : m_json(json)
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
        Coordinator::instance()->waitThreadFinished();
    return command.report();
}

void CheckCommand::check()
{
    Coordinator* const coordinator = Coordinator::instance();
    Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::requested, &m_loop, [&] {
        m_interrupted = true;
        say(QStringLiteral("cancelling"));
        coordinator->cancelCfgAndDisplayXML();
        coordinator->cancelThumbAndGif();
    });
    QObject::connect(coordinator, &Coordinator::sig_startDownloadXML, &m_loop,
                     [this] { say(QStringLiteral("checking the catalogue at %1").arg(server())); });
    QObject::connect(coordinator, &Coordinator::sig_NeedUpdateApp, &m_loop,
                     [this] { say(QStringLiteral("the application has to be updated")); });
    QObject::connect(coordinator, &Coordinator::sig_startDownloadThumbAndGif, &m_loop, [this] {
        say(QStringLiteral("fetching previews"));
        if (m_interrupted) // while the check went on
            Coordinator::instance()->cancelThumbAndGif();
    });
    Coordinator::setCatalogueCheckCallback(
        [this](const SCatalogueCheckResult& result) { onCatalogueChecked(result); });
    Coordinator::setPreviewRunCallback(
        [this](const SPreviewRunResult& result) { onPreviewsFetched(result); });
    coordinator->startDownloadXML();
    m_loop.exec();
    Coordinator::setCatalogueCheckCallback({});
    Coordinator::setPreviewRunCallback({});
}

void CheckCommand::say(const QString& line) const
{
    if (!m_json)
        Console::print(line);
}

void CheckCommand::onCatalogueChecked(const SCatalogueCheckResult& result)
{
    m_check = result;
    m_checkTold = true;
    say(QStringLiteral("the catalogue has been checked"));
    if (!result.m_bPreviewsFollow)
        Coordinator::instance()->startDownloadThumbAndGif();
    endIfTold();
}

void CheckCommand::onPreviewsFetched(const SPreviewRunResult& result)
{
    m_previews = result;
    m_previewsTold = true;
    say(QStringLiteral("the previews have been looked through"));
    endIfTold();
}

void CheckCommand::endIfTold()
{
    if (m_checkTold && m_previewsTold)
        m_loop.quit();
}

bool CheckCommand::havePreviewsFailed() const
{
    return m_previews.m_eEnd == ePreviewRun_NoCatalogue || m_previews.m_nFailed > 0;
}

int CheckCommand::status() const
{
    if (m_interrupted)
        return ExitStatus::cancelled;
    const int catalogue = endOf(m_check.m_eEnd).status;
    const bool inOrder = catalogue == ExitStatus::success || catalogue == ExitStatus::changed;
    return inOrder && havePreviewsFailed() ? ExitStatus::previewsFailed : catalogue;
}

/// Why the exit status is one of failure; empty if it is not.
QString CheckCommand::errorText() const
{
    switch (status()) {
    case ExitStatus::success:
    case ExitStatus::changed:
        return {};
    case ExitStatus::cancelled:
        return QStringLiteral("cancelled");
    case ExitStatus::previewsFailed:
        return m_previews.m_eEnd == ePreviewRun_NoCatalogue
            ? m_previews.m_qsReason
            : QStringLiteral("%1 could not be fetched")
                  .arg(Console::counted(m_previews.m_nFailed, QStringLiteral("preview")));
    default:
        return m_check.m_qsReason.isEmpty() ? QString::fromLatin1(endOf(m_check.m_eEnd).text)
                                            : m_check.m_qsReason;
    }
}

/// The reason for people: what they can do something about comes first.
QString CheckCommand::catalogueReason() const
{
    if (m_check.m_eEnd != eCatalogueCheck_NotStored)
        return m_check.m_qsReason;
    return QStringLiteral("catalogue: %1: %2")
        .arg(STransferFailure::causeText(m_check.m_eCause), m_check.m_qsReason);
}

int CheckCommand::report() const
{
    if (m_json)
        Console::print(QJsonDocument(toJson()));
    else
        print();
    for (const QString& reason : {catalogueReason(), m_previews.m_qsReason}) {
        if (!reason.isEmpty())
            Console::note(reason);
    }
    for (const STransferFailure& failure : m_previews.m_vecFailures)
        Console::note(
            QStringLiteral("preview: %1: %2").arg(failure.causeText(), failure.m_qsDetails));
    const int untold = m_previews.m_nFailed - m_previews.m_vecFailures.size();
    if (untold > 0 && !m_interrupted)
        Console::note(QStringLiteral("and %1 more").arg(untold));
    return status();
}

void CheckCommand::print() const
{
    say(QStringLiteral("catalogue: %1").arg(QString::fromLatin1(endOf(m_check.m_eEnd).text)));
    if (m_previews.m_eEnd == ePreviewRun_NoCatalogue) {
        say(QStringLiteral("previews: there is no catalogue to fetch them for"));
        return;
    }
    say(QStringLiteral("previews: %1 fetched, %2 present, %3 failed")
            .arg(m_previews.m_nFetched)
            .arg(m_previews.m_nPresent)
            .arg(m_previews.m_nFailed));
}

QJsonObject CheckCommand::toJson() const
{
    static const char* const previewEnds[] = {"complete", "noCatalogue", "cancelled"};
    QJsonArray failures;
    for (const STransferFailure& failure : m_previews.m_vecFailures)
        failures.append(Causes::toJson(failure));
    const QJsonObject previews{
        {QStringLiteral("end"), QString::fromLatin1(previewEnds[m_previews.m_eEnd])},
        {QStringLiteral("fetched"), m_previews.m_nFetched},
        {QStringLiteral("present"), m_previews.m_nPresent},
        {QStringLiteral("failed"), m_previews.m_nFailed},
        {QStringLiteral("failures"), failures}};
    QJsonObject object{
        {QStringLiteral("catalogue"), QString::fromLatin1(endOf(m_check.m_eEnd).word)},
        {QStringLiteral("cause"), Causes::word(m_check.m_eCause)},
        {QStringLiteral("reason"), m_check.m_qsReason},
        {QStringLiteral("previews"), previews}};
    const QString error = errorText();
    if (!error.isEmpty()) {
        object.insert(
            QStringLiteral("error"),
            QJsonObject{{QStringLiteral("status"), status()}, {QStringLiteral("text"), error}});
    }
    return object;
}
