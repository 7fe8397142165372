// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FileSizeLimit.h"
#include "host/HostSettings.h"
#include "host/Utils.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <atomic>
#include <thread>

namespace tst_Utils {

namespace {

/// A file that can be opened but not read.
const QString unreadable = QStringLiteral("/proc/self/mem");

} // namespace

class tst_Utils : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void knowsTheSumOfAFile_data();
    void knowsTheSumOfAFile();
    void unreadableFileHasNoDigest_data();
    void unreadableFileHasNoDigest();

    void copiesAFile_data();
    void copiesAFile();
    void copyReplacesTheTarget();
    void copyReplacesALinkNotWhatItPointsTo();
    void copyOntoItselfKeepsTheFile();
    void failedCopyKeepsTheTarget_data();
    void failedCopyKeepsTheTarget();
    void fullDiskKeepsTheTarget();
    void copyNeedsAFolder();
    void copyOverAFolderFails();
    void copyRemovesWhatAKillLeft();

    void copyToPathReplacesOnlyOnDemand_data();
    void copyToPathReplacesOnlyOnDemand();
    void copyToPathFailsWithoutASource();
    void copiesRegularFilesOnly_data();
    void copiesRegularFilesOnly();

    void aReaderSeesOneOfTheTwoFiles();
    void dataLocationFollowsTheSettings();

private:
    QString path(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    void write(const QString& name, const QByteArray& content) const
    {
        CatalogueFiles::write(path(name), content);
    }
    QByteArray read(const QString& name) const { return CatalogueFiles::read(path(name)); }
    /// Returns the names of all files, part files included.
    QStringList files() const { return CatalogueFiles::filesBelow(m_folder); }

    QString m_folder; // a new one for every test
    int m_count = 0;
};

void tst_Utils::init()
{
    m_folder = TestHome::path() + QStringLiteral("/%1").arg(++m_count);
    QVERIFY(QDir().mkpath(m_folder));
}

void tst_Utils::knowsTheSumOfAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("sum");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("d41d8cd98f00b204e9800998ecf8427e");
    QTest::newRow("a") << QByteArray("a") << QStringLiteral("0cc175b9c0f1b6a831c399e269772661");
    QTest::newRow("abc") << QByteArray("abc") << QStringLiteral("900150983cd24fb0d6963f7d28e17f72");
    QTest::newRow("message digest")
        << QByteArray("message digest") << QStringLiteral("f96b697d7cb7938d525a2f31aaf161d0");
    QTest::newRow("a million letters")
        << QByteArray(1000000, 'a') << QStringLiteral("7707d6ae4e027c70eea2a935c2296f21");
}

void tst_Utils::knowsTheSumOfAFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, sum);
    write(QStringLiteral("file"), content);
    QCOMPARE(Utils::getMD5(path(QStringLiteral("file"))), sum);
}

void tst_Utils::unreadableFileHasNoDigest_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("missing") << TestHome::path() + QStringLiteral("/none");
    QTest::newRow("folder") << TestHome::path();
    QTest::newRow("no name") << QString();
    QTest::newRow("reading fails") << unreadable;
    QTest::newRow("device without an end") << UnusualFiles::endlessDevice();
    if (!UnusualFiles::hasPipes)
        return;
    const QString pipe = TestHome::path() + QStringLiteral("/pipe");
    UnusualFiles::makePipe(pipe);
    QTest::newRow("pipe that nobody writes") << pipe;
}

void tst_Utils::unreadableFileHasNoDigest()
{
    QFETCH(QString, file);
    QCOMPARE(Utils::getMD5(file), QString());
}

void tst_Utils::copiesAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("text\n");
    QTest::newRow("zeros") << QByteArray(10, '\0');
    QTest::newRow("one chunk") << QByteArray(256 * 1024, 'x');
    QTest::newRow("a byte more than one chunk") << QByteArray(256 * 1024, 'x') + 'y';
}

void tst_Utils::copiesAFile()
{
    QFETCH(QByteArray, content);
    write(QStringLiteral("from/a"), content);
    QVERIFY(QDir(m_folder).mkdir(QStringLiteral("to")));
    QVERIFY(Utils::copyFile(path(QStringLiteral("from/a")), QDir(path(QStringLiteral("to"))),
                            QStringLiteral("b")));
    QCOMPARE(read(QStringLiteral("to/b")), content);
    QCOMPARE(files(), (QStringList{QStringLiteral("from/a"), QStringLiteral("to/b")}));
}

