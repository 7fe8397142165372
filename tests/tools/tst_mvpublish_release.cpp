// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "host/SystemFile.h"
#include "Mvpublish.h"
#include "ReleasedTree.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <memory>

/// Tests the release that mvpublish build writes: its list, contents, serial and times.
class TestMvpublishRelease : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void listNamesEveryPublishedFile();
    void everyContentIsThereUnderItsDigest();
    void serialIsTheTimeOfTheBuild();
    void serialIsNotBelowTheNewestFileOfTheSource();
    void serialFollowsThatOfTheReplacedTree();
    void sameSourceAndClockGiveTheSameBytes();
    void unchangedBuildKeepsEveryByte();
    void changeGivesAnotherRelease_data();
    void changeGivesAnotherRelease();
    void releaseExpiresAfterItsDays();
    void treeWithoutARelease_data();
    void treeWithoutARelease();
    void damagedReleaseIsReplacedWithAWarning_data();
    void damagedReleaseIsReplacedWithAWarning();
    void clockThatIsNoTimeIsRefused_data();
    void clockThatIsNoTimeIsRefused();

private:
    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishRelease::init()
{
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
}

void TestMvpublishRelease::listNamesEveryPublishedFile()
{
    QCOMPARE(m_tree->build(), QString());
    const ReleaseList list = m_tree->list();
    QStringList listed;
    for (const ReleaseList::Entry& entry : list.entries()) {
        const QString name = QString::fromUtf8(entry.path);
        listed.append(name);
        QCOMPARE(entry.digest, ContentDigest::ofBytes(m_tree->read(name)));
        QCOMPARE(entry.sizeBytes, QFileInfo(m_tree->file(name)).size());
    }
    QStringList published;
    const QStringList files = CatalogueFiles::filesBelow(m_tree->folder());
    for (const QString& name : files) {
        if (!name.startsWith(text("content/")) && name != ReleasePaths::release()
            && name != ReleasePaths::list())
            published.append(name);
    }
    QCOMPARE(listed, published);
    QVERIFY(listed.contains(text("config/ThemesBgm/Slow Song.mp3")));
}

/// Contents are hard links where the file system allows them, so a release takes no more space.
void TestMvpublishRelease::everyContentIsThereUnderItsDigest()
{
    QCOMPARE(m_tree->build(), QString());
    const ReleaseList list = m_tree->list();
    QMap<QByteArray, QString> first;
    for (const ReleaseList::Entry& entry : list.entries()) {
        if (!first.contains(entry.digest))
            first.insert(entry.digest, QString::fromUtf8(entry.path));
    }
    for (auto it = first.cbegin(); it != first.cend(); ++it)
        QVERIFY(SystemFile::isSame(
            SystemFile::encodedName(m_tree->file(ReleasePaths::content(it.key()))),
            SystemFile::encodedName(m_tree->file(it.value()))));
    const QByteArray text = m_tree->read(ReleasePaths::list());
    const SRelease release = m_tree->release();
    QCOMPARE(release.m_listDigest, ContentDigest::ofBytes(text));
    QCOMPARE(release.m_listBytes, qint64(text.size()));
    QCOMPARE(m_tree->read(ReleasePaths::content(release.m_listDigest)), text);
    QCOMPARE(CatalogueFiles::filesBelow(m_tree->file(ReleasePaths::contentFolder())).size(),
             first.size() + 1);
}

void TestMvpublishRelease::serialIsTheTimeOfTheBuild()
{
    qunsetenv("SOURCE_DATE_EPOCH");
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    QCOMPARE(m_tree->build(), QString());
    const SRelease release = m_tree->release();
    QVERIFY(release.m_serial >= before);
    QVERIFY(release.m_serial <= QDateTime::currentSecsSinceEpoch());
    QCOMPARE(release.m_published.toSecsSinceEpoch(), release.m_serial);
    QCOMPARE(release.m_qsCatalogueVersion, text("1.2.0"));
    QVERIFY(!release.m_expires.isValid());
}

void TestMvpublishRelease::serialIsNotBelowTheNewestFileOfTheSource()
{
    const qint64 newest = ReleasedTree::epoch + 7;
    QFile song(m_tree->source().file(text("shared/ThemesBgm/Slow Song.mp3")));
    QVERIFY(song.open(QIODevice::ReadWrite));
    QVERIFY(
        song.setFileTime(QDateTime::fromSecsSinceEpoch(newest), QFileDevice::FileModificationTime));
    QCOMPARE(m_tree->build(), QString());
    QCOMPARE(m_tree->release().m_serial, newest);
    QCOMPARE(m_tree->release().m_published.toSecsSinceEpoch(), ReleasedTree::epoch);
}

/// Clients refuse a lower serial, so a clock that is behind must not lower it.
void TestMvpublishRelease::serialFollowsThatOfTheReplacedTree()
{
    QCOMPARE(m_tree->build(), QString());
    ReleasedTree::setClock(ReleasedTree::epoch - 1000);
    m_tree->source().set(text("look"), "name", text("Other look"));
    QCOMPARE(m_tree->build(), QString());
    QCOMPARE(m_tree->release().m_serial, ReleasedTree::epoch + 1);
}

