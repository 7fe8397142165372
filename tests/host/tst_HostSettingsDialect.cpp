// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/IniFile.h"
#include "support/TestTexts.h"

#include <QCoreApplication>

/// Tests the syntax of settings files: values, and which lines are refused.
class tst_HostSettingsDialect : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings() = HostSettings(); }

    void readsValuesLiterally_data();
    void readsValuesLiterally();
    void readsLines_data();
    void readsLines();
    void aSectionMayBeStartedAgain();
    void refusesALine_data();
    void refusesALine();
    void refusesAKeyThatIsSetTwice_data();
    void refusesAKeyThatIsSetTwice();
    void readsAFileOfTheLargestSize();
    void refusesALargerFile();
    void theHostGuidesExampleIsRead();
};

void tst_HostSettingsDialect::readsValuesLiterally_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");
    const auto literal = [](const char* name, const char* value) {
        QTest::newRow(name) << QByteArray(value) << QString::fromUtf8(value);
    };
    literal("plain", "abc");
    literal("empty", "");
    literal("blanks inside", "a  b\tc");
    literal("comma", "http://h/a,b");
    literal("comma and blanks", "a,  b ,c");
    literal("semicolon", "http://h/;x");
    literal("semicolon behind a blank", "a ; b");
    literal("number sign", "http://h/#a #b");
    literal("equals sign", "http://h/?a=b=c");
    literal("percent", "a%20b %1");
    literal("backslashes", "\\\\server\\new\\x41");
    literal("backslash at the end", "a\\");
    literal("quotes inside", "a \"b\" c");
    literal("quote at the end", "a\"");
    literal("brackets", "[a]");
    literal("QVariant of a list", "@Variant(\\0\\0\\0\\v\\x7f\\xff\\xff\\xf0)");
    literal("empty QVariant", "@Variant()");
    literal("rectangle", "@Rect(1 2 3 4)");
    literal("bytes", "@ByteArray(a)");
    literal("invalid", "@Invalid()");
    literal("two at signs", "@@a");
    literal("UTF-8", "\xC3\xA9\xD0\xB6\xE4\xBD\xA0\xF0\x9F\x99\x82");
    literal("other spaces", "\xC2\xA0\xE3\x80\x80");

    const auto row = [](const char* name, const char* value, const char* text) {
        QTest::newRow(name) << QByteArray(value) << QString::fromUtf8(text);
    };
    row("blanks around it", " \t ab \t", "ab");
    row("quoted", "\"ab\"", "ab");
    row("quoted, empty", "\"\"", "");
    row("quoted blanks", "  \" a\t\"  ", " a\t");
    row("quoted comma", "\"a,b,  c\"", "a,b,  c");
    row("quoted semicolon", "\"a;b\"", "a;b");
    row("quoted quote", "\"a\\\"b\"", "a\"b");
    row("quoted quote at the end", "\"a\\\"\"", "a\"");
    row("quoted backslash", "\"C:\\\\new\"", "C:\\new");
    row("quoted backslash at the end", "\"a\\\\\"", "a\\");
    row("quoted at sign", "\"@Variant(\\\\0)\"", "@Variant(\\0)");
}

void tst_HostSettingsDialect::readsValuesLiterally()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, text);
    const QByteArray content =
        "[ui]\nskin=" + value + "\n[params]\nhost=" + value + "\n[network]\nproxy=" + value + '\n';
    QString error;
    QVERIFY2(loadHostSettings(iniFile(content), &error), qPrintable(error));
    QCOMPARE(hostSettings().currentSkin, text);
    QCOMPARE(hostSettings().proxy, text);
    const QMap<QString, QString> expected{{QStringLiteral("host"), text}};
    QCOMPARE(hostSettings().productParams, expected);
}

