// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "release/ContentFolder.h"
#include "ReleasedTree.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <memory>

/// Tests which contents and signatures a build keeps of the tree that it replaces.
class TestMvpublishContents : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void contentsOfTheReplacedReleaseAreKept();
    void contentsOfTheReleaseBeforeAreNot();
    void unchangedBuildKeepsAllContents();
    void onlyContentsWithTheirDigestAreKept();
    void signatureStaysWithItsRelease();
    void damagedSignatureIsLeftBehind();
    void signatureOfTheReplacedReleaseIsKeptByItsDigest();
    void earlierContentGetsALaterDate();
    void contentIsCopiedWhereItCannotBeLinked();
    void treesAreComparedWithoutTheContents();

private:
    /// Gives an item another name and builds the tree.
    QString publish(const QString& name, const QStringList& options = {}) const;
    /// Returns the name of the content that the display catalogue has now.
    QString displayContent() const;
    QString sign() const;

    const QString m_display = text("ResourceConfig/resource_display.xml");
    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishContents::init()
{
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
    QCOMPARE(publish(text("A look")), QString());
}

QString TestMvpublishContents::publish(const QString& name, const QStringList& options) const
{
    m_tree->source().set(text("look"), "name", name);
    return m_tree->build(options);
}

QString TestMvpublishContents::displayContent() const
{
    return ReleasePaths::content(m_tree->list().find(m_display).digest);
}

/// Signs the release, and returns the name of the signature below the contents.
QString TestMvpublishContents::sign() const
{
    const QString key = home("mv.key");
    Mvpublish::run({text("keygen"), key, text("--no-password")});
    Mvpublish::run({text("sign"), m_tree->folder(), text("--key"), key});
    return ReleasePaths::signatureOf(m_tree->releaseDigest());
}

/// A client that still has yesterday's release finds its files, and its list.
void TestMvpublishContents::contentsOfTheReplacedReleaseAreKept()
{
    const QString display = displayContent();
    const QByteArray content = m_tree->read(display);
    const QString list = ReleasePaths::content(m_tree->release().m_listDigest);
    const QByteArray files = m_tree->read(list);
    QVERIFY(content.contains("A look"));
    QCOMPARE(publish(text("B look")), QString());
    QVERIFY(displayContent() != display);
    QCOMPARE(m_tree->read(display), content);
    QCOMPARE(m_tree->read(list), files);
}

void TestMvpublishContents::contentsOfTheReleaseBeforeAreNot()
{
    const QString display = displayContent();
    QCOMPARE(publish(text("B look")), QString());
    QCOMPARE(publish(text("C look")), QString());
    QVERIFY(!QFile::exists(m_tree->file(display)));
}

void TestMvpublishContents::unchangedBuildKeepsAllContents()
{
    const QString display = displayContent();
    QCOMPARE(publish(text("B look")), QString());
    const auto files = m_tree->files();
    QVERIFY(files.contains(display));
    QCOMPARE(publish(text("B look")), QString());
    QVERIFY(m_tree->files() == files);
}

/// Anything else would be damaged for every client, and for as long as caches keep it.
void TestMvpublishContents::onlyContentsWithTheirDigestAreKept()
{
    const QString display = displayContent();
    QCOMPARE(publish(text("B look")), QString());
    const QByteArray other = "other";
    const QByteArray digest = ContentDigest::ofBytes(other);
    const QStringList strays{text("content/letter.txt"),
                             text("content/00/") + QString::fromLatin1(digest),
                             ReleasePaths::content(digest) + text(".bak")};
    for (const QString& stray : strays)
        CatalogueFiles::write(m_tree->file(stray), other);
    const QString link = ReleasePaths::content(ContentDigest::ofBytes("elsewhere"));
    CatalogueFiles::write(home("elsewhere"), "elsewhere");
    QDir().mkpath(QFileInfo(m_tree->file(link)).path());
    MV_LINK(home("elsewhere"), m_tree->file(link));
    CatalogueFiles::write(m_tree->file(display), "damaged");
    QCOMPARE(publish(text("B look")), QString());
    const QStringList dropped = strays + QStringList{display, link};
    for (const QString& name : dropped)
        QVERIFY2(!QFileInfo::exists(m_tree->file(name)), qPrintable(name));
}

