// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/SystemFile.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <cerrno>

/// Tests open files, the comparison of names, and flushes.
class tst_SystemFile_handles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void opensOrCreatesNoLink();
    void opensRegularFilesOnly();
    void appendsAtTheEnd();
    void readsAndWritesAtAPosition();
    void lockOutlivesTheQuestionForLateFailures();
    void knowsTheNamesOfAnOpenFile();
    void comparesNames();
    void flushesWhatIsThere();
    void tellsWhatIsInTheWay();

private:
    static QString folder() { return TestHome::path() + QStringLiteral("/files"); }
    static QByteArray path(const char* name)
    {
        return SystemFile::encodedName(folder() + QLatin1Char('/') + QLatin1String(name));
    }
    static void write(const char* name, const QByteArray& content)
    {
        CatalogueFiles::write(SystemFile::decodedName(path(name)), content);
    }
    static QByteArray content(const char* name)
    {
        return CatalogueFiles::read(SystemFile::decodedName(path(name)));
    }
    static bool exists(const char* name)
    {
        return QFileInfo::exists(SystemFile::decodedName(path(name)));
    }
};

namespace {

/// An open file of the test.
class Handle
{
public:
    explicit Handle(int handle)
        : m_handle(handle)
    {
    }
    ~Handle()
    {
        if (m_handle >= 0)
            SystemFile::close(m_handle);
    }
    Q_DISABLE_COPY_MOVE(Handle)

    bool isOpen() const { return m_handle >= 0; }
    int number() const { return m_handle; }

private:
    int m_handle;
};

} // namespace

void tst_SystemFile_handles::init()
{
    QDir(folder()).removeRecursively();
    QVERIFY(QDir().mkpath(folder()));
    write("old", "old");
}

void tst_SystemFile_handles::opensOrCreatesNoLink()
{
    QVERIFY(Handle(SystemFile::openOrCreate(path("new"))).isOpen());
    QVERIFY(exists("new"));
    QVERIFY(Handle(SystemFile::openOrCreate(path("old"))).isOpen());
    QCOMPARE(content("old"), QByteArray("old"));
    MV_LINK(SystemFile::decodedName(path("old")), SystemFile::decodedName(path("link")));
    QVERIFY(!Handle(SystemFile::openOrCreate(path("link"))).isOpen());
}

void tst_SystemFile_handles::opensRegularFilesOnly()
{
    using Access = SystemFile::Access;
    QVERIFY(Handle(SystemFile::openRegular(path("old"), Access::Read)).isOpen());
    QVERIFY(!Handle(SystemFile::openRegular(path("new"), Access::Read)).isOpen());
    QCOMPARE(errno, ENOENT);
    QVERIFY(Handle(SystemFile::openRegular(path("new"), Access::ReadWrite)).isOpen());
    QVERIFY(exists("new"));
    QVERIFY(!Handle(SystemFile::openRegular(path("."), Access::Read)).isOpen());
    QCOMPARE(errno, 0);
}

void tst_SystemFile_handles::appendsAtTheEnd()
{
    const Handle handle(SystemFile::openRegular(path("old"), SystemFile::Access::Append));
    QFile file;
    QVERIFY(file.open(handle.number(), QIODevice::WriteOnly | QIODevice::Append));
    file.write("er");
    file.close();
    QCOMPARE(content("old"), QByteArray("older"));
}

