// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "FavouriteSignals.h"

#include <QJsonDocument>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests favourites: their files, queries, marks and signals.
class tst_MVThemeMgr_favourites : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void pathsCreateTheirFolder_data() { addFiles(); }
    void pathsCreateTheirFolder();
    void missingFileIsCreatedEmpty_data() { addFiles(); }
    void missingFileIsCreatedEmpty();
    void fileThatCannotBeOpened_data() { addFiles(); }
    void fileThatCannotBeOpened();
    void malformedFileChangesNothing_data() { addFiles(); }
    void malformedFileChangesNothing();
    void readingReplacesTheMarks_data() { addFiles(); }
    void readingReplacesTheMarks();
    void documentThatIsNotAnObjectIsEmpty_data() { addFiles(); }
    void documentThatIsNotAnObjectIsEmpty();
    void fileIsWrittenIndented_data() { addFiles(); }
    void fileIsWrittenIndented();
    void emptyMarksAreAnEmptyObject_data() { addFiles(); }
    void emptyMarksAreAnEmptyObject();
    void savingReplacesTheFile_data() { addFiles(); }
    void savingReplacesTheFile();
    void savingThatFailsIsSilent_data() { addFiles(); }
    void savingThatFailsIsSilent();
    void askingEntersTheGuid_data() { addFiles(); }
    void askingEntersTheGuid();
    void valuesThatAreNoBooleansAreFalse_data() { addFiles(); }
    void valuesThatAreNoBooleansAreFalse();
    void settingStoresAndSignals_data() { addFiles(); }
    void settingStoresAndSignals();
    void settingWritesNothing_data() { addFiles(); }
    void settingWritesNothing();
    void markedGuids();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    static void addFiles();

    QJsonObject saved(int file) const;

    CatalogueFixture m_fixture;
};

namespace {

/// Describes one of the three favourites files.
struct Favourites
{
    const char* name;
    const char* openError;
    const char* category;
    QString (Mgr::*path)();
    void (Mgr::*read)();
    void (Mgr::*save)();
    bool (Mgr::*isMarked)(const SCfg_Item*);
    void (Mgr::*mark)(const SCfg_Item*);
};

const Favourites favouriteFiles[] = {
    {"ThemeCollect", "readThemeCollect open file[%1] error!", "MVThemeMgr", &Mgr::Path_ThemeCollect,
     &Mgr::readThemeCollect, &Mgr::saveThemeCollect, &Mgr::isThemeCollect,
     &Mgr::setThemesCollected},
    {"FilterCollect", "readFilterCollect open file[%1] error!", "MVFilterMgr",
     &Mgr::Path_FilterCollect, &Mgr::readFilterCollect, &Mgr::saveFilterCollect,
     &Mgr::isFilterCollect, &Mgr::setFilterCollected},
    {"BgMaterialCollect", "readBgMaterialCollect open file[%1] error!", "MVBgMaterialMgr",
     &Mgr::Path_BgMaterialCollect, &Mgr::readBgMaterialCollect, &Mgr::saveBgMaterialCollect,
     &Mgr::isBgMaterialCollect, &Mgr::setBgMaterialCollected},
};

/// The operations name their file, so the item's kind does not matter.
SCfg_Item item(int number, bool collected = false)
{
    SCfg_Item result;
    result.m_eType = eCfgItem_Motion;
    result.m_qsGUID = Files::guid(number);
    result.m_bCollected = collected;
    return result;
}

QJsonObject marks(const QMap<int, bool>& values)
{
    QJsonObject object;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        object.insert(Files::guid(it.key()), it.value());
    return object;
}

const QByteArray parseError =
    CatalogueFixture::line(1, "parseJson file[%1] error!", QByteArrayLiteral("MVThemeMgr"));

} // namespace

void tst_MVThemeMgr_favourites::addFiles()
{
    QTest::addColumn<int>("file");
    for (int file = 0; file < 3; ++file)
        QTest::newRow(favouriteFiles[file].name) << file;
}

/// Saves all favourites and returns the content of one file.
QJsonObject tst_MVThemeMgr_favourites::saved(int file) const
{
    for (const Favourites& each : favouriteFiles)
        (mgr().*each.save)();
    return QJsonDocument::fromJson(Files::read(m_fixture.collectFile(favouriteFiles[file].name)))
        .object();
}

