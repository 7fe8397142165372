// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

/// Tests mvres builtin: extracting the built-in items from the samples' full tree.
class TestMvresBuiltin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void samples();
    void relativeFolder();
    void failures_data();
    void failures();

private:
    QString dev() const { return m_mvres.base() + text("/Resource"); }
    Mvres m_mvres;
};

void TestMvresBuiltin::init()
{
    m_mvres = Mvres();
    m_mvres.useSamples();
    const QString from = Mvres::samples() + text("/server/config/");
    const QStringList files = CatalogueFiles::filesBelow(from);
    for (const QString& file : files)
        CatalogueFiles::write(dev() + text("/config/") + file, CatalogueFiles::read(from + file));
}

/// The samples' installation is such an extract, including all that its themes need.
void TestMvresBuiltin::samples()
{
    const Outcome outcome = m_mvres.run({text("builtin"), dev()});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QStringList made = CatalogueFiles::filesBelow(dev() + text("/config_local"));
    QVERIFY(outcome.lines().constFirst().startsWith(
        dev() + text("/config_local: %1 files, ").arg(made.size())));
    for (const char* kind : {"VideoFilters", "Transitions", "Motions", "Themes"})
        QVERIFY2(!made.filter(text(kind) + QLatin1Char('/')).isEmpty(), kind);
    for (const QString& file : made) {
        QCOMPARE(CatalogueFiles::read(dev() + text("/config_local/") + file),
                 CatalogueFiles::read(dev() + text("/config/") + file));
    }
}

void TestMvresBuiltin::relativeFolder()
{
    QProcess process;
    process.setWorkingDirectory(m_mvres.base());
    m_mvres.start(process, {text("builtin"), text("./Resource/"), text("--json")});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.status, 0);
    const QJsonObject told = QJsonDocument::fromJson(outcome.out).object();
    QCOMPARE(told.value(text("folder")).toString(), dev() + text("/config_local"));
    QCOMPARE(told.value(text("files")).toInt(),
             CatalogueFiles::filesBelow(dev() + text("/config_local")).size());
    QVERIFY(told.value(text("bytes")).toInt() > 0);
}

void TestMvresBuiltin::failures_data()
{
    QTest::addColumn<QString>("folder"); // relative to the test's folder
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << text("/none") << QStringList()
                             << text("no such folder: BASE/none/config");
    QTest::newRow("without themes")
        << text("/Resource") << QStringList{text("--resources"), text("BASE/oneTheme")}
        << text("the catalogue shows fewer than two themes");
}

void TestMvresBuiltin::failures()
{
    QFETCH(QString, folder);
    QFETCH(QStringList, options);
    QFETCH(QString, message);
    CatalogueFiles::write(
        m_mvres.base() + text("/oneTheme/Resource/ResourceConfig/resource_config.xml"),
        CatalogueFiles::document(
            CatalogueFiles::cfgGroup(text("Theme"), {{CatalogueFiles::guid(1), {}, {}}})));
    message.replace(text("BASE"), m_mvres.base());
    options.replaceInStrings(text("BASE"), m_mvres.base());
    const Outcome outcome =
        m_mvres.run(QStringList{text("builtin"), m_mvres.base() + folder} + options);
    QCOMPARE(outcome.err, "mvres: " + message.toUtf8() + '\n');
    QCOMPARE(outcome.status, 1);
    QVERIFY(!QDir(dev() + text("/config_local")).exists());
}

MV_TEST_MAIN(TestMvresBuiltin)
#include "tst_mvres_builtin.moc"
