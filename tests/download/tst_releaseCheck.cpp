// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/AcceptedRelease.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseWorld.h"
#include "host/HostSettings.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>

namespace tst_releaseCheck {

/// Tests checks that go by the server's release.
class tst_releaseCheck : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void releasesAreNotAskedForByDefault();
    void filesOfTheReleaseAreFetchedByDigest();
    void nothingNewIsOneRequestWithoutABody();
    void unchangedListIsNotFetchedAgain();
    void changedReleaseReplacesTheCatalogue();
    void serverWithoutReleaseIsUsedAsBefore();
    void serverWithoutReleaseIsRefused_data();
    void serverWithoutReleaseIsRefused();
    void withdrawnReleaseIsForgotten();
    void serverWithoutContentsIsUsedByName();
    void signedReleaseIsAccepted();
    void signatureIsAskedForOnceOnly();
    void signatureByNameServesWhereThereAreNoContents();
    void unsignedReleaseIsFetchedAgainOnceKeysAreSet();
    void unusableKeyRefusesEverything();
    void damagedListIsFetchedAgain();
    void damagedCatalogueHealsByTheRelease();
    void releaseOfANewerFormatIsNotAccepted();
    void releaseWithoutTheVersionFileIsRefused();
    void cancelBetweenTransfersEndsTheCheck();
    void sourcesAreThoseOfTheList();
    void unlistedFileDependsOnThePolicy();

private:
    static AcceptedRelease::Pointer accepted() { return AcceptedRelease::current(); }
    QByteArray downloaded(const char* name) const
    {
        return CatalogueFiles::read(m_world.downloadedFile(name));
    }

    ReleaseWorld m_world;
    const SigningKey m_key{1};
};

namespace {

const QByteArray display("<Resource>display</Resource>");
const QByteArray config("<Resource>config</Resource>");
const QByteArray newConfig("<Resource>new</Resource>");

} // namespace

void tst_releaseCheck::init()
{
    m_world.freshRelease();
    m_world.putCatalogue(display, config);
    m_world.publishRelease(5);
}

void tst_releaseCheck::releasesAreNotAskedForByDefault()
{
    hostSettings().releasePolicy = HostSettings().releasePolicy;
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
    QCOMPARE(m_world.targets(),
             (QByteArrayList{CheckWorld::versionTarget, CheckWorld::displayTarget,
                             CheckWorld::configTarget}));
    QVERIFY(!accepted());
    QCOMPARE(QDir(QFileInfo(m_world.downloadedFile("x")).path()).entryList(QDir::Files),
             (QStringList{text("resource_config.xml"), text("resource_display.xml"),
                          text("resource_version.xml")}));
}

void tst_releaseCheck::filesOfTheReleaseAreFetchedByDigest()
{
    QString reason;
    const LogCapture log;
    QVERIFY2(ReleaseWorld::check(&reason) == eCatalogueCheck_Changed, qPrintable(reason));
    QCOMPARE(log.countContaining("not accepted"), 0);
    const QByteArray version =
        CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config));
    QCOMPARE(
        m_world.targets(),
        (QByteArrayList{ReleaseWorld::releaseTarget(), ReleaseWorld::contentTarget(m_world.list()),
                        ReleaseWorld::contentTarget(version), ReleaseWorld::contentTarget(display),
                        ReleaseWorld::contentTarget(config)}));
    QCOMPARE(downloaded("resource_config.xml"), config);
    QCOMPARE(downloaded("resource_version.xml"), version);
    QVERIFY(accepted());
    QCOMPARE(accepted()->release().m_serial, qint64(5));
    QCOMPARE(accepted()->list().entries().size(), 3);
}

void tst_releaseCheck::nothingNewIsOneRequestWithoutABody()
{
    ReleaseWorld::check();
    const int before = m_world.targets().size();
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Current);
    QCOMPARE(m_world.targets().mid(before), QByteArrayList{ReleaseWorld::releaseTarget()});
    QCOMPARE(m_world.bodies(), 1);
}

void tst_releaseCheck::unchangedListIsNotFetchedAgain()
{
    ReleaseWorld::check();
    const int before = m_world.targets().size();
    m_world.publishRelease(6);
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Current);
    QCOMPARE(m_world.targets().mid(before), QByteArrayList{ReleaseWorld::releaseTarget()});
    QCOMPARE(accepted()->release().m_serial, qint64(6));
}

