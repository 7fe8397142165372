// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "RcloneServer.h"
#include "ReleaseClient.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "TinyRelease.h"
#include "WatchedRclone.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include <QVector>

#include <memory>

/// Tests mvpublish upload with a real rclone and a real web space.
class TestMvpublishUpload : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void firstUploadBringsTheReleaseIntoForce();
    void onlyWhatChangedIsSent();
    void fileThatNoReleaseExplainsIsReplaced();
    void filesAreComparedByChecksumWherePossible();
    void webdavServerOfRclone();
    void uploadedAgainItSendsNothing();
    void whatIsMissingOrCutIsSentAgain();
    void interruptedReplacementIsRepaired();
    void signatureIsSentByBothNames();
    void dryRunSendsNothing();
    void optionsAfterDashesReachRclone();
    void lintAcceptsWhatAnUploadLeaves();

private:
    /// Uploads the tree into a folder whose files are compared by size, as in most web spaces.
    Outcome upload(const QStringList& more = {text("--"), text("--size-only")}) const
    {
        QProcess process;
        process.setProcessEnvironment(m_rclone->environment());
        process.start(Mvpublish::program(),
                      QStringList{text("upload"), m_tree.folder(), m_space.folder()} + more);
        return ConsoleProgram::end(process);
    }
    static void verifyOrder(const QStringList& sent);
    /// Requires that the remote has every file of the tree, by name and by digest.
    void verifyAll() const;
    /// Puts release 5, which the tree has, into force.
    void putInForce() const;

    std::unique_ptr<WatchedRclone> m_rclone;
    TinyRelease m_tree{home("tree")};
    TinyRelease m_space{home("space")};
};

void TestMvpublishUpload::init()
{
    QDir(home("space")).removeRecursively();
    m_rclone = std::make_unique<WatchedRclone>(home("watched"));
    m_tree.write(5);
}

void TestMvpublishUpload::putInForce() const
{
    m_space.write(5);
    m_space.record(QDateTime::currentDateTimeUtc());
}

void TestMvpublishUpload::verifyAll() const
{
    const QStringList files = CatalogueFiles::filesBelow(m_tree.folder());
    for (const QString& file : files)
        QVERIFY2(CatalogueFiles::read(m_space.file(file))
                     == CatalogueFiles::read(m_tree.file(file)),
                 qPrintable(file));
}

void TestMvpublishUpload::firstUploadBringsTheReleaseIntoForce()
{
    const Outcome outcome = upload();
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().constFirst(), text("before: no release is in force"));
    QCOMPARE(outcome.lines().constLast(), text("release 5 of 2026-11-22T11:00:00Z is in force"));
    verifyAll();
    verifyOrder(m_rclone->sent());
}

/// For clients with releases the contents come first and release.json last; for others a version
/// file comes after its catalogues, and those after the items.
void TestMvpublishUpload::verifyOrder(const QStringList& sent)
{
    static const QVector<QRegularExpression> order{
        QRegularExpression(text("^ResourceConfig/releases/")),
        QRegularExpression(text("^content/")),
        QRegularExpression(text("^(config|display)/")),
        QRegularExpression(text("^ResourceConfig/resource_(config|display)")),
        QRegularExpression(text("^ResourceConfig/resource_version")),
        QRegularExpression(text("^ResourceConfig/files.txt")),
        QRegularExpression(text("^ResourceConfig/release.json")),
        QRegularExpression(text("^ResourceConfig/releases/"))};
    int step = 0;
    for (const QString& name : sent) {
        while (step < order.size() && !name.contains(order.at(step)))
            ++step;
        QVERIFY2(step < order.size(), qPrintable(name));
    }
    QCOMPARE(step, order.size() - 1);
}

/// The space has no checksums, and the files have the same size in every release.
void TestMvpublishUpload::onlyWhatChangedIsSent()
{
    putInForce();
    m_tree.write(6);
    const Outcome outcome = upload();
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().constFirst(),
             text("before: release 5 of 2026-11-22T11:00:00Z is in force"));
    verifyAll();
    const QStringList sent = m_rclone->sent();
    const QString same = text("display/Themes/same \xc3\xa4.png");
    QVERIFY(!sent.contains(same));
    QVERIFY(!sent.contains(ReleasePaths::content(ContentDigest::ofBytes("always"))));
    // Three files by name and by digest, the list likewise, release.json, and its record twice.
    QCOMPARE(sent.size(), 3 + 3 + 2 + 1 + 2);
}

void TestMvpublishUpload::fileThatNoReleaseExplainsIsReplaced()
{
    const auto files = TinyRelease::files(4);
    for (auto it = files.cbegin(); it != files.cend(); ++it)
        CatalogueFiles::write(m_space.file(it.key()), *it);
    QCOMPARE(upload().status, 0);
    verifyAll();
}

void TestMvpublishUpload::filesAreComparedByChecksumWherePossible()
{
    putInForce();
    const QString preview = text("display/Themes/same \xc3\xa4.png");
    CatalogueFiles::write(m_space.file(preview), "alwayS");
    const Outcome outcome = upload({});
    QCOMPARE(outcome.status, 0);
    QVERIFY(
        outcome.lines().contains(text("items and previews: 1 file to send (6 bytes), 1 there")));
    QCOMPARE(m_rclone->sent(), QStringList{preview});
    verifyAll();
}

