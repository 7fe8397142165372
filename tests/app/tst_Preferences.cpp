// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Preferences.h"

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// Returns an unused path in a folder that does not exist yet.
QString freshPath()
{
    static int number = 0;
    return TestHome::path() + QStringLiteral("/preferences%1/file.json").arg(++number);
}

/// Returns every value as text, to compare two states.
QStringList everything(const Preferences& preferences)
{
    QStringList result{QString::number(preferences.tab()),
                       QString::number(preferences.themeType()),
                       QString::fromLatin1(preferences.geometry().toHex()),
                       preferences.skin(),
                       preferences.language(),
                       QString::number(preferences.scale()),
                       QString::number(static_cast<int>(preferences.order())),
                       preferences.server(),
                       preferences.downloadFolder(),
                       QString::number(preferences.connections()),
                       QString::number(preferences.isAppliedByClick()),
                       QString::number(static_cast<int>(preferences.motion())),
                       QString::number(preferences.isMotionReduced())};
    const QList<int> sizes = preferences.splitterSizes();
    for (const int size : sizes)
        result << QString::number(size);
    return result;
}

QStringList defaults()
{
    return everything(Preferences(freshPath()));
}

} // namespace

/// Tests the editor's preferences, including recovery from damaged files.
class tst_Preferences : public QObject
{
    Q_OBJECT

private slots:
    void valuesStay();
    void changesOfTwoProcessesAddUp();
    void anEmptyFileHoldsNothing();
    void aValueCanBeTakenBack();
    void whatCannotBeStoredIsTold();
    void aDamagedFileIsKeptAside_data();
    void aDamagedFileIsKeptAside();
    void aFileThatIsKeptAsideReplacesNone();
    void senselessValuesReadAsDefaults_data();
    void senselessValuesReadAsDefaults();
    void anythingButAFileIsLeftAlone_data();
    void anythingButAFileIsLeftAlone();
};

void tst_Preferences::valuesStay()
{
    const QString path = freshPath();
    QByteArray geometry("\0\xFF geometry", 11);
    {
        Preferences preferences(path);
        preferences.setTab(2);
        preferences.setThemeType(3);
        preferences.setOrder(EListOrder::Size);
        preferences.setServer(QStringLiteral("http://server/tree/"));
        preferences.setDownloadFolder(QStringLiteral("/some/folder"));
        preferences.setConnections(32);
        preferences.setAppliedByClick(false);
        preferences.setGeometry(geometry);
        preferences.setSplitterSizes({700, 0});
        preferences.setSkin(QStringLiteral("Elegance"));
        preferences.setLanguage(QStringLiteral("ja"));
        preferences.setScale(125);
        preferences.setMotion(Preferences::Motion::Reduced);
    }
    const Preferences preferences(path);
    QCOMPARE(preferences.problem(), QString());
    QCOMPARE(preferences.tab(), 2);
    QCOMPARE(preferences.themeType(), 3);
    QCOMPARE(preferences.order(), EListOrder::Size);
    QCOMPARE(preferences.server(), QStringLiteral("http://server/tree/"));
    QCOMPARE(preferences.downloadFolder(), QStringLiteral("/some/folder"));
    QCOMPARE(preferences.connections(), 32);
    QVERIFY(!preferences.isAppliedByClick());
    QCOMPARE(preferences.geometry(), geometry);
    QCOMPARE(preferences.splitterSizes(), (QList<int>{700, 0}));
    QCOMPARE(preferences.skin(), QStringLiteral("Elegance"));
    QCOMPARE(preferences.language(), QStringLiteral("ja"));
    QCOMPARE(preferences.scale(), 125);
    QVERIFY(preferences.isMotionReduced());
}

void tst_Preferences::changesOfTwoProcessesAddUp()
{
    const QString path = freshPath();
    Preferences one(path);
    Preferences other(path);
    one.setTab(1);
    other.setScale(150);
    one.setMotion(Preferences::Motion::Reduced);
    const Preferences later(path);
    QCOMPARE(later.tab(), 1);
    QCOMPARE(later.scale(), 150);
    QVERIFY(later.isMotionReduced());
}

void tst_Preferences::aValueCanBeTakenBack()
{
    const QString path = freshPath();
    Preferences preferences(path);
    preferences.setMotion(Preferences::Motion::Full);
    QCOMPARE(Preferences(path).motion(), Preferences::Motion::Full);
    preferences.setMotion(Preferences::Motion::AsDesktop);
    QCOMPARE(Preferences(path).motion(), Preferences::Motion::AsDesktop);
}

void tst_Preferences::whatCannotBeStoredIsTold()
{
    const QString path = freshPath();
    Preferences preferences(path);
    preferences.setTab(1);
    QCOMPARE(preferences.storeError(), QString());
    // Not even the superuser can replace a folder with a file.
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/sub")));
    preferences.setTab(2);
    QVERIFY2(preferences.storeError().contains(path), qPrintable(preferences.storeError()));
}

