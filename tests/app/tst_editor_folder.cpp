// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace tst_editor_folder {

/// Tests choosing another download folder, to which the downloads may follow.
class tst_editor_folder : public QObject
{
    Q_OBJECT

private slots:
    void downloadsFollowToANewFolder();
    void downloadsStayWhileOneRuns();
    void downloadsStayWhileACheckWaits();
    void cancelledMoveChangesNothing();
    void failedMoveChangesNothing();
    void folderInUseIsKept();
    void unavailableFolderIsForgotten();

private:
    static QString newFolder(const EditorWorld& world);
    static QString chosen(const QString& folder);
    static QString changeFolder(const EditorWorld& world);
    static QString storedFolder(const EditorWorld& world);
};

namespace {

const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta")};

} // namespace

QString tst_editor_folder::newFolder(const EditorWorld& world)
{
    return world.folder() + QStringLiteral("/new");
}

QString tst_editor_folder::storedFolder(const EditorWorld& world)
{
    return QJsonDocument::fromJson(CatalogueFiles::read(world.preferencesFile()))
        .object()
        .value(QStringLiteral("downloadFolder"))
        .toString();
}

/// Returns the steps that choose a download folder, which must exist.
QString tst_editor_folder::chosen(const QString& folder)
{
    return QStringLiteral("click action file\n"
                          "click action preferences\n"
                          "click widget settingsFolderChoose\n"
                          "wait focus fileNameEdit\n"
                          "press Ctrl+A\n"
                          "type \"%1\"\n"
                          "press Enter\n"
                          "wait text settingsFolder \"%1\"\n"
                          "click widget settingsOk\n")
        .arg(folder);
}

/// Returns the steps that choose a new download folder, after the one of the world.
QString tst_editor_folder::changeFolder(const EditorWorld& world)
{
    if (!QDir().mkpath(newFolder(world)))
        return {};
    CatalogueFiles::write(world.preferencesFile(),
                          "{\"downloadFolder\": \"" + world.root().toUtf8() + "\"}");
    return chosen(newFolder(world))
        + QStringLiteral("wait text qt_msgbox_label \"Move the downloads to the new folder?\"\n");
}

void tst_editor_folder::downloadsFollowToANewFolder()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.publish(themes);
    world.leaveOut(QStringLiteral("--root"));
    const QString change = changeFolder(world);
    const QString remove = QStringLiteral("wait quiet\n"
                                          "click cell Beta\n"
                                          "wait applied Beta\n"
                                          "click widget removeItem\n"
                                          "click widget confirmRemoval\n"
                                          "wait text undoBarText Beta\n"
                                          "wait reloads 1\n");
    VERIFY_ENDED_WELL(Editor(world).run(remove + change
                                        + QStringLiteral("screenshot move\n"
                                                         "click widget moveDownloads\n"
                                                         "wait message \"in the new folder now\"\n"
                                                         "wait reloads 2\n"
                                                         "wait gone undoBarText\n"
                                                         "click cell Alpha\n"
                                                         "wait applied Alpha\n")));
    QVERIFY(!QFile::exists(world.root() + QStringLiteral("/Themes")));
    QCOMPARE(storedFolder(world), newFolder(world));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait status \"Up to date\"\n"
                                                       "click cell Beta\n"
                                                       "wait applied Beta\n")));
    QVERIFY(!QFile::exists(world.root() + QStringLiteral("/Themes")));
}

void tst_editor_folder::downloadsStayWhileOneRuns()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    world.leaveOut(QStringLiteral("--root"));
    world.setFault([](HttpExchange& exchange, int) {
        const bool isHeld = exchange.request().target.contains("alpha/theme.zip");
        if (isHeld)
            exchange.stall();
        return isHeld;
    });
    const QString change = changeFolder(world);
    VERIFY_ENDED_WELL(Editor(world).run(
        QStringLiteral("wait quiet\nclick cell Alpha\nwait downloading Alpha\n") + change
        + QStringLiteral("wait text qt_msgbox_label \"while downloads run, or a check runs\"\n"
                         "wait disabled moveDownloads\n"
                         "click widget leaveDownloads\n"
                         "wait message \"from the next start on\"\n"
                         "wait downloading Alpha\n")));
    QVERIFY(QFile::exists(world.root() + QStringLiteral("/Themes")));
}

