#include "BackgroundCheck.h"
#include "download/CheckFixture.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "support/TestMain.h"

#include <QSemaphore>
#include <QSignalSpy>

#include <memory>

/// The check and the previews behind it as one thing: what it says while it goes on, and when it
/// announces that something has come.
class tst_BackgroundCheck : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void beforeTheFirst();
    void everyEnd_data();
    void everyEnd();
    void contentIsAnnouncedBehindThePreviews();
    void previewsAloneAreContent();
    void phasesFollowEachOther();
    void oneAtATime();
    void theNextForgetsTheLast();
    void previewsBesideTheCheckCount();
    void cancelEndsTheCheckAndThePreviews();
    void cancelEndsThePreviews();
    void cancelWithoutACheckDoesNothing();
    void shutDownEndsWhatGoesOn_data();
    void shutDownEndsWhatGoesOn();
    void aCheckWithoutEndSignalRefusesTheNext(); // for the rest of the process, so it is the last

private:
    void publish();
    bool ends() const
    {
        return QTest::qWaitFor([this] { return m_check->isQuiet(); }, longestMs);
    }

    static constexpr int longestMs = 30000;

    CheckWorld m_world;
    std::unique_ptr<BackgroundCheck> m_check;
    std::unique_ptr<QSignalSpy> m_arrivals;
    QVector<BackgroundCheck::Phase> m_phases; // one after another
};

namespace {

using Phase = BackgroundCheck::Phase;

const QByteArray sum = "00112233445566778899aabbccddeeff";

QByteArray previewTarget(const char* name)
{
    return CheckWorld::previewTarget("Themes", name);
}

/// An answer that the test lets go.
class HeldAnswer
{
public:
    ~HeldAnswer() { release(); }

    FaultServer::Handler handler(const HttpAnswer& answer)
    {
        return [this, answer](HttpExchange& exchange) {
            m_arrived.release();
            m_released.acquire();
            m_released.release();
            exchange.answer(answer);
        };
    }
    bool hasArrived()
    {
        return QTest::qWaitFor([this] { return m_arrived.available() > 0; }, 30000);
    }
    void release() { m_released.release(); }

private:
    QSemaphore m_arrived;
    QSemaphore m_released;
};

void stall(HttpExchange& exchange)
{
    exchange.stall();
}

} // namespace

void tst_BackgroundCheck::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    m_check = std::make_unique<BackgroundCheck>(nullptr);
    m_arrivals = std::make_unique<QSignalSpy>(m_check.get(), &BackgroundCheck::contentArrived);
}

void tst_BackgroundCheck::cleanup()
{
    MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished();
    m_arrivals.reset();
    m_check.reset();
}

/// A catalogue that differs from the installed one, with two previews.
void tst_BackgroundCheck::publish()
{
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({1}, {}),
                    CheckWorld::configCatalogue({1}, {}));
    m_world.install("1.0.2", sum, sum);
    m_world.serve(previewTarget("t1.jpg"), "image");
    m_world.serve(previewTarget("t1.gif"), "image");
}

void tst_BackgroundCheck::beforeTheFirst()
{
    QCOMPARE(m_check->phase(), Phase::Idle);
    QVERIFY(m_check->isQuiet());
    QVERIFY(!m_check->isRefused());
    QVERIFY(!m_check->hasResult());
    QCOMPARE(m_check->previews().m_nFetched, 0);
}

void tst_BackgroundCheck::everyEnd_data()
{
    QTest::addColumn<QByteArray>("version"); // of the server; null: it has none
    QTest::addColumn<QByteArray>("content"); // of its display catalogue; null: as published
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("arrivals");
    const QByteArray config = CheckWorld::md5(CheckWorld::configCatalogue({}, {}));
    const QByteArray display = CheckWorld::md5(CheckWorld::displayCatalogue({}, {}));
    const auto version = [&](const char* value) {
        return CheckWorld::version(value, display, config);
    };
    const QByteArray published;
    QTest::newRow("changed") << version("1.0.2") << published << int(eCatalogueCheck_Changed) << 1;
    QTest::newRow("current") << CheckWorld::version("1.0.2", sum, sum) << published
                             << int(eCatalogueCheck_Current) << 0;
    QTest::newRow("newer") << version("1.0.3") << published << int(eCatalogueCheck_ServerNewer)
                           << 0;
    QTest::newRow("older") << version("1.0.1") << published << int(eCatalogueCheck_ServerOlder)
                           << 0;
    QTest::newRow("unreachable") << QByteArray() << published << int(eCatalogueCheck_Unreachable)
                                 << 0;
    QTest::newRow("rejected") << version("1.0.2") << QByteArray("<other/>")
                              << int(eCatalogueCheck_Rejected) << 0;
}

