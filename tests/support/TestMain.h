// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/RegisteredTest.h"

#include <QTest>

#ifdef MV_WATCH_THREADS
#include "tsan/WatchedApplication.h"
template <class Application>
using TestApplication = WatchedApplication<Application>;
#else
template <class Application>
using TestApplication = Application;
#endif

/// The home of one test program: a temporary folder that replaces the user's own, so that tests
/// running in parallel never interfere. HOME, TMPDIR, the XDG folders and hostSettings() point into
/// it, and log lines are discarded unless a LogCapture records them. The folder is removed at the
/// very end of the process: the catalogue saves favourites into it after main has returned.
///
/// It also makes every machine alike, for the process and its children: the locale C.UTF-8, the
/// time zone UTC, only the fonts of TestFonts, no scale, and Qt's own style.
class TestHome
{
public:
    TestHome();
    Q_DISABLE_COPY_MOVE(TestHome)

    /// Returns the folder of the running test program.
    static QString path();
};

/// Runs a test class in a home of its own. Returns the exit status.
template <class Application, class TestClass>
int runTest(int argc, char** argv)
{
    const TestHome home;
    TestApplication<Application> application(argc, argv);
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

/// Makes a class the test of its source file, with a QCoreApplication.
#define MV_TEST_MAIN(TestClass)                                                                    \
    static const RegisteredTest registered##TestClass(__FILE__,                                    \
                                                      runTest<QCoreApplication, TestClass>);

/// Makes a class the test of its source file, with a QApplication, for widgets.
#define MV_WIDGET_TEST_MAIN(TestClass)                                                             \
    static const RegisteredTest registered##TestClass(__FILE__, runTest<QApplication, TestClass>);
