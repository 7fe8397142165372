// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "ReleaseFaults.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>

/// Tests the findings of mvpublish lint about releases.
class TestMvpublishLintRelease : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void soundTreeIsClean();
    void treeWithoutAReleaseIsClean();
    void findsWhatDoesNotFit_data();
    void findsWhatDoesNotFit();
    void restOfAReleaseIsAFinding_data();
    void restOfAReleaseIsAFinding();
    void missingFileIsOneFinding();
    void unlistedFileIsAFinding();
    void versionOfTheReleaseIsThatOfTheCatalogue();
    void contentsOfThePreviousReleaseAreSound();
    void damagedContentIsAFinding();
    void strangeContentIsUnused_data();
    void strangeContentIsUnused();

private:
    Outcome lint() const { return Mvpublish::run({text("lint"), m_tree->folder()}); }
    QStringList findings() const { return ReleaseFaults::findings(lint().out); }

    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishLintRelease::initTestCase()
{
    QCOMPARE(ReleaseFaults::makeKey(), QString());
}

void TestMvpublishLintRelease::init()
{
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
    QCOMPARE(ReleaseFaults::makeSigned(*m_tree), QString());
}

void TestMvpublishLintRelease::soundTreeIsClean()
{
    QCOMPARE(lint().out, QByteArray("clean\n"));
    QVERIFY(QFile::remove(m_tree->file(ReleasePaths::signature())));
    QVERIFY(QFile::remove(m_tree->file(ReleasePaths::signatureOf(m_tree->releaseDigest()))));
    QCOMPARE(lint().out, QByteArray("clean\n")); // a release need not be signed
}

/// As of a publisher with an older program.
void TestMvpublishLintRelease::treeWithoutAReleaseIsClean()
{
    QCOMPARE(m_tree->build({text("--no-release")}), QString());
    QCOMPARE(lint().out, QByteArray("clean\n"));
}

void TestMvpublishLintRelease::findsWhatDoesNotFit_data()
{
    ReleaseFaults::columns();
    ReleaseFaults::rows();
}

void TestMvpublishLintRelease::findsWhatDoesNotFit()
{
    QFETCH(ReleaseChange, change);
    QFETCH(QStringList, expected);
    change(*m_tree);
    const Outcome outcome = lint();
    QCOMPARE(ReleaseFaults::findings(outcome.out), expected);
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishLintRelease::restOfAReleaseIsAFinding_data()
{
    QTest::addColumn<QStringList>("removed");
    const QString list = ReleasePaths::list();
    const QString signature = ReleasePaths::signature();
    QTest::newRow("contents") << QStringList{list, signature};
    QTest::newRow("list") << QStringList{text("content"), signature};
    QTest::newRow("signature") << QStringList{text("content"), list};
}

void TestMvpublishLintRelease::restOfAReleaseIsAFinding()
{
    QFETCH(QStringList, removed);
    const QStringList names = removed + QStringList{ReleasePaths::release()};
    for (const QString& name : names) {
        const QString path = m_tree->file(name);
        QVERIFY(QFileInfo(path).isDir() ? QDir(path).removeRecursively() : QFile::remove(path));
    }
    QCOMPARE(findings(), QStringList{text("release ") + ReleasePaths::release()});
}

/// The catalogue that names it is reason enough.
void TestMvpublishLintRelease::missingFileIsOneFinding()
{
    QVERIFY(QFile::remove(m_tree->file(text("config/ThemesBgm/Slow Song.mp3"))));
    const QStringList found = findings();
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.constFirst().startsWith(text("missing-file ")), qPrintable(found.constFirst()));
}

/// A tree that somebody has edited: the release does not know the file of the catalogue.
void TestMvpublishLintRelease::unlistedFileIsAFinding()
{
    const QString picture = text("display/VideoFilters/None.png");
    ReleaseList list = m_tree->list();
    QVector<ReleaseList::Entry> entries = list.entries();
    entries.erase(std::remove_if(entries.begin(), entries.end(),
                                 [&](const auto& entry) { return entry.path == picture.toUtf8(); }),
                  entries.end());
    const QByteArray files = ReleaseList(entries).toText();
    SRelease release = m_tree->release();
    release.m_listBytes = files.size();
    release.m_listDigest = ContentDigest::ofBytes(files);
    ReleaseFaults::replace(*m_tree, ReleasePaths::list(), files);
    CatalogueFiles::write(m_tree->file(ReleasePaths::content(release.m_listDigest)), files);
    QVERIFY(QFile::remove(m_tree->file(ReleasePaths::signature())));
    ReleaseFaults::replace(*m_tree, ReleasePaths::release(), release.toJson());
    QCOMPARE(findings(), QStringList{text("release-unlisted ") + picture});
}

void TestMvpublishLintRelease::versionOfTheReleaseIsThatOfTheCatalogue()
{
    QVERIFY(QFile::remove(m_tree->file(ReleasePaths::signature())));
    SRelease release = m_tree->release();
    release.m_qsCatalogueVersion = text("1.2.1");
    ReleaseFaults::replace(*m_tree, ReleasePaths::release(), release.toJson());
    QCOMPARE(findings(), QStringList{text("release ") + ReleasePaths::release()});
}

void TestMvpublishLintRelease::contentsOfThePreviousReleaseAreSound()
{
    m_tree->source().set(text("look"), "name", text("Other look"));
    QCOMPARE(m_tree->build(), QString());
    QCOMPARE(lint().out, QByteArray("clean\n"));
}

/// Also one of the previous release, which its clients still fetch.
void TestMvpublishLintRelease::damagedContentIsAFinding()
{
    const QString old = ReleaseFaults::contentOf(*m_tree, "ResourceConfig/resource_display.xml");
    m_tree->source().set(text("look"), "name", text("Other look"));
    QCOMPARE(m_tree->build(), QString());
    ReleaseFaults::replace(*m_tree, old, "damaged");
    QCOMPARE(findings(), QStringList{text("release-content *")});
}

void TestMvpublishLintRelease::strangeContentIsUnused_data()
{
    QTest::addColumn<QString>("name");
    const QByteArray digest = ContentDigest::ofBytes("letter");
    QTest::newRow("no digest") << text("content/letter.txt");
    QTest::newRow("wrong folder") << text("content/zz/") + QString::fromLatin1(digest);
    QTest::newRow("other suffix") << ReleasePaths::content(digest) + text(".bak");
}

void TestMvpublishLintRelease::strangeContentIsUnused()
{
    QFETCH(QString, name);
    CatalogueFiles::write(m_tree->file(name), "letter");
    QCOMPARE(findings(), QStringList{text("unused-file *")});
}

MV_TEST_MAIN(TestMvpublishLintRelease)
#include "tst_mvpublish_lintRelease.moc"
