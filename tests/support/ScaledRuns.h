#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

#include <map>

/// Runs a test at several scales. Qt fixes the scale of a process when it starts, so the program
/// starts itself again for each.
class ScaledRuns
{
public:
    static constexpr const char* scales[] = {"1", "2"};

    /// Applies the scale for which this process was started, before an application exists, and
    /// returns it; empty in the main process.
    static QString enter();
    /// Sets the scale that enter() gives a process which is started with that environment.
    static void setScale(QProcessEnvironment& environment, const QString& scale);

    /// Starts a process for every scale, in parallel.
    void start(const QProcessEnvironment& environment);
    /// Waits for one process. Returns its failures; empty if it passed.
    QByteArray complaints(const QString& scale);

private:
    std::map<QString, QProcess> m_runs; // by scale
    QDeadlineTimer m_deadline;
};