void tst_Preferences::anEmptyFileHoldsNothing()
{
    const QString path = freshPath();
    CatalogueFiles::write(path, QByteArray());
    const Preferences preferences(path);
    QCOMPARE(preferences.problem(), QString());
    QCOMPARE(everything(preferences), defaults());
}

void tst_Preferences::aDamagedFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("serialized value")
        << QByteArray("[view]\nskin=@Variant(\\0\\0\\0\\v\\x7f\\xff\\xff\\xf0)\n");
    QTest::newRow("cut") << QByteArray("{\"tab\": 1, \"sk");
    QTest::newRow("an array") << QByteArray("[1, 2]");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("not UTF-8") << QByteArray("{\"skin\": \"\xE9\"}");
    QTest::newRow("nested too deep") << QByteArray(100000, '[');
    QTest::newRow("too large") << '{' + QByteArray(1024 * 1024, ' ') + '}';
}

void tst_Preferences::aDamagedFileIsKeptAside()
{
    QFETCH(QByteArray, content);
    const QString path = freshPath();
    const QString kept = path + QStringLiteral(".damaged-1");
    CatalogueFiles::write(path, content);
    Preferences preferences(path);
    QVERIFY2(preferences.problem().endsWith(kept), qPrintable(preferences.problem()));
    QCOMPARE(CatalogueFiles::read(kept), content);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(everything(preferences), defaults());

    preferences.setTab(1);
    const Preferences later(path);
    QCOMPARE(later.problem(), QString());
    QCOMPARE(later.tab(), 1);
    QCOMPARE(CatalogueFiles::read(kept), content);
}

void tst_Preferences::aFileThatIsKeptAsideReplacesNone()
{
    const QString path = freshPath();
    for (const char* content : {"one", "two", "three"}) {
        CatalogueFiles::write(path, content);
        const Preferences preferences(path);
    }
    QCOMPARE(CatalogueFiles::read(path + QStringLiteral(".damaged-1")), QByteArray("one"));
    QCOMPARE(CatalogueFiles::read(path + QStringLiteral(".damaged-2")), QByteArray("two"));
    QCOMPARE(CatalogueFiles::read(path + QStringLiteral(".damaged-3")), QByteArray("three"));
}

void tst_Preferences::senselessValuesReadAsDefaults_data()
{
    QTest::addColumn<QByteArray>("content");
    for (const char* values : {R"("tab": -1)",
                               R"("tab": "1")",
                               R"("tab": 0.5)",
                               R"("tab": 1e300)",
                               R"("themeType": 5)",
                               R"("themeType": -1)",
                               R"("themeType": 1)",
                               R"("order": 4)",
                               R"("order": -1)",
                               R"("server": "ftp://server/")",
                               R"("server": "http://server/?query")",
                               R"("server": 5)",
                               R"("downloadFolder": "relative/folder")",
                               R"("connections": 33)",
                               R"("connections": -1)",
                               R"("applyByClick": "false")",
                               R"("themeType": [0])",
                               R"("geometry": 5)",
                               R"("geometry": {})",
                               R"("splitterSizes": [1, -1])",
                               R"("splitterSizes": [1, "1"])",
                               R"("splitterSizes": [1, 2147483647])",
                               R"("splitterSizes": [1, 1e300])",
                               R"("splitterSizes": 1)",
                               R"("skin": "none")",
                               R"("skin": 1)",
                               R"("skin": null)",
                               R"("language": "none")",
                               R"("language": true)",
                               R"("scale": 49)",
                               R"("scale": 401)",
                               R"("scale": "100")",
                               R"("reduceMotion": "true")",
                               R"("reduceMotion": 1)",
                               R"("unknown": 1)"})
        QTest::newRow(values) << '{' + QByteArray(values) + '}';
}

void tst_Preferences::senselessValuesReadAsDefaults()
{
    QFETCH(QByteArray, content);
    const QString path = freshPath();
    CatalogueFiles::write(path, content);
    const Preferences preferences(path);
    QCOMPARE(preferences.problem(), QString());
    QCOMPARE(everything(preferences), defaults());
    QCOMPARE(CatalogueFiles::read(path), content);
}

void tst_Preferences::anythingButAFileIsLeftAlone_data()
{
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("folder") << true;
    if (UnusualFiles::hasPipes)
        QTest::newRow("pipe") << false;
}

void tst_Preferences::anythingButAFileIsLeftAlone()
{
    QFETCH(bool, isFolder);
    const QString path = freshPath();
    QVERIFY(QDir().mkpath(isFolder ? path : QFileInfo(path).path()));
    if (!isFolder)
        UnusualFiles::makePipe(path);
    Preferences preferences(path);
    QVERIFY2(preferences.problem().contains(path), qPrintable(preferences.problem()));
    QCOMPARE(everything(preferences), defaults());
    preferences.setTab(1);
    QCOMPARE(preferences.tab(), 1);
    const QStringList present =
        QDir(QFileInfo(path).path())
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    QCOMPARE(present, QStringList{QFileInfo(path).fileName()});
    QVERIFY(!QFileInfo(path).isFile());
}

MV_TEST_MAIN(tst_Preferences)
#include "tst_Preferences.moc"
