// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <QDomDocument>

/// Tests the single function that opens XML files.
class tst_MVThemeMgr_checkXml : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void readsAFile();
    void refuses_data();
    void refuses();
    void missingFile();
    void folder();
    void emptyPath();
    void unreadableFileIsLoggedWithItsPathInUtf8();
    void textIsUtf8WhateverTheDocumentDeclares();
    void byteOrderMarkIsSkipped();
    void prefixesAreNotNamespaces();
    void doctypeWithoutSubsetIsRead();
    void aSecondFileReplacesTheDocument();

private:
    QString file(const QByteArray& content) const
    {
        QString path = m_fixture.base() + QStringLiteral("/document.xml");
        CatalogueFiles::write(path, content);
        return path;
    }

    CatalogueFixture m_fixture;
};

namespace {

/// Reads the file, and compares the result with the one log line that reports it.
bool check(const QString& path, QDomDocument& doc)
{
    const LogCapture log;
    const bool ok = CatalogueFixture::manager().checkXml(path, doc);
    const QByteArrayList expected{CatalogueFixture::checked(path, ok ? 1 : 0)};
    if (CatalogueFixture::described(log) != expected)
        qFatal("log: %s", CatalogueFixture::described(log).join('\n').constData());
    return ok;
}

} // namespace

void tst_MVThemeMgr_checkXml::readsAFile()
{
    QDomDocument doc;
    QVERIFY(check(file("<Root a=\"1\"><Child>text</Child></Root>"), doc));
    QCOMPARE(doc.documentElement().tagName(), QStringLiteral("Root"));
    QCOMPARE(doc.documentElement().firstChildElement(QStringLiteral("Child")).text(),
             QStringLiteral("text"));
}

void tst_MVThemeMgr_checkXml::refuses_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blanks") << QByteArray(" \n\t ");
    QTest::newRow("text") << QByteArray("no markup");
    QTest::newRow("declaration only") << QByteArray("<?xml version=\"1.0\"?>");
    QTest::newRow("not closed") << QByteArray("<a><b></b>");
    QTest::newRow("crossed") << QByteArray("<a><b></a></b>");
    QTest::newRow("two roots") << QByteArray("<a/><b/>");
    QTest::newRow("cut before a name") << QByteArray("<a><");
    QTest::newRow("cut in a tag") << QByteArray("<a><b");
    QTest::newRow("cut in a comment") << QByteArray("<a><!-- ");
    QTest::newRow("cut in CDATA") << QByteArray("<a><![CDATA[x</a>");
    QTest::newRow("cut in an attribute") << QByteArray("<a b=\"1/>");
    QTest::newRow("attribute without quotes") << QByteArray("<a b=1/>");
    QTest::newRow("ampersand") << QByteArray("<a>a & b</a>");
    QTest::newRow("HTML") << QByteArray("<!DOCTYPE html><html><body><br></body></html>");
}

void tst_MVThemeMgr_checkXml::refuses()
{
    QFETCH(QByteArray, content);
    QDomDocument doc;
    QVERIFY(!check(file(content), doc));
}

void tst_MVThemeMgr_checkXml::missingFile()
{
    QDomDocument doc;
    const QString path = m_fixture.base() + QStringLiteral("/missing.xml");
    QVERIFY(!check(path, doc));
    QVERIFY2(!QFile::exists(path), "reading creates nothing");
}

void tst_MVThemeMgr_checkXml::folder()
{
    QDomDocument doc;
    QVERIFY(!check(m_fixture.base(), doc));
}

void tst_MVThemeMgr_checkXml::emptyPath()
{
    QDomDocument doc;
    QVERIFY(!check(QString(), doc));
}

void tst_MVThemeMgr_checkXml::unreadableFileIsLoggedWithItsPathInUtf8()
{
    QDomDocument doc;
    const QString path = m_fixture.base() + QString::fromUtf8("/100%s/\xe6\xb5\xb7.xml");
    const LogCapture log;
    QVERIFY(!CatalogueFixture::manager().checkXml(path, doc));
    QCOMPARE(log.texts(), QByteArrayList{"checkXml [" + path.toUtf8() + "] is [0]!"});
}

void tst_MVThemeMgr_checkXml::textIsUtf8WhateverTheDocumentDeclares()
{
    QDomDocument doc;
    QVERIFY(check(file("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xc3\xa9</a>"), doc));
    QCOMPARE(doc.documentElement().text(), QString::fromUtf8("\xc3\xa9"));
}

void tst_MVThemeMgr_checkXml::byteOrderMarkIsSkipped()
{
    QDomDocument doc;
    QVERIFY(check(file("\xef\xbb\xbf<?xml version=\"1.0\"?><a>x</a>"), doc));
    QCOMPARE(doc.documentElement().text(), QStringLiteral("x"));
}

void tst_MVThemeMgr_checkXml::prefixesAreNotNamespaces()
{
    QDomDocument doc;
    QVERIFY(check(file("<x:a y:b=\"1\" xmlns=\"urn:n\"/>"), doc));
    QCOMPARE(doc.documentElement().tagName(), QStringLiteral("x:a"));
    QCOMPARE(doc.documentElement().namespaceURI(), QString());
    QCOMPARE(doc.documentElement().attribute(QStringLiteral("xmlns")), QStringLiteral("urn:n"));
}

void tst_MVThemeMgr_checkXml::doctypeWithoutSubsetIsRead()
{
    QDomDocument doc;
    QVERIFY(check(file("<!DOCTYPE a><a/>"), doc));
    QVERIFY(check(file("<!DOCTYPE a SYSTEM \"x[y.dtd\"><a/>"), doc));
    QVERIFY(check(file("<!DOCTYPE a PUBLIC \"-//x\" 'file:///etc/passwd'><a/>"), doc));
}

void tst_MVThemeMgr_checkXml::aSecondFileReplacesTheDocument()
{
    QDomDocument doc;
    QVERIFY(!check(file("<a><b>"), doc));
    QVERIFY(check(file("<c/>"), doc));
    QCOMPARE(doc.documentElement().tagName(), QStringLiteral("c"));
}

MV_TEST_MAIN(tst_MVThemeMgr_checkXml)
#include "tst_MVThemeMgr_checkXml.moc"
