// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/RegularFile.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>
#include <QTest>

/// Tests reading files whose names cannot be trusted, and whose size neither.
class tst_RegularFile : public QObject
{
    Q_OBJECT

private slots:
    void onlyRegularFilesAreOpened_data();
    void onlyRegularFilesAreOpened();
    void readsUpToTheLimit_data();
    void readsUpToTheLimit();
    void handlerEndsTheReading();

private:
    const QString m_folder = TestHome::path() + QStringLiteral("/files");
};

void tst_RegularFile::onlyRegularFilesAreOpened_data()
{
    QDir().mkpath(m_folder + QStringLiteral("/folder"));
    CatalogueFiles::write(m_folder + QStringLiteral("/file"), "content");
    QFile::link(QStringLiteral("file"), m_folder + QStringLiteral("/link"));
    const QString pipe = m_folder + QStringLiteral("/pipe");
    if (UnusualFiles::hasPipes)
        UnusualFiles::makePipe(pipe);

    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isOpened");
    QTest::newRow("file") << m_folder + QStringLiteral("/file") << true;
    QTest::newRow("link to a file") << m_folder + QStringLiteral("/link") << true;
    QTest::newRow("folder") << m_folder + QStringLiteral("/folder") << false;
    QTest::newRow("pipe without a writer") << m_folder + QStringLiteral("/pipe") << false;
    QTest::newRow("endless device") << QStringLiteral("/dev/zero") << false;
    QTest::newRow("missing") << m_folder + QStringLiteral("/missing") << false;
}

void tst_RegularFile::onlyRegularFilesAreOpened()
{
    QFETCH(QString, name);
    QFETCH(bool, isOpened);
    QFile file(name);
    QString error;
    QCOMPARE(RegularFile::open(file, QIODevice::ReadOnly, &error), isOpened);
    QCOMPARE(error.isEmpty(), isOpened);
}

void tst_RegularFile::readsUpToTheLimit_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("limit");
    QTest::addColumn<bool>("isRead");
    for (const int limit : {0, 1, 1000, 1000 * 1000}) {
        QTest::addRow("%d bytes of %d", limit, limit) << limit << limit << true;
        QTest::addRow("%d bytes of %d", limit + 1, limit) << limit + 1 << limit << false;
    }
    QTest::newRow("many chunks too many") << 3000 * 1000 << 1000 * 1000 << false;
}

void tst_RegularFile::readsUpToTheLimit()
{
    QFETCH(int, size);
    QFETCH(int, limit);
    QFETCH(bool, isRead);
    const QString name = m_folder + QStringLiteral("/sized");
    CatalogueFiles::write(name, QByteArray(size, 'x'));
    QFile file(name);
    QVERIFY(RegularFile::open(file));
    QByteArray bytes = "from before";
    QCOMPARE(RegularFile::readAll(file, limit, bytes), isRead);
    if (isRead)
        QCOMPARE(bytes, QByteArray(size, 'x'));
    QVERIFY(bytes.size() <= limit);
}

void tst_RegularFile::handlerEndsTheReading()
{
    const QString name = m_folder + QStringLiteral("/chunks");
    CatalogueFiles::write(name, QByteArray(1000 * 1000, 'x'));
    QFile file(name);
    QVERIFY(RegularFile::open(file));
    int chunks = 0;
    QVERIFY(!RegularFile::readChunks(file, [&](const char*, int) { return ++chunks < 2; }));
    QCOMPARE(chunks, 2);
}

MV_TEST_MAIN(tst_RegularFile)

#include "tst_RegularFile.moc"
