// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/IniFile.h"
#include "host/Unprivileged.h"
#include "support/UnusualFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tst_HostSettingsErrors {

namespace {

/// Returns every setting as text, to compare two states.
QStringList everything(const HostSettings& s)
{
    QStringList result{s.resourcesPath,
                       s.dataLocation,
                       s.appDataPath,
                       s.testOutputDir,
                       s.developerResourceRoot,
                       s.currentSkin,
                       QString::number(s.zoomDPI),
                       QString::number(s.connectTimeoutMs),
                       QString::number(s.stallTimeoutMs),
                       QString::number(s.versionTimeoutMs),
                       QString::number(s.leftButtonOnly),
                       QString::number(s.lastChoiceWins),
                       QString::number(s.cellsOnDemand),
                       QString::number(s.decodeInBackground),
                       QString::number(s.checkContent),
                       QString::number(s.showWithoutPreviews),
                       QString::number(s.conditionalRequests),
                       QString::number(s.transfersSideBySide),
                       QString::number(s.downloadStepMs),
                       QString::number(s.checkSpreadSeconds),
                       QString::number(s.maxDownloadBytes),
                       QString::number(s.downloadRetries),
                       QString::number(s.retryPauseMs),
                       QString::number(s.retryPauseMaxMs),
                       s.proxy,
                       s.caFile};
    for (int edition = 1; edition <= 5; ++edition)
        result << QString::number(s.partnerEditions.contains(edition));
    for (auto it = s.productParams.cbegin(); it != s.productParams.cend(); ++it)
        result << it.key() << it.value();
    return result;
}

/// Valid values, which a failure must not apply in part.
const QByteArray validPart = "[ui]\nskin=Calm\n[network]\nproxy=p\n[params]\na=1\n";

} // namespace

class tst_HostSettingsErrors : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings() = HostSettings(); }

    void refusesAnythingButAFile_data();
    void refusesAnythingButAFile();
    void refusesAFileThatCannotBeRead();
    void refusesAFileWhoseReadingFails();
    void refusesAMalformedFile_data();
    void refusesAMalformedFile();
    void refusesAnUnknownKey_data();
    void refusesAnUnknownKey();
    void refusesAValueOutOfRange_data();
    void refusesAValueOutOfRange();
};

void tst_HostSettingsErrors::refusesAnythingButAFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    const auto missing = QStringLiteral("no such file");
    QTest::newRow("missing") << TestHome::path() + QStringLiteral("/none.ini") << missing;
    QTest::newRow("missing folder")
        << TestHome::path() + QStringLiteral("/none/none.ini") << missing;
    QTest::newRow("no name") << QString() << missing;
    const auto other = QStringLiteral("the file cannot be read: not a regular file");
    QTest::newRow("folder") << TestHome::path() << other;
    if (!UnusualFiles::hasPipes)
        return; // nor are there devices among the files
    QTest::newRow("device") << UnusualFiles::endlessDevice() << other;
    const QString pipe = TestHome::path() + QStringLiteral("/pipe");
    UnusualFiles::makePipe(pipe);
    QTest::newRow("pipe") << pipe << other;
}

void tst_HostSettingsErrors::refusesAnythingButAFile()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const QStringList before = everything(hostSettings());
    QString error;
    QVERIFY(!loadHostSettings(path, &error));
    QCOMPARE(error, path + QStringLiteral(": ") + reason);
    QCOMPARE(everything(hostSettings()), before);
}

void tst_HostSettingsErrors::refusesAFileThatCannotBeRead()
{
    const QString path = iniFile("[ui]\nskin=Calm\n");
    QVERIFY(QFile::setPermissions(path, QFile::WriteOwner));
    // The permissions of a folder alone may hide the file.
    for (const QString& folder : {TestHome::path(), QFileInfo(path).path()})
        QVERIFY(QFile::setPermissions(folder,
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                          | QFile::ExeGroup | QFile::ExeOther));
    const QStringList before = everything(hostSettings());
    QString error;
    {
        const Unprivileged rights;
        if (!rights.isActive())
            QSKIP("the rights of root cannot be given up here");
        QVERIFY(!loadHostSettings(path, &error));
    }
    QCOMPARE(error, path + QStringLiteral(": the file cannot be read: Permission denied"));
    QCOMPARE(everything(hostSettings()), before);
}

void tst_HostSettingsErrors::refusesAFileWhoseReadingFails()
{
    const QString path = QStringLiteral("/proc/self/mem"); // offset 0 cannot be read
#ifdef Q_OS_WIN
    QSKIP("This system has no file whose reading fails.");
#endif
    QString error;
    QVERIFY(!loadHostSettings(path, &error));
    QCOMPARE(error, path + QStringLiteral(": the file cannot be read: Input/output error"));
}

void tst_HostSettingsErrors::refusesAMalformedFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("at its end") << validPart + "junk\n"
                                << QStringLiteral(":7: expected \"key = value\"");
    QTest::newRow("before the first section") << "; comment\nskin=Calm\n"
            + validPart << QStringLiteral(":2: expected a \"[section]\" before the first setting");
    QTest::newRow("prose") << QByteArray("This is a letter,\nnot a settings file.\n")
                           << QStringLiteral(":1: expected \"key = value\"");
    QTest::newRow("XML") << QByteArray("<?xml version='1.0'?>\n<a/>\n")
                         << QStringLiteral(":1: expected a \"[section]\"");
}

