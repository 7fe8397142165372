// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/VString.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QDir>

#include <string>

Q_DECLARE_METATYPE(std::wstring)

class tst_VString : public QObject
{
    Q_OBJECT

private slots:
    void isAWidePath_data();
    void isAWidePath();
    void startsEmpty();
    void usesTheSeparatorsOfThePlatform();
};

void tst_VString::isAWidePath_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::wstring>("path");
    QTest::newRow("empty") << QString() << std::wstring();
    QTest::newRow("GUID") << QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}")
                          << std::wstring(L"{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");
    QTest::newRow("letters beyond Latin")
        << QString::fromUtf8("\xC3\xA9\xD0\xB6\xE4\xBD\xA0") << std::wstring(L"\u00e9\u0436\u4f60");
    QTest::newRow("beyond 16 bits")
        << QString::fromUtf8("a\xF0\x9F\x99\x82") << std::wstring(L"a\U0001F642");
    QTest::newRow("dots and blanks") << QStringLiteral(".. a .b") << std::wstring(L".. a .b");
}

void tst_VString::isAWidePath()
{
    QFETCH(QString, text);
    QFETCH(std::wstring, path);
    QVERIFY(VString(text).toPath() == path);
}

void tst_VString::startsEmpty()
{
    QVERIFY(VString().toPath().empty());
}

void tst_VString::usesTheSeparatorsOfThePlatform()
{
    const std::wstring separator(1, QDir::separator().unicode());
    QVERIFY(VString(QStringLiteral("/a/b")).toPath() == separator + L"a" + separator + L"b");
}

MV_TEST_MAIN(tst_VString)
#include "tst_VString.moc"