void tst_SystemFile_handles::readsAndWritesAtAPosition()
{
    const Handle handle(SystemFile::openOrCreate(path("old")));
    QVERIFY(SystemFile::writeAt(handle.number(), "ABCDEF", 6, 2));
    QCOMPARE(content("old"), QByteArray("olABCDEF"));
    char read[16] = {};
    QCOMPARE(SystemFile::readAt(handle.number(), read, 3, 1), qint64(3));
    QCOMPARE(QByteArray(read), QByteArray("lAB"));
    QCOMPARE(SystemFile::readAt(handle.number(), read, 16, 6), qint64(2));
    QCOMPARE(SystemFile::readAt(handle.number(), read, 16, 8), qint64(0));
    QVERIFY(SystemFile::truncate(handle.number()));
    QCOMPARE(content("old"), QByteArray());
    const Handle readOnly(SystemFile::openRegular(path("old"), SystemFile::Access::Read));
    QVERIFY(!SystemFile::writeAt(readOnly.number(), "x", 1, 0));
    QCOMPARE(SystemFile::readAt(-1, read, 1, 0), qint64(-1));
}

void tst_SystemFile_handles::lockOutlivesTheQuestionForLateFailures()
{
    const Handle first(SystemFile::openOrCreate(path("old")));
    const Handle second(SystemFile::openOrCreate(path("old")));
    QCOMPARE(SystemFile::lock(first.number()), SystemFile::Lock::Taken);
    QVERIFY(SystemFile::hasTakenAllBytes(first.number()));
    QCOMPARE(SystemFile::lock(second.number()), SystemFile::Lock::Held);
    QCOMPARE(SystemFile::lock(-1), SystemFile::Lock::Impossible);
}

void tst_SystemFile_handles::knowsTheNamesOfAnOpenFile()
{
    const Handle handle(SystemFile::openOrCreate(path("old")));
    QVERIFY(SystemFile::hasName(handle.number(), path("old")));
    QVERIFY(SystemFile::hasAnyName(handle.number()));
    QVERIFY(!SystemFile::hasName(handle.number(), path("new")));
    QVERIFY(SystemFile::rename(path("old"), path("renamed")));
    write("old", "another");
    QVERIFY(!SystemFile::hasName(handle.number(), path("old")));
    QVERIFY(SystemFile::hasAnyName(handle.number()));
    QVERIFY(SystemFile::remove(path("renamed")));
    if (UnusualFiles::tellsRemoved()) {
        QVERIFY(!SystemFile::hasAnyName(handle.number()));
        QVERIFY(!SystemFile::remove(path("renamed")));
    }
    QVERIFY(!SystemFile::hasAnyName(-1));
    QVERIFY(!SystemFile::hasName(-1, path("old")));
}

void tst_SystemFile_handles::comparesNames()
{
    write("other", "old");
    QVERIFY(SystemFile::isSame(path("old"), path("../files/old")));
    QVERIFY(!SystemFile::isSame(path("old"), path("other")));
    QVERIFY(!SystemFile::isSame(path("old"), path("missing")));
    QVERIFY(!SystemFile::isSame(path("missing"), path("old")));
    QVERIFY(SystemFile::isFolder(path(".")));
    QVERIFY(!SystemFile::isFolder(path("old")));
    QVERIFY(!SystemFile::isFolder(path("missing")));
}

void tst_SystemFile_handles::flushesWhatIsThere()
{
    const Handle handle(SystemFile::openOrCreate(path("old")));
    QVERIFY(SystemFile::flush(handle.number()));
    QVERIFY(SystemFile::flushFolder(path(".")));
    QVERIFY(SystemFile::flushTree(path(".")));
    QVERIFY(!SystemFile::flush(-1));
    QVERIFY(!SystemFile::hasTakenAllBytes(-1));
    QVERIFY(!SystemFile::flushFolder(path("missing")));
    QCOMPARE(errno, ENOENT);
    QVERIFY(!SystemFile::flushTree(path("missing")));
}

void tst_SystemFile_handles::tellsWhatIsInTheWay()
{
    QCOMPARE(SystemFile::obstacleIn(path(".")), 0);
    QCOMPARE(SystemFile::obstacleIn(path("missing")), ENOENT);
    QVERIFY(SystemFile::isFull(ENOSPC));
    QVERIFY(!SystemFile::isFull(EIO));
}

MV_TEST_MAIN(tst_SystemFile_handles)
#include "tst_SystemFile_handles.moc"
