// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaultyRun.h"

#include "support/CatalogueFiles.h"

#include <QFile>
#include <QProcess>

namespace {

constexpr int longestMs = 60000;

} // namespace

QStringList FaultyOutcome::operationTexts() const
{
    QStringList texts;
    for (const CountedOperation& counted : operations)
        texts.append(counted.text());
    return texts;
}

int FaultyOutcome::numberOf(const QString& operation) const
{
    const int last = operationTexts().lastIndexOf(operation);
    return last < 0 ? 0 : operations.at(last).number;
}

FaultyRun::FaultyRun(const QString& world, const QString& reportFile)
    : m_world(world)
    , m_reportFile(reportFile)
{
}

FaultyOutcome FaultyRun::run(const QString& program, const QStringList& arguments,
                             const Fault& fault) const
{
    return start(program, arguments, fault, false);
}

FaultyOutcome FaultyRun::trace(const QString& program, const QStringList& arguments) const
{
    return start(program, arguments, Fault(), true);
}

FaultyOutcome FaultyRun::start(const QString& program, const QStringList& arguments,
                               const Fault& fault, bool traced) const
{
    QFile::remove(m_reportFile);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&](const char* name, const QString& value) {
        environment.insert(QString::fromLatin1(name), value);
    };
    const QStringList libraries = QStringList{QStringLiteral(FAULT_INJECTOR)} + m_preloads;
    set("LD_PRELOAD", libraries.join(QLatin1Char(':')));
    set("ASAN_OPTIONS", QStringLiteral("verify_asan_link_order=0"));
    set("MV_FAULT_BELOW", m_world);
    set("MV_FAULT_REPORT", m_reportFile);
    set("MV_FAULT_AT", QString::number(fault.at));
    set("MV_FAULT_KIND", QString::fromLatin1(faultNames[static_cast<std::size_t>(fault.kind)]));
    set("MV_FAULT_WITHOUT", m_lacking.join(QLatin1Char(',')));
    if (fault.stays)
        set("MV_FAULT_STAYS", QStringLiteral("1"));
    if (traced)
        set("MV_FAULT_TRACE", QStringLiteral("1"));

    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    FaultyOutcome outcome;
    outcome.hasHung =
        !process.waitForFinished(longestMs) && process.state() != QProcess::NotRunning;
    if (outcome.hasHung) {
        process.kill();
        process.waitForFinished();
    }
    if (process.error() == QProcess::FailedToStart)
        outcome.err = process.errorString().toUtf8();
    else if (process.exitStatus() == QProcess::CrashExit)
        outcome.signal = process.exitCode();
    else
        outcome.status = process.exitCode();
    outcome.out = process.readAllStandardOutput();
    outcome.err = process.readAllStandardError();
    readReport(outcome);
    return outcome;
}

void FaultyRun::readReport(FaultyOutcome& outcome) const
{
    const QList<QByteArray> lines = CatalogueFiles::read(m_reportFile).split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("! "))
            outcome.hit = CountedOperation::fromLine(line.mid(2));
        else if (!line.isEmpty())
            outcome.operations.append(CountedOperation::fromLine(line));
    }
}