void tst_HostSettingsDialect::readsLines_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto row = [](const char* name, const QByteArray& content) {
        QTest::newRow(name) << content;
    };
    row("plain", "[params]\na b=1\n");
    row("blanks", " \t[ params ]\t\n  a b \t=\t1  \n");
    row("empty lines", "\n\n[params]\n \t\n\na b=1\n\n");
    row("no end of the last line", "[params]\na b=1");
    row("CR LF", "[params]\r\n\r\na b=1\r\n");
    row("byte order mark", "\xEF\xBB\xBF[params]\na b=1\n");
    row("byte order mark and comment", "\xEF\xBB\xBF;\n[params]\na b=1\n");
    row("comments", "; a=b\n# [c]\n[params]\n;\n  ;x\n#\na b=1\n\t# \xC3\xA9\n;[ui]\n");
    row("section without settings", "[ui]\n[params]\na b=1\n[network]\n");
}

void tst_HostSettingsDialect::readsLines()
{
    QFETCH(QByteArray, content);
    QString error;
    QVERIFY2(loadHostSettings(iniFile(content), &error), qPrintable(error));
    const QMap<QString, QString> expected{{QStringLiteral("a b"), QStringLiteral("1")}};
    QCOMPARE(hostSettings().productParams, expected);
}

void tst_HostSettingsDialect::aSectionMayBeStartedAgain()
{
    QVERIFY(loadHostSettings(iniFile("[params]\na=1\n[ui]\nskin=Calm\n[params]\nb=2\n"), nullptr));
    const QMap<QString, QString> expected{{QStringLiteral("a"), QStringLiteral("1")},
                                          {QStringLiteral("b"), QStringLiteral("2")}};
    QCOMPARE(hostSettings().productParams, expected);
    QCOMPARE(hostSettings().currentSkin, QStringLiteral("Calm"));
}

void tst_HostSettingsDialect::refusesALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& line, const QString& reason) {
        QTest::newRow(name) << line << reason;
    };
    const auto form =
        QStringLiteral("expected \"key = value\", \"[section]\" or a comment after ; or #");
    row("no equals sign", "junk", form);
    row("no key", "=1", form);
    row("blanks for a key", "  \t= 1", form);
    row("XML", "<?xml?>", form);
    const auto section = QStringLiteral("expected \"[section]\" and nothing else in the line");
    row("open section", "[ui", section);
    row("opening bracket alone", "[", section);
    row("section without a name", "[]", section);
    row("section of blanks", "[ \t ]", section);
    row("text behind a section", "[ui] a=b", section);
    row("comment behind a section", "[ui] ; comment", section);
    row("comment with a bracket", "[ui] ; [comment]", section);
    row("brackets in brackets", "[[ui]]", section);
    const auto unclosed = QStringLiteral("expected a closing quote at the end of the value");
    row("open quote", "a=\"b", unclosed);
    row("quote alone", "a=\"", unclosed);
    row("escaped closing quote", "a=\"b\\\"", unclosed);
    row("backslash at the end", "a=\"b\\", unclosed);
    const auto behind = QStringLiteral("expected nothing behind the closing quote");
    row("text behind a quote", "a=\"b\" c", behind);
    row("comment behind a quote", "a=\"b\" ; c", behind);
    row("second quote", "a=\"b\"\"", behind);
    const auto escape = QStringLiteral("expected \\\\ or \\\" in a quoted value, found \\");
    row("unknown escape", "a=\"b\\n\"", escape + QLatin1Char('n'));
    row("hexadecimal escape", "a=\"\\x41\"", escape + QLatin1Char('x'));
    const auto control = QStringLiteral("expected text, found the control character U+");
    row("NUL", QByteArray("a=b\0c", 5), control + QStringLiteral("0000"));
    row("NUL at the end", QByteArray("a=b\0", 4), control + QStringLiteral("0000"));
    row("escape character", "a=\x1B[1m", control + QStringLiteral("001b"));
    row("CR inside", "a=b\rc=d", control + QStringLiteral("000d"));
    row("two CR", "a=b\r\r", control + QStringLiteral("000d"));
    row("DEL", "a=\x7F", control + QStringLiteral("007f"));
    row("next line", "a=\xC2\x85", control + QStringLiteral("0085"));
    row("control character in a key", "a\x01=b", control + QStringLiteral("0001"));
    row("control character in a section", "[a\x01]", control + QStringLiteral("0001"));
    row("control character in a comment", "; a\x01", control + QStringLiteral("0001"));
    const auto encoding = QStringLiteral("expected UTF-8");
    row("Latin-1", "a=\xE9t\xE9", encoding);
    row("Latin-1 in a comment", "; \xE9t\xE9", encoding);
    row("cut character", "a=\xE4\xBD", encoding);
    row("overlong form", "a=\xC0\xAF", encoding);
    row("surrogate", "a=\xED\xA0\x80", encoding);
    row("UTF-16", QByteArray("\xFF\xFE[\0u\0", 6), encoding);
}

