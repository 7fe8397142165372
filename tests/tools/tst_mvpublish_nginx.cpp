// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "RawClient.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/NginxServer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QUrl>

namespace {

/// Returns the address of the theme's archive.
QByteArray archive()
{
    return "/config/Themes/%7B" + SmallSource::guid(text("film")).mid(1, 36).toUtf8()
        + "%7D/pack.zip";
}

} // namespace

/// Tests deploy/nginx.conf.
class TestMvpublishNginx : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void serves_data();
    void serves();
    void versionFileIsNeverKept();
    void contentIsKeptForAYear();
    void releaseIsRevalidated();
    void restIsKeptByItsTag_data();
    void restIsKeptByItsTag();
    void failuresAreNotKept_data();
    void failuresAreNotKept();
    void partsAreServed();
    void onlyXmlIsCompressed();
    void typesAreKnown();
    void keepsToItself_data();
    void keepsToItself();
    void otherMethodsAreRefused();
    void unchangedFilesKeepTheirTag();
    void changedFileOfTheSameLengthHasAnotherTag();

private:
    QByteArray get(const QByteArray& target, const QByteArray& fields = QByteArray(),
                   const QByteArray& method = "GET") const
    {
        return RawClient(static_cast<quint16>(QUrl(m_nginx.url()).port()))
            .get(target, fields, method);
    }

    NginxServer m_nginx;
};

void TestMvpublishNginx::initTestCase()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), home("tree")), QString());
    CatalogueFiles::write(home("secret.txt"), "secret");
    m_nginx.include(text(MV_DEPLOY "/nginx.conf"));
    QVERIFY2(m_nginx.start(home("tree"), home("nginx")), qPrintable(m_nginx.errorText()));
}

void TestMvpublishNginx::serves_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("catalogue") << QByteArray("/ResourceConfig/resource_config.xml");
    QTest::newRow("doubled slash") << QByteArray("//ResourceConfig/resource_config.xml");
    QTest::newRow("archive") << archive();
    QTest::newRow("blank") << QByteArray("/config/ThemesBgm/Slow%20Song.mp3");
    QTest::newRow("preview") << QByteArray("/display/Themes/film%201.png");
    QTest::newRow("below a path, catalogue")
        << QByteArray("/mv//ResourceConfig/resource_version_v3.xml");
    QTest::newRow("below a path, archive") << "/mv" + archive();
    QTest::newRow("root without a slash, catalogue")
        << QByteArray("/mv/ResourceConfig/resource_config.xml");
    QTest::newRow("root without a slash, archive") << "/mv" + archive().mid(1);
    QTest::newRow("root without a slash, preview") << QByteArray("/mvdisplay/Themes/film%201.png");
    QTest::newRow("root without a slash, music")
        << QByteArray("/mvconfig/ThemesBgm/Slow%20Song.mp3");
}

void TestMvpublishNginx::serves()
{
    QFETCH(QByteArray, target);
    QString name = QUrl::fromPercentEncoding(target);
    name.remove(QRegularExpression(text("^/mv"))).replace(text("//"), text("/"));
    const QByteArray answer = get(target);
    QCOMPARE(RawClient::status(answer), 200);
    const QByteArray published = CatalogueFiles::read(home("tree/") + name);
    QVERIFY(!published.isEmpty());
    QVERIFY(RawClient::body(answer) == published);
}

void TestMvpublishNginx::versionFileIsNeverKept()
{
    const QByteArray target = "/ResourceConfig/resource_version_v3.xml";
    for (const char* prefix : {"", "/", "/mv", "/mv/"}) {
        const QByteArray answer =
            get(prefix + target,
                "If-None-Match: *\r\nIf-Modified-Since: Fri, 01 Jan 2100 00:00:00 "
                "GMT\r\nAccept-Encoding: gzip\r\n");
        QCOMPARE(RawClient::status(answer), 200);
        QCOMPARE(RawClient::field(answer, "Cache-Control"), QByteArray("no-store"));
        QCOMPARE(RawClient::field(answer, "ETag"), QByteArray());
        QCOMPARE(RawClient::field(answer, "Content-Encoding"), QByteArray());
    }
}

