// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/WindowsName.h"
#include "support/TestMain.h"

#include <QtTest>

namespace tst_WindowsName {

class tst_WindowsName : public QObject
{
    Q_OBJECT

private slots:
    void storesNames_data();
    void storesNames();
    void storesPaths_data();
    void storesPaths();
};

void tst_WindowsName::storesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isStorable");

    const auto row = [](const char* tag, const QString& name, bool isStorable) {
        QTest::newRow(tag) << name << isStorable;
    };
    row("ordinary", QStringLiteral("White Christmas.zip"), true);
    row("other script", QString::fromUtf8("春節.zip"), true);
    row("dot in front", QStringLiteral(".hidden"), true);
    row("two dots inside", QStringLiteral("a..b"), true);
    row("empty", QString(), false);
    row("dot at the end", QStringLiteral("name."), false);
    row("up", QStringLiteral(".."), false);
    row("blank at the end", QStringLiteral("name "), false);
    row("slash", QStringLiteral("a/b"), false);
    row("backslash", QStringLiteral("a\\b"), false);
    row("alternate stream", QStringLiteral("a.zip:hidden"), false);
    row("drive", QStringLiteral("C:"), false);
    row("wildcard", QStringLiteral("a*"), false);
    row("question mark", QStringLiteral("a?"), false);
    row("quotation mark", QStringLiteral("\"a\""), false);
    row("less than", QStringLiteral("<a"), false);
    row("greater than", QStringLiteral("a>"), false);
    row("pipe", QStringLiteral("a|b"), false);
    row("control character", QStringLiteral("a\x1f"), false);
    row("first character that is none", QStringLiteral(" a"), true);
    row("device", QStringLiteral("NUL"), false);
    row("device in lower case", QStringLiteral("con"), false);
    row("device with suffix", QStringLiteral("aux.png"), false);
    row("device with two suffixes", QStringLiteral("prn.tar.gz"), false);
    row("device with blank before the suffix", QStringLiteral("nul .txt"), false);
    row("console", QStringLiteral("CONIN$"), false);
    row("serial port", QStringLiteral("com1"), false);
    row("last serial port", QStringLiteral("COM9.xml"), false);
    row("superscript port", QStringLiteral("COM\u00b2"), false);
    row("parallel port", QStringLiteral("lpt3.gif"), false);
    row("no port 0", QStringLiteral("COM0"), true);
    row("no port 10", QStringLiteral("COM10"), true);
    row("begins like a device", QStringLiteral("console"), true);
    row("ends like a device", QStringLiteral("falcon"), true);
}

void tst_WindowsName::storesNames()
{
    QFETCH(const QString, name);
    QTEST(WindowsName::isStorable(name), "isStorable");
}

void tst_WindowsName::storesPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isStorable");

    QTest::newRow("ordinary") << QStringLiteral("/Themes/Festival/festival.xml") << true;
    QTest::newRow("doubled slash") << QStringLiteral("Themes//a.xml") << true;
    QTest::newRow("same folder") << QStringLiteral("./Themes/./a.xml") << true;
    QTest::newRow("device as folder") << QStringLiteral("Themes/nul/a.xml") << false;
    QTest::newRow("stream at the end") << QStringLiteral("Themes/a.xml:b") << false;
    QTest::newRow("up") << QStringLiteral("Themes/../a.xml") << false;
}

void tst_WindowsName::storesPaths()
{
    QFETCH(const QString, path);
    QTEST(WindowsName::isStorablePath(path), "isStorable");
}

MV_TEST_MAIN(tst_WindowsName)

} // namespace tst_WindowsName

#include "tst_WindowsName.moc"
