// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "Unprivileged.h"

#include <QDir>
#include <QUrl>

using Handler = FaultServer::Handler;

/// Tests the failure cause, for programs and as text in the user's language.
class tst_CurWrapper_failure : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { hostSettings() = m_settings; }

    void noneBeforeAndAfterSuccess();
    void answersOfTheServer_data();
    void answersOfTheServer();
    void unreachableServer();
    void silentServer();
    void addresses_data();
    void addresses();
    void redirectThatMustNotBeFollowed();
    void cancelled();
    void localFile_data();
    void localFile();
    void folderWithoutPermission_data();
    void folderWithoutPermission();
    void everyCauseHasAText();
    void namesOfCauses();

private:
    const HostSettings m_settings = hostSettings();
};

void tst_CurWrapper_failure::noneBeforeAndAfterSuccess()
{
    FaultServer server(
        inTurn({answering(HttpAnswer(404).body("")), answering(HttpAnswer(200).body("file"))}));
    Download download;
    QVERIFY(!download.wrapper().failure().isFailure());
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
    const STransferFailure failure = download.wrapper().failure();
    QCOMPARE(failure.m_eCause, eFailure_NotOnServer);
    QCOMPARE(failure.m_qsUrl, server.url(QStringLiteral("/file")));
    QCOMPARE(failure.m_qsFile, download.target());
    QCOMPARE(failure.m_qsDetails, download.errorText());
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(!download.wrapper().failure().isFailure());
    QCOMPARE(download.wrapper().failure().m_qsDetails, QString());
}

void tst_CurWrapper_failure::answersOfTheServer_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("cause");

    const auto status = [](int code) { return answering(HttpAnswer(code).body("no")); };
    QTest::newRow("not found") << status(404) << int(eFailure_NotOnServer);
    QTest::newRow("gone") << status(410) << int(eFailure_NotOnServer);
    QTest::newRow("forbidden") << status(403) << int(eFailure_ServerError);
    QTest::newRow("broken server") << status(500) << int(eFailure_ServerError);
    QTest::newRow("busy server") << status(503) << int(eFailure_ServerError);
    QTest::newRow("encoded") << answering(HttpAnswer(200).field("Content-Encoding", "br").body("x"))
                             << int(eFailure_ServerError);
    QTest::newRow("too large") << answering(HttpAnswer(200).body(pattern(2000)))
                               << int(eFailure_TooLarge);
    QTest::newRow("short body") << answeringAndClosing(
        HttpAnswer(200).field("Content-Length", "100").bareBody("short"))
                                << int(eFailure_ConnectionLost);
    QTest::newRow("reset") << Handler([](HttpExchange& exchange) { exchange.reset(); })
                           << int(eFailure_ConnectionLost);
    QTest::newRow("stall in the body") << Handler([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "100").bareBody("a part"));
        exchange.stall();
    }) << int(eFailure_ConnectionLost);
}

void tst_CurWrapper_failure::answersOfTheServer()
{
    QFETCH(Handler, handler);
    QFETCH(int, cause);
    hostSettings().maxDownloadBytes = 1000;
    hostSettings().downloadRetries = 0;
    hostSettings().stallTimeoutMs = 300;
    FaultServer server(handler);
    Download download;
    QVERIFY(download.run(server.url(QStringLiteral("/file"))) != 0);
    QCOMPARE(int(download.wrapper().failure().m_eCause), cause);
}

void tst_CurWrapper_failure::unreachableServer()
{
    hostSettings().downloadRetries = 0;
    Download download;
    const QString url = QStringLiteral("http://127.0.0.1:%1/file").arg(FaultServer::refusingPort());
    QCOMPARE(download.run(url), 3);
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_Unreachable);
    // The reason names the place, which the address alone may not tell.
    const QString place = QStringLiteral("127.0.0.1 port %1").arg(QUrl(url).port());
    QVERIFY2(download.errorText().contains(place), qPrintable(download.errorText()));
}

/// A port that accepts connections and sends nothing.
void tst_CurWrapper_failure::silentServer()
{
    hostSettings().downloadRetries = 0;
    hostSettings().stallTimeoutMs = 300;
    FaultServer server([](HttpExchange& exchange) { exchange.stall(); });
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_ConnectionLost);
}