/// Its name says what it is. A signature may be replaced by that of another key.
void TestMvpublishNginx::contentIsKeptForAYear()
{
    const QStringList files = CatalogueFiles::filesBelow(home("tree/content"));
    QVERIFY(!files.isEmpty());
    const QByteArray name = files.constFirst().toUtf8();
    for (const char* prefix : {"/content/", "//content/", "/mv/content/", "/mvcontent/"}) {
        const QByteArray answer = get(prefix + name);
        QCOMPARE(RawClient::status(answer), 200);
        QCOMPARE(RawClient::field(answer, "Cache-Control"),
                 QByteArray("public, max-age=31536000, immutable"));
        QVERIFY(RawClient::body(answer)
                == CatalogueFiles::read(home("tree/content/") + text(name)));
    }
    CatalogueFiles::write(home("tree/content/") + text(name) + text(".minisig"), "signature");
    QCOMPARE(RawClient::field(get("/content/" + name + ".minisig"), "Cache-Control"),
             QByteArray("no-cache"));
    QVERIFY(RawClient::status(get("/content/" + name, "Content-Length: 0\r\n", "PUT")) >= 400);
}

void TestMvpublishNginx::releaseIsRevalidated()
{
    CatalogueFiles::write(home("tree/ResourceConfig/release.json.minisig"), "signature");
    for (const char* name : {"release.json", "release.json.minisig", "files.txt"})
        QCOMPARE(RawClient::field(get(QByteArray("/ResourceConfig/") + name), "Cache-Control"),
                 QByteArray("no-cache"));
}

void TestMvpublishNginx::restIsKeptByItsTag_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("config catalogue") << QByteArray("/ResourceConfig/resource_config.xml");
    QTest::newRow("display catalogue") << QByteArray("/ResourceConfig/resource_display.xml");
    QTest::newRow("archive") << archive();
    QTest::newRow("preview") << QByteArray("/display/Themes/film.gif");
}

void TestMvpublishNginx::restIsKeptByItsTag()
{
    QFETCH(QByteArray, target);
    const QByteArray answer = get(target);
    QCOMPARE(RawClient::field(answer, "Cache-Control"), QByteArray("no-cache"));
    const QByteArray tag = RawClient::field(answer, "ETag");
    QVERIFY(tag.startsWith('"'));
    QVERIFY(!RawClient::field(answer, "Last-Modified").isEmpty());
    QCOMPARE(RawClient::status(get(target, "If-None-Match: " + tag + "\r\n")), 304);
    QCOMPARE(RawClient::status(get(target, "If-None-Match: \"other\"\r\n")), 200);
    // An earlier tree may have been restored.
    const QByteArray date = RawClient::field(answer, "Last-Modified");
    QCOMPARE(RawClient::status(get(target, "If-Modified-Since: " + date + "\r\n")), 304);
    QCOMPARE(RawClient::status(get(target, "If-Modified-Since: Fri, 01 Jan 2100 00:00:00 GMT\r\n")),
             200);
}

/// Caches must keep a 404 no longer than a file.
void TestMvpublishNginx::failuresAreNotKept_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("control");
    const QByteArray none;
    QTest::newRow("missing file") << QByteArray("/config/no.zip") << none << 404
                                  << QByteArray("no-cache");
    QTest::newRow("part beyond the end")
        << QByteArray("/display/Themes/film.gif") << QByteArray("Range: bytes=9999999-\r\n") << 416
        << QByteArray("no-cache");
    const QByteArray digest(64, 'a');
    QTest::newRow("missing content")
        << "/content/aa/" + digest << none << 404 << QByteArray("no-cache");
    QTest::newRow("missing version file") << QByteArray("/ResourceConfig/resource_version_v2.xml")
                                          << none << 404 << QByteArray("no-store");
}

void TestMvpublishNginx::failuresAreNotKept()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, fields);
    QFETCH(int, status);
    QFETCH(QByteArray, control);
    const QByteArray answer = get(target, fields);
    QCOMPARE(RawClient::status(answer), status);
    QCOMPARE(RawClient::field(answer, "Cache-Control"), control);
}

void TestMvpublishNginx::partsAreServed()
{
    const QByteArray whole = SmallSource::animation();
    const QByteArray answer = get("/display/Themes/film.gif", "Range: bytes=100-\r\n");
    QCOMPARE(RawClient::status(answer), 206);
    QVERIFY(RawClient::body(answer) == whole.mid(100));
    QCOMPARE(RawClient::status(get("/display/Themes/film.gif", "Range: bytes=9999999-\r\n")), 416);
}

