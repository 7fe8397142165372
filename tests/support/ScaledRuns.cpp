// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/ScaledRuns.h"

#include <QCoreApplication>
#include <QTest>

namespace {

constexpr const char* scaleVariable = "MV_TEST_SCALE";
constexpr std::chrono::seconds longestRun{280};

/// Keeps only failures: a message of QVERIFY2 has few lines.
QByteArray failuresIn(const QByteArray& output)
{
    QByteArray failures;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray& line : lines) {
        if (!line.isEmpty() && !line.startsWith("PASS") && !line.startsWith("QStandardPaths"))
            failures += line + '\n';
    }
    return failures;
}

} // namespace

QString ScaledRuns::enter()
{
    if (qEnvironmentVariableIsSet(scaleVariable))
        qputenv("QT_SCALE_FACTOR", qgetenv(scaleVariable));
    return qEnvironmentVariable(scaleVariable);
}

void ScaledRuns::setScale(QProcessEnvironment& environment, const QString& scale)
{
    environment.insert(QString::fromLatin1(scaleVariable), scale);
}

void ScaledRuns::start(const QProcessEnvironment& environment)
{
    m_deadline = QDeadlineTimer(longestRun);
    for (const char* scale : scales) {
        QProcessEnvironment own = environment;
        setScale(own, QString::fromLatin1(scale));
        QProcess& run = m_runs[QString::fromLatin1(scale)];
        run.setProcessEnvironment(own);
        run.setProcessChannelMode(QProcess::MergedChannels);
        run.start(QCoreApplication::applicationFilePath(), QStringList());
    }
}

QByteArray ScaledRuns::complaints(const QString& scale)
{
    QProcess& run = m_runs[scale];
    const bool ended = run.state() == QProcess::NotRunning
        || run.waitForFinished(static_cast<int>(m_deadline.remainingTime()));
    const QByteArray output = run.readAll();
    const bool passed = ended && run.exitStatus() == QProcess::NormalExit && run.exitCode() == 0
        && output.contains("PASS") && !output.contains("QWARN");
    if (passed)
        return {};
    run.kill();
    run.waitForFinished();
    return (ended ? "it failed:\n" : "it does not end:\n") + failuresIn(output);
}

void ScaledRuns::addRows()
{
    QTest::addColumn<QString>("scale");
    for (const char* scale : scales)
        QTest::newRow(scale) << QString::fromLatin1(scale);
}

void ScaledRuns::verifyRun()
{
    QFETCH(QString, scale);
    const QByteArray found = complaints(scale);
    QVERIFY2(found.isEmpty(), found.constData());
}
