// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ConsoleProgram.h"

#ifndef Q_OS_WIN
#include <csignal>
#endif

namespace {

constexpr int longestMs = 240000; // of the longest walk on a busy machine

QByteArray withPlainLineEnds(QByteArray text)
{
#ifdef Q_OS_WIN
    text.replace("\r\n", "\n");
#endif
    return text;
}

} // namespace

QStringList Outcome::lines() const
{
    QStringList result = QString::fromUtf8(out).split(QLatin1Char('\n'));
    if (result.constLast().isEmpty())
        result.removeLast();
    return result;
}

Outcome ConsoleProgram::run(const QString& program, const QStringList& arguments,
                            const QString& workingDirectory)
{
    QProcess process;
    process.setWorkingDirectory(workingDirectory);
    process.start(program, arguments);
    return end(process);
}

Outcome ConsoleProgram::runWithInput(const QString& program, const QStringList& arguments,
                                     const QByteArray& input)
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    return end(process);
}

Outcome ConsoleProgram::end(QProcess& process)
{
    Outcome outcome;
    // Waiting for a program that has already ended reports a failure.
    const bool ended =
        process.state() == QProcess::NotRunning || process.waitForFinished(longestMs);
    outcome.out = withPlainLineEnds(process.readAllStandardOutput());
    if (process.processChannelMode() != QProcess::MergedChannels)
        outcome.err = withPlainLineEnds(process.readAllStandardError());
    if (ended && process.error() != QProcess::FailedToStart
        && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    return outcome;
}

void ConsoleProgram::signal(QProcess& process, int number)
{
#ifdef Q_OS_WIN
    Q_UNUSED(number)
    process.kill();
#else
    if (process.processId() > 0) // 0, once it has ended, is the test's own process group
        ::kill(static_cast<pid_t>(process.processId()), number);
#endif
}

QProcessEnvironment ConsoleProgram::utf8Environment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}
