// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FolderSwitch.h"
#include "host/SystemFile.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#ifndef Q_OS_WIN
#include <sys/stat.h>

namespace {

mode_t modeOf(const QString& folder)
{
    struct stat info = {};
    return ::stat(QFile::encodeName(folder).constData(), &info) == 0 ? info.st_mode & 07777 : 0;
}

} // namespace
#endif

/// Tests replacing a folder, also where two cannot be exchanged, and after a killed run.
class TestMvpublishSwitch : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void replaces_data();
    void replaces();
    void oldFolderIsPutBackWhereThereIsNone();
    void oldFolderGoesWhereTheNewOneIsInPlace();
    void placeBelongsToOneAtATime();
    void folderTakesTheModeOfThePlace();
    void changedFileOfTheSameLengthIsLater_data();
    void changedFileOfTheSameLengthIsLater();
    void changedNameOfALinkedFileIsLater();

private:
    QString place() const { return m_folder + text("/tree"); }
    QString old() const { return m_folder + text("/.tree.new.old"); }
    QStringList entries() const
    {
        return QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QString m_folder;
};

void TestMvpublishSwitch::init()
{
    m_folder = TestHome::path() + text("/switch");
    QDir(m_folder).removeRecursively();
    QVERIFY(QDir().mkpath(m_folder));
}

void TestMvpublishSwitch::replaces_data()
{
    QTest::addColumn<bool>("exchange");
    QTest::newRow("in one step") << true;
    QTest::newRow("by renames") << false;
}

void TestMvpublishSwitch::replaces()
{
    QFETCH(bool, exchange);
    for (const char* content : {"first", "second", "third"}) {
        FolderSwitch folder(place());
        if (!exchange)
            folder.useRenames();
        QVERIFY2(folder.begin(), qPrintable(folder.errorText()));
        CatalogueFiles::write(folder.folder() + text("/a.txt"), content);
        QVERIFY2(folder.commit(), qPrintable(folder.errorText()));
        QCOMPARE(CatalogueFiles::read(place() + text("/a.txt")), QByteArray(content));
    }
    QCOMPARE(entries(), QStringList{text("tree")});
}

/// The run was killed between its two renames.
void TestMvpublishSwitch::oldFolderIsPutBackWhereThereIsNone()
{
    CatalogueFiles::write(old() + text("/a.txt"), "old");
    CatalogueFiles::write(m_folder + text("/.tree.new/a.txt"), "new");
    {
        FolderSwitch folder(place());
        QVERIFY2(folder.begin(), qPrintable(folder.errorText()));
        QCOMPARE(CatalogueFiles::read(place() + text("/a.txt")), QByteArray("old"));
        QVERIFY(QDir(folder.folder()).isEmpty());
    }
    QCOMPARE(entries(), QStringList{text("tree")});
}

/// The run was killed before it had removed the old folder.
void TestMvpublishSwitch::oldFolderGoesWhereTheNewOneIsInPlace()
{
    CatalogueFiles::write(old() + text("/a.txt"), "old");
    CatalogueFiles::write(place() + text("/a.txt"), "new");
    {
        FolderSwitch folder(place());
        folder.useRenames();
        QVERIFY2(folder.begin(), qPrintable(folder.errorText()));
        QCOMPARE(CatalogueFiles::read(place() + text("/a.txt")), QByteArray("new"));
        CatalogueFiles::write(folder.folder() + text("/a.txt"), "newer");
        QVERIFY2(folder.commit(), qPrintable(folder.errorText()));
    }
    QCOMPARE(CatalogueFiles::read(place() + text("/a.txt")), QByteArray("newer"));
    QCOMPARE(entries(), QStringList{text("tree")});
}

