// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

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
    void lengths_data();
    void lengths();
    void fieldsOfAnInterimAnswerAreForgotten();
    void partOfAWhole_data();
    void partOfAWhole();
    void retryAfter_data();
    void retryAfter();
    void codings_data();
    void codings();
    void validators_data();
    void validators();
    void redirects();
    void linesThatAreNoFields_data();
    void linesThatAreNoFields();

private:
    static ResponseHead headOf(const QByteArrayList& lines);
};

ResponseHead TestResponseHead::headOf(const QByteArrayList& lines)
{
    ResponseHead head;
    for (const QByteArray& line : lines)
        head.addLine(line + "\r\n");
    return head;
}

void TestResponseHead::statusHasThreeDigits_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("status");

    QTest::newRow("plain") << QByteArray("HTTP/1.1 404 Not Found\r\n") << 404;
    QTest::newRow("without a reason") << QByteArray("HTTP/2 200\r\n") << 200;
    QTest::newRow("highest digits") << QByteArray("HTTP/1.1 909\r\n") << 909;
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

void TestResponseHead::lengths_data()
{
    QTest::addColumn<QByteArrayList>("values");
    QTest::addColumn<qint64>("length");
    QTest::addColumn<bool>("areTwo");

    const auto row = [](const char* name, const QByteArrayList& values, qint64 length,
                        bool areTwo) { QTest::newRow(name) << values << length << areTwo; };
    row("none", {}, -1, false);
    row("one", {"1000"}, 1000, false);
    row("zero", {"0"}, 0, false);
    row("more than 32 bits", {"5000000000"}, 5000000000, false);
    row("repeated", {"10", "10"}, 10, false);
    row("repeated in a field", {"10, 10"}, 10, false);
    row("another one", {"10", "11"}, 11, true);
    row("another one in a field", {"10,11"}, 11, true);
    row("another one in between", {"10", "11", "10"}, 10, true);
    row("zero, then another one", {"0", "10"}, 10, true);
    row("negative", {"-1"}, -1, false);
    row("a number and none", {"10", "ten"}, -1, true);
    row("none and a number", {"ten", "10"}, 10, true);
}

void TestResponseHead::lengths()
{
    QFETCH(QByteArrayList, values);
    QFETCH(qint64, length);
    QFETCH(bool, areTwo);
    QByteArrayList lines{"HTTP/1.1 200 OK"};
    for (const QByteArray& value : qAsConst(values))
        lines.append("Content-Length: " + value);
    const ResponseHead head = headOf(lines);
    QCOMPARE(head.contentLength, length);
    QCOMPARE(head.hasTwoLengths, areTwo);
}

void TestResponseHead::fieldsOfAnInterimAnswerAreForgotten()
{
    ResponseHead head = headOf({"HTTP/1.1 103 Early Hints", "Content-Length: 7", "ETag: \"early\"",
                                "Location: /there", "Transfer-Encoding: chunked"});
    QVERIFY(head.isInterim());
    head.addLine("HTTP/1.1 200 OK\r\n");
    head.addLine("Content-Length: 8\r\n");
    QVERIFY(!head.isInterim());
    QCOMPARE(head.contentLength, qint64(8));
    QVERIFY(!head.hasTwoLengths);
    QVERIFY(!head.chunked);
    QCOMPARE(head.validator() + head.location, QByteArray());
}

void TestResponseHead::partOfAWhole_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("total");

    const auto row = [](const char* value, qint64 start, qint64 total) {
        QTest::newRow(value) << QByteArray(value) << start << total;
    };
    row("bytes 400-999/1000", 400, 1000);
    row("bytes 0-0/1", 0, 1);
    row("bytes 0-0/0", 0, 0);
    row("bytes 400-999/*", 400, 0);
    row("bytes */1000", -1, 0);
    row("bytes 400/1000", -1, 0);
    row("bytes 400-999", -1, 0);
    row("bytes 400/1000-", -1, 0);
    row("bytes x-999/1000", -1, 1000);
    row("bytes 400-999/1000x", 400, 0);
    row("bytes -1-999/1000", -1, 1000);
    row("bytes 400-999/-5", 400, 0);
    row("lines 400-999/1000", -1, 0);
}

void TestResponseHead::partOfAWhole()
{
    QFETCH(QByteArray, value);
    QFETCH(qint64, start);
    QFETCH(qint64, total);
    const ResponseHead head = headOf({"HTTP/1.1 206 Part", "Content-Range: " + value});
    QCOMPARE(head.rangeStart, start);
    QCOMPARE(head.rangeTotal, total);
}

