// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/SystemFile.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <cerrno>
#include <chrono>
#include <memory>
#include <thread>
#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

/// Tests what every system does in its own way: all of it must be the same on each.
class tst_SystemFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void createRefusesAnExistingFile();
    void readersOfANewFile_data();
    void readersOfANewFile();
    void folderHasThePermissionsOfItsModel();
    void folderWithoutAModelIsReadable();
    void folderThatExistsIsRefused();
    void linksShareAnIdentity();
    void identitiesDiffer();
    void realPathFollowsLinks();
    void linksAreKnown();
    void realPathOfNothingIsEmpty();
    void renameToNewKeepsAnExistingFile();
    void renameReplaces();
    void fileThatIsReadForAMomentIsReplaced();
    void fileThatIsReadForAMomentGetsItsName_data();
    void fileThatIsReadForAMomentGetsItsName();
    void folderIsNotReplaced();
    void openFileCanBeRenamedAndRemoved();
    void readNextContinues();
    void lockBelongsToItsHandle();
    void exchangeSwapsFoldersOrSaysWhy();

private:
    QByteArray path(const char* name) const
    {
        return SystemFile::encodedName(m_folder->filePath(QString::fromLatin1(name)));
    }
    void write(const char* name, const QByteArray& content) const
    {
        CatalogueFiles::write(SystemFile::decodedName(path(name)), content);
    }
    QByteArray read(const char* name) const
    {
        return CatalogueFiles::read(SystemFile::decodedName(path(name)));
    }
    QFileInfo info(const char* name) const
    {
        return QFileInfo(SystemFile::decodedName(path(name)));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_SystemFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_SystemFile::createRefusesAnExistingFile()
{
    write("file", "old");
    QCOMPARE(SystemFile::create(path("file")), -1);
    QCOMPARE(errno, EEXIST);
    QCOMPARE(read("file"), QByteArray("old"));
}

void tst_SystemFile::readersOfANewFile_data()
{
    QTest::addColumn<int>("readers");
    QTest::addColumn<bool>("isForOthers");
    QTest::newRow("everyone") << static_cast<int>(SystemFile::Readers::Everyone) << true;
    QTest::newRow("its owner") << static_cast<int>(SystemFile::Readers::Owner) << false;
}

void tst_SystemFile::readersOfANewFile()
{
    QFETCH(int, readers);
    QFETCH(bool, isForOthers);
#ifndef Q_OS_WIN
    const mode_t before = ::umask(077);
#endif
    const int handle = SystemFile::create(path("file"), static_cast<SystemFile::Readers>(readers));
#ifndef Q_OS_WIN
    ::umask(before);
#endif
    QVERIFY(handle >= 0);
    QVERIFY(SystemFile::writeAt(handle, "content", 7, 0));
    SystemFile::close(handle);
    QCOMPARE(read("file"), QByteArray("content"));
    const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
#ifdef Q_OS_WIN
    QSKIP("Qt does not tell there what others may.");
#endif
    QCOMPARE(info("file").permissions() & others, isForOthers ? others : QFile::Permissions());
}

void tst_SystemFile::folderHasThePermissionsOfItsModel()
{
    QVERIFY(SystemFile::createFolder(path("model"), path("none")));
    const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const QFile::Permissions chosen = own | QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup;
    QVERIFY(QFile::setPermissions(SystemFile::decodedName(path("model")), chosen));
    QVERIFY(SystemFile::createFolder(path("folder"), path("model")));
    QCOMPARE(info("folder").permissions(), info("model").permissions());
}

void tst_SystemFile::folderWithoutAModelIsReadable()
{
    QVERIFY(SystemFile::createFolder(path("folder"), path("none")));
    QVERIFY(info("folder").isDir());
    QVERIFY(info("folder").permission(QFile::ReadOther | QFile::ExeOther));
}

void tst_SystemFile::folderThatExistsIsRefused()
{
    QVERIFY(SystemFile::createFolder(path("folder"), path("none")));
    QVERIFY(!SystemFile::createFolder(path("folder"), path("none")));
    QCOMPARE(errno, EEXIST);
}

void tst_SystemFile::linksShareAnIdentity()
{
    write("file", "content");
    QVERIFY(SystemFile::link(path("file"), path("link")));
    QCOMPARE(SystemFile::identity(path("link")), SystemFile::identity(path("file")));
    QVERIFY(SystemFile::isSame(path("link"), path("file")));
    write("other", "other");
    QVERIFY(!SystemFile::link(path("file"), path("other")));
    QCOMPARE(errno, EEXIST);
    QCOMPARE(read("other"), QByteArray("other"));
}

void tst_SystemFile::identitiesDiffer()
{
    write("one", "content");
    write("other", "content");
    const QPair<quint64, quint64> none;
    QVERIFY(SystemFile::identity(path("one")) != SystemFile::identity(path("other")));
    QVERIFY(SystemFile::identity(path("one")) != none);
    QCOMPARE(SystemFile::identity(path("none")), none);
}

void tst_SystemFile::realPathFollowsLinks()
{
    QVERIFY(SystemFile::createFolder(path("folder"), path("none")));
    write("folder/file", "content");
    const QString file = SystemFile::decodedName(path("folder/file"));
    QCOMPARE(SystemFile::realPath(file), QFileInfo(file).canonicalFilePath());
    const QString link = SystemFile::decodedName(path("link"));
    MV_LINK(SystemFile::decodedName(path("folder")), link);
    const auto unlinked = qScopeGuard([&] { UnusualFiles::unlink(link); });
    QCOMPARE(SystemFile::realPath(link + QStringLiteral("/file")),
             QFileInfo(file).canonicalFilePath());
}

void tst_SystemFile::linksAreKnown()
{
    write("folder/file", "content");
    const QString folder = SystemFile::decodedName(path("folder"));
    const QString link = SystemFile::decodedName(path("link"));
    MV_LINK(folder, link);
    const auto unlinked = qScopeGuard([&] { UnusualFiles::unlink(link); });
    QVERIFY(SystemFile::isLink(link));
    QVERIFY(SystemFile::isLink(link + QLatin1Char('/')));
    for (const QString& name : {folder, folder + QStringLiteral("/file"),
                                link + QStringLiteral("/file"), folder + QStringLiteral("/none")})
        QVERIFY2(!SystemFile::isLink(name), qPrintable(name));
}

void tst_SystemFile::realPathOfNothingIsEmpty()
{
    QCOMPARE(SystemFile::realPath(SystemFile::decodedName(path("none"))), QString());
}

void tst_SystemFile::renameToNewKeepsAnExistingFile()
{
    write("new", "new");
    write("file", "old");
    QVERIFY(!SystemFile::renameToNew(path("new"), path("file")));
    QCOMPARE(errno, EEXIST);
    QCOMPARE(read("file"), QByteArray("old"));
    QCOMPARE(read("new"), QByteArray("new"));
    QVERIFY(SystemFile::renameToNew(path("new"), path("free")));
    QCOMPARE(read("free"), QByteArray("new"));
}

void tst_SystemFile::renameReplaces()
{
    write("new", "new");
    write("file", "old");
    QVERIFY(SystemFile::rename(path("new"), path("file")));
    QCOMPARE(read("file"), QByteArray("new"));
    QVERIFY(!info("new").exists());
    QVERIFY(!SystemFile::rename(path("new"), path("file")));
}

/// Windows replaces no open file; others do not care.
void tst_SystemFile::fileThatIsReadForAMomentIsReplaced()
{
    write("new", "new");
    write("file", "old");
    bool isReplaced = false;
    for (int attempt = 0; attempt < 5 && !isReplaced; ++attempt) { // on a busy machine
        QFile reader(SystemFile::decodedName(path("file")));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        std::thread closer([&reader] {
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            reader.close();
        });
        isReplaced = SystemFile::rename(path("new"), path("file"));
        closer.join();
    }
    QVERIFY(isReplaced);
    QCOMPARE(read("file"), QByteArray("new"));
}

void tst_SystemFile::fileThatIsReadForAMomentGetsItsName_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("a new one") << true;
    QTest::newRow("any") << false;
}

