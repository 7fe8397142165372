// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FileLock.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/ThisProcess.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <thread>

using namespace std::chrono_literals;

namespace {

/// With this argument the program holds the lock of a file until it is killed.
const char* const holderArgument = "--hold";

int holdLock(const QString& file)
{
    FileLock lock(file);
    if (lock.lock(0ms) != FileLock::Result::Locked)
        return 1;
    std::puts("locked");
    std::fflush(stdout);
    ThisProcess::waitForKill();
}

} // namespace

/// Tests that a lock excludes other processes, but only while its owner lives.
class tst_FileLock : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fileIsRemovedAtTheEnd();
    void excludesOthersUntilItEnds();
    void lockingAgainDoesNothing();
    void waitsForItsTurn();
    void waitingCanBeCancelled();
    void missingFolderIsReported();
    void leftFileBlocksNobody_data();
    void leftFileBlocksNobody();
    void killedHolderBlocksNobody();
    void excludesWhileTheFileComesAndGoes();

private:
    QString m_folder = TestHome::path() + QStringLiteral("/locks");
    QString m_file = m_folder + QStringLiteral("/.lock");
};

void tst_FileLock::init()
{
    QDir(m_folder).removeRecursively();
    QVERIFY(QDir().mkpath(m_folder));
}

void tst_FileLock::fileIsRemovedAtTheEnd()
{
    {
        FileLock lock(m_file);
        QVERIFY(!lock.isLocked());
        QCOMPARE(lock.lock(0ms), FileLock::Result::Locked);
        QVERIFY(lock.isLocked());
        QVERIFY(QFileInfo::exists(m_file));
    }
    QVERIFY(!QFileInfo::exists(m_file));
}

void tst_FileLock::excludesOthersUntilItEnds()
{
    FileLock second(m_file);
    {
        FileLock first(m_file);
        QCOMPARE(first.lock(0ms), FileLock::Result::Locked);
        QCOMPARE(second.lock(0ms), FileLock::Result::Busy);
        QVERIFY(!second.isLocked());
        QCOMPARE(second.error(), 0);
    }
    QCOMPARE(second.lock(0ms), FileLock::Result::Locked);
}

void tst_FileLock::lockingAgainDoesNothing()
{
    FileLock lock(m_file);
    QCOMPARE(lock.lock(0ms), FileLock::Result::Locked);
    QCOMPARE(lock.lock(0ms), FileLock::Result::Locked);
}

void tst_FileLock::waitsForItsTurn()
{
    auto first = std::make_unique<FileLock>(m_file);
    QCOMPARE(first->lock(0ms), FileLock::Result::Locked);
    std::atomic<bool> isWaiting{false};
    FileLock::Result result = FileLock::Result::Busy;
    std::thread waiting([&] {
        FileLock second(m_file);
        isWaiting = second.lock(0ms) == FileLock::Result::Busy;
        result = second.lock(60s);
    });
    while (!isWaiting)
        std::this_thread::yield();
    first.reset();
    waiting.join();
    QCOMPARE(result, FileLock::Result::Locked);
}

void tst_FileLock::waitingCanBeCancelled()
{
    FileLock first(m_file);
    QCOMPARE(first.lock(0ms), FileLock::Result::Locked);
    CancelToken cancel;
    cancel.cancel();
    QCOMPARE(FileLock(m_file).lock(cancel), FileLock::Result::Cancelled);
    QVERIFY(QFileInfo::exists(m_file));
}

void tst_FileLock::missingFolderIsReported()
{
    FileLock lock(m_folder + QStringLiteral("/missing/.lock"));
    QCOMPARE(lock.lock(60s), FileLock::Result::CannotCreate);
    QCOMPARE(lock.error(), ENOENT);
}

void tst_FileLock::leftFileBlocksNobody_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray("12");
    QTest::newRow("number of a living process")
        << QByteArray::number(QCoreApplication::applicationPid()) + "\nprogram\nmachine\n";
}

void tst_FileLock::leftFileBlocksNobody()
{
    QFETCH(QByteArray, content);
    CatalogueFiles::write(m_file, content);
    {
        FileLock lock(m_file);
        QCOMPARE(lock.lock(0ms), FileLock::Result::Locked);
    }
    QVERIFY(!QFileInfo::exists(m_file));
}

void tst_FileLock::killedHolderBlocksNobody()
{
    QProcess holder;
    holder.start(QCoreApplication::applicationFilePath(),
                 {QString::fromLatin1(holderArgument), m_file});
    QVERIFY(holder.waitForReadyRead());
    QCOMPARE(holder.readAllStandardOutput().trimmed(), QByteArray("locked"));
    QVERIFY(FileLock(m_file).lock(0ms) == FileLock::Result::Busy);
    holder.kill();
    QVERIFY(holder.waitForFinished());
    QVERIFY(QFileInfo::exists(m_file));
    QCOMPARE(FileLock(m_file).lock(0ms), FileLock::Result::Locked);
}

/// Releasing a lock removes its file, which another process may have just opened.
void tst_FileLock::excludesWhileTheFileComesAndGoes()
{
    constexpr int rounds = 5000;
    std::atomic<int> holders{0};
    std::atomic<int> locked{0};
    std::atomic<bool> isShared{false};
    const auto work = [&] {
        for (int i = 0; i < rounds; ++i) {
            FileLock lock(m_file);
            if (lock.lock(0ms) != FileLock::Result::Locked)
                continue;
            ++locked;
            if (++holders > 1)
                isShared = true;
            std::this_thread::yield();
            --holders;
        }
    };
    std::array<std::thread, 4> threads;
    for (std::thread& thread : threads)
        thread = std::thread(work);
    for (std::thread& thread : threads)
        thread.join();
    QVERIFY(!isShared);
    QVERIFY(locked > 0);
    QVERIFY(!QFileInfo::exists(m_file));
}

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], holderArgument) == 0)
        return holdLock(QString::fromUtf8(argv[2]));
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    tst_FileLock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FileLock.moc"
