// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/Rclone.h"

#include "Console.h"
#include "upload/ChildGroup.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <memory>
#include <utility>

namespace {

// rclone ends its transfers, and what it has begun at an object store.
constexpr std::chrono::seconds longestEnd(10);

/// Returns the log as lines of JSON, with the progress in between.
QStringList logOptions()
{
    return {QStringLiteral("--use-json-log"), QStringLiteral("--stats=1s"),
            QStringLiteral("--stats-log-level=NOTICE")};
}

/// Returns the environment without what rclone prepares at every start for its interactive
/// commands: a table of the widths of all characters, which takes as long as the rest of the start.
QProcessEnvironment quickStart()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString minimize = QStringLiteral("TCELL_MINIMIZE");
    if (!environment.contains(minimize))
        environment.insert(minimize, QStringLiteral("1"));
    return environment;
}

/// Returns a line that is no JSON without its date.
QString plain(const QByteArray& line)
{
    static const QRegularExpression date(
        QStringLiteral("\\A[0-9]{4}/[0-9]{2}/[0-9]{2} [0-9:]{8} "));
    return QString::fromUtf8(line).remove(date).trimmed();
}

} // namespace

Rclone::Rclone(QStringList options)
    : m_options(std::move(options))
{
}

QString Rclone::program()
{
    return QStandardPaths::findExecutable(QStringLiteral("rclone"));
}

void Rclone::setProgress(Progress progress)
{
    m_progress = std::move(progress);
}

bool Rclone::run(const QStringList& arguments, QByteArray* out)
{
    m_error.clear();
    m_log.clear();
    m_status = -1;
    if (m_isCancelled && !m_isProtected)
        return false;
    const std::unique_ptr<QProcess> child = ChildGroup::makeProcess();
    QProcess& process = *child;
    QEventLoop loop;
    QObject::connect(&process, &QProcess::readyReadStandardError, &loop, [this] { readLog(); });
    QObject::connect(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, [&](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            loop.quit();
    });
    m_process = &process;
    process.setProcessEnvironment(quickStart());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program(), arguments + logOptions() + m_options, QIODevice::ReadOnly);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    const bool isSuccess = end(process.error() != QProcess::FailedToStart);
    if (out)
        *out = process.readAllStandardOutput();
    return isSuccess;
}

/// Takes the result of the command that has ended.
bool Rclone::end(bool hasStarted)
{
    if (hasStarted) {
        readLog();
        takeLine(m_log);
        if (m_process->exitStatus() == QProcess::NormalExit)
            m_status = m_process->exitCode();
    }
    if (!hasStarted || m_error.isEmpty())
        m_error = hasStarted ? QStringLiteral("it ended with status %1").arg(m_status)
                             : m_process->errorString();
    m_process = nullptr;
    return m_status == 0;
}

void Rclone::cancel()
{
    m_isCancelled = true;
    if (m_process && !m_isProtected)
        terminate();
}

void Rclone::terminate()
{
    ChildGroup::interrupt(*m_process);
    QTimer::singleShot(longestEnd, m_process, &QProcess::kill);
}

void Rclone::readLog()
{
    m_log += m_process->readAllStandardError();
    for (int end = m_log.indexOf('\n'); end >= 0; end = m_log.indexOf('\n')) {
        takeLine(m_log.left(end));
        m_log.remove(0, end + 1);
    }
}

void Rclone::takeLine(const QByteArray& line)
{
    const QJsonObject entry = QJsonDocument::fromJson(line).object();
    if (entry.isEmpty()) {
        const QString text = plain(line);
        if (!text.isEmpty())
            m_error = text;
        return;
    }
    const QJsonObject stats = entry[QLatin1String("stats")].toObject();
    const QString level = entry[QLatin1String("level")].toString();
    const QString text = entry[QLatin1String("msg")].toString().trimmed();
    const QString object = entry[QLatin1String("object")].toString();
    const QString message = object.isEmpty() ? text : object + QStringLiteral(": ") + text;
    if (!stats.isEmpty() && m_progress)
        m_progress(static_cast<qint64>(stats[QLatin1String("bytes")].toDouble()),
                   static_cast<qint64>(stats[QLatin1String("totalBytes")].toDouble()));
    else if (level == QLatin1String("error") || level == QLatin1String("fatal"))
        m_error = message;
    else if (level == QLatin1String("info") || level == QLatin1String("debug"))
        Console::note(QStringLiteral("rclone: ") + message); // the user asked for it
}