void tst_HostSettingsErrors::refusesAMalformedFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString path = iniFile(content);
    const QStringList before = everything(hostSettings());
    QString error;
    for (int attempt = 1; attempt <= 2; ++attempt) {
        QVERIFY2(!loadHostSettings(path, &error), QByteArray::number(attempt).constData());
        QVERIFY2(error.startsWith(path + reason), qPrintable(error));
    }
    QCOMPARE(everything(hostSettings()), before);
}

void tst_HostSettingsErrors::refusesAnUnknownKey_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("key");
    const auto row = [](const char* section, const char* key) {
        const QByteArray name = QByteArray(section) + '/' + key;
        QTest::newRow(name.constData()) << validPart + '[' + section + "]\n" + key + "=1\n"
                                        << QString::fromLatin1(name);
    };
    row("paths", "Resources");
    row("paths", "themes");
    row("ui", "zoom");
    row("UI", "skin");
    row("product", "edition");
    row("network", "timeout");
    row("network", "ConnectTimeoutMs");
    row("param", "hasMV");
    row("params/a", "b");
}

void tst_HostSettingsErrors::refusesAnUnknownKey()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, key);
    const QString path = iniFile(content);
    const QStringList before = everything(hostSettings());
    QString error;
    QVERIFY(!loadHostSettings(path, &error));
    QCOMPARE(error, path + QStringLiteral(":8: unknown setting ") + key);
    QCOMPARE(everything(hostSettings()), before);
}

void tst_HostSettingsErrors::refusesAValueOutOfRange_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("reason");

    const auto whole = [](const char* key, const char* value, const char* range) {
        QTest::addRow("%s = %s", key, value)
            << QByteArray(key) << QByteArray(value)
            << QStringLiteral("%1 is \"%2\", but must be a whole number from %3")
                   .arg(QLatin1String(key), QLatin1String(value), QLatin1String(range));
    };
    for (const char* key :
         {"network/connectTimeoutMs", "network/stallTimeoutMs", "network/versionTimeoutMs"}) {
        for (const char* value : {"0", "-1", "2147483648", "1.5", "soon", "", "1s"})
            whole(key, value, "1 to 2147483647");
    }
    for (const char* value : {"0", "33", "six"})
        whole("network/transfersSideBySide", value, "1 to 32");
    for (const char* value : {"-1", "86401", "1h"})
        whole("network/checkSpreadSeconds", value, "0 to 86400");
    for (const char* key :
         {"network/retryPauseMs", "network/retryPauseMaxMs", "network/downloadStepMs"}) {
        for (const char* value : {"-1", "2147483648", "x"})
            whole(key, value, "0 to 2147483647");
    }
    for (const char* value : {"0", "-5", "9223372036854775808", "2G"})
        whole("network/maxDownloadBytes", value, "1 to 9223372036854775807");
    for (const char* value : {"-1", "101", "two"})
        whole("network/downloadRetries", value, "0 to 100");
    for (const char* value : {"0", "6", "-1", "first", "1.0", "%3"})
        whole("product/editions", value, "1 to 5");

    const auto zoom = [](const char* value) {
        QTest::addRow("ui/zoomDPI = %s", value)
            << QByteArray("ui/zoomDPI") << QByteArray(value)
            << QStringLiteral("ui/zoomDPI is \"%1\", but must be a number from 0.1 to 16")
                   .arg(QLatin1String(value));
    };
    for (const char* value : {"0.09", "0", "-1", "16.01", "nan", "inf", "big", "", "1, 5", "%2"})
        zoom(value);

    for (const char* key :
         {"ui/leftButtonOnly", "ui/lastChoiceWins", "ui/cellsOnDemand", "ui/showWithoutPreviews",
          "ui/decodeInBackground", "network/checkContent", "network/conditionalRequests"}) {
        for (const char* value : {"", "1", "True", "FALSE", "yes", "truefalse"})
            QTest::addRow("%s = %s", key, value)
                << QByteArray(key) << QByteArray(value)
                << QStringLiteral("%1 is \"%2\", but must be true or false")
                       .arg(QLatin1String(key), QLatin1String(value));
    }
    for (const char* key : {"paths/resources", "paths/data", "paths/appData", "paths/testOutput",
                            "paths/developerResource", "network/caFile"})
        QTest::addRow("%s is empty", key)
            << QByteArray(key) << QByteArray() << QLatin1String(key) + QStringLiteral(" is empty");
}

void tst_HostSettingsErrors::refusesAValueOutOfRange()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, reason);
    const int slash = key.indexOf('/');
    const QString path = iniFile(validPart + '[' + key.left(slash) + "]\n" + key.mid(slash + 1)
                                 + '=' + value + '\n');
    const QStringList before = everything(hostSettings());
    QString error;
    QVERIFY(!loadHostSettings(path, &error));
    QCOMPARE(error, path + QStringLiteral(":8: ") + reason);
    QCOMPARE(everything(hostSettings()), before);
}

MV_TEST_MAIN(tst_HostSettingsErrors)

} // namespace tst_HostSettingsErrors

#include "tst_HostSettingsErrors.moc"
