// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseList.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

namespace tst_ReleaseList {

namespace {

const QByteArray digest = QByteArray(64, 'a');

QByteArray line(const QByteArray& path, const QByteArray& size = "5")
{
    return digest + '\t' + size + '\t' + path + '\n';
}

ReleaseList listOf(const QVector<QByteArray>& paths)
{
    QVector<ReleaseList::Entry> entries;
    for (const QByteArray& path : paths)
        entries.append({digest, 5, path});
    return ReleaseList(entries);
}

} // namespace

/// Tests files.txt: what is written, what is read, and what is refused.
class TestReleaseList : public QObject
{
    Q_OBJECT

private slots:
    void entriesAreSortedByTheBytesOfTheirPaths();
    void writtenIsRead();
    void emptyListIsLegal();
    void pathsOfCataloguesAreFound_data();
    void pathsOfCataloguesAreFound();
    void unlistedPathIsNotFound();
    void refused_data();
    void refused();
    void refusedNamesItsLine();
    void refusedLeavesTheListUnchanged();
    void tooManyFilesAreRefused();
};

void TestReleaseList::entriesAreSortedByTheBytesOfTheirPaths()
{
    const QByteArray umlaut = QStringLiteral("ü").toUtf8();
    QCOMPARE(listOf({umlaut, "b", "a/b", "B", "a"}).toText(),
             line("B") + line("a") + line("a/b") + line("b") + line(umlaut));
}

void TestReleaseList::writtenIsRead()
{
    const QByteArray bytes = line("config/a b.zip", "0") + line("display/x", "123456789012345678");
    ReleaseList list;
    QString error;
    QVERIFY2(ReleaseList::parse(bytes, list, error), qPrintable(error));
    QCOMPARE(list.entries().size(), 2);
    QCOMPARE(list.entries().at(0).sizeBytes, qint64(0));
    QCOMPARE(list.entries().at(1).sizeBytes, Q_INT64_C(123456789012345678));
    QCOMPARE(list.toText(), bytes);
}

void TestReleaseList::emptyListIsLegal()
{
    ReleaseList list = listOf({"a"});
    QString error;
    QVERIFY(ReleaseList::parse("", list, error));
    QVERIFY(list.isEmpty());
}

void TestReleaseList::pathsOfCataloguesAreFound_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("as listed") << text("config/Themes/a.zip");
    QTest::newRow("with a slash") << text("/config/Themes/a.zip");
    QTest::newRow("with doubled slashes") << text("//config//Themes/a.zip");
}

void TestReleaseList::pathsOfCataloguesAreFound()
{
    QFETCH(QString, path);
    const ReleaseList list = listOf({"config", "config/Themes/a.zip", "config/Themes/b.zip"});
    QCOMPARE(list.find(path).path, QByteArray("config/Themes/a.zip"));
}

void TestReleaseList::unlistedPathIsNotFound()
{
    const ReleaseList list = listOf({"b", "d"});
    for (const char* const path : {"a", "c", "e", "", "b/d"})
        QVERIFY(!list.find(text(path)).isValid());
    QVERIFY(!ReleaseList().find(text("b")).isValid());
}

void TestReleaseList::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& bytes, const char* reason) {
        QTest::newRow(name) << bytes << QString::fromLatin1(reason);
    };
    row("no end of line", line("a").chopped(1), "cut off");
    row("empty line", "\n", "three fields");
    row("two fields", digest + "\t5\n", "three fields");
    row("digest in capitals", digest.toUpper() + "\t5\ta\n", "SHA-256");
    row("short digest", digest.left(63) + "\t5\ta\n", "SHA-256");
    row("no size", line("a", ""), "size");
    row("negative size", line("a", "-1"), "size");
    row("leading zero", line("a", "05"), "size");
    row("size with a blank", line("a", " 5"), "size");
    row("19 digits", line("a", "1234567890123456789"), "size");
    row("no path", line(""), "below the server root");
    row("..", line(".."), "below the server root");
    row(".. on the way", line("a/../b"), "below the server root");
    row(".", line("./a"), "below the server root");
    row("absolute", line("/a"), "below the server root");
    row("folder", line("a/"), "below the server root");
    row("doubled slash", line("a//b"), "below the server root");
    row("backslash", line("a\\b"), "character");
    row("drive", line("c:a"), "character");
    row("tab", line("a\tb"), "character");
    row("carriage return", line("a\r"), "character");
    row("NUL", line(QByteArray("a\0b", 3)), "character");
    row("delete", line("a\x7f"), "character");
    row("not UTF-8", line("a\xff"), "UTF-8");
    row("too long", line(QByteArray(1025, 'a')), "longer than 1024");
    row("two entries for one path", line("a") + line("a", "6"), "not sorted");
    row("not sorted", line("b") + line("a"), "not sorted");
}

void TestReleaseList::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    ReleaseList list;
    QString error;
    QVERIFY(!ReleaseList::parse(bytes, list, error));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void TestReleaseList::refusedNamesItsLine()
{
    ReleaseList list;
    QString error;
    QVERIFY(!ReleaseList::parse(line("a") + line("b") + line("a"), list, error));
    QVERIFY2(error.startsWith(text("line 3 ")), qPrintable(error));
}

void TestReleaseList::refusedLeavesTheListUnchanged()
{
    ReleaseList list = listOf({"a"});
    QString error;
    QVERIFY(!ReleaseList::parse("x", list, error));
    QCOMPARE(list.entries().size(), 1);
}

void TestReleaseList::tooManyFilesAreRefused()
{
    QByteArray bytes;
    const auto number = [](int i) { return QByteArray::number(i).rightJustified(7, '0'); };
    for (int i = 0; i < ReleaseList::maxFiles; ++i)
        bytes += line(number(i));
    ReleaseList list;
    QString error;
    QVERIFY2(ReleaseList::parse(bytes, list, error), qPrintable(error));
    QVERIFY(!ReleaseList::parse(bytes + line("x"), list, error));
    QVERIFY2(error.contains(text("more than 500000 files")), qPrintable(error));
}

MV_TEST_MAIN(TestReleaseList)

} // namespace tst_ReleaseList

#include "tst_ReleaseList.moc"