void tst_MVThemeMgr_favourites::pathsCreateTheirFolder()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    hostSettings().dataLocation = m_fixture.base() + QStringLiteral("/not/yet");
    const QString folder =
        m_fixture.base() + QStringLiteral("/not/yet/") + QString::fromLatin1(f.name);
    QCOMPARE((mgr().*f.path)(),
             folder + QLatin1Char('/') + QString::fromLatin1(f.name) + QStringLiteral(".json"));
    QCOMPARE(CatalogueFixture::entriesBelow(m_fixture.base() + QStringLiteral("/not/yet")),
             QStringList{QString::fromLatin1(f.name) + QLatin1Char('/')});
}

void tst_MVThemeMgr_favourites::missingFileIsCreatedEmpty()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item kept = item(1, true);
    (mgr().*f.mark)(&kept);
    hostSettings().dataLocation = m_fixture.base() + QStringLiteral("/first");
    const LogCapture log;
    (mgr().*f.read)();
    QCOMPARE(m_fixture.described(log), QByteArrayList{parseError});
    const QString path = (mgr().*f.path)();
    QVERIFY(QFile::exists(path));
    QCOMPARE(QFileInfo(path).size(), Q_INT64_C(0));
    QVERIFY2((mgr().*f.isMarked)(&kept), "the marks stay");
}

void tst_MVThemeMgr_favourites::fileThatCannotBeOpened()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item kept = item(1, true);
    (mgr().*f.mark)(&kept);
    const QString path = m_fixture.collectFile(f.name);
    QVERIFY(QFile::remove(path) && QDir().mkpath(path));
    const LogCapture log;
    (mgr().*f.read)();
    QCOMPARE(m_fixture.described(log),
             QByteArrayList{CatalogueFixture::line(1, f.openError, f.category)});
    QVERIFY((mgr().*f.isMarked)(&kept));
}

void tst_MVThemeMgr_favourites::malformedFileChangesNothing()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item kept = item(1, true);
    (mgr().*f.mark)(&kept);
    for (const char* content : {"", "{", "{\"a\": tru", "{\"a\": true} x", "{'a': true}", "text"}) {
        Files::write(m_fixture.collectFile(f.name), content);
        const LogCapture log;
        (mgr().*f.read)();
        QCOMPARE(m_fixture.described(log), QByteArrayList{parseError});
        QVERIFY((mgr().*f.isMarked)(&kept));
        QCOMPARE(Files::read(m_fixture.collectFile(f.name)), QByteArray(content));
    }
}

void tst_MVThemeMgr_favourites::readingReplacesTheMarks()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item before = item(1, true);
    (mgr().*f.mark)(&before);
    Files::write(m_fixture.collectFile(f.name),
                 QJsonDocument(marks({{2, true}, {3, false}})).toJson());
    const LogCapture log;
    (mgr().*f.read)();
    QVERIFY(log.lines().isEmpty());
    QCOMPARE(saved(file), marks({{2, true}, {3, false}}));
    const SCfg_Item two = item(2);
    const SCfg_Item three = item(3);
    QVERIFY((mgr().*f.isMarked)(&two));
    QVERIFY(!(mgr().*f.isMarked)(&three));
    QVERIFY(!(mgr().*f.isMarked)(&before));
}

void tst_MVThemeMgr_favourites::documentThatIsNotAnObjectIsEmpty()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item before = item(1, true);
    (mgr().*f.mark)(&before);
    Files::write(m_fixture.collectFile(f.name), "[true]");
    const LogCapture log;
    (mgr().*f.read)();
    QVERIFY(log.lines().isEmpty());
    QCOMPARE(saved(file), QJsonObject());
}

void tst_MVThemeMgr_favourites::fileIsWrittenIndented()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    SCfg_Item first = item(1, true);
    first.m_qsGUID = QString::fromUtf8("{\xc3\xa9}");
    const SCfg_Item second = item(2, false);
    (mgr().*f.mark)(&second);
    (mgr().*f.mark)(&first);
    (mgr().*f.save)();
    QCOMPARE(Files::read(m_fixture.collectFile(f.name)),
             "{\n    \"" + Files::guid(2).toLatin1() + "\": false,\n    \"{\xc3\xa9}\": true\n}\n");
}

void tst_MVThemeMgr_favourites::emptyMarksAreAnEmptyObject()
{
    QFETCH(int, file);
    (mgr().*favouriteFiles[file].save)();
    QCOMPARE(Files::read(m_fixture.collectFile(favouriteFiles[file].name)), QByteArray("{\n}\n"));
}

