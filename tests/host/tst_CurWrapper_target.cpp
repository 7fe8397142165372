// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "FileSizeLimit.h"
#include "host/HostSettings.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

/// Tests the local side of a download: what may be the target, and what happens to it.
class TestCurWrapperTarget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { hostSettings() = m_settings; }

    void cannotWrite_data();
    void cannotWrite();
    void cannotRenameOverAFolderThatAppeared();
    void cannotReplaceAFolderMadeBetweenDownloads_data();
    void cannotReplaceAFolderMadeBetweenDownloads();
    void diskFull_data();
    void diskFull();
    void replacesAnOlderFile();
    void replacesALinkAndNotWhatItPointsTo();
    void anOpenOlderFileStaysWhole();
    void writesIntoTheCurrentFolder();
    void targetNames_data();
    void targetNames();
    void fileIsReadableAsTheUserWantsNewFiles();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperTarget::cannotWrite_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("requests");

    QTest::newRow("a folder") << "folder" << 0;
    QTest::newRow("a link to a folder") << "link" << 0;
    QTest::newRow("a name that ends like a folder's") << "new/" << 0;
    QTest::newRow("in a missing folder") << "missing/file.bin" << 0;
    QTest::newRow("through a file") << "file/file.bin" << 0;
#ifndef Q_OS_WIN
    QTest::newRow("in a folder that takes no files") << "/proc/file.bin" << 0;
#endif
    // Only the file system knows the longest name, and refuses when the file gets its name.
    QTest::newRow("a name that is too long") << QString(300, QLatin1Char('x')) << 1;
}

void TestCurWrapperTarget::cannotWrite()
{
    QFETCH(QString, target);
    QFETCH(int, requests);

    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    QVERIFY(QDir(download.folder()).mkdir(QStringLiteral("folder")));
    const QString link = download.folder() + QStringLiteral("/link");
    MV_LINK(QStringLiteral("folder"), link);
    const auto unlinked = qScopeGuard([&] { UnusualFiles::unlink(link); });
    CatalogueFiles::write(download.folder() + QStringLiteral("/file"), "in the way");
    const QString path = QDir(download.folder()).filePath(target);

    download.wrapper().download(server.url(QStringLiteral("/file")), path, false);
    QCOMPARE(download.wrapper().result(), 2);
    QVERIFY2(download.errorText().contains(path), qPrintable(download.errorText()));
    QVERIFY(download.errorText().startsWith(server.url(QStringLiteral("/file: "))));
    QCOMPARE(download.files(), QStringList{QStringLiteral("file")});
    QCOMPARE(CatalogueFiles::read(download.folder() + QStringLiteral("/file")),
             QByteArray("in the way"));
    QCOMPARE(server.requestCount(), requests);
}

void TestCurWrapperTarget::cannotRenameOverAFolderThatAppeared()
{
    Download download;
    FaultServer server([&](HttpExchange& exchange) {
        QDir().mkdir(download.target());
        exchange.answer(HttpAnswer(200).body("the file"));
    });
    download.wrapper().download(server.url(QStringLiteral("/file")), download.target(), false);
    QCOMPARE(download.wrapper().result(), 2);
    QVERIFY(QFileInfo(download.target()).isDir());
    QCOMPARE(download.files(), QStringList());
}

void TestCurWrapperTarget::cannotReplaceAFolderMadeBetweenDownloads_data()
{
    QTest::addColumn<bool>("isLink");
    QTest::newRow("a folder") << false;
    QTest::newRow("a link to a folder") << true;
}

/// The folder was searched before the first download; the second one refuses all the same.
void TestCurWrapperTarget::cannotReplaceAFolderMadeBetweenDownloads()
{
    QFETCH(bool, isLink);
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    const QString target = download.folder() + QStringLiteral("/second.bin");
    if (isLink)
        MV_LINK(download.folder(), target);
    else
        QVERIFY(QDir().mkdir(target));

    download.wrapper().download(server.url(QStringLiteral("/file")), target, false);
    QCOMPARE(download.wrapper().result(), 2);
    QVERIFY2(
        download.errorText().contains(target + QStringLiteral(": is a folder, not a file name")),
        qPrintable(download.errorText()));
    QCOMPARE(UnusualFiles::isLink(target), isLink);
    QVERIFY(QFileInfo(target).isDir());
    QVERIFY(QDir(download.folder())
                .entryList({QStringLiteral("*.part")}, QDir::Files | QDir::Hidden)
                .isEmpty());
    if (isLink)
        UnusualFiles::unlink(target);
}

