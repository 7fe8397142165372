// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QFileInfo>

class tst_AppOptions : public QObject
{
    Q_OBJECT

private slots:
    void isOneObject();
    void appDataPathFollowsTheSettings();
    void createsMissingFolders_data();
    void createsMissingFolders();
    void cannotCreateAFolder_data();
    void cannotCreateAFolder();
    void knowsItsEditions_data();
    void knowsItsEditions();
};

void tst_AppOptions::isOneObject()
{
    QVERIFY(AppOptions::instance());
    QCOMPARE(AppOptions::instance(), AppOptions::instance());
}

void tst_AppOptions::appDataPathFollowsTheSettings()
{
    hostSettings().appDataPath = QStringLiteral("/some/where");
    QCOMPARE(AppOptions::instance()->appDataPath(), QStringLiteral("/some/where"));
}

void tst_AppOptions::createsMissingFolders_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("one") << QStringLiteral("/one");
    QTest::newRow("exists by now") << QStringLiteral("/one");
    QTest::newRow("with parents") << QStringLiteral("/a/b/c");
    QTest::newRow("trailing slash") << QStringLiteral("/d/e/");
    QTest::newRow("doubled slashes") << QStringLiteral("//f//g");
    QTest::newRow("UTF-8 and blanks") << QString::fromUtf8("/\xC3\xA9 \xD0\xB6");
}

void tst_AppOptions::createsMissingFolders()
{
    QFETCH(QString, path);
    const QString folder = TestHome::path() + path;
    QVERIFY(AppOptions::instance()->ensureDirExists(folder));
    QVERIFY(QFileInfo(folder).isDir());
}

void tst_AppOptions::cannotCreateAFolder_data()
{
    QTest::addColumn<QString>("path");
    const QString file = TestHome::path() + QStringLiteral("/file");
    CatalogueFiles::write(file, "content");
    QTest::newRow("no path") << QString();
    QTest::newRow("a file of that name") << file;
    QTest::newRow("a file on the way") << file + QStringLiteral("/folder");
    QTest::newRow("not a place for folders") << QStringLiteral("/proc/self/folder");
}

void tst_AppOptions::cannotCreateAFolder()
{
    QFETCH(QString, path);
    QVERIFY(!AppOptions::instance()->ensureDirExists(path));
    QVERIFY(!QFileInfo(path).isDir());
}

void tst_AppOptions::knowsItsEditions_data()
{
    QTest::addColumn<QSet<int>>("editions");
    QTest::newRow("standard") << QSet<int>();
    for (int edition = 1; edition <= 5; ++edition)
        QTest::addRow("edition %d", edition) << QSet<int>{edition};
    QTest::newRow("two") << QSet<int>{1, 4};
    QTest::newRow("all") << QSet<int>{1, 2, 3, 4, 5};
    QTest::newRow("unknown ones") << QSet<int>{0, 6, -1};
}

void tst_AppOptions::knowsItsEditions()
{
    QFETCH(QSet<int>, editions);
    hostSettings().partnerEditions = editions;
    const AppOptions* options = AppOptions::instance();
    QCOMPARE(options->isPartnerEdition1(), editions.contains(1));
    QCOMPARE(options->isPartnerEdition2(), editions.contains(2));
    QCOMPARE(options->isPartnerEdition3(), editions.contains(3));
    QCOMPARE(options->isPartnerEdition4(), editions.contains(4));
    QCOMPARE(options->isPartnerEdition5(), editions.contains(5));
}

MV_TEST_MAIN(tst_AppOptions)
#include "tst_AppOptions.moc"
