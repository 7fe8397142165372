#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

#include <map>

/// A test at several scales. Qt fixes the scale of a process when it starts, so the program starts
/// itself again for each.
class ScaledRuns
{
public:
    static constexpr const char* scales[] = {"1", "2"};

    /// In a process that was started for one: gives it its scale, before there is an application,
    /// and returns that. Otherwise empty.
    static QString enter();
    /// Sets the scale that enter() gives a process which is started with that environment.
    static void setScale(QProcessEnvironment& environment, const QString& scale);

    /// Starts a process for every scale, at the same time.
    void start(const QProcessEnvironment& environment);
    /// Waits for one. Returns what failed; empty: it passed.
    QByteArray complaints(const QString& scale);

private:
    std::map<QString, QProcess> m_runs; // by scale
    QDeadlineTimer m_deadline;
};
