// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ServerAddress.h"

#include "support/TestMain.h"

/// Tests what users may type as the address of a server.
class tst_ServerAddress : public QObject
{
    Q_OBJECT

private slots:
    void normalized_data();
    void normalized();
};

void tst_ServerAddress::normalized_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("address");
    const auto row = [](const char* text, const char* address) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromLatin1(address);
    };
    row("https://example.com/tree/", "https://example.com/tree/");
    row("https://example.com", "https://example.com/");
    row("  http://example.com/tree \n", "http://example.com/tree/");
    row("example.com/tree", "https://example.com/tree/");
    row("example.com:8080", "https://example.com:8080/");
    row("localhost:8080", "http://localhost:8080/");
    row("127.0.0.1:8080/tree", "http://127.0.0.1:8080/tree/");
    row("https://example.com/a%20b/", "https://example.com/a%20b/");
    row("", "");
    row("   ", "");
    row("ftp://example.com/", "");
    row("file:///etc/passwd", "");
    row("https://", "");
    row("https://example.com/?query", "");
    row("https://example.com/#part", "");
    row("two words", "");
}

void tst_ServerAddress::normalized()
{
    QFETCH(QString, text);
    QTEST(ServerAddress::normalized(text), "address");
}

MV_TEST_MAIN(tst_ServerAddress)
#include "tst_ServerAddress.moc"
