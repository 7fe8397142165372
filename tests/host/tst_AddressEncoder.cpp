// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/AddressEncoder.h"
#include "support/TestMain.h"

#include <QUrl>

/// Tests that a request's address is the same whether or not its server is known already.
class tst_AddressEncoder : public QObject
{
    Q_OBJECT

private slots:
    void sameForAKnownServer_data();
    void sameForAKnownServer();
    void refusesOthers_data();
    void refusesOthers();
};

void tst_AddressEncoder::sameForAKnownServer_data()
{
    QTest::addColumn<QString>("before"); // an address on the same server, or one that seems to be
    QTest::addColumn<QString>("address");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* before, const char* address,
                        const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(address)
                            << QByteArray(expected);
    };
    row("plain", "http://a.b:81/x", "http://a.b:81/y/Z-0_9.~z", "http://a.b:81/y/Z-0_9.~z");
    row("two slashes", "http://a.b/x", "http://a.b//y//z", "http://a.b//y//z");
    row("dots", "http://a.b/x", "http://a.b/y/../z", "http://a.b/y/../z");
    row("the same", "http://a.b/x", "http://a.b/x", "http://a.b/x");
    row("no path", "http://a.b/x", "http://a.b", "http://a.b");
    row("capitals", "HTTP://A.B/x", "HTTP://A.B/Y", "http://a.b/Y");
    row("letters beyond ASCII", "http://b\xC3\xBC.de/x", "http://b\xC3\xBC.de/y",
        "http://xn--b-eha.de/y");
    row("user", "http://u:p@a.b/x", "http://u:p@a.b/y", "http://u:p@a.b/y");
    row("blank", "http://a.b/x", "http://a.b/two words", "http://a.b/two%20words");
    row("escape", "http://a.b/x", "http://a.b/two%20words", "http://a.b/two%20words");
    row("query", "http://a.b/x", "http://a.b/y?q=1", "http://a.b/y?q=1");
    row("fragment", "http://a.b/x", "http://a.b/y#z", "http://a.b/y");
    row("slash in a query", "http://a.b?q/x", "http://a.b?q/y", "http://a.b?q/y");
    row("slash in a fragment", "http://a.b#f/x", "http://a.b#f/y", "http://a.b");
    row("another server", "http://a.b/x", "http://a.c/x", "http://a.c/x");
    row("another port", "http://a.b:81/x", "http://a.b:8/x", "http://a.b:8/x");
    row("another scheme", "http://a.b/x", "https://a.b/x", "https://a.b/x");
}

void tst_AddressEncoder::sameForAKnownServer()
{
    QFETCH(QString, before);
    QFETCH(QString, address);
    QFETCH(QByteArray, expected);
    QCOMPARE(QUrl(address).toEncoded(QUrl::RemoveFragment), expected);
    AddressEncoder encoder;
    QCOMPARE(encoder.encoded(address), expected);
    AddressEncoder knowing;
    QVERIFY(!knowing.encoded(before).isEmpty());
    QCOMPARE(knowing.encoded(address), expected);
    QCOMPARE(knowing.encoded(before), QUrl(before).toEncoded(QUrl::RemoveFragment));
}

void tst_AddressEncoder::refusesOthers_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address : {"", "/", "x", "://", ":///x", "http://", "http:///x", "ftp://a.b/x",
                                "file:///x", "http://a.b:port/x", "http://a b/x"})
        QTest::newRow(*address != '\0' ? address : "empty") << QString::fromLatin1(address);
}

void tst_AddressEncoder::refusesOthers()
{
    QFETCH(QString, address);
    AddressEncoder encoder;
    QCOMPARE(encoder.encoded(address), QByteArray());
    QCOMPARE(encoder.encoded(address), QByteArray()); // nothing was remembered
    QCOMPARE(encoder.encoded(QStringLiteral("http://a.b/x")), QByteArray("http://a.b/x"));
    QCOMPARE(encoder.encoded(address), QByteArray());
}

MV_TEST_MAIN(tst_AddressEncoder)
#include "tst_AddressEncoder.moc"