void tst_releaseCheck::changedReleaseReplacesTheCatalogue()
{
    ReleaseWorld::check();
    m_world.putCatalogue(display, newConfig);
    m_world.publishRelease(6);
    const int before = m_world.targets().size();
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
    QCOMPARE(downloaded("resource_config.xml"), newConfig);
    QCOMPARE(accepted()->release().m_serial, qint64(6));
    QVERIFY(!m_world.targets().mid(before).contains(ReleaseWorld::contentTarget(display)));
}

void tst_releaseCheck::serverWithoutReleaseIsUsedAsBefore()
{
    m_world.route(ReleaseWorld::releaseTarget(),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
    QCOMPARE(m_world.targets(),
             (QByteArrayList{ReleaseWorld::releaseTarget(), CheckWorld::versionTarget,
                             CheckWorld::displayTarget, CheckWorld::configTarget}));
    QVERIFY(!accepted());
}

void tst_releaseCheck::serverWithoutReleaseIsRefused_data()
{
    QTest::addColumn<int>("policy");
    QTest::addColumn<bool>("hasKey");
    QTest::newRow("required") << int(eRelease_Require) << false;
    QTest::newRow("used with a key") << int(eRelease_Use) << true;
}

void tst_releaseCheck::serverWithoutReleaseIsRefused()
{
    QFETCH(int, policy);
    QFETCH(bool, hasKey);
    hostSettings().releasePolicy = static_cast<EReleasePolicy>(policy);
    if (hasKey)
        hostSettings().releaseKeys = QStringList{m_key.publicKey()};
    m_world.route(ReleaseWorld::releaseTarget(),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(410).body("no")); });
    QString reason;
    const LogCapture log;
    QCOMPARE(ReleaseWorld::check(&reason), eCatalogueCheck_Rejected);
    QCOMPARE(reason, text("the server has no release"));
    QVERIFY(log.contains("CheckCfgWorker", 2,
                         "the release is not accepted: the server has no release"));
    QCOMPARE(m_world.targets(), QByteArrayList{ReleaseWorld::releaseTarget()});
    QVERIFY(m_world.tree().isEmpty());
}

void tst_releaseCheck::withdrawnReleaseIsForgotten()
{
    ReleaseWorld::check();
    QVERIFY(accepted());
    m_world.route(ReleaseWorld::releaseTarget(),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Current);
    QVERIFY(!accepted());
}

void tst_releaseCheck::serverWithoutContentsIsUsedByName()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        if (!exchange.request().target.startsWith("/content/"))
            return false;
        exchange.answer(HttpAnswer(404).body("no"));
        return true;
    });
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
    QCOMPARE(downloaded("resource_config.xml"), config);
    QVERIFY(m_world.targets().contains(CheckWorld::configTarget));
    QVERIFY(accepted());
}

void tst_releaseCheck::signedReleaseIsAccepted()
{
    hostSettings().releaseKeys = QStringList{m_key.publicKey()};
    m_world.publishRelease(6, &m_key);
    QString reason;
    QVERIFY2(ReleaseWorld::check(&reason) == eCatalogueCheck_Changed, qPrintable(reason));
    QCOMPARE(m_world.targets().at(1), m_world.signatureTarget());
    QVERIFY(accepted());
}

void tst_releaseCheck::signatureIsAskedForOnceOnly()
{
    hostSettings().releaseKeys = QStringList{m_key.publicKey()};
    m_world.publishRelease(6, &m_key);
    ReleaseWorld::check();
    const int before = m_world.targets().size();
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Current);
    QCOMPARE(m_world.targets().mid(before), QByteArrayList{ReleaseWorld::releaseTarget()});
}

void tst_releaseCheck::signatureByNameServesWhereThereAreNoContents()
{
    hostSettings().releaseKeys = QStringList{m_key.publicKey()};
    m_world.serve("/ResourceConfig/release.json.minisig", m_key.sign(m_world.release()));
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
}

void tst_releaseCheck::unsignedReleaseIsFetchedAgainOnceKeysAreSet()
{
    m_world.publishRelease(9);
    ReleaseWorld::check();
    hostSettings().releaseKeys = QStringList{m_key.publicKey()};
    QVERIFY(!accepted());              // it was never proved
    m_world.publishRelease(6, &m_key); // nor was its serial
    QString reason;
    QVERIFY2(ReleaseWorld::check(&reason) == eCatalogueCheck_Current, qPrintable(reason));
    QCOMPARE(accepted()->release().m_serial, qint64(6));
}