/// It would begin in the middle of the move.
void tst_editor_folder::downloadsStayWhileACheckWaits()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.leaveOut(QStringLiteral("--root"));
    const QString settings = world.folder() + QStringLiteral("/host.ini");
    CatalogueFiles::write(settings,
                          CatalogueFiles::read(settings) + "[network]\ncheckSpreadSeconds=86400\n");
    const QString change = changeFolder(world);
    VERIFY_ENDED_WELL(
        Editor(world).run(QStringLiteral("wait phase waiting\n") + change
                          + QStringLiteral("wait text qt_msgbox_label \"or is about to\"\n"
                                           "wait disabled moveDownloads\n"
                                           "click widget leaveDownloads\n"
                                           "wait message \"from the next start on\"\n")));
}

void tst_editor_folder::cancelledMoveChangesNothing()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.leaveOut(QStringLiteral("--root"));
    const QString change = changeFolder(world);
    // Comparing what is already there takes until the cancel. The files have no blocks.
    const QString large = QStringLiteral("/Themes/config/large.bin");
    constexpr qint64 largeBytes = 1LL << 40;
    for (const QString& root : {world.root(), newFolder(world)}) {
        CatalogueFiles::write(root + large, {});
        QVERIFY(QFile::resize(root + large, largeBytes));
    }
    const QStringList before = CatalogueFiles::filesBelow(world.root());
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait quiet\n") + change
                                            + QStringLiteral("click widget moveDownloads\n"
                                                             "click widget cancelMove\n"
                                                             "wait message \"Nothing was moved\"\n"
                                                             "wait gone cancelMove\n"
                                                             "click cell Alpha\n"
                                                             "wait applied Alpha\n"),
                                        false));
    QCOMPARE(storedFolder(world), world.root());
    QCOMPARE(CatalogueFiles::filesBelow(newFolder(world)).size(), 1);
    for (const QString& file : before)
        QVERIFY2(QFile::exists(world.root() + QLatin1Char('/') + file), qPrintable(file));
}

void tst_editor_folder::failedMoveChangesNothing()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.leaveOut(QStringLiteral("--root"));
    const QString change = changeFolder(world);
    const QString theirs =
        newFolder(world) + world.themeFile(themes.first()).mid(world.root().size());
    CatalogueFiles::write(theirs, "theirs");
    VERIFY_ENDED_WELL(Editor(world).run(
        QStringLiteral("wait quiet\n") + change
            + QStringLiteral("click widget moveDownloads\n"
                             "wait text qt_msgbox_label \"Nothing was moved: The new folder "
                             "already holds other downloads; choose an empty folder: %1\"\n"
                             "press Enter\n"
                             "wait gone qt_msgbox_label\n"
                             "click cell Alpha\n"
                             "wait applied Alpha\n")
                  .arg(theirs),
        false));
    QCOMPARE(storedFolder(world), world.root());
    QCOMPARE(CatalogueFiles::read(theirs), QByteArray("theirs"));
    QCOMPARE(CatalogueFiles::filesBelow(newFolder(world)).size(), 1);
}

/// Chosen again after another folder that would have been used from the next start on.
void tst_editor_folder::folderInUseIsKept()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.leaveOut(QStringLiteral("--root"));
    const QString change = changeFolder(world);
    VERIFY_ENDED_WELL(Editor(world).run(
        QStringLiteral("wait quiet\n") + change
            + QStringLiteral("click widget leaveDownloads\n"
                             "wait message \"from the next start on\"\n")
            + chosen(world.root()) + QStringLiteral("wait message \"stay in this folder\"\n"),
        false));
    QCOMPARE(storedFolder(world), world.root());
}

void tst_editor_folder::unavailableFolderIsForgotten()
{
    EditorWorld world;
    world.publish(themes);
    world.leaveOut(QStringLiteral("--root"));
    const QString change = changeFolder(world);
    const QString file = world.folder() + QStringLiteral("/file");
    CatalogueFiles::write(file, "in the way");
    CatalogueFiles::write(world.preferencesFile(),
                          "{\"downloadFolder\": \"" + file.toUtf8() + "/none\"}");
    VERIFY_ENDED_WELL(Editor(world).run(
        QStringLiteral("wait quiet\n"
                       "wait text folderBarText \"The download folder is not available now\"\n")
        + change
        + QStringLiteral("click widget moveDownloads\n"
                         "wait message \"in the new folder now\"\n"
                         "wait gone folderBarText\n")));
    QCOMPARE(storedFolder(world), newFolder(world));
}

MV_TEST_MAIN(tst_editor_folder)

} // namespace tst_editor_folder

#include "tst_editor_folder.moc"
