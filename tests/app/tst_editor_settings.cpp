// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

namespace tst_editor_settings {

/// Tests the first start without a server, the settings, and the warnings about the download
/// folder.
class tst_editor_settings : public QObject
{
    Q_OBJECT

private slots:
    void firstStartAsksForTheServer();
    void welcomeCanBeSkipped();
    void addressesAreCheckedLive_data();
    void addressesAreCheckedLive();
    void settingsAreStoredAndApplied();
    void whatCannotBeSavedIsSaid();
    void commandLineTakesPrecedence();
    void missingDownloadFolderIsSaidBeforeADownload();
    void unwritableDownloadFolderIsSaidBeforeADownload();

private:
    static QJsonObject stored(const EditorWorld& world);
};

namespace {

const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta")};
const QString openSettings = QStringLiteral("click action file\n"
                                            "click action preferences\n"
                                            "wait text settingsSpace \"Used: \"\n");

} // namespace

QJsonObject tst_editor_settings::stored(const EditorWorld& world)
{
    return QJsonDocument::fromJson(CatalogueFiles::read(world.preferencesFile())).object();
}

void tst_editor_settings::firstStartAsksForTheServer()
{
    EditorWorld world;
    world.publish(themes);
    world.leaveOut(QStringLiteral("--server"));
    QString address = world.server().url(QStringLiteral("/"));
    address.remove(QStringLiteral("http://"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait text welcomeTitle "Where do your resources come from?"
        wait focus welcomeServer
        wait disabled welcomeUse
        type "%1"
        wait text welcomeServerFound "Found: catalogue 1.2.0"
        screenshot welcome
        click widget welcomeUse
        wait gone welcomeTitle
        wait status "Catalogue updated"
        wait shown 3
        wait focus list0
    )")
                                            .arg(address)));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait status \"Up to date\"\n"
                                                       "wait gone welcomeTitle\n"
                                                       "wait shown 3\n")));
}

void tst_editor_settings::welcomeCanBeSkipped()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.leaveOut(QStringLiteral("--server"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click widget welcomeSkip
        wait gone welcomeTitle
        wait focus list0
        click cell Alpha
        wait applied Alpha
    )")));
}

void tst_editor_settings::addressesAreCheckedLive_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("verdict");
    QTest::newRow("no resources there") << QStringLiteral("http://127.0.0.1:%1/other")
                                        << QStringLiteral("has no resources at this address");
    QTest::newRow("nobody there") << QStringLiteral("http://127.0.0.1:%2")
                                  << QStringLiteral("Nothing found: the server cannot be reached");
    QTest::newRow("no address") << QStringLiteral("ftp://127.0.0.1/")
                                << QStringLiteral("This is not an address");
    QTest::newRow("a release") << QStringLiteral("http://127.0.0.1:%1")
                               << QStringLiteral("Found: catalogue 1.2.0, published on ");
}

void tst_editor_settings::addressesAreCheckedLive()
{
    QFETCH(QString, typed);
    QFETCH(QString, verdict);
    EditorWorld world;
    world.publishRelease(themes, 10);
    world.leaveOut(QStringLiteral("--server"));
    typed.replace(QStringLiteral("%1"), QString::number(QUrl(world.server().url({})).port()));
    typed.replace(QStringLiteral("%2"), QString::number(FaultServer::refusingPort()));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait focus welcomeServer\n"
                                                       "type \"%1\"\n"
                                                       "wait text welcomeServerFound \"%2\"\n")
                                            .arg(typed, verdict)));
}

void tst_editor_settings::settingsAreStoredAndApplied()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(openSettings + QStringLiteral(R"(
        wait disabled settingsServer
        wait disabled settingsFolderChoose
        screenshot settings
        click widget settingsConnections
        press Ctrl+A
        type 3
        click widget settingsMotion
        press Down
        press Enter
        click widget settingsLanguage
        press Down
        press Enter
        click widget settingsOk
        wait gone settingsOk
        wait text check "Jetzt prüfen"
        hover cell Alpha
        wait still Alpha
    )"),
                                        false));
    const QJsonObject settings = stored(world);
    QCOMPARE(settings.value(QStringLiteral("connections")).toInt(), 3);
    QCOMPARE(settings.value(QStringLiteral("reduceMotion")), QJsonValue(true));
    QCOMPARE(settings.value(QStringLiteral("language")).toString(), QStringLiteral("de"));
    QVERIFY(!settings.contains(QStringLiteral("server")));
    QVERIFY(!settings.contains(QStringLiteral("downloadFolder")));
}

void tst_editor_settings::whatCannotBeSavedIsSaid()
{
    EditorWorld world;
    world.fillRoot(themes);
    QVERIFY(QDir().mkpath(world.preferencesFile()));
    VERIFY_ENDED_WELL(Editor(world).run(openSettings + QStringLiteral(R"(
        click widget settingsConnections
        press Ctrl+A
        type 3
        click widget settingsOk
        wait text settingsProblem "The settings cannot be saved: "
        click widget settingsCancel
        wait gone settingsOk
    )"),
                                        false));
}

void tst_editor_settings::commandLineTakesPrecedence()
{
    EditorWorld world;
    world.publish(themes);
    CatalogueFiles::write(world.preferencesFile(),
                          R"({"server": "http://127.0.0.1:1/", "downloadFolder": "/proc/none"})");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait status \"Catalogue updated\"\n"
                                                       "wait gone folderBarText\n")));
    QVERIFY(QDir(world.root() + QStringLiteral("/Themes")).exists());
}

void tst_editor_settings::missingDownloadFolderIsSaidBeforeADownload()
{
    EditorWorld world;
    world.publish(themes);
    world.leaveOut(QStringLiteral("--root"));
    CatalogueFiles::write(world.preferencesFile(), R"({"downloadFolder": "/proc/none"})");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait text folderBarText "The download folder is not available now: /proc/none"
        screenshot folder
        click widget folderBarAction
        wait text settingsFolder /proc/none
        wait text settingsSpace "This folder is not writable"
        press Esc
        wait gone settingsFolder
        click widget folderBarClose
        wait gone folderBarText
    )")));
    QVERIFY(QDir(world.data() + QStringLiteral("/download")).exists());
}

void tst_editor_settings::unwritableDownloadFolderIsSaidBeforeADownload()
{
    EditorWorld world;
    world.install(themes);
    world.leaveOut(QStringLiteral("--root"));
    // Not even the superuser can write there.
    CatalogueFiles::write(world.preferencesFile(), R"({"downloadFolder": "/proc/self/fd"})");
    VERIFY_ENDED_WELL(Editor(world).run(
        QStringLiteral("wait text folderBarText \"the download folder is not writable\"\n")));
}

MV_TEST_MAIN(tst_editor_settings)

} // namespace tst_editor_settings

#include "tst_editor_settings.moc"
