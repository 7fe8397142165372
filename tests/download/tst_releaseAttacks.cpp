// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/AcceptedRelease.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseWorld.h"
#include "host/ContentDigest.h"
#include "host/HostSettings.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>

#include <functional>

namespace tst_releaseAttacks {

namespace {

const QByteArray display("<Resource>display</Resource>");
const QByteArray config("<Resource>config</Resource>");
const QByteArray newDisplay("<Resource>new display</Resource>");
const QByteArray newConfig("<Resource>new config</Resource>");

void fail404(HttpExchange& exchange)
{
    exchange.answer(HttpAnswer(404).body("no"));
}

void sendEndlessly(HttpExchange& exchange)
{
    exchange.answer(HttpAnswer(200).field("Transfer-Encoding", "chunked"));
    while (exchange.isOpen())
        exchange.send(HttpAnswer::chunk(QByteArray(64 * 1024, ' ')));
}

} // namespace

using Attack = std::function<void(ReleaseWorld&)>;
} // namespace tst_releaseAttacks

Q_DECLARE_METATYPE(tst_releaseAttacks::Attack)

namespace tst_releaseAttacks {

/// Tests a server, or a network, that lies to a client that has accepted a release: each attack
/// changes nothing on disk and is told with its reason, and the next honest check succeeds.
class tst_releaseAttacks : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void attackChangesNothing_data();
    void attackChangesNothing();
    void keysRotate_data();
    void keysRotate();
    void clockThatIsADayWrongIsAWarning_data();
    void clockThatIsADayWrongIsAWarning();

private:
    ReleaseWorld m_world;
};

namespace {

// Static, since the rows' functions use them.
const SigningKey& hostsKey()
{
    static const SigningKey key(1);
    return key;
}

const SigningKey& otherKey()
{
    static const SigningKey key(2);
    return key;
}

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

/// Publishes a release that an honest server would publish next.
void publishNext(ReleaseWorld& world)
{
    world.putCatalogue(newDisplay, newConfig);
    world.publishRelease(20, &hostsKey());
}

/// Returns the list of the files of world, with one line replaced by `change`.
void publishChangedList(ReleaseWorld& world, const std::function<QByteArray(QByteArray)>& change)
{
    publishNext(world);
    world.publishList(21, change(world.list()), &hostsKey());
}

QByteArray lineOf(const QByteArray& path)
{
    return ContentDigest::ofBytes("x") + "\t1\t" + path + '\n';
}

} // namespace

void tst_releaseAttacks::init()
{
    m_world.freshRelease();
    hostSettings().releaseKeys = QStringList{hostsKey().publicKey()};
    m_world.putCatalogue(display, config);
    m_world.publishRelease(10, &hostsKey());
    QString reason;
    QVERIFY2(ReleaseWorld::check(&reason) == eCatalogueCheck_Changed, qPrintable(reason));
}

void tst_releaseAttacks::attackChangesNothing_data()
{
    QTest::addColumn<Attack>("attack");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const Attack& attack, const char* reason) {
        QTest::newRow(name) << attack << text(reason);
    };
    row(
        "wrong key",
        [](ReleaseWorld& world) {
            world.putCatalogue(newDisplay, newConfig);
            world.publishRelease(20, &otherKey());
        },
        "which is not trusted");
    row(
        "no signature",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.route(world.signatureTarget(), &fail404);
        },
        "the release is not signed");
    row(
        "signature of another file",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.serve(world.signatureTarget(), hostsKey().sign("another"));
        },
        "is not one of this content");
    row(
        "truncated release",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.serveRelease(world.release().chopped(5));
        },
        "the release is not a JSON object");
    row(
        "oversized release",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.serveRelease(world.release() + QByteArray(5000, ' '));
        },
        "larger than 4096 bytes");
    row(
        "list of another release",
        [](ReleaseWorld& world) {
            const QByteArray old = world.list();
            publishNext(world);
            world.serve(ReleaseWorld::contentTarget(world.list()), old);
        },
        "the content is not the published one");
    row(
        "file of another release",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.serve(ReleaseWorld::contentTarget(newConfig), config);
        },
        "the content is not the published one");
    row(
        "rollback of the serial", [](ReleaseWorld& world) { world.publishRelease(9, &hostsKey()); },
        "release 9, older than release 10");
    row(
        "replay of an expired release",
        [](ReleaseWorld& world) {
            world.putCatalogue(newDisplay, newConfig);
            world.publishRelease(20, &hostsKey(), [](SRelease& release) {
                release.m_expires = QDateTime::fromSecsSinceEpoch(now() - 26 * 3600, Qt::UTC);
            });
        },
        "release 20 has expired");
    row(
        "mixed catalogues of two releases",
        [](ReleaseWorld& world) {
            world.putCatalogue(newDisplay, newConfig);
            world.put(text("ResourceConfig/resource_config.xml"), config);
            world.publishRelease(20, &hostsKey());
        },
        "does not have the checksum that the version file announces");
    row(
        "swap between version file and catalogue",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.setFault([&world](HttpExchange&, int) {
                if (!world.targets().contains(ReleaseWorld::contentTarget(newDisplay)))
                    return false;
                world.setFault({});
                world.serve(ReleaseWorld::contentTarget(newConfig), "<Resource>other</Resource>");
                return false;
            });
        },
        "the content is not the published one");
    row(
        "endless release",
        [](ReleaseWorld& world) { world.route(ReleaseWorld::releaseTarget(), &sendEndlessly); },
        "larger than 4096 bytes");
    row(
        "endless signature",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.route(world.signatureTarget(), &sendEndlessly);
        },
        "larger than 16384 bytes");
    row(
        "endless list",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.route(ReleaseWorld::contentTarget(world.list()), &sendEndlessly);
        },
        "the content is not the published one");
    row(
        "endless file",
        [](ReleaseWorld& world) {
            publishNext(world);
            world.route(ReleaseWorld::contentTarget(newConfig), &sendEndlessly);
        },
        "the content is not the published one");
    row(
        "list with a name outside the tree",
        [](ReleaseWorld& world) {
            publishChangedList(world,
                               [](const QByteArray& list) { return lineOf("../outside") + list; });
        },
        "line 1 of the list of files is refused: its path is not one below the server root");
    row(
        "two entries for one name",
        [](ReleaseWorld& world) {
            publishChangedList(
                world, [](const QByteArray& list) { return list + lineOf("x") + lineOf("x"); });
        },
        "not sorted behind the line before it");
    row(
        "digest in capitals",
        [](ReleaseWorld& world) {
            publishChangedList(world, [](const QByteArray& list) {
                return list.left(ContentDigest::hexDigits).toUpper()
                    + list.mid(ContentDigest::hexDigits);
            });
        },
        "its digest is not a SHA-256 in lower case");
}