void TestMvpublishSwitch::placeBelongsToOneAtATime()
{
    FolderSwitch second(place());
    {
        FolderSwitch first(place());
        QVERIFY(first.begin());
        CatalogueFiles::write(first.folder() + text("/a.txt"), "first");
        QVERIFY(!second.begin());
        QCOMPARE(second.errorText(), place() + text(" is being written by another run"));
        QVERIFY(!second.lock());
        QVERIFY(first.commit());
    }
    QVERIFY2(second.begin(), qPrintable(second.errorText()));
    QCOMPARE(CatalogueFiles::read(place() + text("/a.txt")), QByteArray("first"));
}

void TestMvpublishSwitch::folderTakesTheModeOfThePlace()
{
#ifdef Q_OS_WIN
    QSKIP("Folders there have the permissions of the folder around them.");
#else
    constexpr mode_t open = 0755;
    constexpr mode_t grouped = 02750;
    const auto build = [this] {
        FolderSwitch folder(place());
        return folder.begin() && folder.commit();
    };
    QVERIFY(build());
    QCOMPARE(modeOf(place()), open);
    QCOMPARE(::chmod(QFile::encodeName(place()).constData(), grouped), 0);
    QVERIFY(build());
    QCOMPARE(modeOf(place()), grouped);
#endif
}

void TestMvpublishSwitch::changedFileOfTheSameLengthIsLater_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<qint64>("later");
    const qint64 hour = 3600;
    QTest::newRow("same bytes, new date") << QByteArray("one") << -hour;
    QTest::newRow("same bytes, old date") << QByteArray("one") << hour;
    QTest::newRow("other bytes, old date") << QByteArray("two") << hour;
    QTest::newRow("other bytes, new date") << QByteArray("two") << -hour;
}

void TestMvpublishSwitch::changedFileOfTheSameLengthIsLater()
{
    QFETCH(QByteArray, content);
    QFETCH(qint64, later);
    const QString name = place() + text("/a.txt");
    CatalogueFiles::write(name, "one");
    const QDateTime before = QFileInfo(name).lastModified().addSecs(later);
    {
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(before, QFile::FileModificationTime));
    }
    FolderSwitch folder(place());
    QVERIFY(folder.begin());
    CatalogueFiles::write(folder.folder() + text("/a.txt"), content);
    QVERIFY(folder.commit());
    const qint64 seconds =
        QFileInfo(name).lastModified().toSecsSinceEpoch() - before.toSecsSinceEpoch();
    if (content == "one")
        QCOMPARE(seconds, qint64(0));
    else
        QVERIFY(seconds >= 1);
}

/// Two names link to one file, and one of them had another content before, whichever comes first.
void TestMvpublishSwitch::changedNameOfALinkedFileIsLater()
{
    const QDateTime before = QDateTime::fromSecsSinceEpoch(2000000000);
    const QStringList changed{text("a/f"), text("b/g")};
    const QStringList unchanged{text("b/f"), text("a/g")};
    const QStringList names = changed + unchanged;
    for (const QString& name : names) {
        const QString file = place() + QLatin1Char('/') + name;
        CatalogueFiles::write(file, changed.contains(name) ? "other" : "equal");
        QFile written(file);
        QVERIFY(written.open(QIODevice::ReadWrite));
        QVERIFY(written.setFileTime(before, QFile::FileModificationTime));
    }
    FolderSwitch folder(place());
    QVERIFY2(folder.begin(), qPrintable(folder.errorText()));
    for (int i = 0; i < changed.size(); ++i) {
        const QString file = folder.folder() + QLatin1Char('/') + changed.at(i);
        const QString link = folder.folder() + QLatin1Char('/') + unchanged.at(i);
        CatalogueFiles::write(file, "equal");
        QDir().mkpath(QFileInfo(link).path());
        QVERIFY(SystemFile::link(SystemFile::encodedName(file), SystemFile::encodedName(link)));
    }
    QVERIFY2(folder.commit(), qPrintable(folder.errorText()));
    for (const QString& name : changed)
        QCOMPARE(QFileInfo(place() + QLatin1Char('/') + name).lastModified(), before.addSecs(1));
}

MV_TEST_MAIN(TestMvpublishSwitch)
#include "tst_mvpublish_switch.moc"
