// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "WriteGuard.h"

#include <QDir>
#include <QTest>

#include <csignal>
#include <functional>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using Action = std::function<void()>;
Q_DECLARE_METATYPE(Action)

/// Tests that the fuzzers' guard catches a forbidden write before it happens.
class TestWriteGuard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void endsTheProcess_data();
    void endsTheProcess();
    void allows_data();
    void allows();
    void letsGoInTheEnd();

private:
    int signalOf(const Action& action) const;
    static QString inside() { return TestHome::path() + QStringLiteral("/inside"); }
    static QString outside() { return TestHome::path() + QStringLiteral("/outside"); }
};

void TestWriteGuard::initTestCase()
{
    CatalogueFiles::write(inside() + QStringLiteral("/file"), "file");
    CatalogueFiles::write(outside() + QStringLiteral("/file"), "file");
    QVERIFY(QFile::link(outside(), inside() + QStringLiteral("/link")));
}

/// Returns the signal that ended a child restricted to "inside"; 0 if it succeeded.
int TestWriteGuard::signalOf(const Action& action) const
{
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit none = {0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        std::signal(SIGABRT, SIG_DFL); // QtTest would describe the crash
        ::close(STDERR_FILENO);
        const WriteGuard guard({inside()});
        action();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

void TestWriteGuard::endsTheProcess_data()
{
    QTest::addColumn<Action>("action");
    const QString file = outside() + QStringLiteral("/file");
    const QString fresh = outside() + QStringLiteral("/new");
    const QString own = inside() + QStringLiteral("/file");
    QTest::newRow("create") << Action([=] { QFile(fresh).open(QIODevice::WriteOnly); });
    QTest::newRow("overwrite") << Action([=] { QFile(file).open(QIODevice::ReadWrite); });
    QTest::newRow("through a link")
        << Action([] { QFile(inside() + QStringLiteral("/link/new")).open(QIODevice::WriteOnly); });
    QTest::newRow("remove") << Action([=] { QFile::remove(file); });
    QTest::newRow("rename out") << Action([=] { QFile::rename(own, fresh); });
    QTest::newRow("rename in") << Action(
        [=] { QFile::rename(file, inside() + QStringLiteral("/new")); });
    QTest::newRow("copy") << Action([=] { QFile::copy(own, fresh); });
    QTest::newRow("link") << Action([=] { QFile::link(own, fresh); });
    QTest::newRow("folder") << Action([=] { QDir().mkdir(fresh); });
    QTest::newRow("remove a folder") << Action([] { QDir().rmdir(outside()); });
    QTest::newRow("permissions") << Action(
        [=] { QFile::setPermissions(file, QFileDevice::ReadOwner); });
    QTest::newRow("shorten") << Action([=] { QFile::resize(file, 1); });
}

void TestWriteGuard::endsTheProcess()
{
    QFETCH(Action, action);
    QCOMPARE(signalOf(action), SIGABRT);
    QCOMPARE(CatalogueFiles::filesBelow(outside()), QStringList(QStringLiteral("file")));
    QCOMPARE(CatalogueFiles::read(outside() + QStringLiteral("/file")), QByteArray("file"));
}

void TestWriteGuard::allows_data()
{
    QTest::addColumn<Action>("action");
    const QString folder = inside() + QStringLiteral("/new");
    QTest::newRow("read elsewhere")
        << Action([] { CatalogueFiles::read(outside() + QStringLiteral("/file")); });
    QTest::newRow("write inside") << Action(
        [] { QFile(inside() + QStringLiteral("/file")).open(QIODevice::ReadWrite); });
    QTest::newRow("folders inside")
        << Action([=] { QDir().mkpath(folder + QStringLiteral("/a")); });
    QTest::newRow("remove inside") << Action([=] { QDir(folder).removeRecursively(); });
}

void TestWriteGuard::allows()
{
    QFETCH(Action, action);
    QCOMPARE(signalOf(action), 0);
}

void TestWriteGuard::letsGoInTheEnd()
{
    {
        const WriteGuard guard({inside()});
    }
    QVERIFY(QFile(outside() + QStringLiteral("/later")).open(QIODevice::WriteOnly));
}

MV_TEST_MAIN(TestWriteGuard)
#include "tst_WriteGuard.moc"
