#include "CheckCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "ExitStatus.h"
#include "host/TzProductInfo.h"
#include "Interrupt.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

namespace {

constexpr int cancelEveryMs = 100;

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
    QTimer cancelling; // what has not begun yet forgets that it is cancelled
    cancelling.setInterval(cancelEveryMs);
    QObject::connect(&cancelling, &QTimer::timeout, &m_loop, [coordinator] {
        coordinator->cancelCfgAndDisplayXML();
        coordinator->cancelThumbAndGif();
    });
    QObject::connect(&interrupt, &Interrupt::requested, &m_loop, [&] {
        m_interrupted = true;
        say(QStringLiteral("cancelling"));
        coordinator->cancelCfgAndDisplayXML();
        coordinator->cancelThumbAndGif();
        cancelling.start();
    });
    QObject::connect(coordinator, &Coordinator::sig_startDownloadXML, &m_loop,
                     [this] { say(QStringLiteral("checking the catalogue at %1").arg(server())); });
    QObject::connect(coordinator, &Coordinator::sig_NeedUpdateApp, &m_loop,
                     [this] { say(QStringLiteral("the application has to be updated")); });
    QObject::connect(coordinator, &Coordinator::sig_startDownloadThumbAndGif, &m_loop,
                     [this] { say(QStringLiteral("fetching previews")); });
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

int CheckCommand::report() const
{
    const End& end = endOf(m_check.m_eEnd);
    const int status = m_interrupted ? ExitStatus::cancelled : end.status;
    if (m_json) {
        const QJsonObject previews{{QStringLiteral("fetched"), m_previews.m_nFetched},
                                   {QStringLiteral("present"), m_previews.m_nPresent},
                                   {QStringLiteral("failed"), m_previews.m_nFailed}};
        Console::print(
            QJsonDocument(QJsonObject{{QStringLiteral("catalogue"), QString::fromLatin1(end.word)},
                                      {QStringLiteral("reason"), m_check.m_qsReason},
                                      {QStringLiteral("previews"), previews}}));
        return status;
    }
    say(QStringLiteral("catalogue: %1").arg(QString::fromLatin1(end.text)));
    say(QStringLiteral("previews: %1 fetched, %2 present, %3 failed")
            .arg(m_previews.m_nFetched)
            .arg(m_previews.m_nPresent)
            .arg(m_previews.m_nFailed));
    return m_check.m_qsReason.isEmpty() ? status : Console::fail(status, m_check.m_qsReason);
}
