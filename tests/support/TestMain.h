#pragma once

#include <QTest>

#include <memory>

class QTemporaryDir;

/// The home of one test program: a temporary folder that stands for the user's own, so that tests
/// running in parallel never meet. HOME, TMPDIR and the XDG folders point into it, hostSettings()
/// too, and log lines go nowhere until a LogCapture wants them.
class TestHome
{
public:
    TestHome();
    ~TestHome();
    Q_DISABLE_COPY_MOVE(TestHome)

    /// The folder of the running test program.
    static QString path();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

/// Runs a test class in a home of its own, with a QCoreApplication.
#define MV_TEST_MAIN(TestClass)                                                                    \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        const TestHome home;                                                                       \
        QCoreApplication application(argc, argv);                                                  \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

/// The same with a QApplication, for widgets.
#define MV_WIDGET_TEST_MAIN(TestClass)                                                             \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        const TestHome home;                                                                       \
        QApplication application(argc, argv);                                                      \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
