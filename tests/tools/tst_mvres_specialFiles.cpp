// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace tst_mvres_specialFiles {

using Files = CatalogueFiles;

/// Tests catalogues that name devices, pipes and files of the user, and pipes in place of catalogue
/// files: nothing hangs, and nothing outside the trees is read.
class TestMvresUnusualFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void themeConfigs_data();
    void themeConfigs();
    void aThemeConfigInTheTreeIsRead();
    void pipesCountAsMissingForList_data();
    void pipesCountAsMissingForList();
    void pipesCountAsMissingForCheck_data();
    void pipesCountAsMissingForCheck();

private:
    void installTheme(const QString& config) const;
    QString themeState() const;
    QString expanded(QString path) const;
    void serveCatalogue();
    Outcome checkWith(const QString& path, const QStringList& missing, bool isPipe);

    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

namespace {

/// Deeper than any folder.
const QString up = QStringLiteral("/..").repeated(40);

const QString downloadedCatalogue = QStringLiteral("ROOT/Themes/ResourceConfig/resource_");
const QString installedCatalogue = QStringLiteral("INSTALLED/Resource/ResourceConfig/resource_");

QByteArray md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

QByteArray version(const QByteArray& display, const QByteArray& config)
{
    return "<ResourceVersion value=\"1.0.2\"><dislplay value=\"" + display + "\"/><config value=\""
        + config + "\"/></ResourceVersion>";
}

void makePipe(const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    UnusualFiles::makePipe(path);
}

/// Returns a theme's config that uses the filter of installTheme().
QByteArray usersXml()
{
    return SmallCatalogue::themeConfig({1});
}

} // namespace

void TestMvresUnusualFiles::init()
{
    m_mvres = Mvres();
    m_mvres.set("paths/appData", m_mvres.base() + text("/appdata"));
    m_mvres.set("network/downloadRetries", text("0"));
    m_mvres.set("params/hasMV", text("1"));
}

/// The filter lacks two files, so that reading a config that names it shows in the count.
void TestMvresUnusualFiles::installTheme(const QString& config) const
{
    SmallCatalogue catalogue;
    catalogue.addFilter(1, QString(), QString(), {text("/f/a.zip"), text("/f/b.zip")});
    catalogue.addTheme(2, text("Theme"), config);
    catalogue.writeTo(m_mvres.installed());
}

/// Returns the theme's state in the list, "ready" or "N missing", or why there is none.
QString TestMvresUnusualFiles::themeState() const
{
    const Outcome outcome = m_mvres.runLimited({text("list"), text("theme")});
    if (outcome.status != 0 || outcome.lines().size() != 1)
        return text("status %1: ").arg(outcome.status) + QString::fromUtf8(outcome.err);
    return outcome.lines().constFirst().section(text("  "), -1);
}

QString TestMvresUnusualFiles::expanded(QString path) const
{
    return path.replace(text("ROOT"), m_mvres.root())
        .replace(text("INSTALLED"), m_mvres.installed())
        .replace(text("BASE"), m_mvres.base());
}

void TestMvresUnusualFiles::themeConfigs_data()
{
    QTest::addColumn<QString>("config"); // as named in the catalogue
    QTest::addColumn<QString>("link");   // in the download tree: what it points to, or "pipe"
    QTest::addColumn<QString>("state");
    const QString missing = text("1 missing"); // the config
    const QString unknown = missing;           // present but not read
    const QString device = UnusualFiles::endlessDevice();
    QTest::newRow("device") << up + device << QString() << missing;
    QTest::newRow("file of the user") << up + text("BASE/user.xml") << QString() << missing;
    QTest::newRow("file of the user, encoded")
        << text("/%2e%2e").repeated(40) + text("BASE/user.xml") << QString() << missing;
    QTest::newRow("link to a device") << text("/Themes/t.xml") << device << missing;
    QTest::newRow("link to a file of the user")
        << text("/Themes/t.xml") << text("BASE/user.xml") << missing;
    QTest::newRow("in a linked folder")
        << text("/Themes/t.xml/user.xml") << text("BASE") << missing;
    if (!UnusualFiles::hasPipes)
        return;
    QTest::newRow("pipe") << up + text("BASE/pipe") << QString() << missing;
    QTest::newRow("link to a pipe") << text("/Themes/t.xml") << text("BASE/pipe") << missing;
    QTest::newRow("pipe in the tree") << text("/Themes/t.xml") << text("pipe") << unknown;
}

