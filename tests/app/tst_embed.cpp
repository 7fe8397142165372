// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ConsoleProgram.h"
#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QFile>
#include <QProcess>

#include <atomic>
#include <functional>

/// Tests examples/embed, the smallest host.
class tst_embed : public QObject
{
    Q_OBJECT

private slots:
    void wrongArguments_data();
    void wrongArguments();
    void favouritesSurviveAReload();
    void healthyStartsPrintNothing();
    void printsWhatTheEnvironmentAsksFor();
};

namespace {

const QString program = QStringLiteral(EMBED_PROGRAM);
const QString alpha = QStringLiteral("Alpha");

/// Returns the editor's settings with the server's address.
QString settingsFor(const EditorWorld& world)
{
    QString file = world.folder() + QStringLiteral("/host.ini");
    const QByteArray address =
        "[params]\nurl_themeRootDir=" + world.arguments().constLast().toUtf8();
    CatalogueFiles::write(file, CatalogueFiles::read(file).replace("[params]", address));
    return file;
}

/// Returns the program's output up to `isDone`, or ending in "not done" on a timeout.
QByteArray printedUntil(const std::function<bool()>& isDone, const EditorWorld& world,
                        const QString& settings, const QString& loggingRules)
{
    QProcessEnvironment environment = Editor::environment(world);
    environment.remove(QStringLiteral("QT_LOGGING_RULES"));
    if (!loggingRules.isEmpty())
        environment.insert(QStringLiteral("QT_LOGGING_RULES"), loggingRules);
    QProcess embed;
    embed.setProcessEnvironment(environment);
    embed.setProcessChannelMode(QProcess::MergedChannels);
    embed.start(program, {settings, world.root()});
    const bool hasDone = QTest::qWaitFor(isDone, 20000);
    embed.kill();
    embed.waitForFinished();
    return embed.readAll() + (hasDone ? "" : "not done");
}

/// Returns the output of two starts: the first fetches catalogue and previews, the second finds
/// them.
QByteArray printedByTwoStarts(const QString& loggingRules = QString())
{
    EditorWorld world;
    const QString beta = QStringLiteral("Beta");
    world.install({alpha});
    world.publish({alpha, beta});
    const QString settings = settingsFor(world);
    const auto hasLastPreview = [&world] {
        return !CatalogueFiles::filesBelow(world.root())
                    .filter(QStringLiteral("beta.gif"))
                    .isEmpty();
    };
    const QByteArray first = printedUntil(hasLastPreview, world, settings, loggingRules);
    const int requests = world.server().requestCount();
    const auto checksAgain = [&world, requests] {
        return world.server().requestCount() > requests;
    };
    return first + printedUntil(checksAgain, world, settings, loggingRules);
}

} // namespace

void tst_embed::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("no such settings")
        << QStringList{QStringLiteral("/none"), QStringLiteral("/none")};
}

void tst_embed::wrongArguments()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = ConsoleProgram::run(program, arguments);
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.err.contains("usage: embed"), outcome.err.constData());
}

void tst_embed::favouritesSurviveAReload()
{
    std::atomic<bool> removed{false};
    EditorWorld world;
    world.fillRoot({alpha});
    world.publish({alpha, QStringLiteral("Beta")});
    const QByteArray guid = EditorWorld::themeGuid(alpha).toUtf8();
    const QString favourites = world.data() + QStringLiteral("/ThemeCollect/ThemeCollect.json");
    CatalogueFiles::write(favourites, "{\"" + guid + "\": true}");
    // From here on only the program has the mark, as with one that the user sets.
    world.setFault([&](const HttpExchange&, int) {
        if (!removed.exchange(true))
            QFile::remove(favourites);
        return false;
    });
    QProcess embed;
    embed.start(program, {settingsFor(world), world.root()});
    QTRY_VERIFY_WITH_TIMEOUT(removed && CatalogueFiles::read(favourites).contains(guid), 20000);
    embed.kill();
    embed.waitForFinished();
}

void tst_embed::healthyStartsPrintNothing()
{
    QCOMPARE(printedByTwoStarts(), QByteArray());
}

void tst_embed::printsWhatTheEnvironmentAsksFor()
{
    const QByteArray printed = printedByTwoStarts(QStringLiteral("MVThemeMgr.debug=true"));
    QVERIFY2(printed.contains("MVThemeMgr: checkXml ["), printed.constData());
    QVERIFY2(!printed.contains("Resource root path"), printed.constData());
    QVERIFY2(!printed.contains("CheckWorker"), printed.constData());
}

MV_TEST_MAIN(tst_embed)
#include "tst_embed.moc"
