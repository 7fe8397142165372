// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueReaders.h"

#include <QThread>

namespace tst_hostileCatalogues {

using Files = CatalogueFiles;
using Readers = CatalogueReaders;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true; // measured memory exceeds what was allocated
#else
constexpr bool sanitized = false;
#endif

/// Tests content that no honest server publishes: every reader refuses it or reads it correctly,
/// without harm to the process or its memory.
class tst_hostileCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void missingFile_data() { addReaders(); }
    void missingFile();
    void validFile_data() { addReaders(); }
    void validFile();
    void cutFile_data() { addReaders(); }
    void cutFile();
    void encodings_data();
    void encodings();
    void xml_data();
    void xml();
    void refusedFileLeavesNoItems();
    void fileThatIsTooLarge();
    void deepestFileIsReadOnASmallStack();
    void json_data();
    void json();

private:
    static void addReaders();

    CatalogueFixture m_fixture;
    Readers m_readers{m_fixture};
};

namespace {

constexpr qint64 mebibyte = 1024 * 1024;
constexpr qint64 longestDocument = 64 * mebibyte;
// Qt 6 reads no name of more than 4 KiB.
constexpr bool takesLongNames = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);

QByteArray attributes(int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += " a" + QByteArray::number(i) + "=''";
    return all;
}

/// Returns the peak resident memory of this process in bytes.
qint64 peakBytes()
{
    const QList<QByteArray> lines = Files::read(QStringLiteral("/proc/self/status")).split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

QByteArray repeated(const QByteArray& text, int times)
{
    return text.repeated(times);
}

QByteArray utf16(const QByteArray& utf8, bool bigEndian)
{
    QByteArray bytes(bigEndian ? "\xfe\xff" : "\xff\xfe");
    const QString text = QString::fromUtf8(utf8);
    for (const QChar c : text) {
        bytes += char(bigEndian ? c.row() : c.cell());
        bytes += char(bigEndian ? c.cell() : c.row());
    }
    return bytes;
}

/// Inserts a text at the end of the root element of `valid`.
QByteArray inside(const QByteArray& valid, const QByteArray& text)
{
    const int end = valid.lastIndexOf("</");
    return valid.left(end) + text + valid.mid(end);
}

/// Inserts a text between the declaration and the root element of `valid`.
QByteArray before(const QByteArray& valid, const QByteArray& text)
{
    const int end = valid.indexOf("?>") + 2;
    return valid.left(end) + text + valid.mid(end);
}

/// Returns `levels` nested elements; the root element around them adds one level.
QByteArray nested(int levels)
{
    return repeated("<n>", levels) + repeated("</n>", levels);
}

QByteArray billionLaughs()
{
    QByteArray entities = "<!ENTITY l0 \"lol\">";
    for (int i = 1; i < 10; ++i) {
        const QByteArray previous = "&l" + QByteArray::number(i - 1) + ";";
        entities += "<!ENTITY l" + QByteArray::number(i) + " \"" + previous.repeated(10) + "\">";
    }
    return "<!DOCTYPE Resource [" + entities + "]>";
}

} // namespace

void tst_hostileCatalogues::addReaders()
{
    QTest::addColumn<int>("reader");
    for (int reader = 0; reader < Readers::count; ++reader)
        QTest::newRow(Readers::name(reader)) << reader;
}

void tst_hostileCatalogues::missingFile()
{
    QFETCH(int, reader);
    QFile::remove(m_readers.path(reader));
    QVERIFY(!m_readers.takesFile(reader));
}

void tst_hostileCatalogues::validFile()
{
    QFETCH(int, reader);
    QVERIFY(m_readers.takes(reader, Readers::valid(reader)));
}

void tst_hostileCatalogues::cutFile()
{
    QFETCH(int, reader);
    const QByteArray valid = Readers::valid(reader);
    QVERIFY(valid.size() > 64 * 6);
    for (int length = 0; length < valid.size(); length += 64)
        QVERIFY2(!m_readers.takes(reader, valid.left(length)), qPrintable(QString::number(length)));
    QVERIFY(!m_readers.takes(reader, valid.left(valid.size() - 1)));
}

void tst_hostileCatalogues::encodings_data()
{
    QTest::addColumn<int>("reader");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("taken");
    for (int reader = 0; reader < Readers::count; ++reader) {
        const QByteArray valid = Readers::valid(reader);
        const bool isJson = reader >= Readers::firstJson;
        const auto row = [&](const char* title, const QByteArray& content, bool taken) {
            QTest::addRow("%s, %s", Readers::name(reader), title) << reader << content << taken;
        };
        row("byte-order mark", "\xef\xbb\xbf" + valid, true);
        row("UTF-16, little-endian", utf16(valid, false), false);
        row("UTF-16, big-endian", utf16(valid, true), false);
        // Between the tokens; inside a string, JSON accepts it as a character.
        row("NUL in the middle",
            QByteArray(valid).insert(valid.indexOf(isJson ? ',' : '<', valid.size() / 2), '\0'),
            false);
        row("NUL first", QByteArray(valid).prepend('\0'), false);
        row("NUL last", QByteArray(valid).append('\0'), false);
        // An invalid UTF-8 byte is a replacement character in XML and an error in JSON.
        row("Latin-1", isJson ? "{\"\xe9\": true}" : inside(valid, "<Name>\xe9t\xe9</Name>"),
            !isJson);
    }
}

