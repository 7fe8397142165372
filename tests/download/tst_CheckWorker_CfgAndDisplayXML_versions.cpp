// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "support/TestMain.h"

using namespace CheckLines;

using Files = CatalogueFiles;
using SVersion = CheckWorker_CfgAndDisplayXML::SVersion;

/// Tests reading version files, and how a check compares their numbers.
class tst_CheckWorker_CfgAndDisplayXML_versions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void newRecord();
    void readsAVersionFile_data();
    void readsAVersionFile();
    void unreadableFileEmptiesTheRecord_data();
    void unreadableFileEmptiesTheRecord();
    void missingElementLeavesTheChecksum();
    void largestVersionFile();
    void numbersAreComparedWithoutDots_data();
    void numbersAreComparedWithoutDots();
    void serverFileWithoutChecksumsEndsInSilence_data();
    void serverFileWithoutChecksumsEndsInSilence();
    void needIsOnlyEverSet();
    void themeVersion_data();
    void themeVersion();

private:
    QString write(const QByteArray& content) const
    {
        QString file = m_world.base() + QStringLiteral("/file.xml");
        Files::write(file, content);
        return file;
    }

    CheckWorld m_world;
};

namespace {

const QByteArray sumA = "0123456789abcdef0123456789abcdef";
const QByteArray sumB = "fedcba9876543210fedcba9876543210";

SVersion filled()
{
    SVersion version;
    version.m_qsVersion = QStringLiteral("9.9.9");
    version.m_qsVer_Display = QStringLiteral("display");
    version.m_qsVer_config = QStringLiteral("config");
    version.bLoadXMLOK = true;
    return version;
}

QByteArray utf16(const QByteArray& text)
{
    const QString string = QString::fromUtf8(text);
    return QByteArray("\xff\xfe")
        + QByteArray(reinterpret_cast<const char*>(string.utf16()), string.size() * 2);
}

} // namespace

void tst_CheckWorker_CfgAndDisplayXML_versions::init()
{
    m_world.fresh();
}

void tst_CheckWorker_CfgAndDisplayXML_versions::newRecord()
{
    const SVersion version;
    QVERIFY(version.m_qsVersion.isEmpty());
    QVERIFY(version.m_qsVer_Display.isEmpty());
    QVERIFY(version.m_qsVer_config.isEmpty());
    QVERIFY(!version.bLoadXMLOK);
    QVERIFY(version.m_hasVersion);
}

void tst_CheckWorker_CfgAndDisplayXML_versions::readsAVersionFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("config");
    QTest::addColumn<bool>("hasVersion");

    const QString a = QString::fromLatin1(sumA);
    const QString b = QString::fromLatin1(sumB);
    const QString v = QStringLiteral("1.0.2");
    QTest::newRow("usual") << CheckWorld::version("1.0.2", sumA, sumB) << v << a << b << true;
    QTest::newRow("any root tag") << QByteArray("<x value='1.0.2'><dislplay value='" + sumA
                                                + "'/><config value='" + sumB + "'/></x>")
                                  << v << a << b << true;
    QTest::newRow("upper case sums")
        << CheckWorld::version("1.0.2", sumA.toUpper(), sumB.toUpper()) << v << a << b << true;
    QTest::newRow("any order") << QByteArray("<x value='1.0.2'><config value='" + sumB
                                             + "'/><other/><dislplay value='" + sumA + "'/></x>")
                               << v << a << b << true;
    QTest::newRow("no version") << QByteArray("<x><dislplay value='" + sumA + "'/><config value='"
                                              + sumB + "'/></x>")
                                << QString() << a << b << false;
    QTest::newRow("empty version")
        << CheckWorld::version("", sumA, sumB) << QString() << a << b << true;
    QTest::newRow("version under another name")
        << QByteArray("<x version='1.0.2'/>") << QString() << QString() << QString() << false;
    QTest::newRow("display spelled well") << QByteArray("<x value='1.0.2'><display value='" + sumA
                                                        + "'/><config value='" + sumB + "'/></x>")
                                          << v << QString() << b << true;
    QTest::newRow("tags in capitals") << QByteArray("<x value='1.0.2'><DISLPLAY value='" + sumA
                                                    + "'/><Config value='" + sumB + "'/></x>")
                                      << v << QString() << QString() << true;
    QTest::newRow("sums as texts") << QByteArray("<x value='1.0.2'><dislplay>" + sumA
                                                 + "</dislplay><config>" + sumB + "</config></x>")
                                   << v << QString() << QString() << true;
    QTest::newRow("nested elements do not count")
        << QByteArray("<x value='1.0.2'><y><dislplay value='" + sumA + "'/></y></x>") << v
        << QString() << QString() << true;
    QTest::newRow("byte order mark")
        << QByteArray("\xef\xbb\xbf" + CheckWorld::version("1.0.2", sumA, sumB)) << v << a << b
        << true;
}

