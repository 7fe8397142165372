// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>

namespace tst_checkHeals {

using Files = CatalogueFiles;

/// Tests what the next check repairs: catalogue files that were damaged or deleted, and the remains
/// of a check killed between two files; and a version file that never ends.
class tst_checkHeals : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void damagedFile_data();
    void damagedFile();
    void serverGoesBackAfterAKill_data();
    void serverGoesBackAfterAKill();
    void installedCatalogueIsLeftAlone();
    void endlessVersionFile();
    void cataloguesMayTakeLonger();

private:
    int check();
    void installServersCatalogue();

    CheckWorld m_world;
};

namespace {

const QByteArray display = "<Resource>display</Resource>";
const QByteArray config = "<Resource>config</Resource>";
const QByteArray newer = "<Resource>newer</Resource>";

} // namespace

void tst_checkHeals::init()
{
    m_world.fresh();
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", "1", "1");
}

int tst_checkHeals::check()
{
    CheckWorker_CfgAndDisplayXML worker;
    int end = -1;
    worker.setResultCallback([&](const SCatalogueCheckResult& result) { end = result.m_eEnd; });
    worker.onStartDownloadXML(QString());
    return end;
}

void tst_checkHeals::installServersCatalogue()
{
    m_world.install("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config));
    Files::write(m_world.installedFile("resource_display.xml"), display);
    Files::write(m_world.installedFile("resource_config.xml"), config);
}

void tst_checkHeals::damagedFile_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content"); // null: deleted
    for (const char* name : {"resource_display.xml", "resource_config.xml"}) {
        QTest::addRow("%s deleted", name) << QByteArray(name) << QByteArray();
        QTest::addRow("%s cut", name) << QByteArray(name) << QByteArray("<Resource>dis");
        QTest::addRow("%s emptied", name) << QByteArray(name) << QByteArray("");
        QTest::addRow("%s another", name) << QByteArray(name) << newer;
    }
}

void tst_checkHeals::damagedFile()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, content);
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    const QString file = m_world.downloadedFile(name.constData());
    QVERIFY(QFile::remove(file));
    if (!content.isNull())
        Files::write(file, content);
    const int requests = m_world.targets().size();
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(Files::read(file), name.contains("display") ? display : config);
    QCOMPARE(m_world.targets().size(), requests + 2); // only the version file and the damaged one
    QCOMPARE(check(), int(eCatalogueCheck_Current));
}

void tst_checkHeals::serverGoesBackAfterAKill_data()
{
    QTest::addColumn<bool>("isDownloaded"); // the earlier catalogue; else installed
    QTest::newRow("to the downloaded catalogue") << true;
    QTest::newRow("to the installed catalogue") << false;
}

/// The display catalogue had been replaced; the config catalogue and the version file had not.
void tst_checkHeals::serverGoesBackAfterAKill()
{
    QFETCH(bool, isDownloaded);
    if (isDownloaded)
        QCOMPARE(check(), int(eCatalogueCheck_Changed));
    else
        installServersCatalogue();
    Files::write(m_world.downloadedFile("resource_display.xml"), newer);
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(Files::read(m_world.downloadedFile("resource_display.xml")), display);
    QCOMPARE(check(), int(eCatalogueCheck_Current));
}

/// Nothing was ever downloaded, and the installed catalogue equals the server's.
void tst_checkHeals::installedCatalogueIsLeftAlone()
{
    installServersCatalogue();
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_world.targets().size(), 1);
}

void tst_checkHeals::endlessVersionFile()
{
    hostSettings().versionTimeoutMs = 500;
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.send("HTTP/1.1 200 OK\r\nContent-Length: 60000\r\n\r\n");
        while (exchange.isOpen()) { // fast enough not to count as stalled
            exchange.send(QByteArray(200, ' '));
            exchange.pause(std::chrono::milliseconds(20));
        }
        return true;
    });
    CheckWorker_CfgAndDisplayXML worker;
    SCatalogueCheckResult result;
    worker.setResultCallback([&](const SCatalogueCheckResult& ended) { result = ended; });
    worker.onStartDownloadXML(QString());
    QCOMPARE(result.m_eEnd, eCatalogueCheck_Unreachable);
    QVERIFY2(result.m_qsReason.contains(QStringLiteral("not complete within 500 ms")),
             qPrintable(result.m_qsReason));
}

/// Only the version file has a limit for all of it.
void tst_checkHeals::cataloguesMayTakeLonger()
{
    hostSettings().versionTimeoutMs = 1500;
    m_world.route(CheckWorld::displayTarget, [](HttpExchange& exchange) {
        exchange.send("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(display.size())
                      + "\r\n\r\n" + display.left(5));
        exchange.pause(std::chrono::milliseconds(1600));
        exchange.send(display.mid(5));
    });
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(Files::read(m_world.downloadedFile("resource_display.xml")), display);
}

MV_TEST_MAIN(tst_checkHeals)

} // namespace tst_checkHeals

#include "tst_checkHeals.moc"