void tst_hostileCatalogues::encodings()
{
    QFETCH(int, reader);
    QFETCH(QByteArray, content);
    QFETCH(bool, taken);
    QCOMPARE(m_readers.takes(reader, content), taken);
}

void tst_hostileCatalogues::xml_data()
{
    QTest::addColumn<int>("reader");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("taken");
    const QByteArray twoMillionAttributes = attributes(2000000);
    const QByteArray manyEntities =
        "<!DOCTYPE Resource [<!ENTITY e \"" + QByteArray(4096, 'x') + "\">]>";
    for (int reader = 0; reader < Readers::firstJson; ++reader) {
        const QByteArray valid = Readers::valid(reader);
        const auto row = [&](const char* title, const QByteArray& content, bool taken) {
            QTest::addRow("%s, %s", Readers::name(reader), title) << reader << content << taken;
        };
        row("billion laughs", inside(before(valid, billionLaughs()), "<Name>&l9;</Name>"), false);
        row("million entities",
            inside(before(valid, manyEntities), "<Name>" + repeated("&e;", 1000000) + "</Name>"),
            false);
        row("entity of a file",
            inside(before(valid, "<!DOCTYPE r [<!ENTITY f SYSTEM \"file:///etc/passwd\">]>"),
                   "&f;"),
            false);
        row("parameter entity",
            before(valid, "<!DOCTYPE r [<!ENTITY % p \"<!ENTITY q 'x'>\"> %p;]>"), false);
        row("empty internal subset", before(valid, "<!DOCTYPE Resource []>"), false);
        row("subset behind an identifier", before(valid, "<!DOCTYPE r SYSTEM \"]>'\" [ ]>"), false);
        row("document type", before(valid, "<!DOCTYPE Resource>"), true);
        row("document type elsewhere",
            before(valid, "<!DOCTYPE r PUBLIC \"ab\" \"http://localhost:1/[x]\">"), true);
        row("subset in a comment", before(valid, "<!-- <!DOCTYPE r [<!ENTITY e \"x\">]> -->"),
            true);
        row("a million character references",
            inside(valid, "<Name>" + repeated("&#65;", 1000000) + "</Name>"), true);

        row("64 levels", inside(valid, nested(63)), true);
        row("64 levels, the last empty",
            inside(valid, repeated("<n>", 62) + "<n/>" + repeated("</n>", 62)), true);
        row("64 levels, many times", inside(valid, repeated(nested(63), 100)), true);
        row("65 levels", inside(valid, nested(64)), false);
        row("65 levels, the last empty",
            inside(valid, repeated("<n>", 63) + "<n/>" + repeated("</n>", 63)), false);
        row("65 levels behind closed ones", inside(valid, nested(63) + nested(64)), false);
        row("25,000 levels", inside(valid, nested(25000)), false);
        row("25,000 levels, never closed", repeated("<n a='>'>", 25000), false);
        row("25,000 levels behind closing tags",
            inside(valid, repeated("</n>", 25000) + nested(25000)), false);
        row("levels hidden from the count",
            inside(valid, repeated("<n a=\"/>\" b='</n>'>", 64) + repeated("</n>", 64)), false);
        row("25,000 levels in a comment", inside(valid, "<!-- " + repeated("<n>", 25000) + " -->"),
            true);
        row("65 comments that end in a tag", inside(valid, repeated("<!--<n>-->", 65)), true);
        row("25,000 levels in CDATA",
            inside(valid, "<n><![CDATA[" + repeated("<n>", 25000) + "]]></n>"), true);

        row("1,000 attributes", inside(valid, "<n" + attributes(1000) + "/>"), true);
        row("1,001 attributes", inside(valid, "<n" + attributes(1001) + "/>"), false);
        row("1,001 attributes, never closed", "<n" + attributes(1001), false);
        row("1,000 attributes, many times",
            inside(valid, repeated("<n" + attributes(1000) + "/>", 20)), true);
        row("100,000 elements", inside(valid, repeated("<n/>", 100000)), true);
        row("two million elements", inside(valid, repeated("<n/>", 2000000)), false);
        row("two million attributes", inside(valid, "<n" + twoMillionAttributes + "/>"), false);
        row("a name of one MiB", inside(valid, '<' + QByteArray(mebibyte, 'n') + "/>"),
            takesLongNames);
        row("a text of four MiB", inside(valid, "<n>" + QByteArray(4 * mebibyte, 'x') + "</n>"),
            true);
        row("noise", QByteArray::fromHex("fffe00d8c3283c0a3e").repeated(1000), false);
    }
}