void tst_CheckWorker_CfgAndDisplayXML_versions::readsAVersionFile()
{
    QFETCH(QByteArray, content);
    const QString file = write(content);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    SVersion version;
    worker.getVersionInfo(file, version);
    QTEST(version.m_qsVersion, "version");
    QTEST(version.m_qsVer_Display, "display");
    QTEST(version.m_qsVer_config, "config");
    QTEST(version.m_hasVersion, "hasVersion");
    QVERIFY(version.bLoadXMLOK);
    QCOMPARE(trace.entries(), QStringList(checkXml(file, 1)));
}

void tst_CheckWorker_CfgAndDisplayXML_versions::unreadableFileEmptiesTheRecord_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray good = CheckWorld::version("1.0.2", sumA, sumB);
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("blank") << QByteArray(" ");
    QTest::newRow("not XML") << QByteArray("1.0.2");
    QTest::newRow("cut off") << good.left(good.size() / 2);
    QTest::newRow("UTF-16") << utf16(good);
    QTest::newRow("a NUL") << QByteArray(good).insert(60, '\0');
    QTest::newRow("entities") << QByteArray("<!DOCTYPE x [<!ENTITY e 'e'>]><x value='&e;'/>");
}

void tst_CheckWorker_CfgAndDisplayXML_versions::unreadableFileEmptiesTheRecord()
{
    QFETCH(QByteArray, content);
    const QString file =
        content.isEmpty() ? m_world.base() + QStringLiteral("/none.xml") : write(content);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    SVersion version = filled();
    worker.getVersionInfo(file, version);
    QVERIFY(version.m_qsVersion.isEmpty());
    QVERIFY(version.m_qsVer_Display.isEmpty());
    QVERIFY(version.m_qsVer_config.isEmpty());
    QVERIFY(!version.bLoadXMLOK);
    QVERIFY(!version.m_hasVersion);
    // The line before them names the limit exceeded.
    QCOMPARE(trace.entries().filter(QRegularExpression(QStringLiteral("^MVThemeMgr 1"))),
             (QStringList{checkXml(file, 0), versionFileError(file)}));
}

void tst_CheckWorker_CfgAndDisplayXML_versions::missingElementLeavesTheChecksum()
{
    CheckWorker_CfgAndDisplayXML worker;
    SVersion version = filled();
    worker.getVersionInfo(write("<x value='1'><config/></x>"), version);
    QCOMPARE(version.m_qsVer_Display, QStringLiteral("display"));
    QVERIFY(version.m_qsVer_config.isEmpty()); // the element exists but has no value
    QCOMPARE(version.m_qsVersion, QStringLiteral("1"));
}

void tst_CheckWorker_CfgAndDisplayXML_versions::largestVersionFile()
{
    QByteArray content = CheckWorld::version("1.0.2", sumA, sumB);
    content += QByteArray(64 * 1024 - content.size(), '\n');
    CheckWorker_CfgAndDisplayXML worker;
    SVersion version;
    worker.getVersionInfo(write(content), version);
    QVERIFY(version.bLoadXMLOK);
    const QString file = write(content + '\n');
    DownloadTrace trace;
    worker.getVersionInfo(file, version);
    QVERIFY(!version.bLoadXMLOK);
    QCOMPARE(trace.entries(), QStringList(versionFileError(file)));
}

void tst_CheckWorker_CfgAndDisplayXML_versions::numbersAreComparedWithoutDots_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::addColumn<QByteArray>("local");
    QTest::addColumn<int>("serverNumber");
    QTest::addColumn<int>("localNumber");

    const auto add = [](const char* server, const char* local, int serverNumber, int localNumber) {
        QTest::addRow("%s and %s", server, local)
            << QByteArray(server) << QByteArray(local) << serverNumber << localNumber;
    };
    add("1.0.2", "1.0.2", 102, 102);
    add("1.10.0", "1.1.00", 1100, 1100);
    add("1.10.0", "2.0.0", 1100, 200);
    add("2.0.0", "1.10.0", 200, 1100);
    add("102", "1.0.2", 102, 102);
    add("1.0.2.0", "1.0.2", 1020, 102);
    add("0.0.0", "", 0, 0);
    add("", "0.0.1", 0, 1);
    add("...", "", 0, 0);
    add("1.0.x", "1.0.1", 0, 101);
    add("v1.0.1", "1.0.1", 0, 101);
    add("1,0,2", "1.0.2", 0, 102);
    add("2147483647", "2147483646", 2147483647, 2147483646);
    add("2147483648", "1", 2147483647, 1);
    add("99999999999", "1.0.2", 2147483647, 102);
    add("1.0.99999999999999999999", "1.0.2", 2147483647, 102);
    add("1.0.2", "99999999999", 102, 2147483647);
    add("99999999999x", "1.0.2", 0, 102);
    add("-99999999999", "0", 0, 0);
    add("-1.0", "0", -10, 0);
    add("0x10", "0", 0, 0);
    add("010", "8", 10, 8);
}

