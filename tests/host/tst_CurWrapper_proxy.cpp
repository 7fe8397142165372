// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"

namespace {

QString proxyAt(quint16 port)
{
    return QStringLiteral("http://127.0.0.1:%1").arg(port);
}

} // namespace

/// Tests downloads through an HTTP proxy.
class TestCurWrapperProxy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void asksTheProxyThatTheSettingsName();
    void asksTheProxyThatTheEnvironmentNames();
    void settingsWinOverTheEnvironment();
    void goesDirectlyWhenNothingIsSet();
    void readsTheSettingAtEveryDownload();
    void namesTheProxyThatRefuses();
    void followsARedirectThroughTheProxy();

private:
    const HostSettings m_settings = hostSettings();
    // An unresolvable name: only a proxy can answer for it.
    const QString m_url = QStringLiteral("http://files.does-not-exist.invalid/a/b.bin?v=1");
};

void TestCurWrapperProxy::init()
{
    for (const char* variable : {"no_proxy", "NO_PROXY", "http_proxy"})
        qunsetenv(variable);
}

void TestCurWrapperProxy::cleanup()
{
    hostSettings() = m_settings;
    qunsetenv("http_proxy");
}

void TestCurWrapperProxy::asksTheProxyThatTheSettingsName()
{
    FaultServer proxy(answering(HttpAnswer(200).body("the file")));
    hostSettings().proxy = proxyAt(proxy.port());
    Download download;
    QCOMPARE(download.run(m_url), 0);
    QCOMPARE(download.content(), QByteArray("the file"));
    QCOMPARE(proxy.requestCount(), 1);
    QCOMPARE(proxy.requests().at(0).method, QByteArray("GET"));
    QCOMPARE(proxy.requests().at(0).target, m_url.toLatin1());
    QCOMPARE(proxy.requests().at(0).fields.value("host"),
             QByteArray("files.does-not-exist.invalid"));
}

void TestCurWrapperProxy::asksTheProxyThatTheEnvironmentNames()
{
    FaultServer proxy(answering(HttpAnswer(200).body("the file")));
    qputenv("http_proxy", proxyAt(proxy.port()).toLatin1());
    Download download;
    QCOMPARE(download.run(m_url), 0);
    QCOMPARE(proxy.requests().at(0).target, m_url.toLatin1());
}

void TestCurWrapperProxy::settingsWinOverTheEnvironment()
{
    FaultServer wanted(answering(HttpAnswer(200).body("the file")));
    FaultServer other(answering(HttpAnswer(200).body("another file")));
    qputenv("http_proxy", proxyAt(other.port()).toLatin1());
    hostSettings().proxy = proxyAt(wanted.port());
    Download download;
    QCOMPARE(download.run(m_url), 0);
    QCOMPARE(download.content(), QByteArray("the file"));
    QCOMPARE(other.requestCount(), 0);
}

void TestCurWrapperProxy::goesDirectlyWhenNothingIsSet()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(server.requests().at(0).target, QByteArray("/file"));
}

void TestCurWrapperProxy::readsTheSettingAtEveryDownload()
{
    FaultServer first(answering(HttpAnswer(200).body("from the first")));
    FaultServer second(answering(HttpAnswer(200).body("from the second")));
    Download download;
    hostSettings().proxy = proxyAt(first.port());
    QCOMPARE(download.run(m_url), 0);
    QCOMPARE(download.content(), QByteArray("from the first"));
    hostSettings().proxy = proxyAt(second.port());
    QCOMPARE(download.run(m_url), 0);
    QCOMPARE(download.content(), QByteArray("from the second"));
    hostSettings().proxy.clear();
    QCOMPARE(download.run(m_url), 3);
}

void TestCurWrapperProxy::namesTheProxyThatRefuses()
{
    const quint16 port = FaultServer::refusingPort();
    hostSettings().proxy = proxyAt(port);
    Download download;
    QCOMPARE(download.run(m_url), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("port %1").arg(port)),
             qPrintable(download.errorText()));
}

void TestCurWrapperProxy::followsARedirectThroughTheProxy()
{
    const QByteArray there = "http://mirror.does-not-exist.invalid/b.bin";
    FaultServer proxy(
        inTurn({answering(redirectTo(there)), answering(HttpAnswer(200).body("the file"))}));
    hostSettings().proxy = proxyAt(proxy.port());
    Download download;
    QCOMPARE(download.run(m_url), 0);
    QCOMPARE(proxy.requests().at(1).target, there);
}

MV_TEST_MAIN(TestCurWrapperProxy)
#include "tst_CurWrapper_proxy.moc"