void tst_releaseCheck::unusableKeyRefusesEverything()
{
    hostSettings().releaseKeys = QStringList{m_key.publicKey(), text("no key")};
    m_world.publishRelease(6, &m_key);
    QString reason;
    QCOMPARE(ReleaseWorld::check(&reason), eCatalogueCheck_Rejected);
    QVERIFY2(reason.contains(text("the key \"no key\" of the settings")), qPrintable(reason));
}

void tst_releaseCheck::damagedListIsFetchedAgain()
{
    QVERIFY(!AcceptedRelease::isUnusable()); // there is none
    ReleaseWorld::check();
    QVERIFY(!AcceptedRelease::isUnusable());
    CatalogueFiles::write(m_world.downloadedFile("files.txt"), "damaged");
    QVERIFY(!accepted());
    QVERIFY(AcceptedRelease::isUnusable());
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Current);
    QVERIFY(accepted());
    QCOMPARE(downloaded("files.txt"), m_world.list());
}

void tst_releaseCheck::damagedCatalogueHealsByTheRelease()
{
    ReleaseWorld::check();
    CatalogueFiles::write(m_world.downloadedFile("resource_config.xml"), "<Resource>");
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
    QCOMPARE(downloaded("resource_config.xml"), config);
}

void tst_releaseCheck::releaseOfANewerFormatIsNotAccepted()
{
    ReleaseWorld::check();
    m_world.put(text("ResourceConfig/resource_version_v3.xml"),
                CheckWorld::version("1.0.3", CheckWorld::md5(display), CheckWorld::md5(config)));
    m_world.publishRelease(6);
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_ServerNewer);
    QCOMPARE(accepted()->release().m_serial, qint64(5));
}

void tst_releaseCheck::releaseWithoutTheVersionFileIsRefused()
{
    m_world.unlist(text("ResourceConfig/resource_version_v3.xml"));
    m_world.publishRelease(6);
    QString reason;
    QCOMPARE(ReleaseWorld::check(&reason), eCatalogueCheck_Rejected);
    QVERIFY2(reason.startsWith(text("release 6 does not list ")), qPrintable(reason));
    QVERIFY(m_world.tree().isEmpty());
}

void tst_releaseCheck::cancelBetweenTransfersEndsTheCheck()
{
    for (int last = 1; last <= 5; ++last) {
        init();
        CancelToken token;
        m_world.setFault([&](HttpExchange&, int number) {
            if (number == last)
                token.cancel();
            return false;
        });
        CheckWorker_CfgAndDisplayXML worker(token);
        ECatalogueCheckEnd end = eCatalogueCheck_Current;
        worker.setResultCallback([&](const SCatalogueCheckResult& ended) { end = ended.m_eEnd; });
        worker.onStartDownloadXML(QString());
        QCOMPARE(m_world.targets().size(), last);
        QCOMPARE(end, eCatalogueCheck_Cancelled);
        QVERIFY(m_world.tree().isEmpty());
    }
}

void tst_releaseCheck::sourcesAreThoseOfTheList()
{
    m_world.put(text("config/Themes/a b+c.zip"), "archive");
    m_world.publishRelease(6);
    ReleaseWorld::check();
    const QString root = m_world.serverRoot();
    for (const char* const address :
         {"config/Themes/a b+c.zip", "config/Themes/a%20b%2Bc.zip", "/config/Themes/a b+c.zip"}) {
        const AcceptedRelease::Source source =
            AcceptedRelease::sourceOf(root + text(address), accepted());
        QCOMPARE(source.published.m_sizeBytes, qint64(7));
        QCOMPARE(source.contentUrl,
                 root + QString::fromLatin1(ReleaseWorld::contentTarget("archive").mid(1)));
    }
    QVERIFY(!AcceptedRelease::sourceOf(text("http://other/config/Themes/a b+c.zip"), accepted())
                 .published.isKnown());
}

void tst_releaseCheck::unlistedFileDependsOnThePolicy()
{
    ReleaseWorld::check();
    const QString address = m_world.serverRoot() + text("config/unlisted.zip");
    QVERIFY(!AcceptedRelease::sourceOf(address, accepted()).isRefused);
    hostSettings().releasePolicy = eRelease_Require;
    QVERIFY(AcceptedRelease::sourceOf(address, accepted()).isRefused);
    QVERIFY(AcceptedRelease::sourceOf(address, nullptr).isRefused);
}

MV_TEST_MAIN(tst_releaseCheck)

} // namespace tst_releaseCheck

#include "tst_releaseCheck.moc"