void TestMvpublishUpload::uploadedAgainItSendsNothing()
{
    putInForce();
    const Outcome outcome = upload();
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().value(outcome.lines().size() - 2), text("sent: 0 files (0 bytes)"));
    QCOMPARE(m_rclone->sent(), QStringList());
}

void TestMvpublishUpload::whatIsMissingOrCutIsSentAgain()
{
    putInForce();
    const QString missing = ReleasePaths::content(ContentDigest::ofBytes("always"));
    const QString cut =
        ReleasePaths::content(ContentDigest::ofBytes("config/Motions/{1}/zoom in.zip5"));
    const QString named = text("config/Motions/{1}/zoom in.zip");
    QVERIFY(QFile::remove(m_space.file(missing)));
    QVERIFY(QFile::resize(m_space.file(cut), 3));
    QVERIFY(QFile::resize(m_space.file(named), 3));
    QCOMPARE(upload().status, 0);
    QStringList sent = m_rclone->sent();
    sent.sort();
    QStringList expected{missing, cut, named};
    expected.sort();
    QCOMPARE(sent, expected);
    verifyAll();
}

/// Release 6 got as far as the list; the release after it has the files of release 5 again.
void TestMvpublishUpload::interruptedReplacementIsRepaired()
{
    putInForce();
    m_tree.write(6);
    const QString list = m_space.file(ReleasePaths::list());
    QVERIFY(QFile::remove(list) && QDir().mkpath(list + text("/in the way")));
    const Outcome outcome = upload({text("--"), text("--size-only"), text("--retries=1")});
    QVERIFY2(outcome.err.endsWith("; release 5 of 2026-11-22T11:00:00Z is still in force\n"),
             outcome.err.constData());
    QVERIFY(QDir(list).removeRecursively());
    m_tree.write(7, TinyRelease::files(5));
    QCOMPARE(upload().status, 0);
    verifyAll();
}

void TestMvpublishUpload::signatureIsSentByBothNames()
{
    const QByteArray release = CatalogueFiles::read(m_tree.file(ReleasePaths::release()));
    const QString content = ReleasePaths::signatureOf(ContentDigest::ofBytes(release));
    // The second time with another key.
    for (const char* signature : {"signature", "Signature"}) {
        CatalogueFiles::write(m_tree.file(ReleasePaths::signature()), signature);
        CatalogueFiles::write(m_tree.file(content), signature);
        QCOMPARE(upload().status, 0);
        verifyAll();
    }
    const QStringList sent = m_rclone->sent();
    QVERIFY(sent.indexOf(content) >= 0);
    QVERIFY(sent.indexOf(content) < sent.indexOf(ReleasePaths::release()));
    // The signature of another release must not stay beside one without.
    m_tree.write(6);
    QCOMPARE(upload().status, 0);
    QVERIFY(!QFileInfo::exists(m_space.file(ReleasePaths::signature())));
}

void TestMvpublishUpload::dryRunSendsNothing()
{
    const Outcome outcome = upload({text("--dry-run")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.lines().contains(text("would send config/Motions/{1}/zoom in.zip")));
    QVERIFY(outcome.lines().contains(text("version files: 1 file to send (39 bytes), 0 there")));
    QCOMPARE(CatalogueFiles::filesBelow(home("space")), QStringList());
}

void TestMvpublishUpload::optionsAfterDashesReachRclone()
{
    const Outcome outcome = upload({text("--"), text("--no-such-option")});
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.err,
             QByteArray(
                 "mvpublish: rclone: Fatal error: unknown flag: --no-such-option; nothing has been "
                 "sent\n"));
}

void TestMvpublishUpload::lintAcceptsWhatAnUploadLeaves()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), home("built"), {text("--force")}), QString());
    QCOMPARE(Mvpublish::run({text("upload"), home("built"), m_space.folder()}).status, 0);
    QCOMPARE(CatalogueFiles::filesBelow(m_space.folder()).filter(text("/releases/")).size(), 1);
    QCOMPARE(Mvpublish::run({text("lint"), m_space.folder()}).out,
             Mvpublish::run({text("lint"), home("built")}).out);
}

/// Any server that rclone can reach will do.
void TestMvpublishUpload::webdavServerOfRclone()
{
    RcloneServer server;
    QVERIFY2(server.start(home("served")), qPrintable(server.errorText()));
    const Outcome outcome = Mvpublish::run({text("upload"), m_tree.folder(), server.remote()});
    QCOMPARE(outcome.err, QByteArray());
    ReleaseClient client(server.port());
    QCOMPARE(client.read(), QString());
    QCOMPARE(client.serial(), 5);
    QCOMPARE(CatalogueFiles::read(home("served/display/Themes/same \xc3\xa4.png")),
             QByteArray("always"));
}

MV_TEST_MAIN(TestMvpublishUpload)
#include "tst_mvpublish_upload.moc"