void tst_MVThemeMgr_favourites::savingReplacesTheFile()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const QString path = m_fixture.collectFile(f.name);
    Files::write(path, "{\"" + QByteArray(100000, 'x') + "\": \"x\"}");
    (mgr().*f.read)();
    Files::write(path, "{}"); // another program has emptied it
    const SCfg_Item one = item(1, true);
    (mgr().*f.mark)(&one);
    (mgr().*f.save)();
    (mgr().*f.save)();
    QCOMPARE(QJsonDocument::fromJson(Files::read(path)).object(), marks({{1, true}}));
    QCOMPARE(Files::filesBelow(QFileInfo(path).path()), QStringList{QFileInfo(path).fileName()});

    // A folder that has disappeared meanwhile is created again.
    QVERIFY(QDir(m_fixture.data()).removeRecursively());
    (mgr().*f.save)();
    QCOMPARE(QJsonDocument::fromJson(Files::read(path)).object(), marks({{1, true}}));
}

void tst_MVThemeMgr_favourites::savingThatFailsIsSilent()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const QString path = m_fixture.collectFile(f.name);
    QVERIFY(QFile::remove(path) && QDir().mkpath(path));
    const LogCapture log;
    (mgr().*f.save)();
    QVERIFY(QFileInfo(path).isDir());

    const QString notAFolder = m_fixture.base() + QStringLiteral("/file");
    Files::write(notAFolder, "x");
    hostSettings().dataLocation = notAFolder;
    (mgr().*f.save)();
    QCOMPARE(Files::read(notAFolder), QByteArray("x"));
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_favourites::askingEntersTheGuid()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item asked = item(1, true); // the answer does not come from the record's own flag
    QVERIFY(!(mgr().*f.isMarked)(&asked));
    for (int other = 0; other < 3; ++other)
        QCOMPARE(saved(other), other == file ? marks({{1, false}}) : QJsonObject());
}

void tst_MVThemeMgr_favourites::valuesThatAreNoBooleansAreFalse()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item asked = item(1);
    for (const char* value : {"1", "\"true\"", "null", "[true]", "{\"a\": true}"}) {
        const QByteArray content = "{\"" + Files::guid(1).toLatin1() + "\": " + value + "}";
        Files::write(m_fixture.collectFile(f.name), content);
        (mgr().*f.read)();
        QVERIFY2(!(mgr().*f.isMarked)(&asked), value);
        QCOMPARE(saved(file), QJsonDocument::fromJson(content).object());
    }
}

void tst_MVThemeMgr_favourites::settingStoresAndSignals()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    SCfg_Item one = item(1, true);
    bool markedWhenSignalled = false;
    const FavouriteSignals signalled(
        [&](const SCfg_Item* it) { markedWhenSignalled = (mgr().*f.isMarked)(it); });
    (mgr().*f.mark)(&one);
    QVERIFY2(markedWhenSignalled, "views ask when the signal comes");
    QVERIFY((mgr().*f.isMarked)(&one));

    one.m_bCollected = false;
    (mgr().*f.mark)(&one);
    QVERIFY(!(mgr().*f.isMarked)(&one));
    (mgr().*f.mark)(&one);
    for (int other = 0; other < 3; ++other) {
        QCOMPARE(signalled.of(other),
                 other == file ? QVector<const SCfg_Item*>(3, &one) : QVector<const SCfg_Item*>());
        QCOMPARE(saved(other), other == file ? marks({{1, false}}) : QJsonObject());
    }
}

void tst_MVThemeMgr_favourites::settingWritesNothing()
{
    QFETCH(int, file);
    const Favourites& f = favouriteFiles[file];
    const SCfg_Item one = item(1, true);
    (mgr().*f.mark)(&one);
    (mgr().*f.isMarked)(&one);
    QCOMPARE(Files::read(m_fixture.collectFile(f.name)), QByteArray("{}"));
}

void tst_MVThemeMgr_favourites::markedGuids()
{
    Files::write(m_fixture.collectFile("ThemeCollect"),
                 QJsonDocument(QJsonObject{{Files::guid(1), true},
                                           {Files::guid(2), false},
                                           {Files::guid(3), 1},
                                           {QStringLiteral("{unknown}"), true}})
                     .toJson());
    mgr().readThemeCollect();
    QCOMPARE(mgr().favourites(eCfgItem_Theme),
             (QStringList{Files::guid(1), QStringLiteral("{unknown}")}));
    QCOMPARE(mgr().favourites(eCfgItem_Filter), QStringList());
    QCOMPARE(mgr().favourites(eCfgItem_Motion), QStringList());
}

MV_TEST_MAIN(tst_MVThemeMgr_favourites)
#include "tst_MVThemeMgr_favourites.moc"
