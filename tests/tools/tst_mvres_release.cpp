// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

/// Tests the options of mvres that choose how it deals with the server's releases.
class TestMvresRelease : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void policies_data();
    void policies();
    void releaseMustBeSignedByAKey_data();
    void releaseMustBeSignedByAKey();
    void ignoredReleaseIsNotAskedFor();

private:
    Outcome check(const QString& options) const
    {
        return m_shop.run(QStringList{text("check")}
                          + options.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }

    ReleaseShop m_shop;
};

/// A server withdraws its releases.
void TestMvresRelease::policies_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("status");
    const QString key = SigningKey('k').publicKey();
    QTest::newRow("use") << text("--release use") << 0;
    QTest::newRow("ignore") << text("--release ignore") << 0;
    QTest::newRow("require") << text("--release require") << 24;
    QTest::newRow("key") << text("--key ") + key << 24;
    QTest::newRow("use with key") << text("--release use --key ") + key << 24;
}

void TestMvresRelease::policies()
{
    QFETCH(QString, options);
    QFETCH(int, status);
    m_shop.world().route(ReleaseWorld::releaseTarget(), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("no"));
    });
    const Outcome outcome = check(options);
    QCOMPARE(outcome.status, status);
    QCOMPARE(outcome.err.isEmpty(), status == 0);
}

void TestMvresRelease::releaseMustBeSignedByAKey_data()
{
    QTest::addColumn<QVector<char>>("trusted");
    QTest::addColumn<int>("status");
    QTest::newRow("the key") << QVector<char>{'k'} << 0;
    QTest::newRow("one of two keys") << QVector<char>{'o', 'k'} << 0;
    QTest::newRow("another key") << QVector<char>{'o'} << 24;
}

void TestMvresRelease::releaseMustBeSignedByAKey()
{
    QFETCH(QVector<char>, trusted);
    QFETCH(int, status);
    const SigningKey key('k');
    m_shop.world().publishRelease(200, &key);
    QString options;
    for (const char seed : trusted)
        options += text(" --key ") + SigningKey(seed).publicKey();
    const Outcome outcome = check(options);
    QCOMPARE(outcome.status, status);
    QCOMPARE(
        m_shop
            .run(QStringList{text("verify")} + options.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            .status,
        status == 0 ? 0 : 1); // only an accepted release can be compared with
}

void TestMvresRelease::ignoredReleaseIsNotAskedFor()
{
    const int before = m_shop.world().targets().count(ReleaseWorld::releaseTarget());
    QCOMPARE(check(text("--release ignore")).status, 0);
    QCOMPARE(m_shop.world().targets().count(ReleaseWorld::releaseTarget()), before);
    QCOMPARE(check(QString()).status, 0);
    QCOMPARE(m_shop.world().targets().count(ReleaseWorld::releaseTarget()), before + 1);
}

MV_TEST_MAIN(TestMvresRelease)
#include "tst_mvres_release.moc"