void tst_HostSettingsDialect::refusesALine()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, reason);
    for (const char* end : {"", "\n", "\r\n", "\n[ui]\n"}) {
        const QString path = iniFile("[params]\n\n; comment\n" + line + end);
        QString error;
        QVERIFY(!loadHostSettings(path, &error));
        QCOMPARE(error, path + QStringLiteral(":4: ") + reason);
        QVERIFY(hostSettings().productParams.isEmpty());
    }
    const QString path = iniFile("\xEF\xBB\xBF" + line);
    QVERIFY(!loadHostSettings(path, nullptr));
}

void tst_HostSettingsDialect::refusesAKeyThatIsSetTwice_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("beside each other")
        << QByteArray("[ui]\nskin=Calm\nskin=Elegance\n")
        << QStringLiteral(":3: ui/skin is ambiguous: line 2 sets it, too");
    QTest::newRow("to the same value")
        << QByteArray("[ui]\nskin=Calm\n\nskin=Calm\n")
        << QStringLiteral(":4: ui/skin is ambiguous: line 2 sets it, too");
    QTest::newRow("in a section that is started again")
        << QByteArray("[params]\na=1\nb=1\n[ui]\n[params]\na =2\n")
        << QStringLiteral(":6: params/a is ambiguous: line 2 sets it, too");
}

void tst_HostSettingsDialect::refusesAKeyThatIsSetTwice()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString path = iniFile(content);
    QString error;
    QVERIFY(!loadHostSettings(path, &error));
    QCOMPARE(error, path + reason);
    QVERIFY(hostSettings().productParams.isEmpty());
    QCOMPARE(hostSettings().currentSkin, QStringLiteral("Classical"));
}

namespace {

constexpr int largest = 1024 * 1024;

QByteArray contentOf(int bytes)
{
    const QByteArray start = "[params]\na=";
    return start + QByteArray(bytes - start.size(), 'x');
}

} // namespace

void tst_HostSettingsDialect::readsAFileOfTheLargestSize()
{
    QString error;
    QVERIFY2(loadHostSettings(iniFile(contentOf(largest)), &error), qPrintable(error));
    QVERIFY(hostSettings().productParams.contains(QStringLiteral("a")));
}

void tst_HostSettingsDialect::refusesALargerFile()
{
    const QString path = iniFile(contentOf(largest + 1));
    QString error;
    QVERIFY(!loadHostSettings(path, &error));
    QCOMPARE(error, path + QStringLiteral(": larger than 1048576 bytes"));
}

void tst_HostSettingsDialect::theHostGuidesExampleIsRead()
{
    const QByteArray guide = CatalogueFiles::read(QStringLiteral(MV_DOCS "/host-guide.md"));
    const QByteArray fence = "```";
    const int begin = guide.indexOf(fence + "ini\n");
    QVERIFY(begin > 0);
    const int content = guide.indexOf('\n', begin);
    QString error;
    const QString file = iniFile(guide.mid(content, guide.indexOf(fence, content) - content));
    QVERIFY2(loadHostSettings(file, &error), qPrintable(error));
    QCOMPARE(hostSettings().resourcesPath, absolute("/usr/share/editor", TestHome::path()));
    QCOMPARE(hostSettings().currentSkin, QStringLiteral("Classical"));
    QCOMPARE(hostSettings().productParams.value(QStringLiteral("hasMV")), QStringLiteral("1"));
    QCOMPARE(hostSettings().productParams.value(QStringLiteral("url_slidershow")),
             QStringLiteral("https://www.example.org/themes"));
}

MV_TEST_MAIN(tst_HostSettingsDialect)
#include "tst_HostSettingsDialect.moc"
