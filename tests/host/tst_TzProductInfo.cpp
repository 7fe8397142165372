// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/TzProductInfo.h"
#include "support/TestMain.h"

#include <QCoreApplication>

class tst_TzProductInfo : public QObject
{
    Q_OBJECT

private slots:
    void isOneObject();
    void givesTheValueOfAKey_data();
    void givesTheValueOfAKey();
    void followsTheSettings();
};

void tst_TzProductInfo::isOneObject()
{
    QVERIFY(TzProductInfo::instance());
    QCOMPARE(TzProductInfo::instance(), TzProductInfo::instance());
}

void tst_TzProductInfo::givesTheValueOfAKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("there") << QStringLiteral("hasMV") << QStringLiteral("1");
    QTest::newRow("there, but empty") << QStringLiteral("url_slidershow") << QString();
    QTest::newRow("not there") << QStringLiteral("hasSplit") << QStringLiteral("default");
    QTest::newRow("other case") << QStringLiteral("hasmv") << QStringLiteral("default");
    QTest::newRow("no key") << QString() << QStringLiteral("default");
}

void tst_TzProductInfo::givesTheValueOfAKey()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    hostSettings().productParams = {{QStringLiteral("hasMV"), QStringLiteral("1")},
                                    {QStringLiteral("url_slidershow"), QString()}};
    QCOMPARE(TzProductInfo::instance()->extendParam(key, QStringLiteral("default")), value);
}

void tst_TzProductInfo::followsTheSettings()
{
    const QString key = QStringLiteral("hasMV");
    hostSettings().productParams.clear();
    QCOMPARE(TzProductInfo::instance()->extendParam(key, QString()), QString());
    hostSettings().productParams.insert(key, QStringLiteral("2"));
    QCOMPARE(TzProductInfo::instance()->extendParam(key, QString()), QStringLiteral("2"));
}

MV_TEST_MAIN(tst_TzProductInfo)
#include "tst_TzProductInfo.moc"
