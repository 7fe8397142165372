// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "RawClient.h"
#include "ReleasedTree.h"
#include "support/CatalogueFiles.h"
#include "support/NginxServer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QElapsedTimer>
#include <QUrl>

#include <memory>

/// Tests deploy/nginx-cache.conf in front of deploy/nginx.conf.
class TestMvpublishNginxCache : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void contentReachesTheServerOnce();
    void everyFormOfAnAddressIsOneContent_data();
    void everyFormOfAnAddressIsOneContent();
    void clientWithADamagedContentGetsAnother();
    void missingContentIsNotKept();
    void partOfAContentIsServed();
    void manyChecksReachTheServerOnceASecond_data();
    void manyChecksReachTheServerOnceASecond();
    void unchangedReleaseHasNoBody();
    void newReleaseIsSeenSoon();
    void serverThatIsGoneIsNotMissed();
    void restIsPassedOn_data();
    void restIsPassedOn();
    void otherMethodsAreRefused();

private:
    QByteArray get(const QByteArray& target, const QByteArray& fields = QByteArray(),
                   const QByteArray& method = "GET") const
    {
        return RawClient(static_cast<quint16>(QUrl(m_cache->url()).port()))
            .get(target, fields, method);
    }
    /// Ends the server, whose log is complete then, and returns the lines that contain a text.
    QByteArrayList requestsOf(const QByteArray& text)
    {
        m_server->stop();
        QByteArrayList found;
        const QByteArrayList all = m_server->requests();
        for (const QByteArray& line : all) {
            if (line.contains(text))
                found.append(line);
        }
        return found;
    }
    QString anyContent() const { return ReleasePaths::content(m_tree->release().m_listDigest); }
    static QByteArray target(const QString& path) { return '/' + path.toUtf8(); }
    static QByteArray releaseTarget() { return target(ReleasePaths::release()); }

    int m_run = 0;
    std::unique_ptr<ReleasedTree> m_tree;
    std::unique_ptr<NginxServer> m_server;
    std::unique_ptr<NginxServer> m_cache;
};

namespace {

constexpr int keptMs = 2100; // nginx compares whole seconds, so it keeps for up to two

} // namespace

void TestMvpublishNginxCache::init()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    const QString folder = home("run") + QString::number(++m_run);
    m_tree = std::make_unique<ReleasedTree>(folder + text("/tree"));
    QCOMPARE(m_tree->build(), QString());
    m_server = std::make_unique<NginxServer>();
    m_server->include(text(MV_DEPLOY "/nginx.conf"));
    QVERIFY2(m_server->start(m_tree->folder(), folder + text("/server")),
             qPrintable(m_server->errorText()));
    const QString beside = folder + text("/beside.conf");
    CatalogueFiles::write(beside,
                          QStringLiteral("proxy_cache_path %1/kept keys_zone=mv:1m;\n"
                                         "upstream mv_origin { server 127.0.0.1:%2; keepalive 4; }")
                              .arg(folder)
                              .arg(QUrl(m_server->url()).port())
                              .toUtf8());
    m_cache = std::make_unique<NginxServer>();
    m_cache->includeBeside(beside);
    m_cache->include(text(MV_DEPLOY "/nginx-cache.conf"));
    QVERIFY2(m_cache->start(folder, folder + text("/cache")), qPrintable(m_cache->errorText()));
}

void TestMvpublishNginxCache::contentReachesTheServerOnce()
{
    const QByteArray content = target(anyContent());
    for (int time = 0; time < 3; ++time) {
        const QByteArray answer = get(content);
        QCOMPARE(RawClient::status(answer), 200);
        QVERIFY(RawClient::body(answer) == m_tree->read(anyContent()));
        QCOMPARE(RawClient::field(answer, "Cache-Control"),
                 QByteArray("public, max-age=31536000, immutable"));
    }
    QCOMPARE(requestsOf(content).size(), 1);
}

void TestMvpublishNginxCache::everyFormOfAnAddressIsOneContent_data()
{
    QTest::addColumn<QByteArray>("prefix");
    for (const char* prefix : {"//", "/mv/", "/mv//", "/mv"})
        QTest::newRow(prefix) << QByteArray(prefix);
}

void TestMvpublishNginxCache::everyFormOfAnAddressIsOneContent()
{
    QFETCH(QByteArray, prefix);
    const QByteArray path = anyContent().toUtf8();
    QCOMPARE(RawClient::status(get(prefix + path)), 200);
    QVERIFY(RawClient::body(get('/' + path)) == m_tree->read(anyContent()));
    QCOMPARE(requestsOf(path).size(), 1);
}

/// The request header that the library sends after receiving a content with another digest.
void TestMvpublishNginxCache::clientWithADamagedContentGetsAnother()
{
    const QByteArray content = target(anyContent());
    const QByteArray right = m_tree->read(anyContent());
    QByteArray wrong = right;
    wrong[0] = '!';
    CatalogueFiles::write(m_tree->file(anyContent()), wrong);
    QVERIFY(RawClient::body(get(content)) == wrong);
    CatalogueFiles::write(m_tree->file(anyContent()), right);
    QVERIFY(RawClient::body(get(content)) == wrong);
    QVERIFY(RawClient::body(get(content, "Cache-Control: no-cache\r\n")) == right);
    QVERIFY(RawClient::body(get(content)) == right);
    QCOMPARE(requestsOf(content).size(), 2);
}

