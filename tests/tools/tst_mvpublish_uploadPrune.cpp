// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "TinyRelease.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

/// Tests mvpublish upload --prune.
class TestMvpublishUploadPrune : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void whatNoRecentReleaseNamesIsRemoved();
    void releaseReplacedRecentlyIsKept();
    void dryRunRemovesNothing();
    void withoutAnOldReleaseNothingIsRemoved();
    void foreignFilesAreKept();
    void damagedListRemovesNothing();

private:
    /// Adds the tree's next release to the remote, where it has been in force since then.
    void publish(qint64 serial, int daysAgo) const;
    Outcome prune(const QStringList& more = {}) const
    {
        return Mvpublish::run(
            QStringList{text("upload"), m_tree.folder(), m_space.folder(), text("--prune=30")}
            + more);
    }
    static TinyRelease::Files filesOf(qint64 serial);
    /// Returns whether the remote has the content of the item that the release renamed.
    bool hasContent(qint64 serial) const
    {
        return QFileInfo::exists(m_space.file(
            ReleasePaths::content(ContentDigest::ofBytes("own" + QByteArray::number(serial)))));
    }
    bool hasName(qint64 serial) const
    {
        return QFileInfo::exists(m_space.file(text("config/Motions/own%1.zip").arg(serial)));
    }
    bool hasRecord(qint64 serial) const
    {
        return QFileInfo::exists(m_space.file(text("ResourceConfig/releases/%1.json").arg(serial)));
    }

    TinyRelease m_tree{home("tree")};
    TinyRelease m_space{home("space")};
};

TinyRelease::Files TestMvpublishUploadPrune::filesOf(qint64 serial)
{
    TinyRelease::Files files = TinyRelease::files(serial);
    files.insert(text("config/Motions/own%1.zip").arg(serial), "own" + QByteArray::number(serial));
    return files;
}

void TestMvpublishUploadPrune::init()
{
    QDir(home("space")).removeRecursively();
}

void TestMvpublishUploadPrune::publish(qint64 serial, int daysAgo) const
{
    m_tree.write(serial, filesOf(serial));
    const QStringList files = CatalogueFiles::filesBelow(m_tree.folder());
    for (const QString& file : files)
        CatalogueFiles::write(m_space.file(file), CatalogueFiles::read(m_tree.file(file)));
    m_space.record(QDateTime::currentDateTimeUtc().addDays(-daysAgo));
}

/// Release 6 replaced release 5 more than 30 days ago, and was itself replaced afterwards.
void TestMvpublishUploadPrune::whatNoRecentReleaseNamesIsRemoved()
{
    publish(5, 100);
    publish(6, 31);
    publish(7, 20);
    m_tree.write(9, filesOf(9));
    const Outcome outcome = prune();
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    // By name and by digest: the own file; by digest only: three files and the list; the record.
    QVERIFY2(outcome.lines().constLast().startsWith(text("removed: 7 files (")),
             outcome.out.constData());
    for (const qint64 serial : {5, 6, 7, 9}) {
        QCOMPARE(hasContent(serial), serial != 5);
        QCOMPARE(hasName(serial), serial != 5);
        QCOMPARE(hasRecord(serial), serial != 5);
    }
    QVERIFY(QFileInfo::exists(m_space.file(text("display/Themes/same \xc3\xa4.png"))));
    QVERIFY(prune().lines().contains(text("removed: 0 files (0 bytes)")));
}

void TestMvpublishUploadPrune::releaseReplacedRecentlyIsKept()
{
    publish(5, 300);
    publish(6, 29);
    const Outcome outcome = prune();
    QCOMPARE(outcome.lines().constLast(), text("removed: 0 files (0 bytes)"));
    QVERIFY(hasContent(5) && hasName(5) && hasRecord(5));
}

void TestMvpublishUploadPrune::dryRunRemovesNothing()
{
    publish(5, 100);
    publish(6, 50);
    const QStringList before = CatalogueFiles::filesBelow(m_space.folder());
    const Outcome outcome = prune({text("--dry-run")});
    QVERIFY(outcome.lines().contains(text("would remove config/Motions/own5.zip")));
    QVERIFY(!outcome.out.contains("would remove config/Motions/own6.zip"));
    QCOMPARE(CatalogueFiles::filesBelow(m_space.folder()), before);
}

/// Somebody brought release 5 there without a record, after others of which nothing is known.
void TestMvpublishUploadPrune::withoutAnOldReleaseNothingIsRemoved()
{
    publish(5, 300);
    QVERIFY(QFile::remove(m_space.file(text("ResourceConfig/releases/5.json"))));
    const QString unknown = ReleasePaths::content(ContentDigest::ofBytes("release 4"));
    CatalogueFiles::write(m_space.file(unknown), "release 4");
    const Outcome outcome = prune();
    QCOMPARE(outcome.lines().constLast(), text("removed: 0 files (0 bytes)"));
    QVERIFY(hasRecord(5) && QFileInfo::exists(m_space.file(unknown)));
}

void TestMvpublishUploadPrune::foreignFilesAreKept()
{
    publish(5, 100);
    publish(6, 50);
    const QStringList foreign{text("index.html"), text("config/Motions/notes.txt"),
                              text("content/notes.txt"), text("content/ab/notes.txt")};
    for (const QString& name : foreign)
        CatalogueFiles::write(m_space.file(name), "mine");
    const QString leftover = ReleasePaths::content(ContentDigest::ofBytes("left over"));
    CatalogueFiles::write(m_space.file(leftover), "left over");
    QCOMPARE(prune().status, 0);
    for (const QString& name : foreign)
        QVERIFY2(QFileInfo::exists(m_space.file(name)), qPrintable(name));
    QVERIFY(!QFileInfo::exists(m_space.file(leftover)));
    QVERIFY(!hasContent(5));
}

void TestMvpublishUploadPrune::damagedListRemovesNothing()
{
    publish(5, 100);
    publish(6, 50);
    const QByteArray list = CatalogueFiles::read(m_space.file(ReleasePaths::list()));
    publish(7, 10);
    CatalogueFiles::write(m_space.file(ReleasePaths::content(ContentDigest::ofBytes(list))), "x");
    const Outcome outcome = prune();
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: old files are not removed, or not all of them: the list of "
                        "release 6 is missing or damaged\n"));
    QCOMPARE(outcome.status, 2);
    QVERIFY(hasContent(5) && hasName(5) && hasRecord(5));
}

MV_TEST_MAIN(TestMvpublishUploadPrune)
#include "tst_mvpublish_uploadPrune.moc"
