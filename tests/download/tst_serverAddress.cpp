// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

/// Tests that downloads ask only the server that the settings name, whatever a catalogue says and
/// however the root address ends.
class tst_serverAddress : public QObject
{
    Q_OBJECT

private slots:
    void namesThatContinueTheHost_data();
    void namesThatContinueTheHost();
    void rootsWithoutASlash_data();
    void rootsWithoutASlash();
    void rootsOnTheSameServer_data();
    void rootsOnTheSameServer();

private:
    static void setRoot(const QString& root)
    {
        hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"), root);
    }
    static int download(SCfg_Item item, QString* error = nullptr);

    const HostSettings m_settings = hostSettings();
};

namespace {

/// The file of an item that has the name: a resource, or a theme's config.
enum Part { Resource, Config };

SCfg_Item itemWith(Part part, const QString& name)
{
    if (part == Resource)
        return DownloadWorld::item(eCfgItem_Filter, 1, {name});
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = name;
    return theme;
}

} // namespace

/// Downloads the item and returns the result code.
int tst_serverAddress::download(SCfg_Item item, QString* error)
{
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    if (!DownloadWorld::run(downloader, item))
        return -1;
    if (error)
        *error = downloader.errorText();
    return trace.results().value(0, -1);
}

void tst_serverAddress::namesThatContinueTheHost_data()
{
    QTest::addColumn<QString>("root"); // OWN and OTHER are replaced by the ports of the two servers
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, const char* root, const char* name) {
        QTest::newRow(title) << QString::fromLatin1(root) << QString::fromLatin1(name);
    };
    const char* const own = "http://127.0.0.1:OWN";
    row("user in front of a host", own, "@127.0.0.1:OTHER/x");
    row("user and password", own, ":secret@127.0.0.1:OTHER/x");
    row("other name of this computer", own, "@localhost:OTHER/x");
    row("root without a port", "http://127.0.0.1", "@127.0.0.1:OTHER/x");
    row("root with a user", "http://user@127.0.0.1:OWN", "@127.0.0.1:OTHER/x");
    row("root with a dot", "http://127.0.0.1:OWN.", "@127.0.0.1:OTHER/x");
    row("root without a host", "http://", "@127.0.0.1:OTHER/x");
    row("backslash", own, "\\@127.0.0.1:OTHER/x");
    row("query behind the host", own, "@127.0.0.1:OTHER?x");
}

void tst_serverAddress::namesThatContinueTheHost()
{
    QFETCH(QString, root);
    QFETCH(QString, name);
    FaultServer other([](HttpExchange& exchange) { exchange.answer(HttpAnswer(200).body("x")); });
    DownloadWorld world;
    setRoot(root.replace(QLatin1String("OWN"), QString::number(world.server().port())));
    name.replace(QLatin1String("OTHER"), QString::number(other.port()));
    for (const Part part : {Resource, Config}) {
        QString error;
        const int end = download(itemWith(part, name), &error);
        QCOMPARE(end, int(part == Resource ? eDownLoadError_Element : eDownLoadError_Path));
        QVERIFY2(error.contains(QLatin1String("leads to another server")), qPrintable(error));
    }
    QCOMPARE(other.connectionCount(), 0);
    QCOMPARE(world.server().connectionCount(), 0);
}

void tst_serverAddress::rootsWithoutASlash_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<bool>("isAsked");
    for (const char* root : {"http://files.example", "http://files.example:80",
                             "http://files.example.", "http://user@files.example"})
        QTest::newRow(root) << QString::fromLatin1(root) << false;
    QTest::newRow("with a slash") << QStringLiteral("http://files.example/") << true;
}

/// A proxy would resolve any host and see its name.
void tst_serverAddress::rootsWithoutASlash()
{
    QFETCH(QString, root);
    QFETCH(bool, isAsked);
    DownloadWorld world;
    setRoot(root);
    hostSettings().proxy = world.server().url(QString());
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/a.zip")});
    theme.m_info_Thumb.m_qsUrl = QStringLiteral("t.png");
    theme.m_info_Gif.m_qsUrl = QStringLiteral("t.gif");
    QCOMPARE(download(theme), int(eDownLoadError_Element));
    QCOMPARE(download(itemWith(Config, QStringLiteral("/Themes/t.xml"))),
             int(isAsked ? eDownLoadError_Unknown : eDownLoadError_Path));
    hostSettings().proxy = m_settings.proxy;
    const QVector<HttpRequest> requests = world.server().requests();
    QCOMPARE(requests.size(), isAsked ? 4 : 0);
    for (const HttpRequest& request : requests)
        QVERIFY2(request.target.startsWith("http://files.example/"), request.target.constData());
}

void tst_serverAddress::rootsOnTheSameServer_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("target");
    QTest::newRow("root of the server") << QStringLiteral("/") << QStringLiteral("/config/f/a.zip");
    QTest::newRow("folder") << QStringLiteral("/tree/") << QStringLiteral("/tree/config/f/a.zip");
    QTest::newRow("folder without a slash")
        << QStringLiteral("/tree") << QStringLiteral("/treeconfig/f/a.zip");
}

void tst_serverAddress::rootsOnTheSameServer()
{
    QFETCH(QString, path);
    QFETCH(QString, target);
    DownloadWorld world;
    setRoot(world.server().url(path));
    world.serve(target, "content");
    QCOMPARE(download(itemWith(Resource, QStringLiteral("/f/a.zip"))), int(eDownLoadError_None));
    QCOMPARE(world.requests(target), 1);
}

MV_TEST_MAIN(tst_serverAddress)

#include "tst_serverAddress.moc"