void TestMvpublishNginxCache::missingContentIsNotKept()
{
    const QString path = ReleasePaths::content(QByteArray(64, 'a'));
    QCOMPARE(RawClient::status(get(target(path))), 404);
    CatalogueFiles::write(m_tree->file(path), "published later");
    QCOMPARE(RawClient::body(get(target(path))), QByteArray("published later"));
}

void TestMvpublishNginxCache::partOfAContentIsServed()
{
    const QByteArray whole = m_tree->read(anyContent());
    for (int time = 0; time < 2; ++time) { // from the server, then from the cache
        const QByteArray answer = get(target(anyContent()), "Range: bytes=100-\r\n");
        QCOMPARE(RawClient::status(answer), 206);
        QVERIFY(RawClient::body(answer) == whole.mid(100));
    }
    QCOMPARE(requestsOf(target(anyContent())).size(), 1);
}

void TestMvpublishNginxCache::manyChecksReachTheServerOnceASecond_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("release") << ReleasePaths::release();
    QTest::newRow("signature by name") << ReleasePaths::signature();
    QTest::newRow("signature by digest") << ReleasePaths::signatureOf(QByteArray(64, 'b'));
}

void TestMvpublishNginxCache::manyChecksReachTheServerOnceASecond()
{
    QFETCH(QString, path);
    CatalogueFiles::write(m_tree->file(path), "content");
    constexpr int checks = 200;
    QElapsedTimer timer;
    timer.start();
    for (int check = 0; check < checks; ++check)
        QCOMPARE(RawClient::body(get(target(path))), QByteArray("content"));
    const int seconds = static_cast<int>(timer.elapsed() / 1000);
    const int requests = requestsOf(target(path)).size();
    // Before the first second, and after each that ends.
    QVERIFY2(requests <= seconds + 2, qPrintable(QString::number(requests)));
    QVERIFY(requests < checks);
}

void TestMvpublishNginxCache::unchangedReleaseHasNoBody()
{
    const QByteArray first = get(releaseTarget());
    QCOMPARE(RawClient::field(first, "Cache-Control"), QByteArray("no-cache"));
    const QByteArray tag = RawClient::field(first, "ETag");
    QVERIFY(!tag.isEmpty());
    QTest::qWait(keptMs);
    const QByteArray again = get(releaseTarget(), "If-None-Match: " + tag + "\r\n");
    QCOMPARE(RawClient::status(again), 304);
    QCOMPARE(requestsOf(releaseTarget()),
             (QByteArrayList{"GET /ResourceConfig/release.json HTTP/1.1 200",
                             "GET /ResourceConfig/release.json HTTP/1.1 304"}));
}

void TestMvpublishNginxCache::newReleaseIsSeenSoon()
{
    const QByteArray tag = RawClient::field(get(releaseTarget()), "ETag");
    m_tree->source().set(text("film"), "name", text("Another film"));
    QCOMPARE(m_tree->build(), QString());
    QTest::qWait(keptMs);
    const QByteArray answer = get(releaseTarget(), "If-None-Match: " + tag + "\r\n");
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::body(answer), m_tree->read(ReleasePaths::release()));
    QCOMPARE(RawClient::status(get(target(anyContent()))), 200);
}

void TestMvpublishNginxCache::serverThatIsGoneIsNotMissed()
{
    const QByteArray content = target(anyContent());
    get(content);
    get(releaseTarget());
    m_server->stop();
    QTest::qWait(keptMs);
    QVERIFY(RawClient::body(get(content)) == m_tree->read(anyContent()));
    QCOMPARE(RawClient::body(get(releaseTarget())), m_tree->read(ReleasePaths::release()));
    QCOMPARE(RawClient::status(get("/ResourceConfig/files.txt")), 502);
}

/// As clients that do not use releases need it.
void TestMvpublishNginxCache::restIsPassedOn_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<int>("again");
    QTest::newRow("version file") << QByteArray("/ResourceConfig/resource_version_v3.xml")
                                  << QByteArray("no-store") << 200;
    QTest::newRow("catalogue") << QByteArray("/ResourceConfig/resource_config.xml")
                               << QByteArray("no-cache") << 304;
    QTest::newRow("preview") << QByteArray("/display/Themes/film.gif") << QByteArray("no-cache")
                             << 304;
}

void TestMvpublishNginxCache::restIsPassedOn()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, control);
    const QByteArray answer = get(target);
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::field(answer, "Cache-Control"), control);
    QVERIFY(RawClient::body(answer) == m_tree->read(QString::fromLatin1(target.mid(1))));
    const QByteArray tag = RawClient::field(answer, "ETag");
    QTEST(RawClient::status(get(target, "If-None-Match: " + tag + "\r\n")), "again");
    QCOMPARE(requestsOf(target).size(), 2);
}

void TestMvpublishNginxCache::otherMethodsAreRefused()
{
    for (const char* method : {"PUT", "POST", "DELETE"}) {
        for (const QByteArray& path : {target(anyContent()), releaseTarget(),
                                       QByteArray("/ResourceConfig/resource_config.xml")})
            QCOMPARE(RawClient::status(get(path, "Content-Length: 0\r\n", method)), 403);
    }
    QCOMPARE(requestsOf("HTTP"), QByteArrayList());
}

MV_TEST_MAIN(TestMvpublishNginxCache)
#include "tst_mvpublish_nginxCache.moc"
