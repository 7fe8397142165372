// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CoordinatorTrace.h"
#include "host/HostSettings.h"
#include "support/NginxServer.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>

using Files = CatalogueFiles;

/// Tests checks against a web server configured as in deployment.
class tst_checkNginx : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void checksAndPreviews();

private:
    bool check();
    void publish(const QByteArray& display, const QByteArray& config) const;
    QString tree() const { return m_world.base() + QStringLiteral("/tree"); }

    CheckWorld m_world; // only for its trees
    CoordinatorTrace m_trace;
};

void tst_checkNginx::init()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
}

bool tst_checkNginx::check()
{
    m_trace.clear();
    return MVThemeDownLoader_CheckCfg::instance()->startDownloadXML()
        && QTest::qWaitFor([&] { return m_trace.isIdle(); }, 30000);
}

void tst_checkNginx::publish(const QByteArray& display, const QByteArray& config) const
{
    const QString folder = tree() + QStringLiteral("/ResourceConfig/");
    Files::write(folder + QStringLiteral("resource_display.xml"), display);
    Files::write(folder + QStringLiteral("resource_config.xml"), config);
    Files::write(folder + QStringLiteral("resource_version_v3.xml"),
                 CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config)));
}

/// All in one test, since the server's address is kept for the life of the process.
void tst_checkNginx::checksAndPreviews()
{
    NginxServer nginx;
    QVERIFY2(nginx.start(tree(), m_world.base() + QStringLiteral("/nginx")),
             qPrintable(nginx.errorText()));
    const QByteArray root = nginx.url().toUtf8();
    CheckWorld::setParam("url_themeRootDir", root.constData());
    m_world.install("1.0.2", "1", "1");

    // Nothing is published yet.
    QVERIFY(check());
    QVERIFY(m_trace.contains(QStringLiteral("check 4")));
    QVERIFY(m_trace.contains(QStringLiteral("previews 0 0 0 0")));

    // The first catalogue, with one preview that the server lacks.
    const QByteArray display = CheckWorld::displayCatalogue({1}, {2, 3});
    const QByteArray config = CheckWorld::configCatalogue({1}, {2, 3});
    publish(display, config);
    const QByteArray gif(60000, 'g');
    Files::write(tree() + QStringLiteral("/display/Themes/t1.jpg"), "image");
    Files::write(tree() + QStringLiteral("/display/Themes/t1.gif"), gif);
    Files::write(tree() + QStringLiteral("/display/VideoFilters/f2.jpg"), "image");
    QVERIFY(check());
    QVERIFY(m_trace.contains(QStringLiteral("check 0")));
    QVERIFY(m_trace.contains(QStringLiteral("previews 3 0 1 1")));
    QCOMPARE(Files::read(m_world.downloadedFile("resource_display.xml")), display);
    QCOMPARE(Files::read(m_world.downloadedFile("resource_config.xml")), config);
    QCOMPARE(Files::read(m_world.preview("Themes", "t1.gif")), gif);
    QVERIFY(!QFile::exists(m_world.preview("VideoFilters", "f3.jpg")));

    // Nothing new: only the version file and the missing previews are requested.
    QTRY_COMPARE(nginx.requests().size(), 1 + 3 + 4);
    QVERIFY(check());
    QVERIFY(m_trace.contains(QStringLiteral("check 1")));
    QVERIFY(m_trace.contains(QStringLiteral("previews 0 3 1 1")));
    QTRY_COMPARE(nginx.requests().size(), 8 + 2);
    QCOMPARE(nginx.requests().mid(8),
             (QByteArrayList{"GET //ResourceConfig/resource_version_v3.xml HTTP/1.1 200",
                             "GET /display/VideoFilters/f3.jpg HTTP/1.1 404"}));

    // A different display catalogue.
    const QByteArray newDisplay = CheckWorld::displayCatalogue({1}, {2});
    publish(newDisplay, config);
    QVERIFY(check());
    QVERIFY(m_trace.contains(QStringLiteral("check 0")));
    QVERIFY(m_trace.contains(QStringLiteral("previews 0 3 0 1")));
    QCOMPARE(Files::read(m_world.downloadedFile("resource_display.xml")), newDisplay);
    QTRY_COMPARE(nginx.requests().size(), 10 + 2);
}

MV_TEST_MAIN(tst_checkNginx)

#include "tst_checkNginx.moc"
