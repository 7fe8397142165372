// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "TlsServer.h"
#include "TunnelProxy.h"

using namespace std::chrono_literals;

namespace {

const QByteArray tunnelStands = "HTTP/1.1 200 Connection established\r\n\r\n";
const QByteArray secretFile = "the secret file";

} // namespace

/// Tests downloads over TLS: whom a download trusts, and how it passes through a proxy.
class TestCurWrapperTls : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void refusesAnUntrustedCertificate();
    void trustsTheAuthoritiesOfTheSettings();
    void readsTheAuthoritiesAtEveryDownload();
    void refusesWithoutReadableAuthorities_data();
    void refusesWithoutReadableAuthorities();
    void refusesACertificateForAnotherHost();
    void refusesAServerWithoutTls();
    void refusesARedirectToPlainHttp();
    void followsARedirectBetweenSecureAddresses();
    void followsARedirectFromPlainHttp();
    void goesThroughATunnel();
    void slowTunnelIsNotAStall();
    void tunnelDoesNotReplaceTrust();
    void reportsWhyThereIsNoTunnel();

private:
    const HostSettings m_settings = hostSettings();
    std::unique_ptr<SelfSignedCertificate> m_certificate;
};

void TestCurWrapperTls::initTestCase()
{
    for (const char* variable : {"no_proxy", "NO_PROXY"})
        qunsetenv(variable);
    m_certificate = std::make_unique<SelfSignedCertificate>(QStringLiteral("IP:127.0.0.1"));
}

void TestCurWrapperTls::refusesAnUntrustedCertificate()
{
    TlsServer server(*m_certificate);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("certificate")),
             qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), 0);
}

void TestCurWrapperTls::trustsTheAuthoritiesOfTheSettings()
{
    TlsServer server(*m_certificate);
    hostSettings().caFile = m_certificate->file();
    Download download;
    for (int i = 1; i <= 3; ++i) {
        QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
        QCOMPARE(download.content(), secretFile);
        QCOMPARE(server.requestCount(), i);
    }
}

void TestCurWrapperTls::readsTheAuthoritiesAtEveryDownload()
{
    TlsServer server(*m_certificate);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    hostSettings().caFile = m_certificate->file();
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    // The open connection was trusted on grounds that no longer hold.
    hostSettings().caFile.clear();
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperTls::refusesWithoutReadableAuthorities_data()
{
    QTest::addColumn<QString>("caFile");
    QTest::newRow("missing") << TestHome::path() + QStringLiteral("/missing.pem");
    QTest::newRow("no certificate in it") << m_certificate->keyFile();
}

void TestCurWrapperTls::refusesWithoutReadableAuthorities()
{
    QFETCH(QString, caFile);

    TlsServer server(*m_certificate);
    hostSettings().caFile = caFile;
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QCOMPARE(server.requestCount(), 0);
}

void TestCurWrapperTls::refusesACertificateForAnotherHost()
{
    const SelfSignedCertificate other(QStringLiteral("DNS:files.example"));
    TlsServer server(other);
    hostSettings().caFile = other.file();
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QCOMPARE(server.requestCount(), 0);
}

void TestCurWrapperTls::refusesAServerWithoutTls()
{
    FaultServer server(answering(HttpAnswer(200).body("plain")));
    hostSettings().connectTimeoutMs = 500; // the server may wait for the end of a request
    Download download;
    QCOMPARE(download.run(QStringLiteral("https://127.0.0.1:%1/file").arg(server.port())), 3);
    QCOMPARE(server.requestCount(), 0);
}

void TestCurWrapperTls::refusesARedirectToPlainHttp()
{
    FaultServer plain(answering(HttpAnswer(200).body("plain")));
    TlsServer server(*m_certificate);
    hostSettings().caFile = m_certificate->file();
    Download download;
    const QString moved = QStringLiteral("/moved?to=") + plain.url(QStringLiteral("/file"));
    QCOMPARE(download.run(server.url(moved)), 1);
    QVERIFY2(download.errorText().contains(QStringLiteral("redirected from https to http")),
             qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(plain.requestCount(), 0);
}

void TestCurWrapperTls::followsARedirectBetweenSecureAddresses()
{
    TlsServer server(*m_certificate);
    hostSettings().caFile = m_certificate->file();
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/moved?to=/file"))), 0);
    QCOMPARE(download.content(), secretFile);
}

void TestCurWrapperTls::followsARedirectFromPlainHttp()
{
    TlsServer server(*m_certificate);
    FaultServer plain(answering(redirectTo(server.url(QStringLiteral("/file")).toLatin1())));
    hostSettings().caFile = m_certificate->file();
    Download download;
    QCOMPARE(download.run(plain.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), secretFile);
}

void TestCurWrapperTls::goesThroughATunnel()
{
    TlsServer server(*m_certificate);
    TunnelProxy proxy(server.port(), tunnelStands);
    hostSettings().caFile = m_certificate->file();
    hostSettings().proxy = proxy.address();
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), secretFile);
    const QByteArray host = "127.0.0.1:" + QByteArray::number(server.port());
    QVERIFY2(proxy.request().startsWith("CONNECT " + host + " HTTP/1.1\r\n"),
             proxy.request().constData());
}

void TestCurWrapperTls::slowTunnelIsNotAStall()
{
    // Until the connection is established, its own limit applies.
    TlsServer server(*m_certificate);
    TunnelProxy proxy(server.port(), tunnelStands, 1000ms);
    hostSettings().caFile = m_certificate->file();
    hostSettings().proxy = proxy.address();
    hostSettings().stallTimeoutMs = 500;
    hostSettings().connectTimeoutMs = 20000;
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), secretFile);
}

void TestCurWrapperTls::tunnelDoesNotReplaceTrust()
{
    TlsServer server(*m_certificate);
    TunnelProxy proxy(server.port(), tunnelStands);
    hostSettings().proxy = proxy.address();
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("certificate")),
             qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), 0);
}

void TestCurWrapperTls::reportsWhyThereIsNoTunnel()
{
    TlsServer server(*m_certificate);
    TunnelProxy proxy(server.port(), HttpAnswer(407).body("who are you?").bytes());
    hostSettings().proxy = proxy.address();
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("407")),
             qPrintable(download.errorText()));
}

MV_TEST_MAIN(TestCurWrapperTls)
#include "tst_CurWrapper_tls.moc"