void tst_Utils::copyReplacesTheTarget()
{
    write(QStringLiteral("a"), "new");
    write(QStringLiteral("b"), "old and longer");
    QVERIFY(Utils::copyFile(path(QStringLiteral("a")), QDir(m_folder), QStringLiteral("b")));
    QCOMPARE(read(QStringLiteral("b")), QByteArray("new"));
    QCOMPARE(read(QStringLiteral("a")), QByteArray("new"));
}

void tst_Utils::copyReplacesALinkNotWhatItPointsTo()
{
    write(QStringLiteral("a"), "new");
    write(QStringLiteral("elsewhere"), "untouched");
    MV_LINK(path(QStringLiteral("elsewhere")), path(QStringLiteral("b")));
    QVERIFY(Utils::copyFile(path(QStringLiteral("a")), QDir(m_folder), QStringLiteral("b")));
    QVERIFY(!QFileInfo(path(QStringLiteral("b"))).isSymLink());
    QCOMPARE(read(QStringLiteral("b")), QByteArray("new"));
    QCOMPARE(read(QStringLiteral("elsewhere")), QByteArray("untouched"));
}

void tst_Utils::copyOntoItselfKeepsTheFile()
{
    write(QStringLiteral("a"), "content");
    QVERIFY(Utils::copyFile(path(QStringLiteral("a")), QDir(m_folder), QStringLiteral("a")));
    QCOMPARE(read(QStringLiteral("a")), QByteArray("content"));
    QCOMPARE(files(), QStringList{QStringLiteral("a")});
}

void tst_Utils::failedCopyKeepsTheTarget_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("missing") << TestHome::path() + QStringLiteral("/none");
    QTest::newRow("folder") << TestHome::path();
    QTest::newRow("no name") << QString();
    QTest::newRow("reading fails") << unreadable;
}

void tst_Utils::failedCopyKeepsTheTarget()
{
    QFETCH(QString, source);
    write(QStringLiteral("b"), "old");
    QVERIFY(!Utils::copyFile(source, QDir(m_folder), QStringLiteral("b")));
    QVERIFY(!Utils::copyFileToPath(source, path(QStringLiteral("c")), true));
    QCOMPARE(read(QStringLiteral("b")), QByteArray("old"));
    QCOMPARE(files(), QStringList{QStringLiteral("b")});
}

void tst_Utils::fullDiskKeepsTheTarget()
{
    write(QStringLiteral("a"), QByteArray(1024 * 1024, 'x'));
    write(QStringLiteral("b"), "old");
    {
        const FileSizeLimit limit(300 * 1024); // in the middle of the second chunk
        if (!limit.isActive())
            QSKIP("This system cannot limit the size of files.");
        QVERIFY(!Utils::copyFile(path(QStringLiteral("a")), QDir(m_folder), QStringLiteral("b")));
        QVERIFY(!Utils::copyFileToPath(path(QStringLiteral("a")), path(QStringLiteral("c")), true));
    }
    QCOMPARE(read(QStringLiteral("b")), QByteArray("old"));
    QCOMPARE(files(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

void tst_Utils::copyNeedsAFolder()
{
    write(QStringLiteral("a"), "content");
    QVERIFY(!Utils::copyFile(path(QStringLiteral("a")), QDir(path(QStringLiteral("none"))),
                             QStringLiteral("b")));
    QVERIFY(
        !Utils::copyFileToPath(path(QStringLiteral("a")), path(QStringLiteral("none/b")), true));
    QVERIFY(!Utils::copyFileToPath(path(QStringLiteral("a")), QString(), true));
    QCOMPARE(files(), QStringList{QStringLiteral("a")});
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("none"))));
}