/// Windows renames no file that others have open without sharing that.
void tst_SystemFile::fileThatIsReadForAMomentGetsItsName()
{
    QFETCH(bool, isNew);
    bool isRenamed = false;
    for (int attempt = 0; attempt < 5 && !isRenamed; ++attempt) { // on a busy machine
        write("part", "new");
        QFile reader(SystemFile::decodedName(path("part")));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        std::thread closer([&reader] {
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            reader.close();
        });
        isRenamed = isNew ? SystemFile::renameToNew(path("part"), path("first"))
                          : SystemFile::rename(path("part"), path("first"));
        closer.join();
    }
    QVERIFY(isRenamed);
    QCOMPARE(read("first"), QByteArray("new"));
}

/// A read-only file or a folder is refused at once.
void tst_SystemFile::folderIsNotReplaced()
{
    write("new", "new");
    write("folder/file", "old");
    QVERIFY(!SystemFile::rename(path("new"), path("folder")));
    QCOMPARE(read("folder/file"), QByteArray("old"));
    QCOMPARE(read("new"), QByteArray("new"));
}

void tst_SystemFile::openFileCanBeRenamedAndRemoved()
{
    const int handle = SystemFile::create(path("file"));
    QVERIFY(handle >= 0);
    QVERIFY(SystemFile::rename(path("file"), path("renamed")));
    QVERIFY(SystemFile::hasName(handle, path("renamed")));
    QVERIFY(!SystemFile::hasName(handle, path("file")));
    QVERIFY(SystemFile::remove(path("renamed")));
    if (UnusualFiles::tellsRemoved())
        QVERIFY(!SystemFile::hasAnyName(handle));
    SystemFile::close(handle);
    QVERIFY(!info("renamed").exists());
}

