// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaultyRun.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "WorldState.h"

#include <QDir>
#include <QTest>

#include <csignal>

namespace {

constexpr int bytesMoved = 100; // plus their number: exit status of the probe

} // namespace

/// Tests what the preloaded library counts and how it fails calls. A probe makes the calls.
class TestFaultsInjector : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyFunctionIsCounted_data();
    void everyFunctionIsCounted();
    void everyFunctionCanFail_data() { everyFunctionIsCounted_data(); }
    void everyFunctionCanFail();
    void operationsElsewhereAreNotCounted_data();
    void operationsElsewhereAreNotCounted();
    void callsThatFailAnywayAreNotCounted();
    void flushedDataIsNotLost();
    void closingADuplicateStoresEverything();
    void closingThatFailsLosesData_data();
    void closingThatFailsLosesData();
    void killComesHalfway();
    void halfOfTheBytesAreMoved_data();
    void halfOfTheBytesAreMoved();
    void threadsAreCountedExactly();
    void laterOperationsFailAsWell();
    void lastingFaultsShow_data();
    void lastingFaultsShow();
    void featureCanBeMissing_data();
    void featureCanBeMissing();

private:
    FaultyOutcome run(const QString& function, const Fault& fault = {}) const
    {
        return m_runner.run(QStringLiteral(FAULT_PROBE), {function, m_world}, fault);
    }
    FaultyOutcome trace(const QString& function) const
    {
        return m_runner.trace(QStringLiteral(FAULT_PROBE), {function, m_world});
    }
    QByteArray content() const { return CatalogueFiles::read(m_world + text("/file")); }

    QString m_world = TestHome::path() + text("/world");
    FaultyRun m_runner{m_world, TestHome::path() + text("/report")};
};

void TestFaultsInjector::init()
{
    QDir(m_world).removeRecursively();
    CatalogueFiles::write(m_world + text("/file"), "12345678");
    CatalogueFiles::write(m_world + text("/full/inner"), "12345678");
    QVERIFY(QDir().mkpath(m_world + text("/empty")));
}

void TestFaultsInjector::everyFunctionIsCounted_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("path"); // its last component
    const auto rows = [](const char* operation, const char* path, const QByteArrayList& functions) {
        for (const QByteArray& function : functions)
            QTest::newRow(function.constData()) << text(operation) << text(path);
    };
    rows("open", "/file", {"open", "open64", "openat", "fopen64", "relative"});
    rows("create", "/new", {"openat64", "creat", "creat64", "fopen"});
    rows("create", "/XXXXXX", {"mkstemp", "mkstemp64", "mkostemp"});
    rows("create", "", {"unnamed"});
    rows("openfolder", "/full", {"opendir", "openfolder"});
    rows("read", "/file", {"read", "pread", "pread64", "fread"});
    rows("write", "/file", {"write", "pwrite", "pwrite64", "writev", "fwrite"});
    rows("copy", "/file", {"sendfile", "sendfile64"});
    rows("copy", "/full/inner", {"copy_file_range"});
    rows("flush", "/file", {"fsync", "fdatasync", "syncfs"});
    rows("close", "/file", {"close", "fclose", "close of a duplicate"});
    rows("resize", "/file", {"ftruncate", "ftruncate64", "truncate", "truncate64"});
    rows("rename", "/new", {"rename", "renameat", "renameat2"});
    rows("rename", "/full", {"exchange"});
    rows("link", "/new", {"link", "linkat", "symlink", "symlinkat", "emptypath", "procpath"});
    rows("remove", "/file", {"unlink", "unlinkat", "remove"});
    rows("makefolder", "/new", {"mkdir", "mkdirat"});
    rows("removefolder", "/empty", {"rmdir"});
    rows("setattributes", "/file", {"chmod", "fchmod", "fchmodat", "utimensat", "futimens"});
}

void TestFaultsInjector::everyFunctionIsCounted()
{
    QFETCH(QString, operation);
    QFETCH(QString, path);
    const FaultyOutcome outcome = trace(text(QTest::currentDataTag()));
    QVERIFY2(outcome.status == 0 || outcome.status == bytesMoved + 8,
             qPrintable(QString::number(outcome.status)));
    int found = 0;
    for (const CountedOperation& counted : outcome.operations) {
        if (text(operationNames[static_cast<std::size_t>(counted.operation)]) == operation) {
            ++found;
            QVERIFY2(counted.path == m_world + path, qPrintable(counted.path));
        }
    }
    QCOMPARE(found, 1);
}

void TestFaultsInjector::everyFunctionCanFail()
{
    QFETCH(QString, operation);
    const QString function = text(QTest::currentDataTag());
    const QVector<CountedOperation> operations = trace(function).operations;
    for (const CountedOperation& counted : operations) {
        if (text(operationNames[static_cast<std::size_t>(counted.operation)]) != operation)
            continue;
        for (std::size_t i = 0; i < faultCount; ++i) {
            const auto kind = static_cast<FaultKind>(i);
            if (!fits(kind, counted.operation) || (errorOf(kind) == 0 && kind != FaultKind::Kill))
                continue;
            init();
            const FaultyOutcome outcome = run(function, {kind, counted.number, false});
            QCOMPARE(outcome.hit.number, counted.number);
            QCOMPARE(outcome.signal, kind == FaultKind::Kill ? SIGKILL : 0);
            QCOMPARE(outcome.status, kind == FaultKind::Kill ? -1 : errorOf(kind));
        }
    }
}