void tst_releaseAttacks::attackChangesNothing()
{
    QFETCH(Attack, attack);
    QFETCH(QString, reason);
    const QMap<QString, QByteArray> before = m_world.tree();

    attack(m_world);
    QString told;
    const ECatalogueCheckEnd end = ReleaseWorld::check(&told);
    QCOMPARE(end, eCatalogueCheck_Rejected);
    QVERIFY2(told.contains(reason), qPrintable(told));
    QCOMPARE(m_world.tree(), before);
    QCOMPARE(AcceptedRelease::current()->release().m_serial, qint64(10));

    m_world.setFault({});
    m_world.putCatalogue(newDisplay, newConfig);
    m_world.publishRelease(30, &hostsKey());
    QVERIFY2(ReleaseWorld::check(&told) == eCatalogueCheck_Changed, qPrintable(told));
    QCOMPARE(CatalogueFiles::read(m_world.downloadedFile("resource_config.xml")), newConfig);
    QCOMPARE(AcceptedRelease::current()->release().m_serial, qint64(30));
}

void tst_releaseAttacks::keysRotate_data()
{
    QTest::addColumn<bool>("isHostFirst");
    QTest::newRow("the host knows the new key first") << true;
    QTest::newRow("the publisher uses the new key first") << false;
}

void tst_releaseAttacks::keysRotate()
{
    QFETCH(bool, isHostFirst);
    const QStringList both{hostsKey().publicKey(), otherKey().publicKey()};
    m_world.putCatalogue(newDisplay, newConfig);
    if (isHostFirst)
        hostSettings().releaseKeys = both;
    m_world.publishRelease(20, isHostFirst ? &hostsKey() : &otherKey());
    QCOMPARE(ReleaseWorld::check(),
             isHostFirst ? eCatalogueCheck_Changed : eCatalogueCheck_Rejected);
    if (isHostFirst)
        m_world.publishRelease(21, &otherKey());
    hostSettings().releaseKeys = both;
    QString reason;
    ReleaseWorld::check(&reason);
    QCOMPARE(reason, QString());
    QCOMPARE(AcceptedRelease::current()->release().m_serial, qint64(isHostFirst ? 21 : 20));

    hostSettings().releaseKeys = QStringList{otherKey().publicKey()};
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Current);
    QVERIFY(AcceptedRelease::current());
}

void tst_releaseAttacks::clockThatIsADayWrongIsAWarning_data()
{
    QTest::addColumn<qint64>("published");
    QTest::addColumn<qint64>("expires");
    QTest::addColumn<QString>("line");
    QTest::newRow("a day ahead") << now() - 86400 * 9 << now() - 86400 << text("has expired at");
    QTest::newRow("a day behind") << now() + 86400 << now() + 86400 * 9 << text("in the future");
}

void tst_releaseAttacks::clockThatIsADayWrongIsAWarning()
{
    QFETCH(qint64, published);
    QFETCH(qint64, expires);
    QFETCH(QString, line);
    m_world.putCatalogue(newDisplay, newConfig);
    m_world.publishRelease(20, &hostsKey(), [&](SRelease& release) {
        release.m_published = QDateTime::fromSecsSinceEpoch(published, Qt::UTC);
        release.m_expires = QDateTime::fromSecsSinceEpoch(expires, Qt::UTC);
    });
    const LogCapture log;
    QCOMPARE(ReleaseWorld::check(), eCatalogueCheck_Changed);
    QCOMPARE(log.countContaining(line.toUtf8()), 1);
}

MV_TEST_MAIN(tst_releaseAttacks)

} // namespace tst_releaseAttacks

#include "tst_releaseAttacks.moc"