void TestResponseHead::retryAfter_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("seconds");

    QTest::newRow("seconds") << QByteArray("120") << 120;
    QTest::newRow("at once") << QByteArray("0") << 0;
    QTest::newRow("in the past") << QByteArray("-1") << -1;
    QTest::newRow("far in the past") << QByteArray("-100") << -1;
    QTest::newRow("a date") << QByteArray("Wed, 21 Oct 2015 07:28:00 GMT") << -1;
    QTest::newRow("beyond all numbers") << QByteArray("99999999999") << -1;
}

void TestResponseHead::retryAfter()
{
    QFETCH(QByteArray, value);
    QFETCH(int, seconds);
    QCOMPARE(headOf({"HTTP/1.1 503 Busy", "Retry-After: " + value}).retryAfterSeconds, seconds);
}

void TestResponseHead::codings_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<bool>("isChunked");
    QTest::addColumn<bool>("isStrange");
    QTest::addColumn<QByteArray>("encoding");

    const auto row = [](const char* field, bool isChunked, bool isStrange, const char* encoding) {
        QTest::newRow(field) << QByteArray(field) << isChunked << isStrange << QByteArray(encoding);
    };
    row("Transfer-Encoding: Chunked", true, false, "");
    row("Transfer-Encoding: identity", false, false, "");
    row("Transfer-Encoding: gzip, chunked", true, true, "");
    row("Transfer-Encoding: chunked, gzip", true, true, "");
    row("Transfer-Encoding: gzip", false, true, "");
    row("Content-Encoding: Identity", false, false, "");
    row("Content-Encoding: GZIP", false, false, "gzip");
    row("Content-Encoding:", false, false, "");
}

void TestResponseHead::codings()
{
    QFETCH(QByteArray, field);
    QFETCH(bool, isChunked);
    QFETCH(bool, isStrange);
    QFETCH(QByteArray, encoding);
    const ResponseHead head = headOf({"HTTP/1.1 200 OK", field});
    QCOMPARE(head.chunked, isChunked);
    QCOMPARE(head.strangeTransferCoding, isStrange);
    QCOMPARE(head.contentEncoding, encoding);
}

void TestResponseHead::validators_data()
{
    QTest::addColumn<QByteArrayList>("fields");
    QTest::addColumn<QByteArray>("validator");

    const QByteArray date = "Wed, 21 Oct 2015 07:28:00 GMT";
    QTest::newRow("none") << QByteArrayList{"Accept-Ranges: bytes"} << QByteArray();
    QTest::newRow("tag") << QByteArrayList{"ETAG:\"1\""} << QByteArray("\"1\"");
    QTest::newRow("weak tag") << QByteArrayList{"ETag: W/\"1\""} << QByteArray();
    QTest::newRow("date") << QByteArrayList{"last-modified: " + date} << date;
    QTest::newRow("tag and date") << QByteArrayList{"ETag: \"1\"", "Last-Modified: " + date}
                                  << QByteArray("\"1\"");
    QTest::newRow("weak tag and date")
        << QByteArrayList{"ETag: W/\"1\"", "Last-Modified: " + date} << QByteArray();
}

void TestResponseHead::validators()
{
    QFETCH(QByteArrayList, fields);
    QFETCH(QByteArray, validator);
    QCOMPARE(headOf(fields).validator(), validator);
}

void TestResponseHead::redirects()
{
    QVector<int> redirects;
    for (int status = 0; status < 1000; ++status) {
        ResponseHead head;
        head.status = status;
        QCOMPARE(head.isInterim(), status / 100 == 1);
        if (head.isRedirect())
            redirects.append(status);
    }
    QCOMPARE(redirects, (QVector<int>{301, 302, 303, 307, 308}));
}

void TestResponseHead::linesThatAreNoFields_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no colon") << QByteArray("ETag \"1\"");
    QTest::newRow("no name") << QByteArray(": \"1\"");
    QTest::newRow("another name") << QByteArray("X-ETag: \"1\"");
    QTest::newRow("blank before the colon") << QByteArray("ETag : \"1\"");
}

void TestResponseHead::linesThatAreNoFields()
{
    QFETCH(QByteArray, line);
    const ResponseHead head = headOf({"HTTP/1.1 200 OK", line});
    QCOMPARE(head.status, 200);
    QCOMPARE(head.validator(), QByteArray());
}

MV_TEST_MAIN(TestResponseHead)
#include "tst_ResponseHead.moc"