void tst_CurWrapper_failure::addresses_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("empty") << QString();
    QTest::newRow("another scheme") << QStringLiteral("ftp://127.0.0.1/file");
    QTest::newRow("no host") << QStringLiteral("http:///file");
}

void tst_CurWrapper_failure::addresses()
{
    QFETCH(QString, url);
    Download download;
    QCOMPARE(download.run(url), 1);
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_BadAddress);
    QCOMPARE(download.wrapper().failure().m_qsUrl, url);
}

void tst_CurWrapper_failure::redirectThatMustNotBeFollowed()
{
    FaultServer server(answering(redirectTo("file:///etc/hostname")));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 1);
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_BadAddress);
}

void tst_CurWrapper_failure::cancelled()
{
    FaultServer server(answering(HttpAnswer(200).body("file")));
    Download download;
    const ProgressWatch watch(download.wrapper(), [](const ProgressWatch::Call&) { return false; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_Cancelled);
}

void tst_CurWrapper_failure::localFile_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("in a missing folder") << QStringLiteral("missing/file.bin");
    QTest::newRow("through a file") << QStringLiteral("file/file.bin");
}

void tst_CurWrapper_failure::localFile()
{
    QFETCH(QString, target);
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    QVERIFY(QDir(download.folder()).mkdir(QStringLiteral("folder")));
    CatalogueFiles::write(download.folder() + QStringLiteral("/file"), "in the way");
    download.wrapper().download(server.url(QStringLiteral("/file")),
                                QDir(download.folder()).filePath(target), false);
    QCOMPARE(download.wrapper().result(), 2);
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_LocalFile);
}

void tst_CurWrapper_failure::folderWithoutPermission_data()
{
    QTest::addColumn<QString>("target"); // below an unwritable folder
    QTest::newRow("in the folder") << QStringLiteral("file.bin");
    // The intermediate folders could not be created for the same reason.
    QTest::newRow("in a folder below") << QStringLiteral("deep/below/file.bin");
}

void tst_CurWrapper_failure::folderWithoutPermission()
{
    QFETCH(QString, target);
    if (!Unprivileged::isPossible)
        QSKIP("This system permits folders in another way.");
    // Not in the test's home, which other users cannot enter.
    QTemporaryDir folder(QStringLiteral("/tmp/mv-unwritable-XXXXXX"));
    QVERIFY(folder.isValid());
    const QFile::Permissions usual = QFile::permissions(folder.path());
    QVERIFY(QFile::setPermissions(
        folder.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    CurWrapper wrapper;
    {
        const Unprivileged user;
        QVERIFY(user.isActive());
        wrapper.download(QStringLiteral("http://127.0.0.1:1/file"), folder.filePath(target), false);
    }
    QVERIFY(QFile::setPermissions(folder.path(), usual));
    QCOMPARE(wrapper.result(), 2);
    QCOMPARE(wrapper.failure().m_eCause, eFailure_NoPermission);
    QVERIFY(wrapper.errorText().contains(folder.filePath(target)));
}

void tst_CurWrapper_failure::everyCauseHasAText()
{
    QCOMPARE(STransferFailure::causeText(eFailure_None), QString());
    QStringList texts;
    for (int cause = eFailure_DiskFull; cause <= eFailure_Cancelled; ++cause) {
        const QString text = STransferFailure::causeText(static_cast<EFailureCause>(cause));
        QVERIFY2(!text.isEmpty(), qPrintable(QString::number(cause)));
        QVERIFY2(!texts.contains(text), qPrintable(text));
        texts.append(text);
    }
}

/// Scripts test for these names.
void tst_CurWrapper_failure::namesOfCauses()
{
    QStringList names;
    for (int cause = eFailure_None; cause <= eFailure_Cancelled; ++cause)
        names.append(STransferFailure::causeName(static_cast<EFailureCause>(cause)));
    QCOMPARE(names.join(QLatin1Char(' ')),
             QStringLiteral(" diskFull noPermission localFile unreachable connectionLost "
                            "notOnServer serverError badAddress tooLarge damaged cancelled"));
}

MV_TEST_MAIN(tst_CurWrapper_failure)

#include "tst_CurWrapper_failure.moc"