void TestMvpublishContents::signatureStaysWithItsRelease()
{
    const QString copy = sign();
    const QByteArray signature = m_tree->read(copy);
    QVERIFY(!signature.isEmpty());
    QCOMPARE(m_tree->build(), QString());
    QCOMPARE(m_tree->read(ReleasePaths::signature()), signature);
    QCOMPARE(m_tree->read(copy), signature);
    QCOMPARE(publish(text("B look")), QString());
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::signature())));
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::signatureOf(m_tree->releaseDigest()))));
}

/// It must neither spoil the new tree nor keep it from being published.
void TestMvpublishContents::damagedSignatureIsLeftBehind()
{
    const QString copy = sign();
    for (const QString& name : {ReleasePaths::signature(), copy})
        CatalogueFiles::write(m_tree->file(name), "damaged");
    QCOMPARE(m_tree->build(), QString());
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::signature())));
    QVERIFY(!QFile::exists(m_tree->file(copy)));
}

/// A client may have fetched the release of yesterday, and now asks for its signature.
void TestMvpublishContents::signatureOfTheReplacedReleaseIsKeptByItsDigest()
{
    const QString copy = sign();
    const QByteArray signature = m_tree->read(copy);
    QCOMPARE(publish(text("B look")), QString());
    QCOMPARE(m_tree->read(copy), signature);
    QCOMPARE(publish(text("C look")), QString());
    QVERIFY(!QFile::exists(m_tree->file(copy)));
}

/// The kept content is the very file that is published again, with the date of its first time.
void TestMvpublishContents::earlierContentGetsALaterDate()
{
    QDateTime last = QFileInfo(m_tree->file(m_display)).lastModified();
    for (const char* name : {"B look", "A look", "B look"}) {
        QCOMPARE(publish(text(name)), QString());
        QVERIFY(m_tree->read(m_display).contains(name));
        const QDateTime date = QFileInfo(m_tree->file(m_display)).lastModified();
        QVERIFY2(date.toSecsSinceEpoch() > last.toSecsSinceEpoch(), name);
        last = date;
    }
}

void TestMvpublishContents::contentIsCopiedWhereItCannotBeLinked()
{
    const QString tree = home("copies");
    CatalogueFiles::write(tree + text("/a.txt"), "content");
    ContentFolder contents(tree);
    contents.useCopies();
    const QByteArray digest = ContentDigest::ofBytes("content");
    QVERIFY(!contents.contains(digest));
    QVERIFY2(contents.add(tree + text("/a.txt"), digest), qPrintable(contents.errorText()));
    QVERIFY(contents.contains(digest));
    CatalogueFiles::write(tree + text("/a.txt"), "other");
    const QString copy = tree + QLatin1Char('/') + ReleasePaths::content(digest);
    QCOMPARE(CatalogueFiles::read(copy), QByteArray("content"));
    QVERIFY(QFile::permissions(copy).testFlag(QFile::ReadOther));
    QVERIFY(!contents.add(tree + text("/missing.txt"), ContentDigest::ofBytes("missing")));
    QVERIFY2(contents.errorText().contains(text("missing.txt")), qPrintable(contents.errorText()));
}

void TestMvpublishContents::treesAreComparedWithoutTheContents()
{
    QVERIFY(QFile::rename(m_tree->folder(), home("old")));
    QCOMPARE(publish(text("B look")), QString());
    const Outcome outcome = Mvpublish::run({text("diff"), home("old"), m_tree->folder()});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(!outcome.out.contains("content/"), outcome.out.constData());
    QVERIFY2(!outcome.out.contains("release.json"), outcome.out.constData());
}

MV_TEST_MAIN(TestMvpublishContents)
#include "tst_mvpublish_contents.moc"