void tst_CheckWorker_CfgAndDisplayXML_versions::numbersAreComparedWithoutDots()
{
    QFETCH(QByteArray, server);
    QFETCH(QByteArray, local);
    QFETCH(int, serverNumber);
    QFETCH(int, localNumber);
    m_world.publish(server, "<d/>", "<c/>");
    m_world.install(local, CheckWorld::md5("<d/>"), CheckWorld::md5("<c/>"));
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    const QStringList lines = numbers({serverNumber, 1, 1}, {0, 0, 0}, {localNumber, 1, 1});
    for (const QString& line : lines)
        QVERIFY2(trace.contains(line), qPrintable(line));
    QCOMPARE(trace.count(newer()), int(serverNumber > localNumber));
    QCOMPARE(trace.count(older()), int(serverNumber < localNumber));
    QCOMPARE(trace.count(same()), int(serverNumber == localNumber));
    QCOMPARE(trace.count(QStringLiteral("update")), int(serverNumber > localNumber));
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_versions::serverFileWithoutChecksumsEndsInSilence_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("config");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<bool>("wellFormed");

    QTest::newRow("no config") << CheckWorld::version("1.0.2", sumA, "") << QByteArray() << sumA
                               << true;
    QTest::newRow("no display") << CheckWorld::version("1.0.2", "", sumB) << sumB << QByteArray()
                                << true;
    QTest::newRow("neither") << CheckWorld::version("1.0.2", "", "") << QByteArray() << QByteArray()
                             << true;
    QTest::newRow("display spelled well")
        << CheckWorld::version("1.0.2", sumA, sumB).replace("dislplay", "display") << sumB
        << QByteArray() << true;
    QTest::newRow("malformed") << QByteArray("<x") << QByteArray() << QByteArray() << false;
    QTest::newRow("empty") << QByteArray("") << QByteArray() << QByteArray() << false;
}

void tst_CheckWorker_CfgAndDisplayXML_versions::serverFileWithoutChecksumsEndsInSilence()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, config);
    QFETCH(QByteArray, display);
    QFETCH(bool, wellFormed);
    m_world.serve(CheckWorld::versionTarget, content);
    m_world.install("1.0.2", sumA, sumB);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    const QString url = m_world.server().url(QString::fromLatin1(CheckWorld::versionTarget));
    const QString file = m_world.temp() + QStringLiteral("//resource_version.xml");
    QStringList expected{versionUrl(url)};
    expected << versionOk(url, file) << checkXml(file, wellFormed);
    if (!wellFormed)
        expected << versionFileError(file);
    expected << sums("m_sVer_Ser", 2, config, display) << noSums() << QStringLiteral("result 5");
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(m_world.targets().size(), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_versions::needIsOnlyEverSet()
{
    m_world.publish("1.0.2", "<d/>", "<c/>");
    m_world.install("1.0.2", CheckWorld::md5("<d/>"), CheckWorld::md5("<c/>"));
    CheckWorker_CfgAndDisplayXML worker;
    worker.onStartDownloadXML(QString());
    bool config = true;
    bool display = true;
    worker.checkNeedUpdate(config, display);
    QVERIFY(config);
    QVERIFY(display);
    config = false;
    display = false;
    worker.checkNeedUpdate(config, display);
    QVERIFY(!config);
    QVERIFY(!display);
}

void tst_CheckWorker_CfgAndDisplayXML_versions::themeVersion_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("number");
    QTest::newRow("three digits") << QByteArray("<x><Theme Version='1.2.3'/></x>") << 123;
    QTest::newRow("parts above nine") << QByteArray("<x><Theme Version='1.12.3'/></x>") << 223;
    QTest::newRow("the first theme counts")
        << QByteArray("<x><a/><Theme Version='1.0.0'/><Theme Version='2.0.0'/></x>") << 100;
    QTest::newRow("two parts") << QByteArray("<x><Theme Version='1.2'/></x>") << 0;
    QTest::newRow("four parts") << QByteArray("<x><Theme Version='1.2.3.4'/></x>") << 0;
    QTest::newRow("not numbers") << QByteArray("<x><Theme Version='a.b.c'/></x>") << 0;
    QTest::newRow("no version") << QByteArray("<x><Theme/></x>") << 0;
    QTest::newRow("no theme") << QByteArray("<x/>") << 0;
    QTest::newRow("malformed") << QByteArray("<x>") << 0;
}

void tst_CheckWorker_CfgAndDisplayXML_versions::themeVersion()
{
    QFETCH(QByteArray, content);
    const QString file = write(content);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    QTEST(worker.readVersionFromXML(file), "number");
    QCOMPARE(trace.count(line("MVThemeDownLoader_DisplayXML", 1,
                              QStringLiteral("parseData setContent is error!"))),
             int(content == "<x>"));
}

MV_TEST_MAIN(tst_CheckWorker_CfgAndDisplayXML_versions)

#include "tst_CheckWorker_CfgAndDisplayXML_versions.moc"