void tst_hostileCatalogues::xml()
{
    QFETCH(int, reader);
    QFETCH(QByteArray, content);
    QFETCH(bool, taken);
    const qint64 before = peakBytes();
    QCOMPARE(m_readers.takes(reader, content), taken);
    if (!sanitized)
        QVERIFY(peakBytes() - before < 128 * mebibyte);
}

void tst_hostileCatalogues::refusedFileLeavesNoItems()
{
    for (const int reader : {Readers::config, Readers::display})
        QVERIFY(!m_readers.takes(
            reader, inside(before(Readers::valid(reader), billionLaughs()), "<Name>&l9;</Name>")));
    MVThemeMgr& manager = CatalogueFixture::manager();
    manager.load(true);
    QVERIFY(manager.getCfgXML().vecFilter.isEmpty());
    QVERIFY(manager.getFilters_Display().isEmpty());
}

void tst_hostileCatalogues::fileThatIsTooLarge()
{
    QByteArray content = Readers::valid(Readers::config);
    content += QByteArray(int(longestDocument) + 1 - content.size(), '\n');
    QString path = m_readers.path(Readers::config);
    Files::write(path, content);
    for (int reader = 0; reader < Readers::firstJson; ++reader) {
        QVERIFY(path == m_readers.path(reader) || QFile::rename(path, m_readers.path(reader)));
        path = m_readers.path(reader);
        QVERIFY2(!m_readers.takesFile(reader), Readers::name(reader));
    }
    QVERIFY2(QFile::resize(path, longestDocument), "one byte less is read");
    QVERIFY(m_readers.takesFile(Readers::version));
}

void tst_hostileCatalogues::deepestFileIsReadOnASmallStack()
{
    Files::write(m_readers.path(Readers::themeConfig),
                 inside(Readers::valid(Readers::themeConfig), nested(63)));
    const QString path = m_readers.path(Readers::themeConfig);
    bool taken = false;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        QDomDocument doc;
        taken = CatalogueFixture::manager().checkXml(path, doc);
    }));
    thread->setStackSize(256 * 1024);
    thread->start();
    thread->wait();
    QVERIFY(taken);
}

void tst_hostileCatalogues::json_data()
{
    QTest::addColumn<int>("reader");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("taken");
    for (int reader = Readers::firstJson; reader < Readers::count; ++reader) {
        const auto row = [&](const char* title, const QByteArray& content, bool taken) {
            QTest::addRow("%s, %s", Readers::name(reader), title) << reader << content << taken;
        };
        const auto arrays = [](int levels) {
            return "{\"travel\": " + repeated("[", levels) + repeated("]", levels) + "}";
        };
        QByteArray keys;
        for (int i = 0; i < 10000; ++i)
            keys += '"' + Files::guid(i % 5000).toLatin1() + "\": true,";
        row("10,000 keys, each twice", '{' + keys + "\"\": false}", true);
        row("64 levels", arrays(63), true);
        row("25,000 levels", arrays(25000), false);
        row("25,000 levels, never closed", repeated("[", 25000), false);
        row("25,000 objects", repeated("{\"a\":", 25000), false);
        row("a text of four MiB", "{\"a\": \"" + QByteArray(4 * mebibyte, 'x') + "\"}", true);
        row("XML", Readers::valid(Readers::config), false);
        row("wrong types", "{\"festivals\": {}, \"travel\": 1e999999, \"banquets\": null}", false);
        row("other types", "{\"festivals\": {}, \"travel\": -1, \"banquets\": null}", true);
        row("names that are paths", "{\"../../x\": true, \"travel\": [\"/../x\"]}", true);
        row("escaped NUL", "{\"a\\u0000b\": true}", true);
        row("half a surrogate", "{\"\\ud800\": true}", true);
    }
}

void tst_hostileCatalogues::json()
{
    QFETCH(int, reader);
    QFETCH(QByteArray, content);
    QFETCH(bool, taken);
    const QStringList outside = m_fixture.entriesOutsideRoot();
    Files::write(m_readers.path(reader), content);
    QCOMPARE(m_readers.takesFile(reader), taken);
    QCOMPARE(m_fixture.entriesOutsideRoot(), outside);
    QCOMPARE(Files::read(m_readers.path(reader)), content);
}

MV_TEST_MAIN(tst_hostileCatalogues)

} // namespace tst_hostileCatalogues

#include "tst_hostileCatalogues.moc"
