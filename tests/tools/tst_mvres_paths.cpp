// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

/// Tests mvres paths.
class TestMvresPaths : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void printsAllPlaces();
    void printsTheSameAsJson();
    void dataFolderReplacesTheProgramsOwn();
    void serverEndsInASlash_data();
    void serverEndsInASlash();
    void serverOfTheParametersComesFirst();
    void serverMayBeUnknown();
    void rootIsMadeAbsoluteAndCreated();
    void rootIsBelowTheDataFolderUnlessNamed();
    void resourcesAreRelativeToTheWorkingFolder();

private:
    QString value(const QStringList& arguments, const char* key);

    Mvres m_mvres;
};

void TestMvresPaths::init()
{
    m_mvres = Mvres();
    m_mvres.useSamples();
}

/// Returns one value of `mvres paths --json` with only these options.
QString TestMvresPaths::value(const QStringList& arguments, const char* key)
{
    const Outcome outcome = ConsoleProgram::run(
        Mvres::program(),
        QStringList{QStringLiteral("paths"), QStringLiteral("--json")} + arguments, m_mvres.base());
    return QJsonDocument::fromJson(outcome.out)[QString::fromLatin1(key)].toString();
}

void TestMvresPaths::printsAllPlaces()
{
    m_mvres.setServer(QStringLiteral("http://host/tree/"));
    const Outcome outcome = m_mvres.run({QStringLiteral("paths")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QString expected =
        QStringLiteral("server                    http://host/tree/\n"
                       "resources                 I\n"
                       "root                      R\n"
                       "themeFavourites           D/ThemeCollect/ThemeCollect.json\n"
                       "filterFavourites          D/FilterCollect/FilterCollect.json\n"
                       "downloadVersion           R/Themes/ResourceConfig/resource_version.xml\n"
                       "downloadConfigCatalogue   R/Themes/ResourceConfig/resource_config.xml\n"
                       "downloadDisplayCatalogue  R/Themes/ResourceConfig/resource_display.xml\n"
                       "downloadConfigFiles       R/Themes/config/PQD/Download\n"
                       "downloadDisplayFiles      R/Themes/display/PQD/Download\n"
                       "installedVersion          I/Resource/ResourceConfig/resource_version.xml\n"
                       "installedConfigCatalogue  I/Resource/ResourceConfig/resource_config.xml\n"
                       "installedDisplayCatalogue I/Resource/ResourceConfig/resource_display.xml\n"
                       "installedConfigFiles      I/Resource\n"
                       "installedDisplayFiles     I/Resource/display\n");
    QString printed = QString::fromUtf8(outcome.out);
    printed.replace(m_mvres.root(), QStringLiteral("R"));
    printed.replace(m_mvres.data(), QStringLiteral("D"));
    printed.replace(m_mvres.installed(), QStringLiteral("I"));
    QCOMPARE(printed, expected);
}

void TestMvresPaths::printsTheSameAsJson()
{
    const QStringList lines = m_mvres.run({QStringLiteral("paths")}).lines();
    const Outcome outcome = m_mvres.run({QStringLiteral("paths"), QStringLiteral("--json")});
    QCOMPARE(outcome.status, 0);
    const QJsonObject object = QJsonDocument::fromJson(outcome.out).object();
    QCOMPARE(object.size(), lines.size());
    for (const QString& line : lines) {
        const int blank = line.indexOf(QLatin1Char(' '));
        QCOMPARE(object[line.left(blank)].toString(), line.mid(blank).trimmed());
    }
}

void TestMvresPaths::dataFolderReplacesTheProgramsOwn()
{
    const QString data = m_mvres.base() + QStringLiteral("/shared");
    CatalogueFiles::write(data + QStringLiteral("/settings.ini"),
                          "[params]\nurl_themeRootDir=http://data/\n");
    const auto place = [&](const char* key) {
        return value({QStringLiteral("--data"), data}, key);
    };
    QCOMPARE(place("server"), QStringLiteral("http://data/"));
    QCOMPARE(place("root"), data + QStringLiteral("/download"));
    QCOMPARE(place("resources"), data + QStringLiteral("/resources"));
    QCOMPARE(place("themeFavourites"), data + QStringLiteral("/ThemeCollect/ThemeCollect.json"));
    QCOMPARE(place("filterFavourites"), data + QStringLiteral("/FilterCollect/FilterCollect.json"));
}

void TestMvresPaths::serverEndsInASlash_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("used");
    const auto row = [](const char* name, const char* given, const char* used) {
        QTest::newRow(name) << QString::fromLatin1(given) << QString::fromLatin1(used);
    };
    row("with a slash", "http://host/", "http://host/");
    row("without", "http://host", "http://host/");
    row("with a port", "http://host:8080", "http://host:8080/");
    row("with a folder", "https://host/tree", "https://host/tree/");
}

void TestMvresPaths::serverEndsInASlash()
{
    QFETCH(QString, given);
    QFETCH(QString, used);
    QCOMPARE(value({QStringLiteral("--resources"), m_mvres.installed(), QStringLiteral("--server"),
                    given},
                   "server"),
             used);
}

void TestMvresPaths::serverOfTheParametersComesFirst()
{
    const QString param = QStringLiteral("--param");
    const QString server = QStringLiteral("url_themeRootDir=http://");
    QCOMPARE(value({QStringLiteral("--resources"), m_mvres.installed(), param,
                    server + QStringLiteral("first/"), param, server + QStringLiteral("last/?a=b"),
                    QStringLiteral("--server"), QStringLiteral("http://option/")},
                   "server"),
             QStringLiteral("http://last/?a=b"));
}

void TestMvresPaths::serverMayBeUnknown()
{
    QCOMPARE(m_mvres.run({QStringLiteral("paths")}).lines().constFirst(),
             QStringLiteral("server                    "));
}

void TestMvresPaths::rootIsMadeAbsoluteAndCreated()
{
    const QString root = m_mvres.base() + QStringLiteral("/new/root");
    QCOMPARE(value({QStringLiteral("--resources"), m_mvres.installed(), QStringLiteral("--root"),
                    QStringLiteral("./other/../new/root/")},
                   "root"),
             root);
    QVERIFY(QFileInfo(root + QStringLiteral("/Themes/config/PQD/Download/Motions")).isDir());
}

void TestMvresPaths::rootIsBelowTheDataFolderUnlessNamed()
{
#ifdef Q_OS_WIN // which has no variable for it
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                             .replace(QStringLiteral("/Local"), QStringLiteral("/Roaming"));
#else
    const QString data = TestHome::path() + QStringLiteral("/home/.local/share");
#endif
    QCOMPARE(value({QStringLiteral("--resources"), m_mvres.installed()}, "root"),
             data + QStringLiteral("/mvres/download"));
}

void TestMvresPaths::resourcesAreRelativeToTheWorkingFolder()
{
    QDir(m_mvres.base()).mkpath(QStringLiteral("here"));
    QFile::link(m_mvres.installed() + QStringLiteral("/Resource"),
                m_mvres.base() + QStringLiteral("/here/Resource"));
    QCOMPARE(value({QStringLiteral("--resources"), QStringLiteral("here/")}, "resources"),
             m_mvres.base() + QStringLiteral("/here"));
}

MV_TEST_MAIN(TestMvresPaths)
#include "tst_mvres_paths.moc"