void tst_SystemFile::readNextContinues()
{
    write("file", "content");
    const int handle = SystemFile::openRegular(path("file"), SystemFile::Access::Read);
    QVERIFY(handle >= 0);
    char bytes[8] = {};
    QCOMPARE(SystemFile::readNext(handle, bytes, 4), qint64(4));
    QCOMPARE(QByteArray(bytes), QByteArray("cont"));
    QCOMPARE(SystemFile::readNext(handle, bytes, sizeof bytes), qint64(3));
    QCOMPARE(QByteArray(bytes, 3), QByteArray("ent"));
    QCOMPARE(SystemFile::readNext(handle, bytes, sizeof bytes), qint64(0));
    SystemFile::close(handle);
}

void tst_SystemFile::lockBelongsToItsHandle()
{
    const int first = SystemFile::openOrCreate(path("lock"));
    const int second = SystemFile::openOrCreate(path("lock"));
    QVERIFY(first >= 0 && second >= 0);
    QCOMPARE(SystemFile::lock(first), SystemFile::Lock::Taken);
    QCOMPARE(SystemFile::lock(second), SystemFile::Lock::Held);
    QVERIFY(SystemFile::writeAt(second, "x", 1, 0)); // the lock is advisory
    SystemFile::close(first);
    QCOMPARE(SystemFile::lock(second), SystemFile::Lock::Taken);
    SystemFile::close(second);
}

void tst_SystemFile::exchangeSwapsFoldersOrSaysWhy()
{
    QVERIFY(SystemFile::createFolder(path("one"), path("none")));
    QVERIFY(SystemFile::createFolder(path("other"), path("none")));
    write("one/file", "one");
    QVERIFY(!SystemFile::exchange(path("one"), path("third")));
    const bool isExchanged = SystemFile::exchange(path("one"), path("other"));
    QVERIFY(isExchanged || errno == EINVAL || errno == ENOSYS);
#ifdef Q_OS_LINUX
    QVERIFY(isExchanged);
#endif
    QCOMPARE(info("other/file").exists(), isExchanged);
    QCOMPARE(info("one/file").exists(), !isExchanged);
}

MV_TEST_MAIN(tst_SystemFile)
#include "tst_SystemFile.moc"
