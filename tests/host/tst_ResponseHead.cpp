#include "host/ResponseHead.h"
#include "support/TestMain.h"

/// Tests the parsing of an answer's header, whatever a server sends.
class TestResponseHead : public QObject
{
    Q_OBJECT

private slots:
    void statusHasThreeDigits_data();
    void statusHasThreeDigits();
    void controlCharactersBecomeBlanks_data();
    void controlCharactersBecomeBlanks();
};

void TestResponseHead::statusHasThreeDigits_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("status");

    QTest::newRow("plain") << QByteArray("HTTP/1.1 404 Not Found\r\n") << 404;
    QTest::newRow("without a reason") << QByteArray("HTTP/2 200\r\n") << 200;
    QTest::newRow("negative") << QByteArray("HTTP/1.1 -12\r\n") << 0;
    QTest::newRow("plus") << QByteArray("HTTP/1.1 +20\r\n") << 0;
    QTest::newRow("two digits") << QByteArray("HTTP/1.1 20\r\n") << 0;
    QTest::newRow("none") << QByteArray("HTTP/1.1\r\n") << 0;
}

void TestResponseHead::statusHasThreeDigits()
{
    QFETCH(QByteArray, line);
    QFETCH(int, status);
    ResponseHead head;
    head.addLine(line);
    QCOMPARE(head.status, status);
}

void TestResponseHead::controlCharactersBecomeBlanks_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("validator");

    QTest::newRow("carriage return")
        << QByteArray("\"a\rX-Own: b\"") << QByteArray("\"a X-Own: b\"");
    QTest::newRow("NUL") << QByteArray("\"a\0b\"", 5) << QByteArray("\"a b\"");
    QTest::newRow("delete") << QByteArray("\"a\x7f"
                                          "b\"")
                            << QByteArray("\"a b\"");
    QTest::newRow("tab") << QByteArray("\"a\tb\"") << QByteArray("\"a b\"");
    QTest::newRow("letters beyond ASCII")
        << QByteArray("\"\xc3\xa4\"") << QByteArray("\"\xc3\xa4\"");
}

/// A validator that is sent back must neither end its line nor start another one.
void TestResponseHead::controlCharactersBecomeBlanks()
{
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, validator);
    ResponseHead tag;
    tag.addLine("ETag: " + value + "\r\n");
    QCOMPARE(tag.validator(), validator);
    ResponseHead date;
    date.addLine("Last-Modified: " + value + "\r\n");
    QCOMPARE(date.validator(), validator);
}

MV_TEST_MAIN(TestResponseHead)
#include "tst_ResponseHead.moc"
