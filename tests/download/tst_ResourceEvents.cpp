// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueChanges.h"
#include "download/ResourceEvents.h"
#include "download/ResourceStorage.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>

#include <algorithm>
#include <optional>
#include <utility>

namespace tst_ResourceEvents {

/// Tests that the process learns of downloads and of changed files, whoever caused them.
class tst_ResourceEvents : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.freshStorage();
        hostSettings().downloadStepMs = 0;
        hostSettings().downloadRetries = 0;
    }

    void downloadIsTold();
    void downloadOfAThemeTellsAllItsFiles();
    void failedDownloadIsTold();
    void updateTellsItsFiles();
    void removalAndUndoingTellTheirFiles();
    void catalogueTellsItsChanges();

private:
    StorageWorld m_world;
};

namespace {

/// Records the signals, on the thread that receives them.
class Recorder : public QObject
{
public:
    Recorder()
    {
        ResourceEvents* const events = ResourceEvents::instance();
        connect(events, &ResourceEvents::downloadStarted, this,
                [this](ECfgItemType kind, const QString& guid) {
                    ends.append(QStringLiteral("started %1 %2").arg(kind).arg(guid));
                });
        connect(events, &ResourceEvents::downloadProgressed, this,
                [this](ECfgItemType, const QString&, int percent) { percents.append(percent); });
        connect(events, &ResourceEvents::downloadEnded, this,
                [this](ECfgItemType kind, const QString& guid, const SItemDownloadResult& result) {
                    ends.append(QStringLiteral("ended %1 %2 %3 %4")
                                    .arg(kind)
                                    .arg(guid)
                                    .arg(result.m_eEnd)
                                    .arg(result.m_failure.m_eCause));
                });
        connect(events, &ResourceEvents::filesChanged, this, [this](const QStringList& changed) {
            paths = changed;
            paths.sort();
        });
    }

    QStringList ends;
    QVector<int> percents;
    QStringList paths;
};

/// Records the catalogue's signals, and gives back what it uses when it is asked to.
class CatalogueRecorder : public QObject
{
public:
    CatalogueRecorder()
    {
        CatalogueChanges* const changes = CatalogueChanges::instance();
        connect(changes, &CatalogueChanges::announced, this, [this] {
            m_told.append(QStringLiteral("about %1").arg(themeCount()));
            use.reset();
        });
        connect(changes, &CatalogueChanges::ended, this, [this](bool hasChanged) {
            m_told.append(QStringLiteral("changed %1 %2").arg(hasChanged).arg(themeCount()));
        });
    }

    QStringList takeTold() { return std::exchange(m_told, {}); }

    std::optional<CatalogueUse> use;

private:
    static int themeCount()
    {
        return static_cast<int>(MVThemeMgr::init()->getThemes_Display().size());
    }

    QStringList m_told;
};

} // namespace

void tst_ResourceEvents::downloadIsTold()
{
    const Recorder recorder;
    MVThemeDownLoader loader(nullptr);
    loader.download(&StorageWorld::filter(13));
    QTRY_VERIFY(!recorder.paths.isEmpty());
    const QString guid = CatalogueFiles::guid(13);
    QCOMPARE(recorder.ends,
             (QStringList{text("started 0 ") + guid, text("ended 0 ") + guid + text(" 0 0")}));
    for (const char* name : {"VideoFilters/13.xml", "VideoFilters/13.zip"})
        QVERIFY2(recorder.paths.contains(QDir::cleanPath(m_world.file(name))), name);
    QStringList paths = recorder.paths;
    QCOMPARE(int(paths.removeDuplicates()), 0);
    QVERIFY(recorder.percents.contains(100));
    const QVector<int> sorted = [&] {
        QVector<int> all = recorder.percents;
        std::sort(all.begin(), all.end());
        return all;
    }();
    QCOMPARE(recorder.percents, sorted);
    QCOMPARE(std::adjacent_find(sorted.cbegin(), sorted.cend()), sorted.cend()); // each once
}

void tst_ResourceEvents::downloadOfAThemeTellsAllItsFiles()
{
    const Recorder recorder;
    MVThemeDownLoader loader(nullptr);
    loader.download(&StorageWorld::theme(2));
    QTRY_VERIFY(!recorder.paths.isEmpty());
    for (const char* name : {"Themes/2.xml", "Themes/2.zip", "VideoFilters/12.zip"})
        QVERIFY2(recorder.paths.contains(QDir::cleanPath(m_world.file(name))), name);
}

void tst_ResourceEvents::failedDownloadIsTold()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(404).body("no"));
        return true;
    });
    const Recorder recorder;
    MVThemeDownLoader loader(nullptr);
    loader.download(&StorageWorld::theme(1));
    QTRY_COMPARE(recorder.ends.size(), 2);
    const QString guid = CatalogueFiles::guid(1);
    QCOMPARE(recorder.ends.last(),
             text("ended 3 ") + guid
                 + QStringLiteral(" %1 %2").arg(eItemDownload_Failed).arg(eFailure_NotOnServer));
}

void tst_ResourceEvents::updateTellsItsFiles()
{
    const Recorder recorder;
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QCOMPARE(recorder.paths,
             (QStringList{QDir::cleanPath(m_world.file("VideoFilters/13.xml")),
                          QDir::cleanPath(m_world.file("VideoFilters/13.zip"))}));
}

void tst_ResourceEvents::removalAndUndoingTellTheirFiles()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    const QStringList files{QDir::cleanPath(m_world.file("VideoFilters/13.xml")),
                            QDir::cleanPath(m_world.file("VideoFilters/13.zip"))};
    Recorder recorder;
    const ResourceStorage::Removal removal = ResourceStorage().removeItem(StorageWorld::filter(13));
    QCOMPARE(recorder.paths, files);
    recorder.paths.clear();
    QVERIFY(ResourceStorage::undo(removal));
    QCOMPARE(recorder.paths, files);
}

void tst_ResourceEvents::catalogueTellsItsChanges()
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    CatalogueRecorder recorder;
    recorder.use.emplace();
    QVERIFY(catalogue->tryReload());
    QCOMPARE(recorder.takeTold(), (QStringList{text("about 2"), text("changed 1 2")}));
    {
        const CatalogueUse other;
        QVERIFY(!catalogue->tryClear());
    }
    QCOMPARE(recorder.takeTold(), (QStringList{text("about 2"), text("changed 0 2")}));
    QVERIFY(catalogue->tryClear());
    QCOMPARE(recorder.takeTold(), (QStringList{text("about 2"), text("changed 1 0")}));
    catalogue->load(false);
    catalogue->load(false); // has been read
    QCOMPARE(recorder.takeTold(), (QStringList{text("about 0"), text("changed 1 2")}));
}

MV_TEST_MAIN(tst_ResourceEvents)

} // namespace tst_ResourceEvents

#include "tst_ResourceEvents.moc"