void TestMvresUnusualFiles::themeConfigs()
{
    QFETCH(QString, config);
    QFETCH(QString, link);
    QFETCH(QString, state);
    Files::write(expanded(text("BASE/user.xml")), usersXml());
    if (UnusualFiles::hasPipes)
        makePipe(expanded(text("BASE/pipe")));
    const QString place = m_mvres.downloadedFile(text("/Themes/t.xml"));
    if (link == text("pipe")) {
        makePipe(place);
    } else if (!link.isEmpty()) {
        QVERIFY(QDir().mkpath(QFileInfo(place).path()));
        MV_LINK(expanded(link), place);
    }
    installTheme(expanded(config));
    QCOMPARE(themeState(), state);
}

/// The rows above would show this state if the file had been read.
void TestMvresUnusualFiles::aThemeConfigInTheTreeIsRead()
{
    installTheme(text("/Themes/t.xml"));
    QCOMPARE(themeState(), text("1 missing"));
    Files::write(m_mvres.downloadedFile(text("/Themes/t.xml")), usersXml());
    QCOMPARE(themeState(), text("2 missing"));
}

void TestMvresUnusualFiles::pipesCountAsMissingForList_data()
{
    if (!UnusualFiles::hasPipes)
        QSKIP("This system's folders contain no pipes.");
    QTest::addColumn<QString>("pipe");
    for (const char* name : {"config.xml", "display.xml"}) {
        QTest::addRow("downloaded %s", name) << downloadedCatalogue + text(name);
        QTest::addRow("installed %s", name) << installedCatalogue + text(name);
    }
}

void TestMvresUnusualFiles::pipesCountAsMissingForList()
{
    QFETCH(QString, pipe);
    const QString path = expanded(pipe);
    installTheme(QString());
    QFile::remove(path);
    const Outcome without = m_mvres.runLimited({text("list"), text("theme")});
    makePipe(path);
    const Outcome with = m_mvres.runLimited({text("list"), text("theme")});
    QVERIFY(without.status >= 0);
    QCOMPARE(with.status, without.status);
    QCOMPARE(with.out, without.out);
}

void TestMvresUnusualFiles::serveCatalogue()
{
    const QString guid = Files::guid(3);
    const QByteArray config =
        Files::document(Files::cfgGroup(text("Filter"), {{guid, QString(), {}}}));
    const QByteArray display =
        Files::document(Files::displayCategory(text("Filter"), {{guid, text("New"), QString()}}));
    m_server = std::make_unique<FaultServer>(
        Routes::by({{"//ResourceConfig/resource_version_v3.xml",
                     Routes::body(version(md5(display), md5(config)))},
                    {"//ResourceConfig/resource_display.xml", Routes::body(display)},
                    {"//ResourceConfig/resource_config.xml", Routes::body(config)}}));
    m_mvres.setServer(m_server->url(text("/")));
}

void TestMvresUnusualFiles::pipesCountAsMissingForCheck_data()
{
    if (!UnusualFiles::hasPipes)
        QSKIP("This system's folders contain no pipes.");
    QTest::addColumn<QString>("pipe");
    QTest::addColumn<QStringList>("missing"); // makes the check look at the pipe
    for (const char* name : {"version.xml", "config.xml", "display.xml"}) {
        const QString downloaded = downloadedCatalogue + text(name);
        QTest::addRow("downloaded %s", name) << downloaded << QStringList();
        QTest::addRow("installed %s", name)
            << installedCatalogue + text(name) << QStringList(downloaded);
    }
}

/// Runs a check with `path` missing, or a pipe, after one that has fetched everything.
Outcome TestMvresUnusualFiles::checkWith(const QString& path, const QStringList& missing,
                                         bool isPipe)
{
    QDir(m_mvres.root()).removeRecursively();
    QFile::remove(path); // the pipe of an earlier call
    installTheme(QString());
    Files::write(expanded(installedCatalogue + text("version.xml")), version("0", "0"));
    const Outcome first = m_mvres.runLimited({text("check")});
    if (!first.out.contains("catalogue: changed"))
        return {};
    for (const QString& file : missing)
        QFile::remove(expanded(file));
    QFile::remove(path);
    if (isPipe)
        makePipe(path);
    return m_mvres.runLimited({text("check")});
}

void TestMvresUnusualFiles::pipesCountAsMissingForCheck()
{
    QFETCH(QString, pipe);
    QFETCH(QStringList, missing);
    const QString path = expanded(pipe);
    serveCatalogue();
    const Outcome without = checkWith(path, missing, false);
    const Outcome with = checkWith(path, missing, true);
    QVERIFY(without.status >= 0);
    QCOMPARE(with.status, without.status);
    QCOMPARE(with.out, without.out);
    // The check has replaced what it may write.
    if (missing.isEmpty())
        QVERIFY(QFileInfo(path).isFile());
}

MV_TEST_MAIN(TestMvresUnusualFiles)

} // namespace tst_mvres_specialFiles

#include "tst_mvres_specialFiles.moc"