void tst_Utils::copyOverAFolderFails()
{
    write(QStringLiteral("a"), "content");
    write(QStringLiteral("b/inside"), "kept");
    QVERIFY(!Utils::copyFile(path(QStringLiteral("a")), QDir(m_folder), QStringLiteral("b")));
    QVERIFY(!Utils::copyFile(path(QStringLiteral("a")), QDir(m_folder), QString()));
    QCOMPARE(files(), (QStringList{QStringLiteral("a"), QStringLiteral("b/inside")}));
}

void tst_Utils::copyRemovesWhatAKillLeft()
{
    write(QStringLiteral("source"), "content");
    write(QStringLiteral("to/.mv-0123456789abcdef.part"), "left behind");
    QVERIFY(Utils::copyFile(path(QStringLiteral("source")), QDir(path(QStringLiteral("to"))),
                            QStringLiteral("copy")));
    QCOMPARE(CatalogueFiles::filesBelow(path(QStringLiteral("to"))),
             QStringList(QStringLiteral("copy")));
}

void tst_Utils::copyToPathReplacesOnlyOnDemand_data()
{
    QTest::addColumn<bool>("targetExists");
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no target") << false << false << true << QByteArray("new");
    QTest::newRow("no target, overwrite") << false << true << true << QByteArray("new");
    QTest::newRow("target") << true << false << false << QByteArray("old");
    QTest::newRow("target, overwrite") << true << true << true << QByteArray("new");
}

void tst_Utils::copyToPathReplacesOnlyOnDemand()
{
    QFETCH(bool, targetExists);
    QFETCH(bool, overwrite);
    QFETCH(bool, result);
    QFETCH(QByteArray, content);
    write(QStringLiteral("a"), "new");
    if (targetExists)
        write(QStringLiteral("b"), "old");
    QCOMPARE(Utils::copyFileToPath(path(QStringLiteral("a")), path(QStringLiteral("b")), overwrite),
             result);
    QCOMPARE(read(QStringLiteral("b")), content);
    QCOMPARE(files(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

void tst_Utils::copyToPathFailsWithoutASource()
{
    for (const bool overwrite : {false, true})
        QVERIFY(!Utils::copyFileToPath(path(QStringLiteral("none")), path(QStringLiteral("b")),
                                       overwrite));
    QVERIFY(files().isEmpty());
}

void tst_Utils::copiesRegularFilesOnly_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("device") << UnusualFiles::emptyDevice();
    if (!UnusualFiles::hasPipes)
        return;
    const QString pipe = TestHome::path() + QStringLiteral("/source-pipe");
    UnusualFiles::makePipe(pipe);
    QTest::newRow("pipe that nobody writes") << pipe;
}

void tst_Utils::copiesRegularFilesOnly()
{
    QFETCH(QString, source);
    QVERIFY(!Utils::copyFileToPath(source, path(QStringLiteral("b")), true)); // it must return
    QVERIFY(files().isEmpty());
}

void tst_Utils::aReaderSeesOneOfTheTwoFiles()
{
#ifdef Q_OS_WIN
    QSKIP("This system replaces no open file.");
#endif
    const QByteArray black(600 * 1024, 'b');
    const QByteArray white(700 * 1024, 'w');
    write(QStringLiteral("black"), black);
    write(QStringLiteral("white"), white);
    write(QStringLiteral("target"), black);

    std::atomic<bool> done{false};
    std::atomic<int> torn{0};
    std::atomic<int> whole{0};
    std::thread reader([&] {
        do {
            const QByteArray seen = read(QStringLiteral("target"));
            ++(seen == black || seen == white ? whole : torn);
        } while (!done);
    });
    bool copied = true;
    for (int i = 0; i < 50; ++i) {
        const QString source = path(i % 2 ? QStringLiteral("black") : QStringLiteral("white"));
        copied = Utils::copyFile(source, QDir(m_folder), QStringLiteral("target")) && copied;
    }
    done = true;
    reader.join();
    QVERIFY(copied);
    QVERIFY(whole > 0);
    QCOMPARE(torn.load(), 0);
}

void tst_Utils::dataLocationFollowsTheSettings()
{
    hostSettings().dataLocation = QStringLiteral("/user/data");
    QCOMPARE(Utils::strDataLocation(), QStringLiteral("/user/data"));
}

MV_TEST_MAIN(tst_Utils)

} // namespace tst_Utils

#include "tst_Utils.moc"