void TestMvpublishNginx::onlyXmlIsCompressed()
{
    const QByteArray accepts = "Accept-Encoding: gzip\r\n";
    const QByteArray catalogue = get("/ResourceConfig/resource_config.xml", accepts);
    QCOMPARE(RawClient::field(catalogue, "Content-Encoding"), QByteArray("gzip"));
    QCOMPARE(RawClient::field(catalogue, "Vary"), QByteArray("Accept-Encoding"));
    for (const QByteArray& target : {archive(), QByteArray("/display/Themes/film.gif"),
                                     QByteArray("/config/ThemesBgm/Slow%20Song.mp3")})
        QCOMPARE(RawClient::field(get(target, accepts), "Content-Encoding"), QByteArray());
    QCOMPARE(RawClient::field(get("/ResourceConfig/resource_config.xml"), "Content-Encoding"),
             QByteArray());
}

void TestMvpublishNginx::typesAreKnown()
{
    const QVector<QPair<QByteArray, QByteArray>> types{
        {"/ResourceConfig/resource_config.xml", "application/xml"},
        {archive(), "application/zip"},
        {"/display/Themes/film.gif", "image/gif"},
        {"/display/Themes/film%201.png", "image/png"},
        {"/config/ThemesBgm/Slow%20Song.mp3", "audio/mpeg"}};
    for (const auto& type : types)
        QCOMPARE(RawClient::field(get(type.first), "Content-Type"), type.second);
}

void TestMvpublishNginx::keepsToItself_data()
{
    QTest::addColumn<QByteArray>("target");
    for (const char* target :
         {"/../secret.txt", "/%2e%2e/secret.txt", "/config/..%2f..%2fsecret.txt", "/mvconfig/../..",
          "/link.txt", "/", "/config/", "/display/Themes/", "/.hidden/a.txt", "/config/.a.txt",
          "/secret.txt"})
        QTest::newRow(target) << QByteArray(target);
}

void TestMvpublishNginx::keepsToItself()
{
    QFETCH(QByteArray, target);
    CatalogueFiles::write(home("tree/.hidden/a.txt"), "secret");
    CatalogueFiles::write(home("tree/config/.a.txt"), "secret");
    QFile::link(home("secret.txt"), home("tree/link.txt"));
    const QByteArray answer = get(target);
    QVERIFY2(RawClient::status(answer) >= 400, answer.constData());
    QVERIFY(!RawClient::body(answer).contains("secret"));
    // A foreign entry would keep the tree from being replaced.
    QVERIFY(QDir(home("tree/.hidden")).removeRecursively());
    QVERIFY(QFile::remove(home("tree/link.txt")));
}

void TestMvpublishNginx::otherMethodsAreRefused()
{
    for (const char* method : {"PUT", "POST", "DELETE"}) {
        for (const char* target :
             {"/ResourceConfig/resource_config.xml", "/ResourceConfig/resource_version_v3.xml"})
            QVERIFY(RawClient::status(get(target, "Content-Length: 0\r\n", method)) >= 400);
    }
}

/// After a rebuild under a running server, unchanged files stay valid in caches.
void TestMvpublishNginx::unchangedFilesKeepTheirTag()
{
    const SmallSource source(home("source"));
    source.set(text("paper"), "name", text("Other paper"));
    const auto tagOf = [this](const QByteArray& target) {
        return RawClient::field(get(target), "ETag");
    };
    const QByteArray changed = "/ResourceConfig/resource_display.xml";
    const QByteArray same = "/display/Themes/film.gif";
    const QByteArray changedTag = tagOf(changed);
    const QByteArray sameTag = tagOf(same);
    QCOMPARE(Mvpublish::build(source.folder(), home("tree")), QString());
    QCOMPARE(tagOf(same), sameTag);
    QVERIFY(tagOf(changed) != changedTag);
    QVERIFY(RawClient::body(get(changed)).contains("Other paper"));
}

/// The tag consists of the length and the date in whole seconds.
void TestMvpublishNginx::changedFileOfTheSameLengthHasAnotherTag()
{
    const SmallSource source(home("source"));
    QSet<QByteArray> tags;
    for (const char* name : {"A paper", "B paper", "C paper", "A paper"}) {
        source.set(text("paper"), "name", text(name));
        QCOMPARE(Mvpublish::build(source.folder(), home("tree")), QString());
        const QByteArray answer = get("/ResourceConfig/resource_display.xml");
        QVERIFY(RawClient::body(answer).contains(name));
        tags.insert(RawClient::field(answer, "ETag"));
    }
    QCOMPARE(tags.size(), 4);
}

MV_TEST_MAIN(TestMvpublishNginx)
#include "tst_mvpublish_nginx.moc"
