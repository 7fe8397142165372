// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "XmlTexts.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QJsonArray>

/// Tests mvpublish build with texts in every script and with XML's special characters.
class TestMvpublishTexts : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void namesOfEveryScript_data();
    void namesOfEveryScript();
    void everyTextComesBack();

private:
    static QString m_out;
};

QString TestMvpublishTexts::m_out;

void TestMvpublishTexts::init()
{
    m_out = home(QTest::currentTestFunction()) + text("/tree");
    QDir().mkpath(QFileInfo(m_out).path());
}

void TestMvpublishTexts::namesOfEveryScript_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("emoji") << text("Party \xf0\x9f\x8e\x89");
    QTest::newRow("joined emoji") << text("\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x8e\xa8");
    QTest::newRow("rare Chinese") << text("\xf0\xa0\x80\x8b\xf0\xaa\x9a\xa5");
    QTest::newRow("Devanagari with a joiner")
        << text("\xe0\xa4\x95\xe0\xa5\x8d\xe2\x80\x8d\xe0\xa4\xb7");
}

void TestMvpublishTexts::namesOfEveryScript()
{
    QFETCH(QString, name);
    const SmallSource source(home("source"));
    source.set(text("zoom"), "name", name);
    CatalogueFiles::write(source.file(text("zoom/") + name), "x");
    source.set(text("zoom"), "files", QJsonArray{name});
    QProcess process;
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    process.start(Mvpublish::program(), {text("build"), source.folder(), m_out});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QDomElement display = parse(m_out + text("/ResourceConfig/resource_display.xml"));
    QCOMPARE(texts(display.firstChildElement(text("Motion")), "Name"), QStringList{name});
}

void TestMvpublishTexts::everyTextComesBack()
{
    const SmallSource source(home("source"));
    const QString odd = text("a\tb\n<&\"'> \xf0\x9f\x8e\x89");
    source.set(text("look"), "parameters", QJsonObject{{odd, odd}});
    source.set(text("film"), "mask",
               QJsonObject{{text("Filter"),
                            QJsonObject{{text("item"), text("look")},
                                        {text("attributes"),
                                         QJsonObject{{text("St\xc3\xa4rke_1.a-b"), odd}}}}}});
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDomElement look = parse(m_out + text("/config/VideoFilters/")
                                   + SmallSource::guid(text("look")) + text(".xml"));
    const QDomElement parameter =
        look.firstChildElement(text("Parameters")).firstChildElement(text("Parameter"));
    QCOMPARE(parameter.attribute(text("Name")), odd);
    QCOMPARE(parameter.attribute(text("Value")), odd);
    SThemes_a* theme = nullptr;
    MVThemeMgr::init()->read_resource_config_Themes_a(
        m_out + text("/config/Themes/") + SmallSource::guid(text("film")) + text(".xml"), theme);
    QVERIFY(theme);
    QCOMPARE(theme->m_aMask.at(eDependType_Filter).m_mapAttr.value(text("St\xc3\xa4rke_1.a-b")),
             odd);
}

MV_TEST_MAIN(TestMvpublishTexts)
#include "tst_mvpublish_texts.moc"