void TestFaultsInjector::operationsElsewhereAreNotCounted_data()
{
    QTest::addColumn<QString>("below");
    QTest::newRow("another folder") << m_world + text("/full");
    QTest::newRow("folder whose name begins the same") << m_world.chopped(1);
    QTest::newRow("no folder") << QString();
}

void TestFaultsInjector::operationsElsewhereAreNotCounted()
{
    QFETCH(QString, below);
    const FaultyRun runner(below, TestHome::path() + text("/report"));
    const FaultyOutcome outcome =
        runner.trace(QStringLiteral(FAULT_PROBE), {text("write"), m_world});
    QCOMPARE(outcome.status, bytesMoved + 8);
    QCOMPARE(outcome.operations.size(), 0);
}

void TestFaultsInjector::callsThatFailAnywayAreNotCounted()
{
    const FaultyOutcome outcome = trace(text("mkdir of what is there"));
    QCOMPARE(outcome.status, EEXIST);
    QCOMPARE(outcome.operations.size(), 0);
}

void TestFaultsInjector::flushedDataIsNotLost()
{
    const FaultyOutcome outcome = trace(text("close after flush"));
    QCOMPARE(outcome.operations.constLast().operation, Operation::Flush);
}

/// Two descriptors were closed, but one operation was counted.
void TestFaultsInjector::closingADuplicateStoresEverything()
{
    const FaultyOutcome outcome = trace(text("close of a duplicate"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.operations.constLast().number, 3);
}

void TestFaultsInjector::closingThatFailsLosesData_data()
{
    QTest::addColumn<int>("number"); // open, write, close
    QTest::newRow("close") << 3;
    QTest::newRow("fclose") << 3;
    QTest::newRow("close of a duplicate") << 3;
}

void TestFaultsInjector::closingThatFailsLosesData()
{
    QFETCH(int, number);
    const FaultyOutcome outcome =
        run(text(QTest::currentDataTag()), {FaultKind::DiskFull, number, false});
    QCOMPARE(outcome.hit.operation, Operation::Close);
    QCOMPARE(outcome.status, ENOSPC);
    QCOMPARE(content().size(), 4);
}

void TestFaultsInjector::killComesHalfway()
{
    for (const char* function : {"write", "fwrite"}) {
        init();
        const FaultyOutcome outcome = run(text(function), {FaultKind::KillHalfway, 2, false});
        QCOMPARE(outcome.signal, SIGKILL);
        QCOMPARE(content(), QByteArray("abcd5678"));
    }
}

void TestFaultsInjector::halfOfTheBytesAreMoved_data()
{
    QTest::addColumn<int>("number");
    for (const char* function : {"read", "pread", "write", "pwrite"})
        QTest::newRow(function) << 2;
    for (const char* function : {"sendfile", "copy_file_range"})
        QTest::newRow(function) << 3;
}

void TestFaultsInjector::halfOfTheBytesAreMoved()
{
    QFETCH(int, number);
    const FaultyOutcome outcome =
        run(text(QTest::currentDataTag()), {FaultKind::Halve, number, false});
    QCOMPARE(outcome.status, bytesMoved + 4);
}

void TestFaultsInjector::threadsAreCountedExactly()
{
    constexpr int calls = 8 * 500;
    const QVector<CountedOperation> operations = trace(text("threads")).operations;
    QCOMPARE(operations.size(), calls);
    QVector<bool> seen(calls + 1, false);
    for (const CountedOperation& counted : operations) {
        QVERIFY(counted.number >= 1 && counted.number <= calls);
        QVERIFY(!seen.at(counted.number));
        seen[counted.number] = true;
    }
    const FaultyOutcome outcome = run(text("threads"), {FaultKind::Broken, calls, false});
    QCOMPARE(outcome.hit.number, calls);
}

/// A reader that learns once that a name cannot be opened fails once.
void TestFaultsInjector::laterOperationsFailAsWell()
{
    QCOMPARE(run(text("close"), {FaultKind::Broken, 2, true}).status, EBADF);
    QCOMPARE(run(text("fsync"), {FaultKind::DiskFull, 1, true}).hit.operation, Operation::Write);
    QCOMPARE(run(text("fsync"), {FaultKind::DiskFull, 1, false}).hit.number, 0);
}

void TestFaultsInjector::lastingFaultsShow_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<int>("status");
    QTest::newRow("statvfs") << Fault{FaultKind::DiskFull, 1, true} << ENOSPC;
    QTest::newRow("access") << Fault{FaultKind::Refused, 1, true} << EACCES;
}

void TestFaultsInjector::lastingFaultsShow()
{
    QFETCH(Fault, fault);
    QFETCH(int, status);
    QCOMPARE(run(text(QTest::currentDataTag()), fault).status, status);
    QCOMPARE(run(text(QTest::currentDataTag())).status, 0);
}

void TestFaultsInjector::featureCanBeMissing_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("exchange") << EINVAL;
    QTest::newRow("unnamed") << EOPNOTSUPP;
    QTest::newRow("emptypath") << ENOENT;
    QTest::newRow("procpath") << ENOENT;
}

void TestFaultsInjector::featureCanBeMissing()
{
    QFETCH(int, error);
    const QString feature = text(QTest::currentDataTag());
    QCOMPARE(run(feature).status, 0);
    init();
    FaultyRun without = m_runner;
    without.setWithout(feature);
    const FaultyOutcome outcome = without.trace(QStringLiteral(FAULT_PROBE), {feature, m_world});
    QCOMPARE(outcome.status, error);
}

MV_TEST_MAIN(TestFaultsInjector)
#include "tst_faults_injector.moc"
