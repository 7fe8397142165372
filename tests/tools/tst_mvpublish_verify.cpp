// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "Mvpublish.h"
#include "ReleaseFaults.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "Terminal.h"

#include <QDateTime>
#include <QFile>

#include <memory>

/// Tests mvpublish verify with a folder.
class TestMvpublishVerify : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void soundTreeIsClean_data();
    void soundTreeIsClean();
    void findsWhatDoesNotFit_data();
    void findsWhatDoesNotFit();
    void missingFileIsAFinding();
    void unsignedTreeIsCleanWithoutKeys();
    void changedReleaseIsNotTheSignedOne();
    void otherKeyIsNotTrusted();
    void expiry_data();
    void expiry();
    void refuses_data();
    void refuses();
    void progressIsDrawnOnATerminal();

private:
    Outcome verify(const QStringList& options = {}) const
    {
        return Mvpublish::run(QStringList{text("verify"), m_tree->folder()} + options);
    }
    static QStringList withKey() { return {text("--key"), ReleaseFaults::key() + text(".pub")}; }

    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishVerify::initTestCase()
{
    QCOMPARE(ReleaseFaults::makeKey(), QString());
}

void TestMvpublishVerify::init()
{
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
    QCOMPARE(ReleaseFaults::makeSigned(*m_tree), QString());
}

void TestMvpublishVerify::soundTreeIsClean_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("signature");
    const QString file = ReleaseFaults::key() + text(".pub");
    const QString line = QString::fromUtf8(CatalogueFiles::read(file).split('\n').value(1));
    const QByteArray by = "signed by key ";
    QTest::newRow("without keys") << QStringList()
                                  << QByteArray("signature not verified, without --key");
    QTest::newRow("file of a key") << QStringList{text("--key"), file} << by;
    QTest::newRow("line of a key") << QStringList{text("--key"), line} << by;
    const QString other = home("other.key");
    QCOMPARE(Mvpublish::run({text("keygen"), other, text("--no-password"), text("--force")}).status,
             0);
    QTest::newRow("two keys") << QStringList{text("--key"), other + text(".pub"), text("--key"),
                                             file}
                              << by;
}

void TestMvpublishVerify::soundTreeIsClean()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, signature);
    const Outcome outcome = verify(options);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.out.startsWith("release 4000000000, published 2096-10-02T07:06:40Z, "),
             outcome.out.constData());
    QVERIFY2(outcome.out.contains(signature), outcome.out.constData());
    QCOMPARE(outcome.lines().constLast(), text("clean"));
}

void TestMvpublishVerify::findsWhatDoesNotFit_data()
{
    ReleaseFaults::columns();
    ReleaseFaults::rows();
}