void tst_BackgroundCheck::everyEnd()
{
    QFETCH(QByteArray, version);
    QFETCH(QByteArray, content);
    QFETCH(int, end);
    QFETCH(int, arrivals);
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({}, {}),
                    CheckWorld::configCatalogue({}, {}));
    m_world.install("1.0.2", sum, sum);
    if (!content.isNull())
        m_world.serve(CheckWorld::displayTarget, content);
    if (version.isNull())
        m_world.route(CheckWorld::versionTarget, [](HttpExchange& exchange) { exchange.reset(); });
    else
        m_world.serve(CheckWorld::versionTarget, version);
    m_check->start();
    QVERIFY(ends());
    QVERIFY(m_check->hasResult());
    QCOMPARE(int(m_check->result().m_eEnd), end);
    QCOMPARE(m_arrivals->count(), arrivals);
}

/// Once for both, when nothing works on the catalogue any more.
void tst_BackgroundCheck::contentIsAnnouncedBehindThePreviews()
{
    publish();
    connect(m_check.get(), &BackgroundCheck::contentArrived, this, [this] {
        QVERIFY(m_check->isQuiet());
        QVERIFY(QFile::exists(m_world.preview("Themes", "t1.gif")));
    });
    m_check->start();
    QVERIFY(ends());
    QCOMPARE(m_arrivals->count(), 1);
    QCOMPARE(m_check->previews().m_nFetched, 2);
    QVERIFY(QFile::exists(m_world.downloadedFile("resource_display.xml")));
}

void tst_BackgroundCheck::previewsAloneAreContent()
{
    publish();
    m_check->start();
    QVERIFY(ends());
    QVERIFY(QFile::remove(m_world.preview("Themes", "t1.gif")));
    m_check->start();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Current);
    QCOMPARE(m_check->previews().m_nFetched, 1);
    QCOMPARE(m_arrivals->count(), 2);
    m_check->start(); // and nothing comes
    QVERIFY(ends());
    QCOMPARE(m_arrivals->count(), 2);
}

void tst_BackgroundCheck::phasesFollowEachOther()
{
    publish();
    m_phases.clear();
    connect(m_check.get(), &BackgroundCheck::changed, this, [this] {
        if (m_phases.isEmpty() || m_phases.constLast() != m_check->phase())
            m_phases.append(m_check->phase());
        QCOMPARE(m_check->isQuiet(), m_check->phase() == Phase::Idle && m_arrivals->count() == 1);
    });
    m_check->start();
    QCOMPARE(m_check->phase(), Phase::Catalogue);
    QVERIFY(ends());
    QCOMPARE(m_phases, (QVector<Phase>{Phase::Catalogue, Phase::Previews, Phase::Idle}));
}

void tst_BackgroundCheck::oneAtATime()
{
    publish();
    HeldAnswer version;
    HeldAnswer preview;
    m_world.route(CheckWorld::versionTarget,
                  version.handler(HttpAnswer(200).body(CheckWorld::version("1.0.2", sum, sum))));
    m_world.route(previewTarget("t1.jpg"), preview.handler(HttpAnswer(200).body("image")));
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {1}, {});
    m_world.download("1.0.2", sum, sum);
    m_check->start();
    QVERIFY(version.hasArrived());
    m_check->start();
    QVERIFY(!m_check->isRefused());
    version.release();
    QVERIFY(preview.hasArrived());
    QTRY_COMPARE_WITH_TIMEOUT(m_check->phase(), Phase::Previews, longestMs);
    m_check->start();
    QVERIFY(!m_check->isRefused());
    QCOMPARE(m_check->phase(), Phase::Previews);
    preview.release();
    QVERIFY(ends());
    QCOMPARE(m_world.targets().count(CheckWorld::versionTarget), 1);
}

void tst_BackgroundCheck::theNextForgetsTheLast()
{
    publish();
    m_check->start();
    QVERIFY(ends());
    QCOMPARE(m_check->previews().m_nFetched, 2);
    HeldAnswer held;
    m_world.route(CheckWorld::versionTarget, held.handler(HttpAnswer(404).body("no")));
    m_check->start();
    QVERIFY(!m_check->hasResult());
    QCOMPARE(m_check->previews().m_nFetched, 0);
    held.release();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Unreachable);
    QCOMPARE(m_check->previews().m_nPresent, 2);
}