void TestMvpublishRelease::sameSourceAndClockGiveTheSameBytes()
{
    QCOMPARE(m_tree->build(), QString());
    const auto files = m_tree->files();
    QVERIFY(QFile::rename(m_tree->folder(), home("first")));
    QCOMPARE(m_tree->build(), QString());
    QVERIFY(m_tree->files() == files);
}

void TestMvpublishRelease::unchangedBuildKeepsEveryByte()
{
    QCOMPARE(m_tree->build({text("--expires"), text("30")}), QString());
    const auto files = m_tree->files();
    ReleasedTree::setClock(ReleasedTree::epoch + 1000);
    QCOMPARE(m_tree->build({text("--expires"), text("30")}), QString());
    QVERIFY(m_tree->files() == files);
}

void TestMvpublishRelease::changeGivesAnotherRelease_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("field");
    QTest::newRow("name of an item") << QStringList() << text("look") << text("name");
    QTest::newRow("version") << QStringList() << QString() << text("version");
    QTest::newRow("expiry") << QStringList{text("--expires"), text("30")} << QString() << QString();
    QTest::newRow("edition") << QStringList{text("--edition"), text("1")} << QString() << QString();
    QTest::newRow("renewal") << QStringList{text("--renew")} << QString() << QString();
}

void TestMvpublishRelease::changeGivesAnotherRelease()
{
    QFETCH(QStringList, options);
    QFETCH(QString, item);
    QFETCH(QString, field);
    QCOMPARE(m_tree->build(), QString());
    if (!field.isEmpty())
        m_tree->source().set(item, field.toLatin1().constData(), text("1.2.1"));
    ReleasedTree::setClock(ReleasedTree::epoch + 1000);
    QCOMPARE(m_tree->build(options), QString());
    QCOMPARE(m_tree->release().m_serial, ReleasedTree::epoch + 1000);
    QCOMPARE(m_tree->release().m_published.toSecsSinceEpoch(), ReleasedTree::epoch + 1000);
}

void TestMvpublishRelease::releaseExpiresAfterItsDays()
{
    QCOMPARE(m_tree->build({text("--expires"), text("30")}), QString());
    const SRelease release = m_tree->release();
    QCOMPARE(release.m_expires, release.m_published.addDays(30));
}

void TestMvpublishRelease::treeWithoutARelease_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("server") << QStringList{text("--no-release")};
    QTest::newRow("installation") << QStringList{text("--installed")};
}

void TestMvpublishRelease::treeWithoutARelease()
{
    QFETCH(QStringList, options);
    m_tree->source().set(text("film"), "installed", true);
    QCOMPARE(m_tree->build(options), QString());
    QVERIFY(!QFile::exists(m_tree->file(text("content"))));
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::release())));
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::list())));
}

void TestMvpublishRelease::damagedReleaseIsReplacedWithAWarning_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("warning");
    const QByteArray before = "mvpublish: warning: the release of the tree that is replaced: ";
    QTest::newRow("release") << ReleasePaths::release() << QByteArray("{}")
                             << before + "the release does not have format 1\n";
    QTest::newRow("large release") << ReleasePaths::release() << QByteArray(4097, ' ')
                                   << before + home("tree/ResourceConfig/release.json").toUtf8()
            + " is larger than 4096 bytes\n";
    QTest::newRow("list") << ReleasePaths::list() << QByteArray("no list")
                          << before
            + "ResourceConfig/files.txt is not the list that the release names\n";
}

void TestMvpublishRelease::damagedReleaseIsReplacedWithAWarning()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, warning);
    QCOMPARE(m_tree->build(), QString());
    const auto files = m_tree->files();
    CatalogueFiles::write(m_tree->file(name), content);
    const Outcome outcome =
        Mvpublish::run({text("build"), m_tree->source().folder(), m_tree->folder()});
    QCOMPARE(outcome.err, warning);
    QCOMPARE(outcome.status, 0);
    QVERIFY(m_tree->files() == files);
}

void TestMvpublishRelease::clockThatIsNoTimeIsRefused_data()
{
    QTest::addColumn<QByteArray>("clock");
    for (const char* clock : {"yesterday", "", "-1", "99999999999999"})
        QTest::newRow(clock) << QByteArray(clock);
}

void TestMvpublishRelease::clockThatIsNoTimeIsRefused()
{
    QFETCH(QByteArray, clock);
#ifdef Q_OS_WIN
    if (clock.isEmpty())
        QSKIP("An empty variable is none there.");
#endif
    qputenv("SOURCE_DATE_EPOCH", clock);
    const Outcome outcome =
        Mvpublish::run({text("build"), m_tree->source().folder(), m_tree->folder()});
    QCOMPARE(outcome.err,
             "mvpublish: SOURCE_DATE_EPOCH holds \"" + clock
                 + "\", which is not a number of seconds since 1970\n");
    QCOMPARE(outcome.status, 2);
    QVERIFY(!QFile::exists(m_tree->folder()));
}

MV_TEST_MAIN(TestMvpublishRelease)
#include "tst_mvpublish_release.moc"