void TestCurWrapperTarget::diskFull_data()
{
    QTest::addColumn<bool>("olderFile");
    QTest::addColumn<bool>("resume");

    QTest::newRow("no older file") << false << false;
    QTest::newRow("older file") << true << false;
    QTest::newRow("rest of a beginning") << true << true;
}

void TestCurWrapperTarget::diskFull()
{
    QFETCH(bool, olderFile);
    QFETCH(bool, resume);

    FaultServer server(answering(HttpAnswer(200).body(pattern(300000))));
    Download download;
    if (olderFile)
        CatalogueFiles::write(download.target(), pattern(150000));
    {
        const FileSizeLimit full(100000);
        if (!full.isActive())
            QSKIP("This system cannot limit the size of files.");
        QCOMPARE(download.run(server.url(QStringLiteral("/file")), resume), 2);
    }
    QVERIFY2(download.errorText().contains(download.target()), qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), resume ? 0 : 1);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), pattern(300000));
}

void TestCurWrapperTarget::replacesAnOlderFile()
{
    FaultServer server(answering(HttpAnswer(200).body("new")));
    Download download;
    CatalogueFiles::write(download.target(), "the older and longer file");
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), QByteArray("new"));
    QVERIFY(!server.requests().at(0).fields.contains("range"));
}

void TestCurWrapperTarget::replacesALinkAndNotWhatItPointsTo()
{
    FaultServer server(answering(HttpAnswer(200).body("new")));
    Download download;
    const QString elsewhere = download.folder() + QStringLiteral("/elsewhere");
    CatalogueFiles::write(elsewhere, "precious");
    MV_LINK(elsewhere, download.target());
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(CatalogueFiles::read(elsewhere), QByteArray("precious"));
    QCOMPARE(download.content(), QByteArray("new"));
    QVERIFY(!QFileInfo(download.target()).isSymLink());
}

void TestCurWrapperTarget::anOpenOlderFileStaysWhole()
{
    FaultServer server(answering(HttpAnswer(200).body("new")));
    Download download;
    CatalogueFiles::write(download.target(), "older");
#ifdef Q_OS_WIN
    QSKIP("This system replaces no open file.");
#endif
    QFile reader(download.target());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(reader.readAll(), QByteArray("older"));
}

void TestCurWrapperTarget::writesIntoTheCurrentFolder()
{
    FaultServer server(answering(HttpAnswer(200).body("new")));
    Download download;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(download.folder()));
    download.wrapper().download(server.url(QStringLiteral("/file")), QStringLiteral("file.bin"),
                                false);
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(download.files(), QStringList{QStringLiteral("file.bin")});
}

void TestCurWrapperTarget::targetNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("blank") << "two words.png";
    QTest::newRow("letters") << QString::fromUtf8("\u00e4\u4e2d.png");
    QTest::newRow("place holders") << "100%1%2%20.png";
    QTest::newRow("hidden") << ".file";
    QTest::newRow("no suffix") << "file";
    QTest::newRow("doubled slash") << "folder//file";
}

void TestCurWrapperTarget::targetNames()
{
    QFETCH(QString, name);

    FaultServer server(
        inTurn({answering(HttpAnswer(404).body("")), answering(HttpAnswer(200).body("new"))}));
    Download download;
    QVERIFY(QDir(download.folder()).mkdir(QStringLiteral("folder")));
    const QString path = download.folder() + QLatin1Char('/') + name;
    download.wrapper().download(server.url(QStringLiteral("/file")), path, false);
    QCOMPARE(download.wrapper().result(), 4);
    QVERIFY2(
        download.errorText().endsWith(QStringLiteral("; local file ") + path + QLatin1Char(')')),
        qPrintable(download.errorText()));
    download.wrapper().download(server.url(QStringLiteral("/file")), path, false);
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(download.files().size(), 1);
    QCOMPARE(CatalogueFiles::read(path), QByteArray("new"));
}

void TestCurWrapperTarget::fileIsReadableAsTheUserWantsNewFiles()
{
#ifdef Q_OS_WIN
    QSKIP("The folder decides there who may read a new file.");
#else
    FaultServer server(answering(HttpAnswer(200).body("new")));
    Download download;
    const mode_t before = ::umask(027);
    const int result = download.run(server.url(QStringLiteral("/file")));
    ::umask(before);
    QCOMPARE(result, 0);
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(download.target()).constData(), &status), 0);
    QCOMPARE(static_cast<int>(status.st_mode & 0777), 0640);
#endif
}

MV_TEST_MAIN(TestCurWrapperTarget)
#include "tst_CurWrapper_target.moc"