void TestMvpublishVerify::findsWhatDoesNotFit()
{
    QFETCH(ReleaseChange, change);
    QFETCH(QStringList, expected);
    change(*m_tree);
    const Outcome outcome = verify();
    QCOMPARE(ReleaseFaults::findings(outcome.out), expected);
    QCOMPARE(outcome.lines().constLast(), text("1 error"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err, QByteArray());
}

void TestMvpublishVerify::missingFileIsAFinding()
{
    const QString song = text("config/ThemesBgm/Slow Song.mp3");
    QVERIFY(QFile::remove(m_tree->file(song)));
    const Outcome outcome = verify();
    QVERIFY2(outcome.out.contains((song + text(": is missing [release-file]")).toUtf8()),
             outcome.out.constData());
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishVerify::unsignedTreeIsCleanWithoutKeys()
{
    QCOMPARE(m_tree->build({text("--renew")}), QString());
    QCOMPARE(verify().status, 0);
    const Outcome outcome = verify(withKey());
    QCOMPARE(ReleaseFaults::findings(outcome.out),
             QStringList{text("release-signature ") + ReleasePaths::signature()});
    QVERIFY2(outcome.out.contains("not signed by a given key"), outcome.out.constData());
    QCOMPARE(outcome.status, 1);
}

/// Whoever has no key cannot publish, even with a signature of the same serial.
void TestMvpublishVerify::changedReleaseIsNotTheSignedOne()
{
    const QString release = ReleasePaths::release();
    const QByteArray signature = m_tree->read(ReleasePaths::signature());
    ReleaseFaults::replace(*m_tree, release,
                           m_tree->read(release).replace("2096-10-02", "2096-10-03"));
    CatalogueFiles::write(m_tree->file(ReleasePaths::signatureOf(m_tree->releaseDigest())),
                          signature);
    QCOMPARE(verify().status, 0);
    const Outcome outcome = verify(withKey());
    QVERIFY2(outcome.out.contains("is not one of this content [release-signature]"),
             outcome.out.constData());
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishVerify::otherKeyIsNotTrusted()
{
    const QString other = home("foreign.key");
    QCOMPARE(Mvpublish::run({text("keygen"), other, text("--no-password")}).status, 0);
    const Outcome outcome = verify({text("--key"), other + text(".pub")});
    QVERIFY2(outcome.out.contains("which is not trusted [release-signature]"),
             outcome.out.constData());
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishVerify::expiry_data()
{
    QTest::addColumn<int>("publishedDaysAgo");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("status");
    const QString release = ReleasePaths::release();
    QTest::newRow("expired") << 31 << QStringList{text("release-expired ") + release} << 1;
    QTest::newRow("expires in a day") << 29 << QStringList{text("release-expires ") + release} << 0;
    QTest::newRow("expires in 13 days")
        << 17 << QStringList{text("release-expires ") + release} << 0;
    QTest::newRow("expires in 16 days") << 14 << QStringList() << 0;
}

void TestMvpublishVerify::expiry()
{
    QFETCH(int, publishedDaysAgo);
    QFETCH(QStringList, expected);
    QFETCH(int, status);
    ReleasedTree::setClock(
        QDateTime::currentDateTimeUtc().addDays(-publishedDaysAgo).toSecsSinceEpoch());
    // Lint, too, refuses an expired release.
    const QString refusal = m_tree->build({text("--expires"), text("30")});
    QCOMPARE(refusal.contains(text("[release-expired]")), status == 1);
    const Outcome built = Mvpublish::run({text("build"), text("--force"), text("--expires"),
                                          text("30"), m_tree->source().folder(), m_tree->folder()});
    QCOMPARE(built.status, 0);
    const Outcome outcome = verify();
    QCOMPARE(ReleaseFaults::findings(outcome.out), expected);
    QCOMPARE(outcome.status, status);
}

void TestMvpublishVerify::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const QString nowhere = home("nowhere");
    QTest::newRow("no folder") << QStringList{nowhere} << text("no such folder: ") + nowhere;
    QTest::newRow("no key") << QStringList{TestHome::path(), text("--key"), text("abc")}
                            << text("--key abc: not the public key of minisign: ");
    QTest::newRow("secret key")
        << QStringList{TestHome::path(), text("--key"), ReleaseFaults::key()}
        << text("--key %1: not the public key of minisign: ").arg(ReleaseFaults::key());
}

void TestMvpublishVerify::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const Outcome outcome = Mvpublish::run(QStringList{text("verify")} + arguments);
    QVERIFY2(outcome.err.startsWith("mvpublish: " + message.toUtf8()), outcome.err.constData());
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.out, QByteArray());
}

/// The findings on standard output stay free of it.
void TestMvpublishVerify::progressIsDrawnOnATerminal()
{
    Terminal terminal(80);
    QProcess process;
    process.setStandardErrorFile(terminal.device());
    process.start(Mvpublish::program(), {text("verify"), m_tree->folder()});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.status, 0);
    const QByteArray shown = terminal.read();
    QVERIFY2(shown.contains("\rverifying: 0%"), shown.constData());
    QVERIFY2(shown.contains("\rverifying: 100%"), shown.constData());
    QCOMPARE(Terminal::screen(shown), QStringList{QString()});
    QVERIFY(!outcome.out.contains("verifying"));
}

MV_TEST_MAIN(TestMvpublishVerify)
#include "tst_mvpublish_verify.moc"
