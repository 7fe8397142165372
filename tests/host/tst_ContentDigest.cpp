// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/ContentDigest.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QTemporaryDir>

namespace {

const QByteArray ofNothing("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
// FIPS 180-4's example.
const QByteArray ofAbc("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");

} // namespace

class TestContentDigest : public QObject
{
    Q_OBJECT

private slots:
    void isSha256InLowerCase();
    void piecesAddUp();
    void resetForgets();
    void fileHasTheDigestOfItsBytes();
    void onlyRegularFilesHaveDigests();
    void progressCounts();
    void readingCanBeStopped();
    void formIsChecked_data();
    void formIsChecked();

private:
    QTemporaryDir m_folder;
};

void TestContentDigest::isSha256InLowerCase()
{
    QCOMPARE(ContentDigest().hex(), ofNothing);
    QCOMPARE(ContentDigest::ofBytes("abc"), ofAbc);
}

void TestContentDigest::piecesAddUp()
{
    ContentDigest digest;
    digest.add("a", 1);
    digest.add("bcx", 2);
    QCOMPARE(digest.hex(), ofAbc);
    QCOMPARE(digest.hex(), ofAbc); // asking changes nothing
}

void TestContentDigest::resetForgets()
{
    ContentDigest digest;
    digest.add("x", 1);
    digest.reset();
    QCOMPARE(digest.hex(), ofNothing);
}

void TestContentDigest::fileHasTheDigestOfItsBytes()
{
    const QString path = m_folder.filePath(QStringLiteral("file"));
    CatalogueFiles::write(path, "abc");
    QCOMPARE(ContentDigest::ofFile(path), ofAbc);
}

void TestContentDigest::onlyRegularFilesHaveDigests()
{
    QCOMPARE(ContentDigest::ofFile(m_folder.path()), QByteArray());
    QCOMPARE(ContentDigest::ofFile(m_folder.filePath(QStringLiteral("missing"))), QByteArray());
    QCOMPARE(ContentDigest::ofFile(UnusualFiles::emptyDevice()), QByteArray());
    if (!UnusualFiles::hasPipes)
        return;
    const QString pipe = m_folder.filePath(QStringLiteral("pipe"));
    UnusualFiles::makePipe(pipe);
    QCOMPARE(ContentDigest::ofFile(pipe), QByteArray());
}

void TestContentDigest::progressCounts()
{
    const QString path = m_folder.filePath(QStringLiteral("large"));
    const QByteArray content(5 * 1000 * 1000, 'x');
    CatalogueFiles::write(path, content);
    qint64 last = 0;
    const QByteArray digest = ContentDigest::ofFile(path, [&](qint64 bytesRead) {
        const bool grows = bytesRead > last;
        last = bytesRead;
        return grows;
    });
    QCOMPARE(digest, ContentDigest::ofBytes(content));
    QCOMPARE(last, qint64(content.size()));
}

void TestContentDigest::readingCanBeStopped()
{
    const QString path = m_folder.filePath(QStringLiteral("file"));
    CatalogueFiles::write(path, "abc");
    QCOMPARE(ContentDigest::ofFile(path, [](qint64) { return false; }), QByteArray());
}

void TestContentDigest::formIsChecked_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isDigest");
    QTest::newRow("digest") << ofAbc << true;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("too short") << ofAbc.left(63) << false;
    QTest::newRow("too long") << ofAbc + '0' << false;
    QTest::newRow("capitals") << ofAbc.toUpper() << false;
    QTest::newRow("beyond f") << QByteArray(64, 'g') << false;
    QTest::newRow("before a") << QByteArray(64, '`') << false;
    QTest::newRow("beyond 9") << QByteArray(64, ':') << false;
    QTest::newRow("before 0") << QByteArray(64, '/') << false;
    QTest::newRow("all digits") << QByteArray("0123456789abcdef").repeated(4) << true;
}

void TestContentDigest::formIsChecked()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isDigest);
    QCOMPARE(ContentDigest::isDigest(text), isDigest);
}

MV_TEST_MAIN(TestContentDigest)
#include "tst_ContentDigest.moc"
