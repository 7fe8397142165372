// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

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

    /// Adds a data row for every scale, and verifies that the process of the current row passed.
    static void addRows();
    void verifyRun();

private:
    std::map<QString, QProcess> m_runs; // by scale
    QDeadlineTimer m_deadline;
};

/// Runs TestClass, which starts the program for every scale with ScaledRuns, and RunClass, made
/// with the scale, in the started programs.
#define MV_SCALED_TEST_MAIN(TestClass, RunClass)                                                   \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        const TestHome home;                                                                       \
        const QString scale = ScaledRuns::enter();                                                 \
        TestApplication<QApplication> application(argc, argv);                                     \
        if (!scale.isEmpty()) {                                                                    \
            RunClass run(scale);                                                                   \
            return QTest::qExec(&run, argc, argv);                                                 \
        }                                                                                          \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