/// Where one catalogue file fails, previews of the present catalogue come while the check still
/// tries the other; what they fetch is not lost by the run behind the check.
void tst_BackgroundCheck::previewsBesideTheCheckCount()
{
    publish();
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {1}, {});
    const auto broken = [](HttpExchange& exchange) { exchange.reset(); };
    HeldAnswer config;
    m_world.serve(CheckWorld::versionTarget,
                  CheckWorld::version("1.0.2", CheckWorld::md5("a"), CheckWorld::md5("b")));
    m_world.route(CheckWorld::displayTarget, broken);
    m_world.route(CheckWorld::configTarget, config.handler(HttpAnswer(404).body("no")));
    m_check->start();
    QTRY_COMPARE_WITH_TIMEOUT(m_check->previews().m_nFetched, 2, longestMs);
    QCOMPARE(m_check->phase(), Phase::Catalogue);
    QCOMPARE(m_arrivals->count(), 0);
    config.release();
    QVERIFY(ends());
    QCOMPARE(m_check->previews().m_nFetched, 2);
    QCOMPARE(m_arrivals->count(), 1);
}

void tst_BackgroundCheck::cancelEndsTheCheckAndThePreviews()
{
    publish();
    m_world.route(CheckWorld::versionTarget, &stall);
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {1}, {});
    m_check->start();
    QTRY_COMPARE_WITH_TIMEOUT(m_world.targets().size(), 1, longestMs);
    m_check->cancel();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Cancelled);
    QCOMPARE(m_check->previews().m_eEnd, ePreviewRun_Cancelled);
    QCOMPARE(m_world.targets().size(), 1);
    QCOMPARE(m_arrivals->count(), 0);

    publish(); // and the next one is not cancelled
    m_check->start();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(m_check->previews().m_nFetched, 2);
}

void tst_BackgroundCheck::cancelEndsThePreviews()
{
    publish();
    m_world.route(previewTarget("t1.gif"), &stall);
    m_check->start();
    QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(previewTarget("t1.gif")), longestMs);
    QTRY_COMPARE_WITH_TIMEOUT(m_check->phase(), Phase::Previews, longestMs);
    m_check->cancel();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(m_check->previews().m_eEnd, ePreviewRun_Cancelled);
    QCOMPARE(m_check->previews().m_nFetched, 1);
    QCOMPARE(m_arrivals->count(), 1); // what has come is there
}

void tst_BackgroundCheck::cancelWithoutACheckDoesNothing()
{
    publish();
    m_check->cancel();
    QCOMPARE(m_check->phase(), Phase::Idle);
    m_check->start();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Changed);
}

void tst_BackgroundCheck::shutDownEndsWhatGoesOn_data()
{
    QTest::addColumn<QByteArray>("stalled");
    QTest::newRow("version") << QByteArray(CheckWorld::versionTarget);
    QTest::newRow("catalogue") << QByteArray(CheckWorld::configTarget);
    QTest::newRow("preview") << previewTarget("t1.jpg");
}

/// And announces nothing: the window is about to go, and with it what would read the catalogue.
void tst_BackgroundCheck::shutDownEndsWhatGoesOn()
{
    QFETCH(QByteArray, stalled);
    publish();
    m_world.route(stalled, &stall);
    m_check->start();
    QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(stalled), longestMs);
    m_check->shutDown();
    QCOMPARE(m_check->phase(), Phase::Idle);
    QCOMPARE(m_arrivals->count(), 0);
    const int requests = m_world.targets().size();
    m_check->start(); // too late
    QCOMPARE(m_check->phase(), Phase::Idle);
    QCOMPARE(m_world.targets().size(), requests);
}

void tst_BackgroundCheck::aCheckWithoutEndSignalRefusesTheNext()
{
    m_world.install("1.0.2", sum, sum);
    m_world.serve(CheckWorld::versionTarget, CheckWorld::version("1.0.2", "", ""));
    m_check->start();
    QVERIFY(ends());
    QCOMPARE(m_check->result().m_eEnd, eCatalogueCheck_Rejected);
    QVERIFY(!m_check->isRefused());
    m_check->start();
    QVERIFY(m_check->isRefused());
    QCOMPARE(m_check->phase(), Phase::Idle);
    QVERIFY(m_check->hasResult()); // of the check that has been
    QCOMPARE(m_world.targets().size(), 1);
}

MV_TEST_MAIN(tst_BackgroundCheck)

#include "tst_BackgroundCheck.moc"
